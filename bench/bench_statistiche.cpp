#include "ricerca.h"

#include <benchmark/benchmark.h>

// Every figure is the search alone: archive packed in memory, all ten wheels, no text made. The 90 numbers
// and the ambi are the yardsticks that every other figure is read against, since the machine's speed moves.

namespace {

using sortimetra::misure::domanda;
using sortimetra::misure::ricerca;

BENCHMARK_CAPTURE(ricerca, novanta_numeri, domanda("ritardo e frequenza dei 90 numeri"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, ambi, domanda("ricerche su tutti gli ambi"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni, domanda("ricerche su tutti i terni", 1))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni_per_ambi, domanda("ricerche su tutti i terni"))
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(ricerca, novanta_10elotto,
                  domanda("ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, ambi_superenalotto,
                  domanda("ricerche su tutti gli ambi (nella sestina superenalotto)"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni_superenalotto,
                  domanda("ricerche su tutti i terni (nella sestina superenalotto)"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, winforlife,
                  domanda("ritardo e frequenza dei 20 numeri nella combinazione win for life"))
    ->Unit(benchmark::kMillisecond);

}  // namespace
