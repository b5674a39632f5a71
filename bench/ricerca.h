#pragma once

#include "catalogue/ricerche.h"
#include "statistics/parametri.h"
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
    SenzaAvanzamento nessuno;
    for (auto _ : stato) benchmark::DoNotOptimize(domanda.ricerca->esegui(archivio(), domanda, nessuno));
}

inline Domanda domanda(std::string_view chiave, int combo_rit = 0) {
    Domanda d = prove::domanda(chiave);
    d.ambito.ruote = SelezioneRuote::tutte();
    if (combo_rit != 0) d.parametri.per<ParametriStatistica>().tipo = combo_rit;
    // What stands in a file is read before the clock starts.
    if (d.ricerca->carica != nullptr) static_cast<void>(d.ricerca->carica(prove::cartella_dati(), d));
    return d;
}

}  // namespace sortimetra::misure
