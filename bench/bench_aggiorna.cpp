// One draw more, as the command line adds it: the whole process, on an archive of the real one's size. (The
// disk is told to keep what was written: on a slow one that is most of it.)

#include "stores/aggiorna.h"
#include "stores/dimostrazione.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"
#include "support/programma.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

namespace {

using namespace sortimetra;

constexpr std::string_view kRuote = "BACAFIGEMINAPARMTOVERN";

std::string nuova() {
    std::string testo;
    for (std::size_t i = 0; i < kRuote.size(); i += 2)
        testo += "2026/08/22\t" + std::string{kRuote.substr(i, 2)} + "\t1\t2\t3\t4\t5\n";
    return testo;
}

/// The draws of the demonstration, passed off as real ones: nothing joins simulated draws.
void prepara(const prove::CartellaProva& cartella) {
    const RigheArchivio righe = archivio_dimostrativo();
    std::filesystem::create_directories(cartella.percorso() / "archivio");
    (void)scrivi_drawit(cartella.percorso() / "archivio/drawit.db", righe, false);
    (void)scrivi_drawit2(cartella.percorso() / "archivio/drawit2.db", righe, false);
    std::ofstream{cartella.percorso() / "nuova.txt"} << nuova();
    std::filesystem::copy_file(cartella.percorso() / "archivio/drawit.db", cartella.percorso() / "prima.db");
}

void torna(const prove::CartellaProva& cartella) {
    std::filesystem::copy_file(cartella.percorso() / "prima.db", cartella.percorso() / "archivio/drawit.db",
                               std::filesystem::copy_options::overwrite_existing);
}

void aggiorna_una(benchmark::State& stato) {
    const prove::CartellaProva cartella;
    prepara(cartella);
    for (auto _ : stato) {
        stato.PauseTiming();
        torna(cartella);
        stato.ResumeTiming();
        const auto esito =
            prove::esegui_programma("sortimetra-cli", {"aggiorna", "--cartella", ".", "nuova.txt"},
                                    {.cartella = cartella.percorso()});
        if (esito.codice != 0) stato.SkipWithError(esito.errori.c_str());
    }
}
BENCHMARK(aggiorna_una)->Unit(benchmark::kMillisecond);

void proponi_una(benchmark::State& stato) {
    const prove::CartellaProva cartella;
    prepara(cartella);
    SenzaAvanzamento nessuno;
    const std::vector<Arrivo> arrivi{{"nuova.txt", nuova()}};
    for (auto _ : stato) {
        const auto arrivate = leggi_arrivi(arrivi, nessuno);
        auto proposta = proponi(cartella.percorso() / "archivio", *arrivate,
                                {.oggi = leggi_data_iso("2030-01-01").value()}, nessuno);
        benchmark::DoNotOptimize(proposta);
    }
}
BENCHMARK(proponi_una)->Unit(benchmark::kMillisecond);

}  // namespace
