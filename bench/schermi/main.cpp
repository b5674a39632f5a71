// What a user waits for: the program's start, a screen, a grid. Everything is painted for real, on Qt's
// offscreen platform, so that no display is needed and none is in the way.

#include "misure_schermi.h"
#include "pittura.h"
#include "stores/importa.h"
#include "support/archivi.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <system_error>

namespace {

using namespace sortimetra;
namespace fs = std::filesystem;

bool prepara(const fs::path& radice, misure::Cartelle& c) {
    c.casa = radice / "casa";
    c.nativa = radice / "nativa";
    std::error_code errore;
    fs::create_directories(c.casa, errore);
    fs::create_directories(c.nativa, errore);
    SenzaAvanzamento zitto;
    const auto condivisa = prove::cartella_condivisa();
    if (!condivisa) return crea_dimostrazione(c.nativa / "archivio", zitto).has_value();

    const fs::path vero = *condivisa / "archivio";
    const FilePubblicati file{.lotto = vero / "lotto.txt",
                              .superenalotto = vero / "superenalotto.csv",
                              .winforlife = vero / "winforlife.csv"};
    if (!importa_archivio(c.nativa / "archivio", file, zitto)) return false;
    const fs::path jet = radice / "jet";
    fs::create_directories(jet / "archivio", errore);
    for (const char* nome : {"drawit.mdb", "drawit2.mdb"})
        if (!fs::copy_file(vero / nome, jet / "archivio" / nome, errore)) return true;
    c.jet = jet;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;

    const prove::CartellaProva radice;
    misure::Cartelle cartelle;
    if (!prepara(radice.percorso(), cartelle)) {
        std::fputs("sortimetra-bench-schermi: l'archivio di prova non si può creare\n", stderr);
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("HOME", QByteArray::fromStdString(cartelle.casa.string()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((cartelle.casa / "config").string()));
    const QApplication applicazione{argc, argv};
    QApplication::setQuitOnLastWindowClosed(false);
    misure::ascolta_le_pitture();

    misure::registra_avvio(cartelle);
    misure::registra_catalogo(cartelle);
    misure::registra_griglia(cartelle);
    misure::registra_storia(cartelle);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
