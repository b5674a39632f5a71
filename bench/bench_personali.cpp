#include "personal/parametri.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

#include <string>

// Compare with the 90 numbers and the ambi of the same run: the machine's speed moves.

namespace {

using namespace sortimetra;
using misure::domanda;
using misure::ricerca;

void personali(benchmark::State& stato, std::string_view chiave, std::vector<int> numeri) {
    Domanda d = domanda(chiave);
    d.parametri = ParametriPersonali{.numeri = std::move(numeri)};
    ricerca(stato, d);
}
const std::vector<int> kDieci{5, 12, 17, 28, 33, 40, 52, 63, 77, 90};
BENCHMARK_CAPTURE(personali, dieci_numeri_lotto, "ricerche su numeri personali", kDieci)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(personali, dieci_numeri_superenalotto, "ricerche sui numeri personali", kDieci)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(personali, dieci_numeri_10elotto, "ricerche sui numeri personali (10 e lotto)", kDieci)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(personali, tre_numeri_wfl, "ricerche sui numeri personali (win for life)", {3, 11, 20})
    ->Unit(benchmark::kMillisecond);

/// Fifty lunghette of twenty numbers.
void gruppo(benchmark::State& stato, int sorte) {
    SerieCorrente g{.colonne = kNumeriLunghetta};
    for (std::size_t i = 0; i < kLunghetteGruppo * kNumeriLunghetta; ++i)
        g.numeri.push_back(
            static_cast<Numero>((i / kNumeriLunghetta * 7 + i % kNumeriLunghetta * 4) % kNumeri + 1));
    Domanda d = domanda("ricerche per gruppi");
    d.parametri = ParametriGruppi{.lunghette = g, .sorte = sorte};
    ricerca(stato, d);
}
BENCHMARK_CAPTURE(gruppo, cinquanta_lunghette_ambata, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(gruppo, cinquanta_lunghette_ambo, 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(gruppo, cinquanta_lunghette_terno, 3)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(gruppo, cinquanta_lunghette_cinquina, 5)->Unit(benchmark::kMillisecond);

void piramide(benchmark::State& stato, int opzione) {
    Domanda d = domanda("piramide statistica");
    d.parametri = ParametriPiramide{.opzione = opzione};
    ricerca(stato, d);
}
BENCHMARK_CAPTURE(piramide, dal_piu_in_ritardo, 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(piramide, dal_piu_frequente, 2)->Unit(benchmark::kMillisecond);

}  // namespace
