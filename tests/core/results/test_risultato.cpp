#include "results/risultato.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace sortimetra {
namespace {

Tabella interi(std::vector<std::int32_t> valori) {
    Tabella t;
    t.colonne = {ColonnaInteri{std::move(valori)}};
    return t;
}

using Ordine = std::vector<std::uint32_t>;

TEST(Ordina, NumeriDalPiuPiccoloEDalPiuGrande) {
    const Tabella t = interi({7, -2, 100, 0});
    EXPECT_EQ(ordina(t, 0, Verso::crescente), (Ordine{1, 3, 0, 2}));
    EXPECT_EQ(ordina(t, 0, Verso::decrescente), (Ordine{2, 0, 3, 1}));
}

TEST(Ordina, CelleUgualiTengonoIlLoroOrdineNeiDueVersi) {
    const Tabella t = interi({5, 1, 5, 1, 5});
    EXPECT_EQ(ordina(t, 0, Verso::crescente), (Ordine{1, 3, 0, 2, 4}));
    EXPECT_EQ(ordina(t, 0, Verso::decrescente), (Ordine{0, 2, 4, 1, 3}));
}

TEST(Ordina, VuotaPerPrimaEPuntiniSottoLoZero) {
    const Tabella t = interi({0, kCellaPuntini, -1, kCellaVuota, 3});
    EXPECT_EQ(ordina(t, 0, Verso::crescente), (Ordine{3, 2, 1, 0, 4}));
}

Ordine di_testi(std::vector<std::string> testi) {
    Tabella t;
    t.colonne = {ColonnaTesti{std::move(testi)}};
    return ordina(t, 0, Verso::crescente);
}

TEST(Ordina, NumeriScrittiComeTesti) {
    EXPECT_EQ(di_testi({"1.443,33", "99,50", "4.005", "100"}), (Ordine{1, 3, 0, 2}));
    EXPECT_EQ(di_testi({"5,00%", "12,50%", "-3,5", "+4"}), (Ordine{2, 3, 0, 1}));
    EXPECT_EQ(di_testi({"3", "...", "", "-1", "0"}), (Ordine{2, 3, 1, 4, 0}));
}

TEST(Ordina, TestiSenzaRiguardoAlleMaiuscole) {
    EXPECT_EQ(di_testi({"roma", "Bari", "PIÙ", "più"}), (Ordine{1, 2, 3, 0}));
    // Words that other readers of numbers know are words here, and spoil no order.
    EXPECT_EQ(di_testi({"nan", "2", "inf", "1", "1e5"}), (Ordine{3, 1, 4, 2, 0}));
}

TEST(Ordina, TabellaVuota) {
    EXPECT_TRUE(ordina(interi({}), 0, Verso::crescente).empty());
}

/// The order told plainly: empty, then numbers and "..." just below 0, rows as written where they are equal.
Ordine lenta(const std::vector<std::int32_t>& valori, Verso verso) {
    const auto prima = [&](std::uint32_t a, std::uint32_t b) {
        const auto chiave = [](std::int32_t v) {
            return v == kCellaVuota ? -1e18 : v == kCellaPuntini ? -0.5 : static_cast<double>(v);
        };
        return verso == Verso::crescente ? chiave(valori[a]) < chiave(valori[b])
                                         : chiave(valori[b]) < chiave(valori[a]);
    };
    Ordine ordine(valori.size());
    std::iota(ordine.begin(), ordine.end(), 0U);
    // Insertion keeps equal rows as they stand.
    for (std::size_t i = 1; i < ordine.size(); ++i)
        for (std::size_t j = i; j > 0 && prima(ordine[j], ordine[j - 1]); --j)
            std::swap(ordine[j], ordine[j - 1]);
    return ordine;
}

TEST(Ordina, ComeLOrdinamentoPianoSuValoriQualsiasi) {
    for (unsigned seme = 0; seme < 200; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        const std::vector<std::int32_t> estremi{kCellaVuota,
                                                kCellaPuntini,
                                                kCellaPuntini + 1,
                                                -1,
                                                0,
                                                1,
                                                std::numeric_limits<std::int32_t>::max()};
        std::vector<std::int32_t> valori(dado() % 60);
        for (std::int32_t& v : valori)
            v = dado() % 3 == 0 ? estremi[dado() % estremi.size()]
                                : static_cast<std::int32_t>(dado() % 20) - 10;
        const Tabella t = interi(valori);
        EXPECT_EQ(ordina(t, 0, Verso::crescente), lenta(valori, Verso::crescente));
        EXPECT_EQ(ordina(t, 0, Verso::decrescente), lenta(valori, Verso::decrescente));
    }
}

// ---- cells ----

Tabella di_ogni_tipo() {
    Tabella t;
    t.colonne = {ColonnaInteri{{12, kCellaVuota, kCellaPuntini}},
                 ColonnaGruppi{.quanti = 2, .separatore = '.', .numeri = {1, 90, 7, 8, 0, 10}},
                 ColonnaTesti{{" uno ", "", "tre"}}};
    return t;
}

TEST(Tabella, IlTestoDiOgniCella) {
    const Tabella t = di_ogni_tipo();
    ASSERT_EQ(t.righe(), 3U);
    ASSERT_EQ(t.n_colonne(), 3U);
    EXPECT_EQ(t.testo(0, 0), "12");
    EXPECT_EQ(t.testo(1, 0), "");
    EXPECT_EQ(t.testo(2, 0), "...");
    EXPECT_EQ(t.testo(0, 1), "01.90");
    EXPECT_EQ(t.testo(2, 1), "00.10");
    EXPECT_EQ(t.testo(0, 2), " uno ") << "blanks are the writers' to remove";
    std::string testo = "x";
    t.aggiungi_testo(testo, 0, 1);
    EXPECT_EQ(testo, "x01.90");
}

TEST(Colonna, NumericaDoveNonDiceAltroCheNumeri) {
    EXPECT_TRUE(e_numerica(ColonnaInteri{{1, kCellaVuota, kCellaPuntini}}));
    EXPECT_TRUE(e_numerica(ColonnaTesti{{"258,6", " 15,4% ", "", "...", "+1,23", "-3"}}));
    EXPECT_TRUE(e_numerica(ColonnaVoci{.voci = {"01", "90", ""}, .scelte = {0, 1, 2}}));
    EXPECT_FALSE(e_numerica(ColonnaTesti{{"12", "Bari"}}));
    EXPECT_FALSE(e_numerica(ColonnaTesti{{"01/02/2003"}}));
    EXPECT_FALSE(e_numerica(ColonnaTesti{{"", "..."}})) << "nothing says that it is";
    EXPECT_FALSE(e_numerica(ColonnaGruppi{.quanti = 2, .numeri = {1, 2}}));
}

TEST(Tabella, SenzaColoriQuelliDellaGriglia) {
    Tabella t = di_ogni_tipo();
    EXPECT_EQ(t.sfondo(2, 2), kNessunColore);
    EXPECT_EQ(t.primo_piano(0, 0), kNessunColore);
    t.sfondi = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(t.sfondo(1, 2), 6);
    EXPECT_EQ(t.primo_piano(1, 2), kNessunColore);
}

TEST(Tabella, VuotaOSenzaGruppi) {
    EXPECT_EQ(Tabella{}.righe(), 0U);
    EXPECT_EQ(lunghezza(ColonnaGruppi{.quanti = 0, .separatore = '-', .numeri = {1}}), 0U);
    EXPECT_EQ(lunghezza(ColonnaGruppi{.quanti = 3, .separatore = '-', .numeri = {1, 2, 3, 4, 5, 6}}), 2U);
}

TEST(NonAvviata, UnMessaggioENessunaTabella) {
    const Risultato r = non_avviata({Avviso::capogioco, "niente"});
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
    EXPECT_EQ(r.messaggi, (std::vector<Messaggio>{{Avviso::capogioco, "niente"}}));
    EXPECT_FALSE(senza_estrazioni().prodotto);
    EXPECT_EQ(senza_estrazioni().messaggi.at(0).avviso, Avviso::nessuna_estrazione);
}

}  // namespace
}  // namespace sortimetra
