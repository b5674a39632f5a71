#include "catalogue/ricerche.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <string_view>

// Every figure is the search alone: archive packed in memory, all ten wheels, no text made. The 90 numbers
// and the ambi are the yardsticks that every other figure is read against, since the machine's speed moves.

namespace {

using namespace sortimetra;

const ArchivioEstrazioni& archivio() {
    static const ArchivioEstrazioni casuale = prove::archivio_casuale(7);
    const ArchivioEstrazioni* vero = prove::archivio_vero();
    return vero != nullptr ? *vero : casuale;
}

void ricerca(benchmark::State& stato, std::string_view chiave, int combo_rit = 0) {
    const Ricerca& r = *trova_ricerca(chiave);
    Domanda d = prove::domanda(chiave);
    d.ambito.ruote = SelezioneRuote::tutte();
    d.parametri.combo_rit = combo_rit;
    SenzaAvanzamento nessuno;
    for (auto _ : stato) benchmark::DoNotOptimize(esegui(r, archivio(), d, nessuno));
}

BENCHMARK_CAPTURE(ricerca, novanta_numeri, "ritardo e frequenza dei 90 numeri")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, ambi, "ricerche su tutti gli ambi")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni, "ricerche su tutti i terni", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni_per_ambi, "ricerche su tutti i terni", 0)->Unit(benchmark::kMillisecond);

}  // namespace
