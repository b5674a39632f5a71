#include "bets/parametri.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

TEST(ParametriScommesse, IlLimiteConVirgolaOPunto) {
    Domanda d;
    EXPECT_EQ(scrivi_opzione_limite(d), std::nullopt);
    EXPECT_EQ(d.di<ParametriScommesse>().in_vigore(), kLimiteIniziale);
    ASSERT_TRUE(leggi_opzione_limite("230.5", d));
    EXPECT_EQ(d.di<ParametriScommesse>().in_vigore(), 230.5F);
    EXPECT_EQ(scrivi_opzione_limite(d), "230,5");
    ASSERT_TRUE(leggi_opzione_limite("228", d));
    EXPECT_EQ(scrivi_opzione_limite(d), "228,0");
    for (const char* errato : {"", "x", "-1"}) EXPECT_FALSE(leggi_opzione_limite(errato, d)) << errato;
}

}  // namespace
}  // namespace sortimetra
