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
