#include "draws/combinazioni.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

/// The twenty numbers of every draw, one after the other.
void combinazioni_10elotto(benchmark::State& stato) {
    const auto& lotto = sortimetra::misure::archivio().lotto();
    for (auto _ : stato)
        for (std::size_t i = 0; i < lotto.concorso.size(); ++i)
            benchmark::DoNotOptimize(sortimetra::calc_combinazione_10elotto(lotto, i));
}
BENCHMARK(combinazioni_10elotto)->Unit(benchmark::kMillisecond);

}  // namespace
