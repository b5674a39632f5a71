#include "stores/arrivi.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::HasSubstr;

constexpr std::string_view kTitoliS = "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n";
constexpr std::string_view kTitoliW = "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n";
constexpr std::string_view kRigaL = "2026/08/22\tBA\t1\t2\t3\t4\t5\n";
constexpr std::string_view kRigaS = "2026-08-22;1;2;3;4;5;6;7;8\n";
constexpr std::string_view kRigaW = "9000;2026-08-22;07:00;1;2;3;4;5;6;7;8;9;10;3\n";

std::expected<Arrivate, ErroreArchivio> leggi(const std::vector<Arrivo>& arrivi) {
    SenzaAvanzamento nessuno;
    return leggi_arrivi(arrivi, nessuno);
}
std::string errore(const std::vector<Arrivo>& arrivi) {
    const auto esito = leggi(arrivi);
    return esito ? "nessun errore" : esito.error().testo();
}
std::string operator+(std::string_view a, std::string_view b) {
    return std::string{a}.append(b);
}

TEST(Arrivi, IlGiocoSiConosceDalContenuto) {
    EXPECT_EQ(riconosci_gioco(kRigaL), Gioco::lotto);
    EXPECT_EQ(riconosci_gioco(kRigaS), Gioco::superenalotto);
    EXPECT_EQ(riconosci_gioco(kTitoliS), Gioco::superenalotto);
    EXPECT_EQ(riconosci_gioco(kRigaW), Gioco::win_for_life);
    EXPECT_EQ(riconosci_gioco("\n \r\n" + std::string{kTitoliW}), Gioco::win_for_life);
    EXPECT_EQ(riconosci_gioco("\xEF\xBB\xBF" + std::string{kRigaL}), Gioco::lotto);
    for (const std::string_view altro :
         {"", "\n\n", "<!DOCTYPE html>\n", "12", "2026-08-22", "data;numeri\n", "\x1F\x8B\x08", "BA\t1\t2"})
        EXPECT_EQ(riconosci_gioco(altro), std::nullopt) << altro;
}

TEST(Arrivi, UnaSolaEstrazione) {
    const auto a = leggi({{"appunti", std::string{kRigaS}}});
    ASSERT_TRUE(a) << a.error().testo();
    ASSERT_EQ(a->righe.superenalotto.size(), 1U);
    EXPECT_EQ(a->righe.superenalotto[0].superstar, 8);
    EXPECT_EQ(a->intere, 0U) << "no title line: newest lines";
    ASSERT_EQ(a->testi.size(), 1U);
    EXPECT_EQ(a->testi[0].nome, "appunti");
    EXPECT_EQ(a->testi[0].estrazioni, 1U);
    EXPECT_EQ(testo_data(a->testi[0].ultima), "22/08/2026");
    const auto w = leggi({{"appunti", std::string{kRigaW}}});
    ASSERT_TRUE(w) << w.error().testo();
    EXPECT_EQ(w->righe.winforlife.size(), 1U);
}

TEST(Arrivi, PiuTestiInsieme) {
    const auto a = leggi({{"a", "2026/08/22\tCA\t1\t2\t3\t4\t5\n" + kRigaL},
                          {"b", kRigaL + "2026/08/20\tRN\t9\t8\t7\t6\t5\n"},
                          {"c", kTitoliS + kRigaS},
                          {"d", kTitoliW + kRigaW}});
    ASSERT_TRUE(a) << a.error().testo();
    ASSERT_EQ(a->righe.lotto.size(), 3U) << "what stands in two texts counts once";
    EXPECT_EQ(a->righe.lotto[0].ruota, kNazionale);
    EXPECT_EQ(a->righe.lotto[1].ruota, 0);
    EXPECT_EQ(a->righe.lotto[2].ruota, 1);
    EXPECT_EQ(a->testi[1].estrazioni, 2U) << "draws, not rows";
    EXPECT_EQ(a->intere, unsigned{kTabellaSuperEnalotto} | unsigned{kTabellaWinForLife});
}

TEST(Arrivi, LaStoriaDelLottoHaIl3Dicembre1997) {
    EXPECT_EQ(leggi({{"a", "1997/12/03\tBA\t1\t2\t3\t4\t5\n"}})->intere, unsigned{kTabellaLotto});
    EXPECT_EQ(leggi({{"a", "1997/12/06\tBA\t1\t2\t3\t4\t5\n"}})->intere, 0U);
}

TEST(Arrivi, DueTestiCheNonVannoDAccordo) {
    EXPECT_EQ(errore({{"uno.txt", std::string{kRigaL}}, {"due.txt", "2026/08/22\tBA\t1\t2\t3\t4\t6\n"}}),
              "due.txt: la ruota BA del 22/08/2026 ha altri numeri che in uno.txt");
    EXPECT_EQ(errore({{"uno", std::string{kRigaS}}, {"due", "2026-08-22;1;2;3;4;5;6;7;9\n"}}),
              "due: l'estrazione del 22/08/2026 ha altri numeri che in uno");
    EXPECT_EQ(errore({{"uno", std::string{kRigaW}}, {"due", "1;2026-08-22;7:00;1;2;3;4;5;6;7;8;9;11;3\n"}}),
              "due: l'estrazione del 22/08/2026 delle 7:00 ha altri numeri che in uno");
}

TEST(Arrivi, QuelloCheNonSiLegge) {
    EXPECT_EQ(errore({{"vuoto.txt", ""}}), "vuoto.txt: non contiene estrazioni");
    EXPECT_THAT(errore({{"pagina.html", "<html></html>"}}),
                HasSubstr("pagina.html: non è un testo di estrazioni"));
    // A slip in the first line is told with its place.
    EXPECT_EQ(errore({{"a", "2026/13/22\tBA\t1\t2\t3\t4\t5\n"}}),
              "a: riga 1: trovato \"2026/13/22\", attesa una data aaaa/mm/gg");
    EXPECT_EQ(errore({{"a", "2026-08-22;1;2;3;4;5;6;7;91\n"}}),
              "a: riga 1: trovato \"91\", atteso un numero da 1 a 90, oppure vuoto o 0");
    EXPECT_THAT(errore({{"a", kTitoliS + kRigaS + kTitoliS}}), HasSubstr("a: riga 3: "));
    EXPECT_THAT(errore({{"a", std::string{kTitoliW}}}), HasSubstr("a: il file non contiene estrazioni"));
}

TEST(Arrivi, UnFile) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "lotto.txt";
    std::ofstream{file} << kRigaL;
    const auto a = leggi_arrivo(file);
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->nome, file.string());
    EXPECT_EQ(a->byte, kRigaL);
    EXPECT_FALSE(leggi_arrivo(cartella.percorso() / "manca"));
}

}  // namespace
}  // namespace sortimetra
