#include "statistics/combinatoria.h"
#include "statistics/misure.h"
#include "statistics/terni_per_ambi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

ColonnaInteri senza_nomi() {
    return {std::vector<std::int32_t>(kTerni)};
}
std::string riga(const Risultato& r, std::size_t a, std::size_t b, std::size_t c) {
    const std::size_t i = indice_terno(a, b, c);
    const Tabella& t = r.tabelle[0];
    return t.testo(i, 1) + " " + t.testo(i, 2) + " " + t.testo(i, 3);
}

TEST(TerniPerAmbi, NullaSortito) {
    const Risultato r = TerniPerAmbi{Estrazioni{7}}.risultato(senza_nomi());
    ASSERT_EQ(r.tabelle[0].righe(), kTerni);
    EXPECT_EQ(riga(r, 1, 2, 3), "0 7 0");
    EXPECT_EQ(riga(r, 88, 89, 90), "0 7 0");
}

TEST(TerniPerAmbi, UnAmboSortitoDueVolte) {
    TerniPerAmbi terni{Estrazioni{10}};
    terni.esce(1, 2, 3);
    terni.esce(1, 2, 8);
    terni.esce(2, 3, 9);
    const Risultato r = std::move(terni).risultato(senza_nomi());
    EXPECT_EQ(riga(r, 1, 2, 90), "2 2 4") << "four draws between its two hits";
    EXPECT_EQ(riga(r, 1, 2, 3), "3 1 4") << "the other ambo of it is a third hit";
    EXPECT_EQ(riga(r, 2, 3, 4), "1 1 0");
    EXPECT_EQ(riga(r, 1, 3, 4), "0 10 0");
}

TEST(TerniPerAmbi, ComeUnaMisuraPerTerno) {
    for (unsigned seme = 0; seme < 12; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        const Estrazioni t{static_cast<std::int32_t>(dado() % 60 + 1)};
        // Few numbers, among them the first and the last, so that terni meet often.
        constexpr std::array<std::size_t, 7> kScelti{1, 2, 3, 45, 88, 89, 90};
        std::vector<Misura> misure(kTerni, Misura{.ultimo = inizio_ambata(t)});
        TerniPerAmbi terni{t};
        for (std::int32_t c = 1; c <= t; ++c)
            for (std::size_t i = 0; i < kScelti.size(); ++i)
                for (std::size_t j = i + 1; j < kScelti.size(); ++j) {
                    if (dado() % 12 != 0) continue;
                    const std::size_t a = kScelti.at(i);
                    const std::size_t b = kScelti.at(j);
                    terni.esce(a, b, c);
                    for (std::size_t x = 1; x <= kNumeri; ++x) {
                        std::array<std::size_t, 3> n{a, b, x};
                        std::sort(n.begin(), n.end());
                        if (x != a && x != b) esce(misure[indice_terno(n[0], n[1], n[2])], c);
                    }
                }
        const Risultato piano = tabella_misure(senza_nomi(), misure, t);
        EXPECT_EQ(std::move(terni).risultato(senza_nomi()).tabelle[0].colonne, piano.tabelle[0].colonne);
    }
}

TEST(TerniPerAmbi, LaTabellaPrendeLaColonnaData) {
    ColonnaInteri nomi = senza_nomi();
    nomi.valori.front() = 4;
    const Risultato r = TerniPerAmbi{Estrazioni{7}}.risultato(nomi);
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "4");
    EXPECT_EQ(r.tabelle[0].titoli[0], kTitoliMisure);
}

}  // namespace
}  // namespace sortimetra
