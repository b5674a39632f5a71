#include "bets/limite.h"
#include "bets/parametri.h"
#include "bets/scommesse.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace sortimetra {
namespace {

using namespace prove;

class Limite : public testing::Test {
  protected:
    void scrivi(std::string_view testo) const { std::ofstream{file(), std::ios::binary} << testo; }
    std::string letto() const {
        std::ifstream flusso{file(), std::ios::binary};
        return {std::istreambuf_iterator<char>{flusso}, {}};
    }
    std::filesystem::path file() const { return cartella_.percorso() / "uo.dat"; }
    /// What the file puts in force.
    float in_vigore() const { return leggi_limite(cartella_.percorso()).value().value().valore; }
    CartellaProva cartella_;
};

TEST_F(Limite, SenzaFileNonCEUnLimite) {
    const auto letto = leggi_limite(cartella_.percorso());
    ASSERT_TRUE(letto.has_value());
    EXPECT_FALSE(letto->has_value());
}

TEST_F(Limite, ScrittoFraVirgolette) {
    ASSERT_TRUE(scrivi_limite(cartella_.percorso(), "227,5").has_value());
    EXPECT_EQ(letto(), "\"227,5\"\r\n");
    const auto archiviato = leggi_limite(cartella_.percorso()).value().value();
    EXPECT_EQ(archiviato.testo, "227,5");
    // Read up to the comma.
    EXPECT_EQ(archiviato.valore, 227.0F);
}

TEST_F(Limite, SiLeggeFinoAllaVirgola) {
    for (const auto& [testo, valore] :
         std::initializer_list<std::pair<std::string_view, float>>{{"\"230,0\"\r\n", 230.0F},
                                                                   {"231", 231.0F},
                                                                   {"\"227.5\"", 227.5F},
                                                                   {"\"1.227,5\"\r\n", 1.227F},
                                                                   {" 200 \r\nresto", 200.0F},
                                                                   {"", 0.0F},
                                                                   {"\"\"\r\n", 0.0F},
                                                                   {"nulla", 0.0F},
                                                                   {",5", 0.0F},
                                                                   {"-", 0.0F},
                                                                   {".", 0.0F},
                                                                   {"\"2 0 0\"", 200.0F},
                                                                   {"-5", -5.0F},
                                                                   {"0", 0.0F}}) {
        scrivi(testo);
        EXPECT_EQ(in_vigore(), valore) << testo;
    }
}

TEST_F(Limite, UnFileCheNonSiLeggeSiDice) {
    std::filesystem::create_directory(file());
    EXPECT_FALSE(leggi_limite(cartella_.percorso()).has_value());
    Domanda d = domanda("scommesse lotto");
    EXPECT_FALSE(carica_limite(cartella_.percorso(), d).has_value());
    // Only Under/Over asks for it, and only without a limit of its own.
    d.parametri.per<ParametriScommesse>().limite = 200.0F;
    EXPECT_TRUE(carica_limite(cartella_.percorso(), d).has_value());
    d.parametri.per<ParametriScommesse>().limite.reset();
    d.parametri.per<ParametriScommesse>().analisi = 1;
    EXPECT_TRUE(carica_limite(cartella_.percorso(), d).has_value());
    EXPECT_FALSE(scrivi_limite(cartella_.percorso(), "1").has_value());
    std::filesystem::remove(file());
    scrivi(std::string(5000, '1'));
    EXPECT_FALSE(leggi_limite(cartella_.percorso()).has_value());
}

TEST_F(Limite, DallaCartellaONo) {
    Domanda d = domanda("scommesse lotto");
    ASSERT_TRUE(carica_limite(cartella_.percorso(), d).has_value());
    EXPECT_EQ(d.di<ParametriScommesse>().in_vigore(), 227.5F);
    EXPECT_FALSE(std::filesystem::exists(file()));
    scrivi("\"227,5\"\r\n");
    ASSERT_TRUE(carica_limite(cartella_.percorso(), d).has_value());
    EXPECT_EQ(d.di<ParametriScommesse>().in_vigore(), 227.0F);
}

TEST(LimiteScritto, UnDecimale) {
    for (const auto& [testo, decimi] : std::initializer_list<std::pair<std::string_view, std::int64_t>>{
             {"227,5", 2275},
             {"227", 2270},
             {"227,45", 2275},
             {"227,44", 2274},
             {"227,449", 2274},
             {"0,05", 1},
             {",5", 5},
             {"5,", 50},
             {" 12,3 ", 123},
             {"1.227,5", 12275},
             {"1.227", 12270},
             {"227.5", 2275},
             {"0.25", 3},
             {"0", 0},
             {"007", 70},
             {"999999999999,96", 10000000000000}})
        EXPECT_EQ(leggi_decimi(testo), decimi) << testo;
    for (const std::string_view testo :
         {"", " ", ",", ".", "2:5", ":", "-1", "+1", "1,2,3", "1e3", "12a", "1234567890123"})
        EXPECT_EQ(leggi_decimi(testo), std::nullopt) << testo;
}

TEST(LimiteScritto, Testo) {
    EXPECT_EQ(testo_decimi(2275), "227,5");
    EXPECT_EQ(testo_decimi(0), "0,0");
    EXPECT_EQ(testo_decimi(10000), "1.000,0");
    EXPECT_EQ(testo_decimi(12345678), "1.234.567,8");
    EXPECT_EQ(valore_decimi(2275), 227.5F);
    EXPECT_EQ(testo_limite(227.0F), "227");
    EXPECT_EQ(testo_limite(227.5F), "227,5");
    EXPECT_EQ(testo_limite(1000.3F), "1.000,3");
    EXPECT_EQ(testo_limite(1.227F), "1,227");
    EXPECT_EQ(testo_limite(0.0F), "0");
    EXPECT_EQ(testo_limite(-0.5F), "-0,5");
    EXPECT_EQ(testo_limite(-12.0F), "-12");
    EXPECT_EQ(testo_limite(-123.0F), "-123");
    EXPECT_EQ(testo_limite(1e12F), "999.999.995.904");
    EXPECT_EQ(testo_limite(3e38F).size(), 51U);
}

TEST(LimiteScritto, Opzione) {
    Domanda d = domanda("scommesse lotto");
    EXPECT_EQ(kOpzLimite.scrivi(d), std::nullopt);
    EXPECT_TRUE(kOpzLimite.leggi("200.25", d));
    EXPECT_EQ(d.di<ParametriScommesse>().in_vigore(), 200.3F);
    EXPECT_EQ(kOpzLimite.scrivi(d), "200,3");
    EXPECT_TRUE(kOpzLimite.leggi("1.227", d));
    EXPECT_EQ(kOpzLimite.scrivi(d), "1,2");
    for (const std::string_view errato : {"-1", "", "x", "1.227,5", "2:5"})
        EXPECT_FALSE(kOpzLimite.leggi(errato, d)) << errato;
    EXPECT_TRUE(kOpzAnalisi.leggi("8", d));
    EXPECT_FALSE(kOpzAnalisi.leggi("9", d));
    EXPECT_FALSE(kOpzAnalisi.leggi("-1", d));
}

}  // namespace
}  // namespace sortimetra
