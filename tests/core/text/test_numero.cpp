#include "text/numero.h"
#include "text/testi.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace sortimetra {
namespace {

double valore(std::string_view testo) {
    const auto n = leggi_numero(testo);
    EXPECT_TRUE(n) << testo;
    return n ? n->valore : -12345;
}

TEST(Numero, ComeSiScrivono) {
    EXPECT_EQ(valore("12"), 12);
    EXPECT_EQ(valore("-3"), -3);
    EXPECT_EQ(valore("+5"), 5);
    EXPECT_EQ(valore("07"), 7);
    EXPECT_EQ(valore("12,50"), 12.5);
    EXPECT_EQ(valore("1.443,33"), 1443.33);
    EXPECT_EQ(valore("4.005"), 4005);
    EXPECT_EQ(valore("-1.234.567,8"), -1234567.8);
    EXPECT_EQ(valore("12,50%"), 12.5);
    EXPECT_EQ(valore(" 12 % "), 12);
    EXPECT_EQ(valore("0,00"), 0);
}

TEST(Numero, TestiCheNonLoSono) {
    for (const std::string_view t :
         {"",       " ",      "-",       "%",        ",",       ".",       "...",        ",5",
          "5,",     "5,%",    "1,2,3",   "1.5",      "01.02",   "12.3456", "1.23.456",   ".123",
          "1..234", "1.234.", "12.34,5", "1234.567", "1,234.5", "--3",     "+-3",        "- 3",
          "3-",     "1e5",    "inf",     "nan",      "0x10",    "12a",     "03/12/1997", "8:00",
          "01-02",  "12%%",   "%12",     "1 2",      "BA"})
        EXPECT_FALSE(leggi_numero(t)) << "\"" << t << "\"";
}

TEST(Numero, ComeEraScritto) {
    const auto n = leggi_numero("1.443,330%");
    ASSERT_TRUE(n);
    EXPECT_TRUE(n->punti);
    EXPECT_TRUE(n->percento);
    EXPECT_EQ(n->decimali, 3);
    EXPECT_FALSE(n->zero_davanti);
    EXPECT_TRUE(leggi_numero("07")->zero_davanti);
    EXPECT_FALSE(leggi_numero("0")->zero_davanti);
    EXPECT_FALSE(leggi_numero("0,7")->zero_davanti);
}

TEST(Numero, RileggeCioCheITestiScrivono) {
    std::mt19937_64 dado{1};
    for (int i = 0; i < 2000; ++i) {
        const auto n = static_cast<std::int64_t>(dado() % 2'000'000'000) - 1'000'000'000;
        ASSERT_EQ(valore(migliaia(n)), static_cast<double>(n));
        // Hundredths: the quotient of n and 100 has no rounding.
        for (const bool punti : {false, true})
            ASSERT_EQ(valore(quoziente_due_decimali(n, 100, punti)), static_cast<double>(n) / 100);
    }
}

}  // namespace
}  // namespace sortimetra
