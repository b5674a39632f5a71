#pragma once

#include "catalogue/ricerche.h"
#include "stores/dimostrazione.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <string_view>

namespace sortimetra::misure {

/// The real archive where it stands beside the project, else the simulated one, which has its shape.
inline const ArchivioEstrazioni& archivio() {
    if (const ArchivioEstrazioni* vero = prove::archivio_vero()) return *vero;
    static const ArchivioEstrazioni simulato = ArchivioEstrazioni::componi(archivio_dimostrativo()).value();
    return simulato;
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
