#include "stores/apertura.h"
#include "stores/file_accanto.h"
#include "stores/importa.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::HasSubstr;

class FileAccanto : public testing::TestWithParam<const char*> {};

TEST_P(FileAccanto, UnTuboNonSiAspetta) {
    const CartellaProva cartella;
    SenzaAvanzamento zitto;
    ASSERT_TRUE(crea_dimostrazione(cartella.percorso(), zitto));
    const auto file = cartella.percorso() / "drawit.db";
    const auto accanto = file.string() + GetParam();
    ASSERT_EQ(mkfifo(accanto.c_str(), 0600), 0);
    const auto letti = apri_archivio(cartella.percorso());
    ASSERT_FALSE(letti);
    EXPECT_EQ(letti.error().testo(),
              accanto + ": non è un file, e impedisce di leggere " + file.string() + "; va tolto da lì");
    std::filesystem::remove(accanto);
    EXPECT_TRUE(apri_archivio(cartella.percorso()));
}

TEST_P(FileAccanto, AncheDoveUnCollegamentoPorta) {
    const CartellaProva cartella;
    SenzaAvanzamento zitto;
    ASSERT_TRUE(crea_dimostrazione(cartella.percorso() / "vero", zitto));
    const auto collegamento = cartella.percorso() / "drawit.db";
    std::filesystem::create_symlink(cartella.percorso() / "vero" / "drawit.db", collegamento);
    ASSERT_EQ(mkfifo((cartella.percorso() / "vero" / "drawit.db").string().append(GetParam()).c_str(), 0600),
              0);
    const auto letti = leggi_nativo(collegamento, kTabellaLotto);
    ASSERT_FALSE(letti);
    EXPECT_THAT(letti.error().testo(), HasSubstr("non è un file"));
}

INSTANTIATE_TEST_SUITE_P(Tutti, FileAccanto, testing::Values("-journal", "-wal", "-shm"));

TEST(FileAccantoImpossibile, NienteDaDire) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    EXPECT_FALSE(file_accanto_impossibile(file));
    std::ofstream{file.string() + "-journal"} << "?";
    EXPECT_FALSE(file_accanto_impossibile(file));
    std::filesystem::create_directory(file.string() + "-wal");
    EXPECT_TRUE(file_accanto_impossibile(file));
}

TEST(FileAccantoImpossibile, ArchiviCheSonoTubi) {
    for (const char* nome : {"drawit.db", "drawit2.db", "drawit.mdb", "drawit2.mdb"}) {
        const CartellaProva cartella;
        ASSERT_EQ(mkfifo((cartella.percorso() / nome).c_str(), 0600), 0);
        const auto letti = apri_archivio(cartella.percorso());
        ASSERT_FALSE(letti);
        EXPECT_EQ(letti.error().testo(), (cartella.percorso() / nome).string() + ": non è un file");
    }
}

}  // namespace
}  // namespace sortimetra
