#include "support/archivi.h"
#include "support/programma.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A program folder with three draws of Bari.
class Schedina : public testing::Test {
  protected:
    void SetUp() override {
        std::ofstream{cartella_.percorso() / "lotto.txt"} << "1997/12/03\tBA\t12\t21\t3\t4\t5\n"
                                                             "1997/12/06\tBA\t1\t2\t3\t4\t5\n"
                                                             "1997/12/10\tBA\t6\t7\t8\t9\t10\n";
        ASSERT_EQ(
            cli({"importa", "--tutto", "--lotto", (cartella_.percorso() / "lotto.txt").string()}).codice, 0);
    }
    prove::Esito cli(std::vector<std::string> argomenti) const {
        argomenti.insert(argomenti.end(), {"--cartella", cartella_.percorso().string()});
        return prove::esegui_programma("sortimetra-cli", argomenti, {.cartella = cartella_.percorso()});
    }
    std::string letto(const fs::path& file) const {
        std::ifstream flusso{cartella_.percorso() / file, std::ios::binary};
        return {std::istreambuf_iterator<char>{flusso}, {}};
    }
    prove::CartellaProva cartella_;
};

TEST_F(Schedina, OgniRigaDellaGrigliaEntraNelSistema) {
    const auto p =
        cli({"ricerca", "ambi vertibili", "--tipo", "ambo", "--schedina", "28", "--formato", "json"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.uscita, HasSubstr(R"("etichette": {"file": "ambo/ric_stat"})"));
    const std::string sistema = letto("ambo/ric_statsya.txt");
    EXPECT_EQ(std::count(sistema.begin(), sistema.end(), '\n'), 28);
    EXPECT_THAT(sistema, testing::StartsWith("12,21\r\n13,31\r\n"));
    EXPECT_EQ(letto("trans"), "\"ambo\",\"ric_stat\"\r\n");
    EXPECT_TRUE(fs::is_directory(cartella_.percorso() / "sestine-decine"));
}

TEST_F(Schedina, LaRigaDeveEsserci) {
    const auto p = cli({"ricerca", "ambi vertibili", "--schedina", "29"});
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori, AllOf(HasSubstr("--schedina"), HasSubstr("29"), HasSubstr("da 1 a 28")));
    EXPECT_FALSE(fs::exists(cartella_.percorso() / "trans"));
}

TEST_F(Schedina, NumeriSingoliCifreETabellaDelleRuoteNonNeHanno) {
    EXPECT_EQ(cli({"ricerca", "ritardo e frequenza dei 90 numeri", "--schedina", "1"}).codice, 2);
    EXPECT_EQ(cli({"ricerca", "cifre", "--schedina", "1"}).codice, 2);
    EXPECT_EQ(cli({"ricerca", "decine", "--tutte-le-ruote", "--schedina", "1"}).codice, 2);
    EXPECT_EQ(
        cli({"ricerca", "scomposizione", "--numeri", "1,2,3", "--sorte", "1", "--schedina", "1"}).codice, 2);
    EXPECT_EQ(
        cli({"ricerca", "scomposizione", "--numeri", "1,2,3", "--sorte", "2", "--schedina", "1"}).codice, 0);
}

TEST_F(Schedina, SenzaEstrazioniNonSiScriveNulla) {
    const auto p = cli({"ricerca", "decine", "--da", "3", "--a", "1", "--schedina", "1"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_FALSE(fs::exists(cartella_.percorso() / "trans"));
}

}  // namespace
}  // namespace sortimetra
