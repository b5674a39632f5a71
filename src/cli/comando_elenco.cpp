#include "catalogue/nomi.h"
#include "catalogue/ricerche.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "files/sessione.h"
#include "results/scrittori.h"
#include "stores/apertura.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

namespace sortimetra {

namespace {

/// Why a search cannot run here; "" if it can. `presenti` are the tables whose files are there, sound or not.
std::string_view impedimento(const Ricerca& r, unsigned presenti) {
    if (!r.pronta()) return "non è ancora disponibile";
    if (r.tabelle != 0 && (r.tabelle & presenti) == 0) return "manca l'archivio";
    return {};
}

}  // namespace

int comando_elenco(Richiesta& richiesta, const Canali& canali) {
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    const unsigned presenti = tabelle_presenti(sessione.percorso_archivio());

    Tabella tabella;
    tabella.titoli = {{"Scheda", "Gruppo", "Ricerca", "Chiave", "Eseguibile"}};
    std::array<ColonnaTesti, 5> colonne;
    auto lista = nlohmann::ordered_json::array();
    std::set<std::string_view> elencate;
    const auto voce = [&](std::string_view scheda, std::string_view gruppo, std::string_view nome,
                          const Ricerca& r) {
        const std::string_view perche_no = impedimento(r, presenti);
        elencate.insert(r.chiave());
        const std::string eseguibile = perche_no.empty() ? "sì" : "no: " + std::string{perche_no};
        for (std::size_t c = 0;
             const std::string_view testo : {scheda, gruppo, nome, r.chiave(), std::string_view{eseguibile}})
            colonne[c++].valori.emplace_back(testo);
        if (richiesta.json)
            lista.push_back({{"scheda", scheda},
                             {"gruppo", gruppo},
                             {"ricerca", nome},
                             {"chiave", r.chiave()},
                             {"eseguibile", perche_no.empty()},
                             {"motivo", perche_no}});
    };
    for (const Scheda& s : schede())
        for (const Elenco& e : s.elenchi) {
            for (const std::string_view nome : e.voci)
                if (const Ricerca* r = trova_ricerca(nome)) voce(s.nome, e.nome, nome, *r);
            // A group without a list is a button that opens its search at once.
            if (e.voci.empty())
                if (const Ricerca* r = trova_ricerca(nomi::kMiglioriRitardi.chiave))
                    voce(s.nome, e.nome, r->titolo(), *r);
        }
    for (const Ricerca& r : ricerche())
        if (!elencate.contains(r.chiave())) voce("(fuori dal catalogo)", "", r.titolo(), r);

    std::string testo;
    if (richiesta.json) {
        testo = lista.dump(1) + "\n";
    } else {
        for (ColonnaTesti& c : colonne) tabella.colonne.emplace_back(std::move(c));
        scrivi_tabella(testo, tabella);
    }
    return consegna(canali, testo);
}

}  // namespace sortimetra
