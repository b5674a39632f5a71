#include "text/testi.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

namespace sortimetra {
namespace {

TEST(Testi, RifilaIBianchiAiDueCapi) {
    EXPECT_EQ(rifila(" \t12 34\r\n"), "12 34");
    EXPECT_EQ(rifila("uno"), "uno");
    EXPECT_EQ(rifila(" \r\n\t "), "");
    EXPECT_EQ(rifila(""), "");
    EXPECT_EQ(rifila("\xC2\xA0x"), "\xC2\xA0x") << "a blank that is not to be broken stays";
}

TEST(Testi, MinuscoloConGliAccenti) {
    EXPECT_EQ(minuscolo("PIÙ È Ç"), "più è ç");
    EXPECT_EQ(minuscolo("Ambo 12@[`{"), "ambo 12@[`{") << "neighbours of the letters stay";
    EXPECT_EQ(minuscolo("À×ß÷Þ"), "à×ß÷þ") << "the two signs among the letters stay";
    EXPECT_EQ(minuscolo("€ Ā"), "€ Ā");
    EXPECT_EQ(minuscolo("\xC3"), "\xC3");
}

TEST(Testi, IlNumeroConCuiUnTestoComincia) {
    EXPECT_EQ(valore_iniziale("12"), 12);
    EXPECT_EQ(valore_iniziale(" 07"), 7);
    EXPECT_EQ(valore_iniziale("12abc"), 12);
    EXPECT_EQ(valore_iniziale("1 2\t3"), 123);
    EXPECT_EQ(valore_iniziale("- 5"), -5);
    EXPECT_EQ(valore_iniziale("+5"), 5);
    EXPECT_EQ(valore_iniziale("5-3"), 5);
    EXPECT_EQ(valore_iniziale("--5"), 0);
    EXPECT_EQ(valore_iniziale(""), 0);
    EXPECT_EQ(valore_iniziale("abc"), 0);
    EXPECT_GT(valore_iniziale(std::string(100, '9')), 0) << "does not overflow";
    EXPECT_LT(valore_iniziale("-" + std::string(100, '9')), 0);
}

TEST(Testi, DueCifreEInteri) {
    std::string testo;
    for (const int n : {0, 7, 10, 90, 99}) {
        aggiungi_due_cifre(testo, n);
        testo += ' ';
    }
    EXPECT_EQ(testo, "00 07 10 90 99 ");
    aggiungi_intero(testo, INT64_MIN);
    EXPECT_EQ(testo, "00 07 10 90 99 -9223372036854775808");
}

TEST(Testi, Migliaia) {
    EXPECT_EQ(migliaia(0), "0");
    EXPECT_EQ(migliaia(999), "999");
    EXPECT_EQ(migliaia(4005), "4.005");
    EXPECT_EQ(migliaia(-1234), "-1.234");
    EXPECT_EQ(migliaia(-999), "-999");
    EXPECT_EQ(migliaia(117480), "117.480");
    EXPECT_EQ(migliaia(1234567), "1.234.567");
}

TEST(Testi, QuozienteArrotondatoLontanoDaZero) {
    EXPECT_EQ(quoziente_due_decimali(25, 8), "3,13");
    EXPECT_EQ(quoziente_due_decimali(-25, 8), "-3,13");
    EXPECT_EQ(quoziente_due_decimali(25, -8), "-3,13");
    EXPECT_EQ(quoziente_due_decimali(1, 3), "0,33");
    EXPECT_EQ(quoziente_due_decimali(2, 3), "0,67");
    EXPECT_EQ(quoziente_due_decimali(1, 200), "0,01") << "half goes up";
    EXPECT_EQ(quoziente_due_decimali(-1, 201), "0,00") << "no sign before nothing";
    EXPECT_EQ(quoziente_due_decimali(4330, 3, true), "1.443,33");
    EXPECT_EQ(quoziente_due_decimali(4330, 3), "1443,33");
    EXPECT_EQ(quoziente_due_decimali(5, 0), "") << "no quotient, no text";
}

TEST(Testi, QuozienteComeConLeFrazioni) {
    std::mt19937 dado{7};
    for (int i = 0; i < 5000; ++i) {
        const std::int64_t n = dado() % 1'000'000;
        const std::int64_t d = dado() % 5000 + 1;
        // The hundredths h with h - 1/2 <= 100 n / d < h + 1/2, found by walking.
        std::int64_t h = 100 * n / d;
        while (2 * 100 * n >= (2 * h + 1) * d) ++h;
        const std::string resto = std::to_string(h % 100);
        ASSERT_EQ(quoziente_due_decimali(n, d),
                  std::to_string(h / 100) + "," + (resto.size() < 2 ? "0" : "") + resto)
            << n << " / " << d;
    }
}

}  // namespace
}  // namespace sortimetra
