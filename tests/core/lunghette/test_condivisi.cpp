#include "lunghette/condivisi.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace sortimetra::prove {
namespace {

/// Draws made up by a seed: some with places that hold nothing, some with a number twice, some alike.
RigheGioco righe_casuali(std::uint32_t seme, std::size_t posti, int massimo, std::size_t quante) {
    std::mt19937 caso{seme};
    RigheGioco righe{.posti = posti, .massimo = massimo, .a_punti = true};
    std::vector<Numero> urna(static_cast<std::size_t>(massimo));
    for (std::size_t i = 0; i < urna.size(); ++i) urna[i] = static_cast<Numero>(i + 1);
    for (std::size_t r = 0; r < quante; ++r) {
        if (r == 0 || caso() % 10 != 0) std::shuffle(urna.begin(), urna.end(), caso);
        std::vector<Numero> riga(urna.begin(), urna.begin() + static_cast<std::ptrdiff_t>(posti));
        if (caso() % 15 == 0) riga[0] = kNessunNumero;
        if (caso() % 15 == 0) riga[1] = riga[2];
        std::sort(riga.begin(), riga.end());
        righe.celle.insert(righe.celle.end(), riga.begin(), riga.end());
        righe.c.push_back(static_cast<std::int32_t>(r) + 1);
    }
    return righe;
}

/// Every row against every other, number by number.
std::vector<std::int32_t> condivisi_lenti(const RigheGioco& righe, std::size_t quanti) {
    std::vector<std::set<int>> insiemi;
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        const auto celle = righe.riga(r);
        insiemi.emplace_back(celle.begin(), celle.end());
        insiemi.back().erase(kNessunNumero);
    }
    std::vector<std::int32_t> condivisi(insiemi.size());
    for (std::size_t a = 0; a < insiemi.size(); ++a)
        for (std::size_t b = 0; b < insiemi.size(); ++b) {
            std::vector<int> comuni;
            std::set_intersection(insiemi[a].begin(), insiemi[a].end(), insiemi[b].begin(), insiemi[b].end(),
                                  std::back_inserter(comuni));
            if (a != b && comuni.size() == quanti) ++condivisi[a];
        }
    return condivisi;
}

TEST(Condivisi, LeColonneContanoComeIlConfrontoADueADue) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 1; seme <= 12; ++seme) {
        SCOPED_TRACE(seme);
        const RigheGioco venti = righe_casuali(seme, 20, seme % 2 == 0 ? 90 : 40, seme * 13 % 331);
        EXPECT_EQ(condivisi_per_colonne(venti, 5, nessuno), condivisi_lenti(venti, 5));
    }
}

TEST(Condivisi, IDueModiDelWinForLifeSonoUguali) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 1; seme <= 6; ++seme) {
        SCOPED_TRACE(seme);
        const RigheGioco dieci = righe_casuali(seme, 10, 20, seme * 67 % 301);
        const auto lenti = condivisi_lenti(dieci, 3);
        EXPECT_EQ(condivisi_per_colonne(dieci, 3, nessuno), lenti);
        EXPECT_EQ(condivisi_per_sottoinsiemi(dieci, 3, nessuno), lenti);
    }
    // Beyond the size at which the program changes from one way to the other.
    const RigheGioco molte = righe_casuali(7, 10, 20, 6100);
    EXPECT_EQ(condivisi_per_sottoinsiemi(molte, 3, nessuno), condivisi_per_colonne(molte, 3, nessuno));
}

TEST(Condivisi, VinceLaPrimaENessunaSeNessunaCondivide) {
    SenzaAvanzamento nessuno;
    RigheGioco righe{.posti = 3, .massimo = 90, .a_punti = true};
    righe.celle = {1, 2, 3, 7, 8, 9, 1, 2, 9, 1, 2, 3, kNessunNumero, 1, 2};
    righe.c = {1, 2, 3, 4, 5};
    // Two in common: the first with the third and the fifth, the third with three others.
    EXPECT_EQ(condivisi_per_colonne(righe, 2, nessuno), (std::vector<std::int32_t>{2, 0, 3, 2, 3}));
    EXPECT_EQ(piu_condivisa(righe, 2, nessuno), 2U);
    righe.celle.resize(6);
    righe.c.resize(2);
    EXPECT_EQ(piu_condivisa(righe, 2, nessuno), std::nullopt);
    EXPECT_EQ(piu_condivisa(RigheGioco{.posti = 20}, 5, nessuno), std::nullopt);
}

}  // namespace
}  // namespace sortimetra::prove
