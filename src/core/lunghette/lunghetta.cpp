#include "lunghette/lunghetta.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// The row measures its numbers, unless a slot shows 0, which is none.
Eventi eventi_di(const Lunghetta& lunghetta, ColpoLunghetta colpo) {
    Eventi eventi{.gioco = colpo.gioco, .presenti = static_cast<std::uint8_t>(colpo.presenti)};
    for (const int n : lunghetta.caselle)
        if (n > 0) eventi.numeri.push_back(static_cast<Numero>(n));
    eventi.quanti = static_cast<std::uint8_t>(eventi.numeri.size());
    if (eventi.quanti == 0 || eventi.quanti != lunghetta.piene()) return {.gioco = colpo.gioco};
    return eventi;
}

}  // namespace

std::size_t Lunghetta::piene() const {
    return kCaselle - static_cast<std::size_t>(std::count(caselle.begin(), caselle.end(), kCasellaVuota));
}

Risultato risultato_lunghetta(const Lunghetta& lunghetta, ColpoLunghetta colpo) {
    std::string numeri;
    std::vector<std::string> caselle(kCaselle);
    for (std::size_t i = 0; i < kCaselle; ++i) {
        const int n = lunghetta.caselle[i];
        if (n == kCasellaVuota) continue;
        aggiungi_intero(caselle[i], n);
        if (!numeri.empty()) numeri += '.';
        aggiungi_due_cifre(numeri, n);
    }
    Tabella tabella;
    tabella.titoli = {{"Numeri"}};
    tabella.colonne.emplace_back(ColonnaTesti{{std::move(numeri)}});
    tabella.eventi = eventi_di(lunghetta, colpo);
    Risultato r;
    r.tabelle.push_back(std::move(tabella));
    r.etichette.push_back({"lblnum", std::move(caselle)});
    r.etichette.push_back(
        {"lblRit_freq", lunghetta.punteggio ? std::to_string(*lunghetta.punteggio) : std::string{}});
    r.etichette.push_back(
        {"lbloption", std::vector<std::string>(lunghetta.semi.begin(), lunghetta.semi.end())});
    return r;
}

Risultato nessuna_lunghetta(std::string perche) {
    Risultato r = non_avviata({});
    r.note.push_back(std::move(perche));
    return r;
}

}  // namespace sortimetra
