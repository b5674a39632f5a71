#include "positional/parametri.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

namespace {

using sortimetra::Domanda;
using sortimetra::misure::domanda;
using sortimetra::misure::ricerca;

BENCHMARK_CAPTURE(ricerca, posizione_lotto, domanda("ritardi e frequenze per posizione dei 90 numeri"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, posizione_10elotto,
                  domanda("frequenza e ritardo dei 90 numeri per posizione (10 e lotto)"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, posizione_superenalotto,
                  domanda("frequenza e ritardo dei 90 numeri per posizione (superenalotto)"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, posizione_wfl,
                  domanda("frequenza e ritardo dei 20 numeri per posizione (win for life)"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_lotto, domanda("tabellone posizionale"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_10elotto, domanda("tabellone posizionale combinazione 10 e lotto"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_primi, domanda("tabellone posizionale primi estratti"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_sestina, domanda("tabellone posizionale sestina superenalotto"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_wfl, domanda("tabellone posizionale combinazione win for life"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, dieci_in_ritardo, domanda("i 10 numeri più in ritardo su ogni ruota"))
    ->Unit(benchmark::kMillisecond);

/// Both pages of the best delays: 31 families over all wheels.
void migliori_ritardi(benchmark::State& stato) {
    Domanda d = domanda("tabellone migliori ritardi");
    auto& parametri = d.parametri.per<sortimetra::ParametriTabellone>();
    sortimetra::SenzaAvanzamento nessuno;
    for (auto _ : stato)
        for (parametri.pagina = 1; parametri.pagina <= 2; ++parametri.pagina)
            benchmark::DoNotOptimize(d.ricerca->esegui(sortimetra::misure::archivio(), d, nessuno));
}
BENCHMARK(migliori_ritardi)->Unit(benchmark::kMillisecond);

}  // namespace
