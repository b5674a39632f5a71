#include "lunghette/condivisi.h"
#include "lunghette/parametri.h"
#include "ricerca.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <random>

// On the real archive, all wheels: any lunghetta to twenty numbers 2 ms, the automatic analysis 2 ms, the
// draw that most others resemble 10 ms. On 100,000 draws of Win for Life: the same draw 10 ms, the scattered
// cinquine 2 ms. Read beside the 90 numbers and the ambi of the same run.

namespace {

using namespace sortimetra;
using misure::domanda;

constexpr std::string_view kLotto = "lunghette ritardate/frequenti per ambo e terno";
constexpr std::string_view k10eLotto = "calcolo lunghette per punteggio 10elotto";
constexpr std::string_view kWinForLife = "calcolo lunghette per punteggio";

Domanda lunghetta(std::string_view chiave, ParametriLunghette p) {
    Domanda d = domanda(chiave);
    d.parametri = std::move(p);
    return d;
}

void lunghette(benchmark::State& stato, const Domanda& d) {
    misure::ricerca(stato, d);
}
BENCHMARK_CAPTURE(lunghette, ritardo_ambo, lunghetta(kLotto, {.ricerca = 0, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, ritardo_terno, lunghetta(kLotto, {.ricerca = 1, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, ritardo_terno_da_terno,
                  lunghetta(kLotto, {.ricerca = 1, .opzione = 4, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, frequenza_ambo, lunghetta(kLotto, {.ricerca = 2, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, frequenza_ambo_da_ambo,
                  lunghetta(kLotto, {.ricerca = 2, .opzione = 1, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, frequenza_terno, lunghetta(kLotto, {.ricerca = 3, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, automatica_10, lunghetta(kLotto, {.opzione = 3, .lunghezza = 10}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, automatica_20, lunghetta(kLotto, {.opzione = 3, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, punti_ritardo_10elotto, lunghetta(k10eLotto, {.ricerca = 5, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, punti_frequenza_10elotto, lunghetta(k10eLotto, {.ricerca = 16, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lunghette, ventina_10elotto, lunghetta(k10eLotto, {.ricerca = 16, .frequente = true}))
    ->Unit(benchmark::kMillisecond);

/// 100,000 draws of Win for Life, nearly as many as there are sets of ten.
const ArchivioEstrazioni& centomila() {
    static const ArchivioEstrazioni archivio = [] {
        std::mt19937 caso{12};
        std::array<Numero, kNumeriWinForLife> urna{};
        std::iota(urna.begin(), urna.end(), Numero{1});
        RigheArchivio righe;
        for (int c = 1; c <= 100'000; ++c) {
            std::shuffle(urna.begin(), urna.end(), caso);
            RigaWinForLife r{.concorso = c, .ora = std::to_string(8 + c % 15) + ":00"};
            std::copy_n(urna.begin(), r.numeri.size(), r.numeri.begin());
            righe.winforlife.push_back(std::move(r));
        }
        return ArchivioEstrazioni::componi(std::move(righe)).value();
    }();
    return archivio;
}

void centomila_estrazioni(benchmark::State& stato, const Domanda& d) {
    SenzaAvanzamento nessuno;
    const auto& archivio = centomila();
    for (auto _ : stato) benchmark::DoNotOptimize(d.ricerca->esegui(archivio, d, nessuno));
}
BENCHMARK_CAPTURE(centomila_estrazioni, decina, lunghetta(kWinForLife, {.ricerca = 14, .frequente = true}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(centomila_estrazioni, punti_frequenza,
                  lunghetta(kWinForLife, {.ricerca = 16, .lunghezza = 20}))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(centomila_estrazioni, scomposte,
                  [] {
                      Domanda d = domanda("calcolo lunghette scomposte");
                      d.parametri = ParametriScomposte{.meta = 0, .ordine = 1};
                      return d;
                  }())
    ->Unit(benchmark::kMillisecond);

}  // namespace
