#pragma once

#include "catalogue/ricerche.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <string_view>

namespace sortimetra::misure {

/// The real archive where it stands beside the project, else a small random one.
inline const ArchivioEstrazioni& archivio() {
    static const ArchivioEstrazioni casuale = prove::archivio_casuale(7);
    const ArchivioEstrazioni* vero = prove::archivio_vero();
    return vero != nullptr ? *vero : casuale;
}

/// Times one search on all ten wheels, from the packed archive to the typed table: no text is made.
inline void ricerca(benchmark::State& stato, const Domanda& domanda) {
    const Ricerca& r = *trova_ricerca(domanda.chiave);
    SenzaAvanzamento nessuno;
    for (auto _ : stato) benchmark::DoNotOptimize(esegui(r, archivio(), domanda, nessuno));
}

inline Domanda domanda(std::string_view chiave, int combo_rit = 0) {
    Domanda d = prove::domanda(chiave);
    d.ambito.ruote = SelezioneRuote::tutte();
    d.parametri.combo_rit = combo_rit;
    return d;
}

}  // namespace sortimetra::misure
