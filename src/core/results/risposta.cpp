#include "results/risposta.h"

#include "results/risultato.h"
#include "text/data.h"
#include "text/testi.h"

namespace sortimetra {

std::string_view Risposta::titolo() const {
    return risultato->titolo.empty() ? ricerca().titolo() : std::string_view{risultato->titolo};
}

bool Risposta::prodotta() const {
    return risultato != nullptr && risultato->prodotto;
}

std::vector<VoceAmbito> voci_ambito(const Risposta& risposta) {
    std::vector<VoceAmbito> voci{{"Ricerca", std::string{risposta.titolo()}}};
    if (!risposta.ambito) return voci;
    const AmbitoDetto& a = *risposta.ambito;
    voci.push_back({"Ruote", a.ruote});
    voci.push_back({"Intervallo", a.intervallo});
    voci.push_back({"Concorsi", std::to_string(a.tratto.da) + " - " + std::to_string(a.tratto.a)});
    if (a.dal) voci.push_back({"Dal", testo_data(*a.dal)});
    if (a.al) voci.push_back({"Al", testo_data(*a.al)});
    voci.push_back({"Estrazioni", std::to_string(a.t)});
    voci.push_back({"Archivio", a.archivio});
    if (a.simulato) voci.push_back({kArchivioSimulato, "sì: non sono estrazioni vere"});
    return voci;
}

}  // namespace sortimetra
