#include "text/campi.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

TEST(Campi, NomiENumeriRigaPerRiga) {
    LettoreCampi l{"\"Prova, uno\"\r\n2,3\r\n1,2,3,4,5,6\r\n"};
    EXPECT_EQ(l.campo(), "Prova, uno");
    EXPECT_EQ(l.riga(), 2);
    EXPECT_EQ(l.intero(), 2);
    EXPECT_EQ(l.intero(), 3);
    EXPECT_EQ(l.resto(), "1,2,3,4,5,6");
    EXPECT_TRUE(l.finito());
    EXPECT_EQ(l.campo(), std::nullopt);
}

TEST(Campi, UnCampoCheFinisceLaRigaNePrendeLaFine) {
    LettoreCampi l{"5\r\nAltro,6\r\n"};
    EXPECT_EQ(l.campo(), "5");
    EXPECT_EQ(l.resto(), "Altro,6");
}

TEST(Campi, FineRigaDiOgniSistema) {
    LettoreCampi l{"1\n2\r3\r\n"};
    EXPECT_EQ(l.intero(), 1);
    EXPECT_EQ(l.intero(), 2);
    EXPECT_EQ(l.intero(), 3);
    EXPECT_EQ(l.riga(), 4);
}

TEST(Campi, VirgoletteMaiChiuseFinoAllaFine) {
    LettoreCampi l{"\"abc\r\n1,2"};
    EXPECT_EQ(l.campo(), "abc\r\n1,2");
    EXPECT_EQ(l.campo(), std::nullopt);
}

TEST(Campi, CioCheNonENumero) {
    for (const char* testo : {"abc", "-1", "1.5", "", "1x", "99999999999"}) {
        LettoreCampi l{testo};
        EXPECT_EQ(l.intero(), std::nullopt) << testo;
    }
    for (const char* testo : {"abc", "", "1.5.2", "nan", "inf"}) {
        LettoreCampi l{testo};
        EXPECT_EQ(l.decimale(), std::nullopt) << testo;
    }
}

TEST(Campi, DecimaliSenzaLoZero) {
    std::string testo;
    for (const float x : {0.5F, -0.5F, 23.31F, 4.0F, 166.96F}) {
        aggiungi_campo(testo, x);
        testo += ' ';
    }
    EXPECT_EQ(testo, ".5 -.5 23.31 4 166.96 ");
    LettoreCampi l{".5,-.5,23.31"};
    EXPECT_EQ(l.decimale(), 0.5F);
    EXPECT_EQ(l.decimale(), -0.5F);
    EXPECT_EQ(l.decimale(), 23.31F);
}

}  // namespace
}  // namespace sortimetra
