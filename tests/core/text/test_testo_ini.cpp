#include "text/testo_ini.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace sortimetra {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kFile =
    "; nota\r\n[NomeRIC]\r\n0=Ambata\r\n 1 = \"due parole \" "
    "\r\n[TipoRic]\r\nindex=3\r\n[nomeric]\r\n2=coda\r\n";

TEST(TestoIni, LeggeSenzaRiguardoAlleMaiuscole) {
    EXPECT_EQ(valore_ini(kFile, "nomeric", "0"), "Ambata");
    EXPECT_EQ(valore_ini(kFile, "TIPORIC", "INDEX"), "3");
    EXPECT_EQ(valore_ini(kFile, "NomeRIC", "1"), "due parole ") << "in quotes blanks count";
    EXPECT_EQ(valore_ini(kFile, "NomeRIC", "2"), "coda") << "sections of one name are one";
}

TEST(TestoIni, CioCheNonCE) {
    EXPECT_FALSE(valore_ini(kFile, "NomeRIC", "index"));
    EXPECT_FALSE(valore_ini(kFile, "Altra", "0"));
    EXPECT_FALSE(valore_ini("", "a", "b"));
    EXPECT_FALSE(valore_ini("0=prima di ogni sezione\n", "", "0"));
    EXPECT_EQ(valore_ini("[a]\nk=\n", "a", "k"), "") << "no value is an empty value";
}

TEST(TestoIni, LaPrimaChiaveVale) {
    EXPECT_EQ(valore_ini("[a]\nk=1\nk=2\n", "a", "k"), "1");
    EXPECT_EQ(valore_ini("[a]\n;k=0\nk=1=2\n", "a", "k"), "1=2");
    EXPECT_EQ(valore_ini("\xEF\xBB\xBF[a]\nk=1\n", "a", "k"), "1");
    EXPECT_EQ(valore_ini("[a]\nk=1\0002\n"sv, "a", "k"), "1") << "a value ends at a NUL";
    EXPECT_EQ(valore_ini("[a]\nk='x'\n", "a", "k"), "x");
    EXPECT_EQ(valore_ini("[a]\nk='x\"\n", "a", "k"), "'x\"") << "quotes that do not match are text";
}

TEST(TestoIni, ScriveAlSuoPosto) {
    EXPECT_EQ(con_valore_ini("[a]\r\nk=1\r\nz=9\r\n[b]\r\n", "A", "K", "2"), "[a]\r\nk=2\r\nz=9\r\n[b]\r\n");
    EXPECT_EQ(con_valore_ini("[a]\r\nk=1\r\n\r\n[b]\r\n", "a", "n", "2"), "[a]\r\nk=1\r\nn=2\r\n\r\n[b]\r\n");
    EXPECT_EQ(con_valore_ini("[a]\r\nk=1", "b", "n", "2"), "[a]\r\nk=1\r\n[b]\r\nn=2\r\n");
    EXPECT_EQ(con_valore_ini("", "a", "k", "1"), "[a]\r\nk=1\r\n");
    EXPECT_EQ(con_valore_ini("[a]\nk = 1\nz=2\n", "a", "k", "3"), "[a]\nk =3\nz=2\n") << "the line's own end";
}

TEST(TestoIni, UnValoreNonRompeIlFile) {
    EXPECT_EQ(con_valore_ini("", "a", "k", "1\r\n[b]\r\nz=2"), "[a]\r\nk=1\r\n");
    for (const std::string_view v : {" x ", "\"x\"", "'x'", "", ";x", "[x]", "=x"})
        EXPECT_EQ(valore_ini(con_valore_ini("", "a", "k", v), "a", "k"), v) << v;
}

TEST(TestoIni, ScrittoSiRileggeEIlRestoNonCambia) {
    constexpr std::string_view kByte = "ab[]=;'\" \r\n\t\0\xEF\xBB\xBF"sv;
    for (unsigned seme = 0; seme < 500; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        const auto testo = [&](std::size_t massimo) {
            std::string t(dado() % massimo, '\0');
            for (char& c : t) c = kByte[dado() % kByte.size()];
            return t;
        };
        const std::string prima = "[b]\nb=uno\n" + testo(60);
        const std::string valore = testo(12);
        const std::string dopo = con_valore_ini(prima, "a", "b", valore);
        const auto letto = valore_ini(dopo, "a", "b");
        ASSERT_TRUE(letto);
        EXPECT_EQ(*letto, valore.substr(0, valore.find_first_of("\r\n\0"sv)));
        EXPECT_EQ(valore_ini(dopo, "b", "b"), "uno");
        EXPECT_EQ(con_valore_ini(dopo, "a", "b", *letto), dopo) << "a second time changes nothing";
    }
}

}  // namespace
}  // namespace sortimetra
