#include "statistics/misura_combinazioni.h"
#include "statistics/misura_serie.h"
#include "statistics/serie_speciali.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <span>
#include <vector>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

/// `quanti` different numbers, in any order.
std::vector<Numero> scelti(std::mt19937& caso, std::size_t quanti) {
    std::vector<Numero> numeri(kNumeri);
    std::iota(numeri.begin(), numeri.end(), Numero{1});
    std::shuffle(numeri.begin(), numeri.end(), caso);
    numeri.resize(quanti);
    return numeri;
}

/// Rows of `posti` cells, sometimes empty, sometimes the same number twice; several rows a draw.
struct RigheCasuali {
    std::vector<std::vector<Numero>> righe{};
    std::vector<std::int32_t> c{};

    RigheCasuali(std::mt19937& caso, std::size_t quante, std::size_t posti) {
        std::int32_t ordinale = 1;
        for (std::size_t r = 0; r < quante; ++r) {
            std::vector<Numero> riga(posti);
            for (Numero& n : riga) n = static_cast<Numero>(caso() % (kNumeri + 2));
            righe.push_back(riga);
            c.push_back(ordinale);
            ordinale += static_cast<std::int32_t>(caso() % 3);
        }
    }
};

/// Member by member: how many of its numbers the row holds.
std::vector<Misura> lenta(const RigheCasuali& righe, const SerieCorrente& serie, int soglia) {
    std::vector<Misura> misure(serie.righe(), Misura{.ultimo = kInizioSerie});
    for (std::size_t r = 0; r < righe.righe.size(); ++r)
        for (std::size_t i = 0; i < misure.size(); ++i) {
            const auto membro = serie.membro(i);
            const auto comuni = std::count_if(membro.begin(), membro.end(), [&](Numero n) {
                return std::find(righe.righe[r].begin(), righe.righe[r].end(), n) != righe.righe[r].end();
            });
            if (comuni >= soglia) esce(misure[i], righe.c[r]);
        }
    return misure;
}

TEST(MisuraCombinazioni, OgniComboOgniSorteOgniSoglia) {
    for (std::uint32_t seme = 1; seme <= 120; ++seme) {
        std::mt19937 caso{seme};
        const auto numeri = scelti(caso, 1 + caso() % 12);
        const std::size_t posti = std::array<std::size_t, 4>{5, 10, 20, 1}[seme % 4];
        const RigheCasuali righe{caso, 1 + caso() % 60, posti};
        for (int k = 1; k <= 5; ++k)
            for (int soglia = 1; soglia <= 6; ++soglia) {
                SCOPED_TRACE(testing::Message() << "seme " << seme << " k " << k << " soglia " << soglia);
                auto combinazioni = Combinazioni::di(numeri, k, soglia);
                ASSERT_TRUE(combinazioni);
                const SerieCorrente serie = scomposizione_gruppo(numeri, k);
                ASSERT_EQ(combinazioni->quante(), serie.righe());
                for (std::size_t r = 0; r < righe.righe.size(); ++r)
                    combinazioni->riga(righe.c[r], righe.righe[r]);
                const auto attese = lenta(righe, serie, soglia);
                ASSERT_EQ(combinazioni->misura(nessuno), attese);
                std::size_t colpi = 0;
                for (const Misura& m : attese) colpi += static_cast<std::size_t>(m.frequenza);
                ASSERT_EQ(combinazioni->colpi(), colpi);
            }
    }
}

/// So many combinations that they are counted in several runs.
TEST(MisuraCombinazioni, AMoltiNumeriComeMembroPerMembro) {
    for (std::uint32_t seme = 1; seme <= 3; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto numeri = scelti(caso, 27 + seme);
        const RigheCasuali righe{caso, 25, seme == 3 ? 20U : 5U};
        const SerieCorrente serie = scomposizione_gruppo(numeri, 5);
        auto combinazioni = Combinazioni::di(numeri, 5, 3);
        ASSERT_TRUE(combinazioni);
        for (std::size_t r = 0; r < righe.righe.size(); ++r) combinazioni->riga(righe.c[r], righe.righe[r]);
        EXPECT_EQ(combinazioni->misura(nessuno), lenta(righe, serie, 3));
    }
}

TEST(MisuraCombinazioni, SuUnaVistaComeLaSerie) {
    for (std::uint32_t seme = 1; seme <= 60; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const VistaEstrazioni vista{archivio, ambito_casuale(seme)};
        auto numeri = scelti(caso, 3 + caso() % 10);
        // Sometimes a number is told twice.
        if (caso() % 4 == 0) numeri.push_back(numeri.front());
        for (int k = 1; k <= 5; ++k)
            for (int soglia = 0; soglia <= 4; ++soglia) {
                const SerieCorrente serie = scomposizione_gruppo(numeri, k);
                EXPECT_EQ(misura_combinazioni(vista, numeri, serie, soglia, nessuno),
                          misura_serie(vista, serie, soglia, nessuno));
            }
    }
}

TEST(MisuraCombinazioni, QuelloCheNonSaConta) {
    const std::vector<Numero> uno{7};
    EXPECT_FALSE(Combinazioni::di(uno, 0, 1));
    EXPECT_FALSE(Combinazioni::di(uno, 6, 1));
    EXPECT_FALSE(Combinazioni::di(uno, 1, 0));
    EXPECT_FALSE(Combinazioni::di(std::vector<Numero>{7, 8, 7}, 2, 1));
    EXPECT_FALSE(Combinazioni::di(std::vector<Numero>{0, 8}, 2, 1));
    EXPECT_FALSE(Combinazioni::di(std::vector<Numero>{91, 8}, 2, 1));
    const auto poche = Combinazioni::di(uno, 2, 1);
    ASSERT_TRUE(poche);
    EXPECT_EQ(poche->quante(), 0U);
    EXPECT_TRUE(poche->misura(nessuno).empty());
}

TEST(MisuraCombinazioni, AnnullataRestaSenzaColpi) {
    struct Basta final : Avanzamento {
        bool procedi(std::size_t, std::size_t) override { return false; }
    } basta;
    std::vector<Numero> numeri(40);
    std::iota(numeri.begin(), numeri.end(), Numero{1});
    auto combinazioni = Combinazioni::di(numeri, 5, 3);
    ASSERT_TRUE(combinazioni);
    combinazioni->riga(1, numeri);
    const auto misure = combinazioni->misura(basta);
    EXPECT_EQ(misure.front().frequenza, 1);
    EXPECT_EQ(misure.back().frequenza, 0);
}

}  // namespace
}  // namespace sortimetra
