#include "printing/rapporto.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

namespace sortimetra {
namespace {

/// The rows of all terni, with measures of usual length.
Risultato tutti_i_terni() {
    ColonnaGruppi terni{.quanti = 3, .separatore = '-', .numeri = {}};
    ColonnaInteri frequenza, ritardo, storico;
    for (std::uint8_t a = 1; a <= 88; ++a)
        for (std::uint8_t b = a + 1; b <= 89; ++b)
            for (std::uint8_t c = b + 1; c <= 90; ++c) {
                terni.numeri.insert(terni.numeri.end(), {a, b, c});
                frequenza.valori.push_back(a % 9);
                ritardo.valori.push_back(b * c);
                storico.valori.push_back(a * b + c);
            }
    Tabella tabella;
    tabella.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    tabella.colonne = {terni, frequenza, ritardo, storico};
    Risultato r;
    r.tabelle.push_back(std::move(tabella));
    return r;
}

const Intestazione kTesta{.ricerca = "Ricerche su Tutti i Terni",
                          .ruote = "Tutte (Terzine)",
                          .concorsi = "1 - 4655",
                          .periodo = "Tutti i Concorsi"};

/// Kilobytes of memory in use.
double memoria_kb() {
    std::ifstream stato{"/proc/self/statm"};
    double totale = 0, presente = 0;
    stato >> totale >> presente;
    return presente * 4;
}

/// 117,480 rows, 1,306 pages, through the module as the command line does.
void TerniInPdf(benchmark::State& stato) {
    const Risultato r = tutti_i_terni();
    const Rapporto rapporto = rapporto_griglia({r, kTesta, {}});
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    const auto file = cartella.percorso() / "terni.pdf";
    // Fonts, libraries and the first page are paid once.
    if (const auto prima = stampa_pdf(rapporto, file, nessuno, {1, 1}); !prima)
        return stato.SkipWithError(prima.error().testo().c_str());
    const double memoria = memoria_kb();
    for (auto _ : stato) benchmark::DoNotOptimize(stampa_pdf(rapporto, file, nessuno).has_value());
    stato.counters["crescita_kB"] = memoria_kb() - memoria;
    stato.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    stato.counters["pagine"] = rapporto.pagine;
}
BENCHMARK(TerniInPdf)->Unit(benchmark::kMillisecond);

/// The layout alone.
void TerniRegistrati(benchmark::State& stato) {
    const Risultato r = tutti_i_terni();
    const Rapporto rapporto = rapporto_griglia({r, kTesta, {}});
    SenzaAvanzamento nessuno;
    for (auto _ : stato) {
        SuperficieRegistrata foglio;
        EasyPrint stampante{foglio, {}};
        stampa(stampante, rapporto, {}, nessuno);
        benchmark::DoNotOptimize(foglio.testi().size());
    }
}
BENCHMARK(TerniRegistrati)->Unit(benchmark::kMillisecond);

/// A page as the preview or a small report asks for it.
void UnaPaginaInPdf(benchmark::State& stato) {
    const Risultato r = tutti_i_terni();
    const Rapporto rapporto = rapporto_griglia({r, kTesta, {}});
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    for (auto _ : stato)
        benchmark::DoNotOptimize(
            stampa_pdf(rapporto, cartella.percorso() / "pagina.pdf", nessuno, {700, 700}).has_value());
}
BENCHMARK(UnaPaginaInPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sortimetra
