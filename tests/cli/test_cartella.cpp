#include "cli/cartella_cli.h"
#include "files/sessione.h"

#include <cstdlib>

// The folder chosen in the window is where the terminal looks too.

namespace sortimetra::prove {
namespace {

using ::testing::HasSubstr;

class Cartella : public ProgrammaTest {
  protected:
    Cartella() {
        // What the program finds under its home folder.
        ::setenv("XDG_CONFIG_HOME", (casa() / ".config").c_str(), 1);
    }
    ~Cartella() override { ::unsetenv("XDG_CONFIG_HOME"); }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
};

TEST_F(Cartella, SceltaNellaFinestraValeNelTerminale) {
    importa();
    std::filesystem::create_directory(casa() / "le mie estrazioni");
    std::filesystem::rename(casa() / "archivio", casa() / "le mie estrazioni" / "archivio");
    EXPECT_EQ(esegui({"archivio"}).codice, 3);
    ASSERT_TRUE(ricorda_cartella(casa() / "le mie estrazioni"));
    const Esito trovata = esegui({"archivio"});
    EXPECT_EQ(trovata.codice, 0) << trovata.errori;
    EXPECT_THAT(trovata.uscita, HasSubstr("le mie estrazioni/archivio"));
    EXPECT_EQ(esegui({"ricerca", "decine"}).codice, 0);
}

TEST_F(Cartella, QuellaScrittaSullaRigaVince) {
    importa();
    std::filesystem::create_directory(casa() / "vuota");
    ASSERT_TRUE(ricorda_cartella(casa()));
    EXPECT_EQ(esegui({"archivio"}).codice, 0);
    EXPECT_EQ(esegui({"archivio", "--cartella", "vuota"}).codice, 3);
    // And the other way round: the line's folder is good, the remembered one is gone.
    std::filesystem::create_directories(casa() / "sparita" / "archivio");
    ASSERT_TRUE(ricorda_cartella(casa() / "sparita"));
    EXPECT_EQ(esegui({"archivio"}).codice, 3);
    EXPECT_EQ(esegui({"archivio", "--cartella", "."}).codice, 0);
}

}  // namespace
}  // namespace sortimetra::prove
