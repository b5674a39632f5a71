#include "ricerca.h"
#include "statistics/famiglie.h"
#include "support/lente_serie.h"

#include <benchmark/benchmark.h>

// The 90 numbers are the yardstick: the machine's speed moves, so compare within one run.

namespace {

using namespace sortimetra;
using misure::archivio;
using misure::domanda;
using misure::ricerca;

void serie(benchmark::State& stato, std::string_view chiave, int combo_rit, bool tutte_le_ruote = false) {
    Domanda d = domanda(chiave, combo_rit);
    d.parametri.per<ParametriStatistica>().tutte_le_ruote = tutte_le_ruote;
    ricerca(stato, d);
}

/// The same rows told as texts, member by member.
void serie_lenta(benchmark::State& stato, std::string_view chiave, int soglia) {
    const SerieCorrente s = prove::serie(*prove::famiglia(chiave));
    std::vector<std::vector<int>> membri;
    for (std::size_t i = 0; i < s.righe(); ++i) membri.emplace_back(s.membro(i).begin(), s.membro(i).end());
    const auto righe = prove::righe_piane(archivio(), domanda(chiave).ambito);
    for (auto _ : stato) benchmark::DoNotOptimize(prove::serie_lenta(righe, kRuote, membri, soglia));
}

void capogioco(benchmark::State& stato, std::string_view chiave, int combo_rit) {
    Domanda d = domanda(chiave, combo_rit);
    d.parametri.per<ParametriStatistica>().capogioco = {13, 77};
    ricerca(stato, d);
}

void capogioco_lento(benchmark::State& stato, bool all_ambata) {
    const auto righe = prove::righe_piane(archivio(), domanda("ambo capogioco").ambito);
    for (auto _ : stato)
        benchmark::DoNotOptimize(prove::ambo_capogioco_lento(righe, kRuote, 13, 77, all_ambata));
}

void scomposizione(benchmark::State& stato, std::string_view chiave, int quanti, int combo_rit) {
    Domanda d = domanda(chiave, combo_rit);
    for (int n = 1; n <= quanti; ++n) d.parametri.per<ParametriStatistica>().numeri.push_back(n);
    d.parametri.per<ParametriStatistica>().sorte = 5;
    ricerca(stato, d);
}

BENCHMARK_CAPTURE(ricerca, paragone_90_numeri, domanda("ritardo e frequenza dei 90 numeri"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, cinquine_dei_90_ambata, "cinquine dei 90", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, cinquine_dei_90_ambo, "cinquine dei 90", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie_lenta, cinquine_dei_90_ambata, "cinquine dei 90", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie_lenta, cinquine_dei_90_ambo, "cinquine dei 90", 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, ambi_consecutivi_ambo, "ambi consecutivi", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, cifre_ambata, "cifre", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, cifre_ambo, "cifre", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie_lenta, cifre_ambo, "cifre", 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(serie, cifre_ogni_ruota_ambo, "cifre", 1, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, venti_numeri_al_terno, "scomposizione", 20, 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, quaranta_numeri_al_terno, "scomposizione", 40, 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, quaranta_numeri_all_ambo, "scomposizione", 40, 1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, cinquanta_numeri_al_terno, "scomposizione", 50, 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, trenta_numeri_10elotto, "scomposizione 10 e lotto", 30, 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scomposizione, venti_numeri_winforlife, "scomposizione win for life", 20, 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(capogioco, ambata_capogioco, "ambata capogioco", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(capogioco, ambo_capogioco_ambata, "ambo capogioco", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(capogioco, ambo_capogioco_ambo, "ambo capogioco", 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(capogioco_lento, ambo_capogioco_ambata, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(capogioco_lento, ambo_capogioco_ambo, false)->Unit(benchmark::kMillisecond);

}  // namespace
