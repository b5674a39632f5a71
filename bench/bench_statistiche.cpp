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

void migliori(benchmark::State& stato) {
    const Ricerca& r = *trova_ricerca("tabellone migliori ritardi");
    Domanda d = prove::domanda("");
    d.ambito.ruote = SelezioneRuote::tutte();
    d.cartella = std::filesystem::path{SORTIMETRA_RADICE} / "data";
    SenzaAvanzamento nessuno;
    for (auto _ : stato)
        for (d.parametri.pagina = 1; d.parametri.pagina <= 2; ++d.parametri.pagina)
            benchmark::DoNotOptimize(esegui(r, archivio(), d, nessuno));
}

BENCHMARK_CAPTURE(ricerca, posizione_lotto, "ritardi e frequenze per posizione dei 90 numeri")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, posizione_10elotto, "frequenza e ritardo dei 90 numeri per posizione (10 e lotto)")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, novanta_10elotto,
                  "ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, ambi_superenalotto, "ricerche su tutti gli ambi (nella sestina superenalotto)")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, terni_superenalotto, "ricerche su tutti i terni (nella sestina superenalotto)")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, winforlife, "ritardo e frequenza dei 20 numeri nella combinazione win for life")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_lotto, "tabellone posizionale")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_10elotto, "tabellone posizionale combinazione 10 e lotto")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, tabellone_primi, "tabellone posizionale primi estratti")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ricerca, dieci_in_ritardo, "i 10 numeri più in ritardo su ogni ruota")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(migliori)->Unit(benchmark::kMillisecond);

}  // namespace
