#include "jet/colonne.h"

#include <gtest/gtest.h>
#include <mdbtools.h>

namespace sortimetra::jet {
namespace {

/// The table of the wheel NAZIONALE as the real archive defines it: date, wheel, five numbers, concorso.
Definizione nazionale() {
    Definizione d{.colonne = {}, .massime = 8, .variabili = 1};
    d.colonne.push_back({.tipo = MDB_DATETIME, .grandezza = 8, .fissa = true, .posto = 0, .numero = 0});
    d.colonne.push_back({.tipo = MDB_TEXT, .grandezza = 20, .variabile = 0, .numero = 1});
    for (int i = 0; i < 5; ++i)
        d.colonne.push_back(
            {.tipo = MDB_INT, .grandezza = 2, .fissa = true, .posto = 8 + 2 * i, .numero = 2 + i});
    d.colonne.push_back({.tipo = MDB_LONGINT, .grandezza = 4, .fissa = true, .posto = 18, .numero = 7});
    return d;
}

TEST(Colonne, QuelleDiUnArchivioStannoInsieme) {
    EXPECT_FALSE(contraddizione(nazionale()));
    EXPECT_FALSE(contraddizione({}));
}

TEST(Colonne, OgniBitDiUnaDefinizioneSiVede) {
    // But for a text that may be longer, and what nobody reads: a fixed column's number among the others.
    const auto prova = [](int Colonna::* campo, int bit, std::size_t i) {
        Definizione d = nazionale();
        d.colonne[i].*campo ^= 1 << bit;
        return contraddizione(d).has_value();
    };
    for (std::size_t i = 0; i < 8; ++i) {
        const bool testo = i == 1;
        for (int bit = 0; bit < 16; ++bit) {
            if (!testo) {
                EXPECT_TRUE(prova(&Colonna::grandezza, bit, i)) << i << ' ' << bit;
                EXPECT_TRUE(prova(&Colonna::posto, bit, i)) << i << ' ' << bit;
            } else {
                EXPECT_TRUE(prova(&Colonna::variabile, bit, i)) << i << ' ' << bit;
            }
            EXPECT_TRUE(prova(&Colonna::numero, bit, i)) << i << ' ' << bit;
        }
        Definizione d = nazionale();
        d.colonne[i].fissa = !d.colonne[i].fissa;
        EXPECT_TRUE(contraddizione(d)) << i;
    }
}

TEST(Colonne, UnTipoCheNonHaLaGrandezzaDichiarata) {
    Definizione d = nazionale();
    d.colonne[2].tipo = MDB_LONGINT;
    EXPECT_EQ(contraddizione(d), 2U);
    d.colonne[2].tipo = MDB_MEMO;
    EXPECT_EQ(contraddizione(d), 2U) << "a memo has no place of its own";
    d = nazionale();
    d.colonne[0].tipo = MDB_LONGINT;
    EXPECT_EQ(contraddizione(d), 0U) << "every date would be 30/12/1899";
    d = nazionale();
    d.colonne[1].tipo = MDB_DATETIME;
    EXPECT_EQ(contraddizione(d), 1U);
}

TEST(Colonne, ColonneTolteLascianoBuchi) {
    Definizione d = nazionale();
    d.colonne.erase(d.colonne.begin() + 3);
    EXPECT_FALSE(contraddizione(d)) << "there have been eight";
    d.massime = 7;
    EXPECT_TRUE(contraddizione(d)) << "there have been seven: where is the place of the eighth from?";
    d = nazionale();
    d.massime = 9;
    d.colonne[3].posto = 9;
    EXPECT_EQ(contraddizione(d), 3U) << "two at one place, whatever was taken away";
}

TEST(Colonne, QuanteColonne) {
    Definizione d = nazionale();
    d.massime = 7;
    EXPECT_EQ(contraddizione(d), 8U);
    d = nazionale();
    d.variabili = 2;
    EXPECT_EQ(contraddizione(d), 8U);
    d.variabili = 0;
    EXPECT_EQ(contraddizione(d), 1U);
}

}  // namespace
}  // namespace sortimetra::jet
