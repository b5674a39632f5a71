#include "chance/caso.h"
#include "chance/legge.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>

namespace sortimetra {

namespace {

Evento evento(std::initializer_list<int> numeri, int presenti = 1, Gioco gioco = Gioco::lotto) {
    Evento e{.gioco = gioco, .presenti = static_cast<std::uint8_t>(presenti)};
    for (const int n : numeri) e.caselle[e.quanti++] = static_cast<Numero>(n);
    return e;
}

/// One wheel of the Lotto over the whole archive of 4,655 concorsi, and all ten.
constexpr Percorso kUnaRuota{.righe = 4655, .concorsi = 4655};
constexpr Percorso kSulleDieci{.righe = 46550, .concorsi = 4655};

}  // namespace

TEST(Legge, LaProbabilitaDiUnaRigaEQuellaIpergeometrica) {
    EXPECT_DOUBLE_EQ(Legge{evento({67})}.p(), 5.0 / 90);
    EXPECT_DOUBLE_EQ(Legge{evento({1, 2}, 2)}.p(), 10.0 / 4005);
    EXPECT_DOUBLE_EQ(Legge{evento({1, 2, 3}, 3)}.p(), 10.0 / 117480);
    EXPECT_DOUBLE_EQ(Legge{evento({67}, 1, Gioco::superenalotto)}.p(), 6.0 / 90);
    EXPECT_DOUBLE_EQ(Legge{evento({67}, 1, Gioco::dieci_e_lotto)}.p(), 20.0 / 90);
    EXPECT_DOUBLE_EQ(Legge{evento({7}, 1, Gioco::win_for_life)}.p(), 0.5);
    // One of two numbers: it comes unless both stay among the 85: 1 - (85 * 84) / (90 * 89).
    EXPECT_DOUBLE_EQ(Legge{evento({1, 2}, 1)}.p(), 1 - 85.0 * 84 / (90 * 89));
}

TEST(Legge, UnPostoSoloVedeUnNumeroSuNovanta) {
    Evento primo = evento({67});
    primo.posti = 1;
    EXPECT_DOUBLE_EQ(Legge{primo}.p(), 1.0 / 90);
    Evento superstar = evento({67}, 1, Gioco::superenalotto);
    superstar.posti = 1U << 7U;
    EXPECT_DOUBLE_EQ(Legge{superstar}.p(), 1.0 / 90);
}

TEST(Legge, IlTernoPerAmbiContaUnoOTre) {
    Evento e = evento({1, 2, 3}, 2);
    e.conteggio = Conteggio::ogni_combinazione;
    const Legge legge{e};
    // Of the C(90, 5) = 43,949,268 rows 10,* hold all three, C(87, 2) = 3,741, and 3 C(87, 3) = 317,985 two.
    const double tutti = 3741.0 / 43949268;
    const double due = 3 * 105995.0 / 43949268;
    EXPECT_NEAR(legge.p(), tutti + due, 1e-15);
    EXPECT_NEAR(legge.media(), due + 3 * tutti, 1e-15);
    EXPECT_NEAR(legge.media(), 3 * 10.0 / 4005, 1e-15);
    EXPECT_NEAR(legge.varianza(), due + 9 * tutti - legge.media() * legge.media(), 1e-15);
}

TEST(Legge, UnNumeroScrittoDueVolteContaDueVolte) {
    // Head numbers 5 and 5: a row with 5 has two of (5, 5, 9).
    EXPECT_DOUBLE_EQ(Legge{evento({5, 5, 9}, 2)}.p(), 5.0 / 90);
}

TEST(Legge, ValoriContatiAMano) {
    const Legge uno{evento({67})};
    // 4,655 * 5 / 90 = 258.61; (17/18)^152 = 0.000169.
    EXPECT_EQ(uno.attesa(4655), "258,6");
    EXPECT_EQ(testo_percentuale(uno.probabilita(kUnaRuota, 152)), "0,0169%");
    EXPECT_NEAR(almeno_uno(uno.probabilita(kUnaRuota, 152), 90), 0.015, 0.0005);
    EXPECT_NEAR(almeno_uno(uno.probabilita(kUnaRuota, 152), 900), 0.14, 0.005);
    EXPECT_EQ(std::lround(uno.record_atteso(kUnaRuota)), 107);
    EXPECT_DOUBLE_EQ(uno.probabilita(kUnaRuota, 0), 1);
    // On ten wheels a delay of 15 is one of 150 rows.
    EXPECT_NEAR(uno.probabilita(kSulleDieci, 15), std::pow(17.0 / 18, 150), 1e-12);
    EXPECT_NEAR(uno.per_concorso(kSulleDieci), 1 - std::pow(17.0 / 18, 10), 1e-12);
}

}  // namespace sortimetra
