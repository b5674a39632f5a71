#include "printing/metriche.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

constexpr double kPunto = 25.4 / 72;

Carattere arial(int corpo, bool grassetto = false) {
    Carattere c;
    c.corpo = corpo;
    c.grassetto = grassetto;
    return c;
}
Carattere courier(int corpo) {
    Carattere c;
    c.famiglia = "Courier New";
    c.corpo = corpo;
    return c;
}

TEST(Metriche, LargaComeLeSueLettere) {
    // A digit takes 1139 of 2048 parts of the body, a blank 569, "i" 455.
    EXPECT_NEAR(larghezza_testo(arial(10), "0"), 1139.0 / 2048 * 10 * kPunto, 1e-9);
    EXPECT_NEAR(larghezza_testo(arial(10), "0 i"), (1139.0 + 569 + 455) / 2048 * 10 * kPunto, 1e-9);
    EXPECT_NEAR(larghezza_testo(arial(20), "90"), 2 * larghezza_testo(arial(10), "90"), 1e-9);
    EXPECT_EQ(larghezza_testo(arial(10), ""), 0);
}

TEST(Metriche, GliAccentiNonAllargano) {
    EXPECT_EQ(larghezza_testo(arial(10), "ù"), larghezza_testo(arial(10), "u"));
    EXPECT_EQ(larghezza_testo(arial(10), "È"), larghezza_testo(arial(10), "E"));
    EXPECT_GT(larghezza_testo(arial(10), "…"), larghezza_testo(arial(10), "0"));
}

TEST(Metriche, IlGrassettoELargoAlmenoComeIlTondo) {
    for (char c = '0'; c <= 'z'; ++c) {
        if (c == '@') continue;  // the one sign that is narrower
        const std::string t(1, c);
        EXPECT_GE(larghezza_testo(arial(10, true), t), larghezza_testo(arial(10), t)) << t;
    }
}

TEST(Metriche, LaMacchinaPerScrivereHaUnPassoSolo) {
    for (const std::string t : {"i", "W", "à", "€"})
        EXPECT_NEAR(larghezza_testo(courier(10), t), 1229.0 / 2048 * 10 * kPunto, 1e-9) << t;
    EXPECT_EQ(larghezza_testo(courier(10), "\n"), 0);
}

TEST(Metriche, UnByteRottoEUnaLettera) {
    EXPECT_EQ(larghezza_testo(courier(10), "\xC3\xFF"), 2 * larghezza_testo(courier(10), "x"));
}

TEST(Metriche, AltaComeIlCorpo) {
    EXPECT_NEAR(altezza_testo(arial(10)), (1854.0 + 434) / 2048 * 10 * kPunto, 1e-9);
    EXPECT_NEAR(altezza_testo(courier(20)), (1705.0 + 615) / 2048 * 20 * kPunto, 1e-9);
}

}  // namespace
}  // namespace sortimetra
