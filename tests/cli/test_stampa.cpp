#include "cli/cartella_cli.h"
#include "support/pdf.h"

namespace sortimetra::prove {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
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

TEST_F(StampaTest, ColonneDelCasoERuoteUnaAccantoAllAltra) {
    ASSERT_EQ(stampa({kNovanta, "-o", "solo.pdf"}).codice, 0);
    EXPECT_THAT(testo_pdf(casa() / "solo.pdf"), Not(HasSubstr("Attesa")));
    Esito p = stampa({kNovanta, "--caso", "--ordina", "Attesa:desc,Numeri:desc", "-o", "caso.pdf"});
    ASSERT_EQ(p.codice, 0) << p.errori;
    const std::string caso = testo_pdf(casa() / "caso.pdf", "-layout");
    for (const char* titolo :
         {"Ritardo Storico", "Attesa", "Scarto", "Probabilità", "In tabella", "Record atteso"})
        EXPECT_THAT(caso, HasSubstr(titolo));
    // Every number has the same expectation: the last one comes first.
    EXPECT_LT(caso.find(" 90  "), caso.find(" 89  ")) << caso.substr(0, 2000);
    p = stampa({kNovanta, "--ruote", "BA,RM", "--per-ruota", "--misura", "frequenza", "-o", "ruote.pdf"});
    ASSERT_EQ(p.codice, 0) << p.errori;
    EXPECT_THAT(testo_pdf(casa() / "ruote.pdf"),
                AllOf(HasSubstr("BA"), HasSubstr("RM"), Not(HasSubstr("Ritardo Storico"))));
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
