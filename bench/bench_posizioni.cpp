#include "positional/parametri.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

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

/// One page of the best delays: 16 families over all wheels.
void migliori_ritardi(benchmark::State& stato, const sortimetra::ArchivioEstrazioni& archivio) {
    Domanda d = domanda("tabellone migliori ritardi");
    d.parametri.per<sortimetra::ParametriTabellone>().pagina = static_cast<int>(stato.range(0));
    sortimetra::SenzaAvanzamento nessuno;
    for (auto _ : stato) benchmark::DoNotOptimize(d.ricerca->esegui(archivio, d, nessuno));
}

/// Ten times as many draws: the same ones over and over.
const sortimetra::ArchivioEstrazioni& dieci_volte() {
    static const auto archivio = [] {
        const auto& lotto = sortimetra::misure::archivio().lotto();
        const std::size_t n = lotto.concorso.size();
        sortimetra::RigheArchivio righe;
        for (std::size_t i = 0; i < 10 * n; ++i)
            for (int w = 0; w < sortimetra::kRuote; ++w) {
                sortimetra::RigaLotto r{.concorso = static_cast<sortimetra::Concorso>(i) + 1,
                                        .data = sortimetra::Data{} + std::chrono::days{i},
                                        .ruota = w};
                if ((lotto.presenti[i % n] >> static_cast<unsigned>(w) & 1U) == 0) continue;
                const auto* numeri = lotto.numeri[i % n].data() + w * sortimetra::kEstratti;
                std::copy_n(numeri, r.numeri.size(), r.numeri.begin());
                righe.lotto.push_back(r);
            }
        return sortimetra::ArchivioEstrazioni::componi(std::move(righe)).value();
    }();
    return archivio;
}

void pagina_migliori(benchmark::State& stato) {
    migliori_ritardi(stato, sortimetra::misure::archivio());
}
void pagina_migliori_dieci_volte(benchmark::State& stato) {
    migliori_ritardi(stato, dieci_volte());
}
BENCHMARK(pagina_migliori)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(pagina_migliori_dieci_volte)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
