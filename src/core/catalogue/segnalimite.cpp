#include "catalogue/segnalimite.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <string_view>

namespace sortimetra {

namespace {

constexpr bool tutti_da_1_a_90() {
    return std::all_of(kSegnalimite.begin(), kSegnalimite.end(), [](const auto& terna) {
        return std::all_of(terna.begin(), terna.end(), [](Numero n) { return n >= 1 && n <= 90; });
    });
}
static_assert(tutti_da_1_a_90());

}  // namespace

std::string testo_segnalimite(int numero) {
    std::string testo;
    for (const Numero n : kSegnalimite[static_cast<std::size_t>(numero - 1)]) {
        if (!testo.empty()) testo += " - ";
        aggiungi_due_cifre(testo, n);
    }
    return testo;
}

Risultato segnalimite(const ArchivioEstrazioni&, const Domanda&, Avanzamento&) {
    ColonnaInteri numeri;
    ColonnaTesti terne;
    for (int n = 1; n <= 90; ++n) {
        numeri.valori.push_back(n);
        terne.valori.push_back(testo_segnalimite(n));
    }
    Tabella tabella;
    tabella.titoli = {{"N.", "Segnalimiti"}};
    tabella.colonne = {std::move(numeri), std::move(terne)};
    Risultato r;
    r.tabelle.push_back(std::move(tabella));
    return r;
}

}  // namespace sortimetra
