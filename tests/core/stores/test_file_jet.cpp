#include "stores/file_jet.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;

TEST(FileJet, SiTrovaComunqueSiaScritto) {
    const prove::CartellaProva cartella;
    EXPECT_FALSE(trova_file(cartella.percorso(), "drawit.mdb"));
    EXPECT_FALSE(trova_file(cartella.percorso() / "manca", "drawit.mdb"));
    std::ofstream{cartella.percorso() / "DrawIt.MDB"} << "x";
    EXPECT_EQ(trova_file(cartella.percorso(), "drawit.mdb"), cartella.percorso() / "DrawIt.MDB");
}

TEST(FileJet, IlNativoNonRestaPiuVecchio) {
    const prove::CartellaProva cartella;
    const auto jet = cartella.percorso() / "drawit.mdb";
    const auto nativo = cartella.percorso() / "drawit.db";
    preferisci_nativi(cartella.percorso());  // nothing there
    std::ofstream{jet} << "x";
    preferisci_nativi(cartella.percorso());
    std::ofstream{nativo} << "x";
    const auto ora = fs::file_time_type::clock::now();
    fs::last_write_time(jet, ora + hours{24});
    fs::last_write_time(nativo, ora);
    preferisci_nativi(cartella.percorso());
    EXPECT_EQ(fs::last_write_time(nativo), fs::last_write_time(jet));
    // A newer one keeps its own.
    fs::last_write_time(nativo, ora + hours{48});
    preferisci_nativi(cartella.percorso());
    EXPECT_GT(fs::last_write_time(nativo), fs::last_write_time(jet));
}

}  // namespace
}  // namespace sortimetra
