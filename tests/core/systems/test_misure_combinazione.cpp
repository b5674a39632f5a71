#include "systems/misure_combinazione.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using Numeri = std::vector<Valore>;

/// The combinations of a wheel's draw, one text each.
std::vector<std::string> scomposta(std::size_t k, std::array<Numero, 5> estratti) {
    std::array<Valore, 50> dove{};
    const std::size_t quante = scomponi(k, estratti, dove.data());
    std::vector<std::string> righe;
    for (std::size_t i = 0; i < quante; ++i) {
        std::string riga;
        for (std::size_t j = 0; j < k; ++j) riga += (j == 0 ? "" : " ") + std::to_string(dove[i * k + j]);
        righe.push_back(riga);
    }
    return righe;
}

TEST(Scomponi, LaCinquinaRestaComeEUscita) {
    EXPECT_EQ(scomposta(5, {90, 3, 45, 12, 77}), std::vector<std::string>{"90 3 45 12 77"});
}

TEST(Scomponi, LeQuartineSonoOrdinate) {
    EXPECT_EQ(
        scomposta(4, {90, 3, 45, 12, 77}),
        (std::vector<std::string>{"3 12 45 77", "3 12 45 90", "3 12 77 90", "3 45 77 90", "12 45 77 90"}));
}

TEST(Scomponi, DieciTerniEDieciAmbi) {
    EXPECT_EQ(scomposta(3, {5, 4, 3, 2, 1}),
              (std::vector<std::string>{"1 2 3", "1 2 4", "1 2 5", "1 3 4", "1 3 5", "1 4 5", "2 3 4",
                                        "2 3 5", "2 4 5", "3 4 5"}));
    EXPECT_EQ(scomposta(2, {5, 4, 3, 2, 1}), (std::vector<std::string>{"1 2", "1 3", "1 4", "1 5", "2 3",
                                                                       "2 4", "2 5", "3 4", "3 5", "4 5"}));
}

TEST(Scomponi, UnAltroKNonDaNiente) {
    for (const std::size_t k : {0U, 1U, 6U, 10U}) EXPECT_TRUE(scomposta(k, {1, 2, 3, 4, 5}).empty()) << k;
}

TEST(Misure, UnAmboDiVicini) {
    const Numeri c{45, 46};
    EXPECT_EQ(calcola_simmetrie(c), 1);
    EXPECT_EQ(calcola_paralleli(c), 0);
    EXPECT_EQ(distanza(c, 1), 0);
    EXPECT_EQ(calcola_interruzioni(c), 0);
    EXPECT_EQ(calcola_paralleli(Numeri{1, 46}), 1);
    EXPECT_EQ(calcola_paralleli(Numeri{46, 1}), 1);
}

TEST(Misure, WinForLifeHaISuoiSpecchi) {
    EXPECT_EQ(calcola_simmetrieWFL(Numeri{1, 20}), 1);
    EXPECT_EQ(calcola_paralleliWFL(Numeri{5, 15}), 1);
    EXPECT_EQ(calcola_simmetrie(Numeri{1, 20}), 0);
    EXPECT_EQ(calcola_paralleli(Numeri{5, 15}), 0);
    EXPECT_EQ(calcola_simmetrieWFL(Numeri{1, 2, 3, 18, 19, 20}), 3);
}

TEST(Misure, InterruzioniPerCifreInComune) {
    EXPECT_EQ(calcola_interruzioni(Numeri{12, 23, 34, 45, 56}), 0);
    EXPECT_EQ(calcola_interruzioni(Numeri{11, 22, 33}), 2);
    EXPECT_EQ(calcola_interruzioni(Numeri{19, 23}), 1);
    // Looked at in ascending order, whatever order they came in; a single digit has no leading zero.
    EXPECT_EQ(calcola_interruzioni(Numeri{56, 12, 45, 23, 34}), 0);
    EXPECT_EQ(calcola_interruzioni(Numeri{5, 10}), 1);
    // Zero is written as nothing, which joins with nothing.
    EXPECT_EQ(calcola_interruzioni(Numeri{0, 0, 10}), 2);
    EXPECT_EQ(calcola_interruzioni(Numeri{123, 345}), 0);
    EXPECT_EQ(calcola_interruzioni(Numeri{-3, -5}), 0);
}

TEST(Misure, SommeDiUnaCinquinaComeEUscita) {
    const Numeri c{90, 3, 45, 12, 77};
    EXPECT_EQ(somma_generale(c), 227);
    EXPECT_EQ(somma_s1(c), 138);
    EXPECT_EQ(somma_s2(c), 89);
    EXPECT_EQ(codomino(c), 167);
    EXPECT_EQ(resto(c), 2);
    EXPECT_EQ(somma_decine(c), 9 + 0 + 4 + 1 + 7);
    EXPECT_EQ(somma_cadenze(c), 0 + 3 + 5 + 2 + 7);
    EXPECT_EQ(distanza(c, 1), 86);
    EXPECT_EQ(distanza(c, 4), 64);
    EXPECT_EQ(somma_distanze(c), 86 + 41 + 32 + 64);
    EXPECT_EQ(calcola_pari(c), 2);
    EXPECT_EQ(somma_distanze(Numeri{1, 90, 2, 89, 3}), 346);
}

TEST(Misure, LeMetaPerLunghezza) {
    EXPECT_EQ(somma_s1(Numeri{1, 2}), 1);
    // The middle one of three stands in both halves.
    EXPECT_EQ(somma_s1(Numeri{1, 10, 30}), 11);
    EXPECT_EQ(somma_s2(Numeri{1, 10, 30}), 40);
    EXPECT_EQ(somma_s1(Numeri{1, 2, 4, 8}), 3);
    EXPECT_EQ(somma_s2(Numeri{1, 2, 4, 8}), 12);
    EXPECT_EQ(somma_s1(Numeri{1, 2, 4, 8, 16, 32}), 7);
    EXPECT_EQ(somma_s2(Numeri{1, 2, 4, 8, 16, 32}), 56);
    EXPECT_EQ(somma_s1(Numeri{1, 1, 1, 1, 1, 2, 2, 2, 2, 2}), 5);
    EXPECT_EQ(somma_s2(Numeri{1, 1, 1, 1, 1, 2, 2, 2, 2, 2}), 10);
}

TEST(Misure, DecineECadenzeDiUnNumero) {
    EXPECT_EQ(cifra_decine(90), 9);
    EXPECT_EQ(cifra_unita(90), 0);
    EXPECT_EQ(cifra_decine(7), 0);
    EXPECT_EQ(cifra_unita(7), 7);
    // Beyond two digits: the first and the last character of its text.
    EXPECT_EQ(cifra_decine(345), 3);
    EXPECT_EQ(cifra_unita(345), 5);
}

TEST(Misure, Consecutivi) {
    const Consecutivita tre{Numeri{1, 2, 3}};
    EXPECT_EQ(tre.passo(1), 2);
    EXPECT_EQ(tre.passo(2), 1);
    EXPECT_EQ(tre.passo(3), 0);
    EXPECT_EQ(tre.somma(), 3);
    // Order does not matter, equal numbers belong to no step, ten is too far.
    const Consecutivita altri{Numeri{30, 20, 29, 20}};
    EXPECT_EQ(altri.passo(9), 2);
    EXPECT_EQ(altri.passo(1), 1);
    EXPECT_EQ(altri.somma(), 3);
    const Consecutivita dieci{Numeri{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}};
    EXPECT_EQ(dieci.somma(), 45);
    for (int s = 1; s <= 9; ++s) EXPECT_EQ(dieci.passo(s), 10 - s) << s;
    // The extremes of a 16-bit number do not overflow.
    EXPECT_EQ(Consecutivita(Numeri{-32768, 32767}).somma(), 0);
}

/// The quick counts of a list against the plain ones, on numbers near and far, many of them equal.
template <std::size_t K>
void coppie_come_piane() {
    std::mt19937 caso{K};
    for (int prova = 0; prova < 2000; ++prova) {
        SCOPED_TRACE(prova);
        std::array<Valore, K> c{};
        for (Valore& v : c)
            v = static_cast<Valore>(prova % 5 == 0 ? static_cast<int>(caso() % 65536) - 32768
                                                   : static_cast<int>(caso() % (prova % 2 == 0 ? 21 : 91)));
        for (const Specchi specchi : {kSpecchiLotto, kSpecchiWinForLife}) {
            const Coppie coppie = calcola_coppie(std::span<const Valore, K>{c}, specchi);
            EXPECT_EQ(coppie.simmetrie, calcola_simmetrie(c, specchi));
            EXPECT_EQ(coppie.paralleli, calcola_paralleli(c, specchi));
        }
    }
}

TEST(Misure, LeCoppieComePianeDaDueADieci) {
    coppie_come_piane<2>();
    coppie_come_piane<5>();
    coppie_come_piane<6>();
    coppie_come_piane<10>();
}

TEST(Misure, TuttiUgualiOTuttiZero) {
    const Numeri zeri{0, 0, 0, 0, 0};
    EXPECT_EQ(calcola_pari(zeri), 5);
    EXPECT_EQ(calcola_interruzioni(zeri), 4);
    EXPECT_EQ(distanza(zeri, 1), -1);
    EXPECT_EQ(somma_distanze(zeri), -4);
    EXPECT_EQ(Consecutivita(zeri).somma(), 0);
}

TEST(Misure, OgniNumeroHaLaSuaDecinaELaSuaCadenza) {
    std::array<int, kDecine + kCadenze> quanti{};
    for (int n = 1; n <= 90; ++n) {
        ++quanti[decina_di(n)];
        ++quanti[cadenza_di(n)];
    }
    EXPECT_EQ(quanti[0], 10);  // 1 to 9 and 90
    for (std::size_t g = 1; g < kDecine; ++g) EXPECT_EQ(quanti[g], 10) << kGruppiNumeri[g].titolo;
    for (std::size_t g = kDecine; g < quanti.size(); ++g) EXPECT_EQ(quanti[g], 9) << kGruppiNumeri[g].titolo;
    EXPECT_EQ(decina_di(90), 0U);
    EXPECT_EQ(kGruppiNumeri[cadenza_di(90)].titolo, "10-90");
    EXPECT_EQ(kGruppiNumeri[cadenza_di(12)].titolo, "2-82");
}

}  // namespace
}  // namespace sortimetra
