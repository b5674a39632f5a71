// The largest table of all in a grid: 117,480 terni. Showing it and sorting each of its columns are to stay
// under 100 ms.

#include "catalogue/ricerche.h"
#include "misure_schermi.h"
#include "pittura.h"
#include "screens/griglia_risultati.h"
#include "stores/apertura.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace sortimetra::misure {

namespace {

/// Made once; null if the archive cannot be opened.
std::shared_ptr<const Tabella> terni(const std::filesystem::path& cartella) {
    static const std::shared_ptr<const Tabella> tabella = [&]() -> std::shared_ptr<const Tabella> {
        const auto archivio = apri_archivio(cartella / "archivio", kTabellaLotto);
        if (!archivio) return nullptr;
        Domanda d = prove::domanda("ricerche su tutti i terni");
        d.ambito.ruote = SelezioneRuote::tutte();
        Risultato r = prove::esegui(d, *archivio);
        return std::make_shared<const Tabella>(std::move(r.tabelle.front()));
    }();
    return tabella;
}

/// A grid on show with the table of all terni; null, with the reason said, if there is none.
std::unique_ptr<GrigliaRisultati> in_mostra(benchmark::State& stato, const std::filesystem::path& cartella) {
    const auto tabella = terni(cartella);
    if (!tabella) {
        stato.SkipWithError("no archive");
        return nullptr;
    }
    auto g = std::make_unique<GrigliaRisultati>();
    g->resize(900, 600);
    g->mostra(tabella);
    g->show();
    return g;
}

void mostra(benchmark::State& stato, const std::filesystem::path& cartella) {
    const auto g = in_mostra(stato, cartella);
    if (!g) return;
    for (auto _ : stato) stato.SetIterationTime(fino_alla_pittura([&] { g->mostra(terni(cartella)); }));
    stato.counters["righe"] = g->modello()->rowCount();
}

/// Descending and ascending by turns, as the button does.
void ordina_colonna(benchmark::State& stato, const std::filesystem::path& cartella) {
    const auto g = in_mostra(stato, cartella);
    if (!g) return;
    const auto colonna = static_cast<int>(stato.range(0));
    for (auto _ : stato) stato.SetIterationTime(fino_alla_pittura([&] { g->premi(colonna); }));
}

}  // namespace

void registra_griglia(const Cartelle& cartelle) {
    const auto dove = cartelle.nativa;
    benchmark::RegisterBenchmark("griglia_117480/mostra", [dove](benchmark::State& s) { mostra(s, dove); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("griglia_117480/ordina",
                                 [dove](benchmark::State& s) { ordina_colonna(s, dove); })
        ->DenseRange(0, 3)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

}  // namespace sortimetra::misure
