// Reading the stores: the published Lotto text, the native file, the Jet file. Each is the whole road from
// the file on the disk to the packed archive, unless told otherwise.

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/dimostrazione.h"
#include "stores/importa.h"
#include "stores/impronta.h"
#include "stores/negozio_nativo.h"
#include "stores/pubblicati.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

namespace {

using namespace sortimetra;

void leggi_testo_lotto(benchmark::State& stato) {
    const auto condivisa = prove::cartella_condivisa();
    if (!condivisa) {
        stato.SkipWithError("no real draws here");
        return;
    }
    const FilePubblicati file{.lotto = *condivisa / "archivio" / "lotto.txt"};
    SenzaAvanzamento nessuno;
    for (auto _ : stato) {
        auto letti = leggi_pubblicati(file, nessuno);
        benchmark::DoNotOptimize(letti);
    }
}
BENCHMARK(leggi_testo_lotto)->Unit(benchmark::kMillisecond);

/// The text alone, already in memory: read and checked, not numbered.
void controlla_testo_lotto(benchmark::State& stato) {
    const auto condivisa = prove::cartella_condivisa();
    const auto testo = leggi_file(condivisa.value_or("") / "archivio" / "lotto.txt");
    if (!testo) {
        stato.SkipWithError("no real draws here");
        return;
    }
    SenzaAvanzamento nessuno;
    for (auto _ : stato) {
        auto letti = sortimetra::leggi_testo_lotto(*testo, nessuno);
        benchmark::DoNotOptimize(letti);
    }
}
BENCHMARK(controlla_testo_lotto)->Unit(benchmark::kMillisecond);

void apri_nativo(benchmark::State& stato) {
    const prove::CartellaProva cartella;
    const RigheArchivio righe = archivio_dimostrativo();
    (void)scrivi_drawit(cartella.percorso() / "drawit.db", righe, true);
    const auto tabelle = static_cast<unsigned>(stato.range(0));
    for (auto _ : stato) {
        auto archivio = apri_archivio(cartella.percorso(), tabelle);
        benchmark::DoNotOptimize(archivio);
    }
}
BENCHMARK(apri_nativo)
    ->Arg(kTabellaLotto)
    ->Arg(kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto)
    ->Unit(benchmark::kMillisecond);

/// What looking at the draws adds to each opening: of the archive that all searches of a day use.
void esamina_archivio(benchmark::State& stato) {
    const RigheArchivio righe = archivio_dimostrativo();
    const auto archivio = ArchivioEstrazioni::componi(righe).value();
    for (auto _ : stato) {
        auto danno = primo_danno(archivio);
        benchmark::DoNotOptimize(danno);
    }
}
BENCHMARK(esamina_archivio)->Unit(benchmark::kMicrosecond);

/// The digest of the 46,550 rows of the Lotto.
void impronta_lotto(benchmark::State& stato) {
    const RigheArchivio righe = archivio_dimostrativo();
    for (auto _ : stato) {
        auto i = impronta(righe, kTabellaLotto, false);
        benchmark::DoNotOptimize(i);
    }
}
BENCHMARK(impronta_lotto)->Unit(benchmark::kMicrosecond);

void apri_jet(benchmark::State& stato) {
    const auto condivisa = prove::cartella_condivisa();
    if (!condivisa) {
        stato.SkipWithError("no real draws here");
        return;
    }
    const auto tabelle = static_cast<unsigned>(stato.range(0));
    for (auto _ : stato) {
        auto archivio = apri_archivio(*condivisa / "archivio", tabelle);
        if (!archivio) stato.SkipWithError(archivio.error().motivo.c_str());
        benchmark::DoNotOptimize(archivio);
    }
}
BENCHMARK(apri_jet)
    ->Arg(kTabellaLotto)
    ->Arg(kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto)
    ->Unit(benchmark::kMillisecond);

void scrivi_nativo(benchmark::State& stato) {
    const prove::CartellaProva cartella;
    const RigheArchivio righe = archivio_dimostrativo();
    for (auto _ : stato) {
        auto esito = scrivi_drawit(cartella.percorso() / "drawit.db", righe, true);
        benchmark::DoNotOptimize(esito);
    }
}
BENCHMARK(scrivi_nativo)->Unit(benchmark::kMillisecond);

}  // namespace
