#include "cli/cartella_cli.h"

#include <nlohmann/json.hpp>

namespace sortimetra::prove {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// The spies, the cyclometric board and the bets from the command line.
class StrumentiTest : public ProgrammaTest {
  protected:
    void SetUp() override { importa(); }
    [[nodiscard]] Esito ricerca(const std::string& chiave, std::vector<std::string> altri) const {
        altri.insert(altri.begin(), {"ricerca", chiave, "--cartella", "."});
        return esegui(altri);
    }
    [[nodiscard]] Esito spia(const std::vector<std::string>& altri) const {
        return ricerca("calcolo dei numeri spia", altri);
    }
    [[nodiscard]] Esito ciclometria(const std::vector<std::string>& altri) const {
        return ricerca("calcolo somme e distanze ciclometriche", altri);
    }
    [[nodiscard]] Esito scommesse(const std::vector<std::string>& altri) const {
        return ricerca("scommesse lotto", altri);
    }
};

void uso_errato(const Esito& p, const std::string& opzione) {
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori, HasSubstr(opzione));
}

TEST_F(StrumentiTest, SpiaVuoleINumeri) {
    uso_errato(spia({}), "manca --numeri");
    uso_errato(spia({"--numeri", "91"}), "\"91\"");
    uso_errato(spia({"--numeri", "0,3"}), "tutti");
    uso_errato(spia({"--numeri", "tuti"}), "Volevi dire \"tutti\"?");
    EXPECT_EQ(spia({"--numeri", "5,3"}).codice, 0);
}

TEST_F(StrumentiTest, SpiaVuoleUnaRuotaSola) {
    uso_errato(spia({"--numeri", "5", "--ruote", "BA,RM"}), "Bari, Roma");
    for (const char* ruote : {"RM", "TUTTE", "NZ", "nessuna"})
        EXPECT_EQ(spia({"--numeri", "5", "--ruote", ruote}).codice, 0) << ruote;
}

TEST_F(StrumentiTest, SpiaSenzaEstrazioni) {
    const Esito p = spia({"--numeri", "5", "--da", "3", "--a", "1", "--formato", "json"});
    EXPECT_EQ(p.codice, 1);
    const auto json = nlohmann::json::parse(p.uscita);
    EXPECT_TRUE(json["tabelle"].empty());
    EXPECT_EQ(json["messaggi"][0], kNessunaEstrazione);
}

TEST_F(StrumentiTest, SpiaFuoriDaiLimitiSiRiporta) {
    EXPECT_EQ(spia({"--numeri", "7", "--da", "-4", "--a", "900", "--formato", "csv"}).uscita,
              spia({"--numeri", "7", "--formato", "csv"}).uscita);
}

TEST_F(StrumentiTest, CiclometriaPerConcorsoOPerData) {
    uso_errato(ciclometria({"--concorso", "1", "--data", "01/01/2000"}), "--concorso");
    uso_errato(ciclometria({"--data", "2000-01-01"}), "gg/mm/aaaa");
    const Esito assente = ciclometria({"--concorso", "77"});
    EXPECT_EQ(assente.codice, 1);
    EXPECT_EQ(assente.uscita, "");
    EXPECT_THAT(assente.errori, HasSubstr("77"));
    EXPECT_EQ(ciclometria({"--data", "31/12/1999"}).codice, 1);
    EXPECT_EQ(ciclometria({"--data", "05/01/2000", "--formato", "csv"}).uscita,
              ciclometria({"--concorso", "2", "--formato", "csv"}).uscita);
    EXPECT_THAT(ciclometria({"--formato", "csv"}).uscita, HasSubstr("08/01/2000"));
}

TEST_F(StrumentiTest, ScommesseSenzaScrivereIlLimite) {
    uso_errato(scommesse({"--analisi", "9"}), "da 0 a 8");
    uso_errato(scommesse({"--limite", "-1"}), "--limite");
    uso_errato(scommesse({"--limite", "molto"}), "molto");
    EXPECT_EQ(scommesse({"--limite", "100.25"}).codice, 0);
    EXPECT_FALSE(std::filesystem::exists(casa() / "uo.dat"));
    // Six rows are one draw, the first row Bari's: 90 + 12 + 33 + 4 + 5 = 144. With the file's "144,5" the
    // limit is 144, which is Over.
    const std::string under = scommesse({"--formato", "csv"}).uscita;
    EXPECT_THAT(under, HasSubstr("Bari;1;0;0;0;1;0;U;"));
    scrivi(casa() / "uo.dat", "\"144,5\"\r\n");
    EXPECT_THAT(scommesse({"--formato", "csv"}).uscita, HasSubstr("Bari;0;1;0;1;0;0;O;"));
    EXPECT_EQ(scommesse({"--formato", "csv", "--limite", "144,5"}).uscita, under);
    EXPECT_EQ(leggi(casa() / "uo.dat"), "\"144,5\"\r\n");
}

TEST_F(StrumentiTest, ScommesseSenzaEstrazioni) {
    const Esito p = scommesse({"--da", "3", "--a", "1", "--formato", "json"});
    EXPECT_EQ(p.codice, 0);
    const auto json = nlohmann::json::parse(p.uscita);
    EXPECT_TRUE(json["messaggi"].empty());
    EXPECT_EQ(json["tabelle"][0]["righe"].size(), 11U);
    EXPECT_EQ(json["tabelle"][0]["righe"][0],
              (std::vector<std::string>{"Bari", "0", "0", "0", "0", "0", "0"}));
}

TEST_F(StrumentiTest, Stampa) {
    for (const char* chiave :
         {"calcolo dei numeri spia", "calcolo somme e distanze ciclometriche", "scommesse lotto"}) {
        std::vector<std::string> argomenti{"stampa", chiave, "--cartella", ".", "-o", "r.pdf"};
        if (std::string_view{chiave} == "calcolo dei numeri spia")
            argomenti.insert(argomenti.end(), {"--numeri", "tutti"});
        const Esito p = esegui(argomenti);
        EXPECT_EQ(p.codice, 0) << p.errori;
        EXPECT_EQ(leggi(casa() / "r.pdf").substr(0, 5), "%PDF-");
    }
}

}  // namespace
}  // namespace sortimetra::prove
