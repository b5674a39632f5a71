#include "chance/per_ruota.h"

#include "chance/caso.h"
#include "results/ricerca.h"
#include "results/risultato.h"

#include <bit>
#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

/// The wheels of a selection as indexes, in their order.
std::vector<int> ruote_scelte(const SelezioneRuote& ruote) {
    if (ruote.e_nazionale()) return {kNazionale};
    std::vector<int> scelte;
    for (unsigned m = ruote.ruote_lette(); m != 0; m &= m - 1) scelte.push_back(std::countr_zero(m));
    return scelte;
}

/// The measure's column of the search on one wheel; empty cells where that wheel has no draw.
Colonna misura_su(const Risposta& risposta, const ArchivioEstrazioni& archivio, int ruota, MisuraRuote misura,
                  Avanzamento& avanzamento) {
    Domanda domanda = risposta.domanda;
    domanda.ambito.ruote = SelezioneRuote::nessuna();
    domanda.ambito.ruote.clic(ruota, true);
    Risultato r = risposta.ricerca().esegui(archivio, domanda, avanzamento);
    const Tabella& prima = risposta.risultato->tabelle.front();
    if (r.prodotto && !r.tabelle.empty() && r.tabelle.front().righe() == prima.righe())
        if (const auto colonne = colonne_misure(r.tabelle.front())) {
            const std::array quali{colonne->ritardo, colonne->frequenza, colonne->storico};
            return std::move(r.tabelle.front().colonne[quali[static_cast<std::size_t>(misura)]]);
        }
    return ColonnaInteri{std::vector<std::int32_t>(prima.righe(), kCellaVuota)};
}

}  // namespace

bool ha_ruote(const Ricerca& ricerca) {
    return ricerca.un_evento && ricerca.gioco == Gioco::lotto;
}

Tabella tabella_ruote(const Risposta& risposta, const ArchivioEstrazioni& archivio, MisuraRuote misura,
                      Avanzamento& avanzamento) {
    const Tabella& prima = risposta.risultato->tabelle.front();
    Tabella t;
    t.nome = "ruote";
    t.titoli = {{prima.titoli.front().front()}};
    t.colonne.push_back(prima.colonne.front());
    for (const int ruota : ruote_scelte(risposta.domanda.ambito.ruote)) {
        t.titoli.front().emplace_back(kNomiRuote[static_cast<std::size_t>(ruota)].codice);
        t.colonne.push_back(misura_su(risposta, archivio, ruota, misura, avanzamento));
    }
    return t;
}

}  // namespace sortimetra
