#include "results/selezione.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Tabella misure() {
    Tabella t;
    t.titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    t.colonne = {ColonnaGruppi{.quanti = 2, .separatore = '-', .numeri = {1, 2, 7, 22, 90, 7}},
                 ColonnaInteri{{10, 20, 20}}, ColonnaInteri{{5, 152, kCellaPuntini}},
                 ColonnaTesti{{"99,50", "1.443,33", ""}}};
    t.eventi = {.presenti = 2};
    return t;
}

std::vector<std::uint32_t> righe(std::string_view espressione) {
    auto r = filtra(misure(), espressione);
    EXPECT_TRUE(r) << r.error();
    return r.value_or(std::vector<std::uint32_t>{99});
}

TEST(Filtra, UnConfrontoPerSegno) {
    EXPECT_THAT(righe("frequenza<20"), ElementsAre(0));
    EXPECT_THAT(righe("frequenza <= 20"), ElementsAre(0, 1, 2));
    EXPECT_THAT(righe("FREQUENZA > 10"), ElementsAre(1, 2));
    EXPECT_THAT(righe("frequenza>=20"), ElementsAre(1, 2));
    EXPECT_THAT(righe("frequenza = 10"), ElementsAre(0));
    EXPECT_THAT(righe("frequenza != 10"), ElementsAre(1, 2));
    EXPECT_THAT(righe("1 = 10"), ElementsAre(0)) << "a column by its number";
}

TEST(Filtra, NumeriETesti) {
    EXPECT_THAT(righe("\"Ritardo Storico\" > 100"), ElementsAre(1)) << "1.443,33 is a number, empty is none";
    EXPECT_THAT(righe("ritardo storico = 1443,33"), ElementsAre(1));
    EXPECT_THAT(righe("ritardo > 0"), ElementsAre(0, 1)) << "\"...\" has no order with a number";
    EXPECT_THAT(righe("ritardo != 5"), ElementsAre(1, 2));
    EXPECT_THAT(righe("ritardo = \"...\""), ElementsAre(2));
    EXPECT_THAT(righe("numeri contiene 07"), ElementsAre(1, 2));
    EXPECT_THAT(righe("numeri contiene \"7-2\""), ElementsAre(1));
}

TEST(Filtra, EPrimaDiO) {
    EXPECT_THAT(righe("frequenza=10 o frequenza=20 e ritardo>100"), ElementsAre(0, 1));
    EXPECT_THAT(righe("frequenza=20 e ritardo>100 o frequenza=10"), ElementsAre(0, 1));
    EXPECT_THAT(righe("frequenza=10 e frequenza=20"), IsEmpty());
}

TEST(Filtra, TieneLOrdine) {
    const std::vector<std::uint32_t> ordine{2, 1, 0};
    EXPECT_THAT(filtra(misure(), "frequenza=20", ordine).value(), ElementsAre(2, 1));
}

TEST(Filtra, DiceCheCosaNonVa) {
    const auto errore = [](std::string_view e) {
        const auto letta = filtra(misure(), e);
        return letta ? std::string{} : letta.error();
    };
    EXPECT_THAT(errore("ritardo"), HasSubstr("atteso un confronto"));
    EXPECT_THAT(errore(""), HasSubstr("atteso un confronto"));
    EXPECT_THAT(errore("ritardo>1 e"), HasSubstr("atteso un confronto"));
    EXPECT_THAT(errore("boh>1"), HasSubstr("Numeri, Frequenza, Ritardo, Ritardo Storico"));
    EXPECT_THAT(errore("9>1"), HasSubstr("da 0 a 3"));
    EXPECT_THAT(errore("numeri = \"07"), HasSubstr("virgoletta"));
}

TEST(Filtra, UnTitoloDiPiuColonneVuoleIlNumero) {
    Tabella t = misure();
    t.titoli = {{"", "1° Estratto", "", ""}, {"Num.", "F", "R", "F"}};
    EXPECT_THAT(filtra(t, "f > 1").error(), HasSubstr("2 colonne"));
    EXPECT_THAT(filtra(t, "1° estratto > 10").value(), ElementsAre(1, 2));
}

TEST(Criteri, PiuColonne) {
    const auto t = misure();
    const auto criteri = leggi_criteri(t, "Frequenza, numeri:asc");
    ASSERT_TRUE(criteri) << criteri.error();
    EXPECT_THAT(*criteri, ElementsAre(Criterio{1, Verso::decrescente}, Criterio{0, Verso::crescente}));
    EXPECT_THAT(ordina(t, *criteri), ElementsAre(1, 2, 0));
    EXPECT_THAT(leggi_criteri(t, "Numeri:su").error(), HasSubstr("asc o desc"));
}

TEST(Criteri, UgualiAUnoDopoLAltroSuTabelleCasuali) {
    for (std::uint32_t seme = 1; seme <= 50; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        Tabella t;
        ColonnaInteri a;
        ColonnaInteri b;
        for (int i = 0; i < 40; ++i) {
            a.valori.push_back(static_cast<std::int32_t>(caso() % 4));
            b.valori.push_back(static_cast<std::int32_t>(caso() % 4));
        }
        t.colonne = {a, b};
        std::vector<std::uint32_t> attesi(40);
        for (std::uint32_t i = 0; i < 40; ++i) attesi[i] = i;
        std::stable_sort(attesi.begin(), attesi.end(), [&](auto x, auto y) {
            if (a.valori[x] != a.valori[y]) return a.valori[x] > a.valori[y];
            return b.valori[x] < b.valori[y];
        });
        const std::vector<Criterio> criteri{{0, Verso::decrescente}, {1, Verso::crescente}};
        EXPECT_EQ(ordina(t, criteri), attesi);
    }
}

TEST(Seleziona, RigheColonneEColori) {
    Tabella t = misure();
    t.sfondi.assign(12, kNessunColore);
    t.sfondi[1 * 4 + 2] = 65535;
    const std::vector<std::uint32_t> quali{1, 0};
    const std::vector<std::size_t> colonne{2, 0};
    const Tabella s = seleziona(t, quali, colonne);
    EXPECT_EQ(s.titoli, (std::vector<std::vector<std::string>>{{"Ritardo", "Numeri"}}));
    EXPECT_EQ(s.testo(0, 0), "152");
    EXPECT_EQ(s.testo(0, 1), "07-22");
    EXPECT_EQ(s.testo(1, 1), "01-02");
    EXPECT_EQ(s.sfondo(0, 0), 65535);
    EXPECT_EQ(s.evento(0)->numeri()[1], 22) << "the numbers stay with their row";
    EXPECT_EQ(seleziona(t, {}, colonne).righe(), 0U);
}

TEST(Seleziona, UnTitoloSuPiuColonneRestaSopraQuelleTenute) {
    Tabella t = misure();
    t.titoli = {{"", "Bari", "", "Cagliari"}, {"Num.", "F", "R", "F"}};
    const std::vector<std::uint32_t> quali{0};
    const std::vector<std::size_t> colonne{0, 2, 3};
    EXPECT_EQ(seleziona(t, quali, colonne).titoli,
              (std::vector<std::vector<std::string>>{{"", "Bari", "Cagliari"}, {"Num.", "R", "F"}}));
}

}  // namespace
}  // namespace sortimetra
