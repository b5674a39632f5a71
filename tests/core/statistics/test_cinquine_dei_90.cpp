#include "statistics/cinquine_dei_90.h"
#include "statistics/famiglie.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <fstream>

namespace sortimetra {
namespace {

TEST(CinquineDei90, UnaCartellaSenzaListaLaRiceve) {
    const prove::CartellaProva cartella;
    ASSERT_TRUE(prepara_cinquine_dei_90(cartella.percorso()));
    const auto serie = leggi_cinquine_dei_90(cartella.percorso());
    ASSERT_TRUE(serie);
    EXPECT_EQ(serie->righe(), 436U);
}

TEST(CinquineDei90, LaListaCheCeRestaComE) {
    const prove::CartellaProva cartella;
    std::ofstream{cartella.percorso() / kFileCinquine} << "mia";
    ASSERT_TRUE(prepara_cinquine_dei_90(cartella.percorso()));
    std::string letta;
    std::ifstream{cartella.percorso() / kFileCinquine} >> letta;
    EXPECT_EQ(letta, "mia");
}

TEST(CinquineDei90, UnaCartellaCheNonCeNonSiScrive) {
    const prove::CartellaProva cartella;
    EXPECT_FALSE(prepara_cinquine_dei_90(cartella.percorso() / "assente"));
}

}  // namespace
}  // namespace sortimetra
