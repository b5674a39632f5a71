#include "tools/parametri.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

using testing::ElementsAre;

TEST(ParametriSpia, NumeriInOrdineETutti) {
    Domanda d;
    EXPECT_EQ(scrivi_numeri_spia(d), std::nullopt);
    ASSERT_TRUE(leggi_numeri_spia("17, 5,90,5", d));
    EXPECT_THAT(d.di<ParametriSpia>().numeri, ElementsAre(5, 17, 90));
    EXPECT_EQ(scrivi_numeri_spia(d), "5,17,90");
    ASSERT_TRUE(leggi_numeri_spia("TUTTI", d));
    EXPECT_EQ(d.di<ParametriSpia>().numeri.size(), 90U);
    EXPECT_EQ(scrivi_numeri_spia(d), "tutti");
    for (const char* errato : {"", "0", "91", "5,x", "5;6"})
        EXPECT_FALSE(leggi_numeri_spia(errato, d)) << errato;
}

TEST(ParametriCiclometria, LaData) {
    Domanda d;
    EXPECT_EQ(scrivi_data_ciclometria(d), std::nullopt);
    ASSERT_TRUE(leggi_data_ciclometria(" 21/08/2026 ", d));
    EXPECT_EQ(scrivi_data_ciclometria(d), "21/08/2026");
    for (const char* errata : {"", "2026-08-21", "31/02/2026", "oggi"})
        EXPECT_FALSE(leggi_data_ciclometria(errata, d)) << errata;
}

}  // namespace
}  // namespace sortimetra
