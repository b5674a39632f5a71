#include "cli/cartella_cli.h"

namespace sortimetra::prove {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class StampaTest : public ProgrammaTest {
  protected:
    void SetUp() override { importa(); }
    [[nodiscard]] Esito stampa(std::vector<std::string> argomenti) const {
        argomenti.insert(argomenti.begin(), "stampa");
        argomenti.insert(argomenti.end(), {"--cartella", "."});
        return esegui(argomenti);
    }
};

constexpr const char* kNovanta = "ritardo e frequenza dei 90 numeri";

TEST_F(StampaTest, UnPdfIntero) {
    const Esito p = stampa({kNovanta, "--ruote", "BA,RM", "--ordina", "2", "-o", "novanta.pdf"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(p.errori, "");
    EXPECT_THAT(leggi(casa() / "novanta.pdf"), AllOf(StartsWith("%PDF-"), EndsWith("%%EOF\n")));
}

TEST_F(StampaTest, IlFileServe) {
    const Esito p = stampa({kNovanta});
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori,
                StartsWith("sortimetra-cli: stampa: manca il file da scrivere, con -o FILE.pdf.\n"));
    EXPECT_EQ(stampa({kNovanta, "--formato", "csv", "-o", "x.pdf"}).codice, 2);
}

TEST_F(StampaTest, SenzaDatiNonCEFile) {
    const Esito p = stampa({kNovanta, "--da", "3", "--a", "1", "-o", "novanta.pdf"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.errori, "sortimetra-cli: Non ci sono estrazioni per l'intervallo selezionato\n");
    EXPECT_FALSE(std::filesystem::exists(casa() / "novanta.pdf"));
}

TEST_F(StampaTest, DoveNonSiPuoScrivere) {
    for (const char* dove : {"manca/novanta.pdf", "archivio", "/dev/null"}) {
        const Esito p = stampa({kNovanta, "-o", dove});
        EXPECT_EQ(p.codice, 1) << dove;
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, AllOf(StartsWith("sortimetra-cli: -o: "), HasSubstr(dove)));
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace sortimetra::prove
