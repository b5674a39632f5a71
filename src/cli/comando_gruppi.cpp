#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "files/sessione.h"
#include "personal/file_gruppi.h"
#include "results/risultato.h"
#include "results/scrittori.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace sortimetra {

int comando_gruppi(Richiesta& richiesta, const Canali& canali) {
    auto gruppi = elenca_gruppi(cartella_programma(richiesta.cartella));
    if (!gruppi) {
        lamenta(canali, gruppi.error().testo);
        return kSenzaDati;
    }
    std::string testo;
    if (richiesta.json) {
        auto lista = nlohmann::ordered_json::array();
        for (const VoceGruppo& g : *gruppi)
            lista.push_back({{"nome", g.nome}, {"lunghette", g.lunghette}, {"numeri", g.numeri}});
        testo = lista.dump(1) + "\n";
    } else {
        Tabella t;
        t.titoli = {{"Nome Gruppo", "Lunhge", "Numeri"}};
        ColonnaTesti nomi;
        ColonnaInteri lunghette;
        ColonnaInteri numeri;
        for (VoceGruppo& g : *gruppi) {
            nomi.valori.push_back(std::move(g.nome));
            lunghette.valori.push_back(g.lunghette);
            numeri.valori.push_back(g.numeri);
        }
        t.colonne = {std::move(nomi), std::move(lunghette), std::move(numeri)};
        scrivi_tabella(testo, t);
    }
    return consegna(canali, testo);
}

}  // namespace sortimetra
