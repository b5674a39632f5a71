#include "results/scrittori.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <random>

namespace {

using namespace sortimetra;

/// The shape of the largest table: 117,480 terni with three measures.
const Tabella& terni() {
    static const Tabella tabella = [] {
        Tabella t;
        t.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
        ColonnaGruppi gruppi{.quanti = 3, .separatore = '-', .numeri = {}};
        ColonnaInteri frequenza;
        ColonnaInteri ritardo;
        ColonnaInteri storico;
        std::mt19937 caso{1};
        std::poisson_distribution<int> uscite{4};
        std::exponential_distribution<double> attesa{1.0 / 1000};
        for (int a = 1; a <= 90; ++a)
            for (int b = a + 1; b <= 90; ++b)
                for (int c = b + 1; c <= 90; ++c) {
                    for (const int n : {a, b, c}) gruppi.numeri.push_back(static_cast<std::uint8_t>(n));
                    frequenza.valori.push_back(uscite(caso));
                    ritardo.valori.push_back(static_cast<std::int32_t>(attesa(caso)));
                    storico.valori.push_back(static_cast<std::int32_t>(attesa(caso) * 2));
                }
        t.colonne = {std::move(gruppi), std::move(frequenza), std::move(ritardo), std::move(storico)};
        return t;
    }();
    return tabella;
}

Risposta come_risposta() {
    Risultato r;
    r.tabelle = {terni()};
    return prove::risposta_da(std::move(r));
}

template <class Scrivi>
void misura(benchmark::State& stato, Scrivi&& scrivi) {
    std::size_t byte = 0;
    for (auto _ : stato) {
        std::string testo;
        scrivi(testo);
        byte = testo.size();
        benchmark::DoNotOptimize(testo.data());
    }
    stato.counters["byte"] = static_cast<double>(byte);
}

void scrittore_csv_terni(benchmark::State& stato) {
    const Tabella& t = terni();
    misura(stato, [&](std::string& testo) { scrivi_csv(testo, t); });
}
void scrittore_json_terni(benchmark::State& stato) {
    const Risposta r = come_risposta();
    misura(stato, [&](std::string& testo) { scrivi_json(testo, r); });
}
void scrittore_tabella_terni(benchmark::State& stato) {
    const Tabella& t = terni();
    misura(stato, [&](std::string& testo) { scrivi_tabella(testo, t); });
}
/// On the disk, as a user asks for it.
void scrittore_xlsx_terni(benchmark::State& stato) {
    const Risposta r = come_risposta();
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "terni.xlsx";
    for (auto _ : stato) benchmark::DoNotOptimize(scrivi_xlsx(file, r).has_value());
    stato.counters["byte"] = static_cast<double>(std::filesystem::file_size(file));
}
/// What a string per cell costs, for comparison.
void stringa_per_cella_terni(benchmark::State& stato) {
    const Tabella& t = terni();
    misura(stato, [&](std::string& testo) {
        for (std::size_t r = 0; r < t.righe(); ++r) {
            for (std::size_t c = 0; c < t.n_colonne(); ++c) testo += t.testo(r, c) + ";";
            testo.back() = '\n';
        }
    });
}

BENCHMARK(scrittore_csv_terni)->Unit(benchmark::kMillisecond);
BENCHMARK(scrittore_json_terni)->Unit(benchmark::kMillisecond);
BENCHMARK(scrittore_tabella_terni)->Unit(benchmark::kMillisecond);
BENCHMARK(scrittore_xlsx_terni)->Unit(benchmark::kMillisecond);
BENCHMARK(stringa_per_cella_terni)->Unit(benchmark::kMillisecond);

}  // namespace
