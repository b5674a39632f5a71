#include "draws/calendario.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

Data giorno(std::string_view testo) {
    return leggi_data_italiana(testo).value();
}

std::vector<std::string> fra(Gioco gioco, std::string_view dopo, std::string_view prima) {
    std::vector<std::string> testi;
    for (const Appuntamento& a : appuntamenti_fra(gioco, {.data = giorno(dopo)}, {.data = giorno(prima)}))
        testi.push_back(testo_data(a.data));
    return testi;
}

using Testi = std::vector<std::string>;

TEST(Calendario, EQuelloVero) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    EXPECT_EQ(calendario_lotto(vero->lotto().data.back()), vero->lotto().data);
    // Any stretch of it is the same as the whole.
    const auto& date = vero->lotto().data;
    for (std::size_t i = 0; i + 40 < date.size(); i += 37) {
        const auto tratto = appuntamenti_fra(Gioco::lotto, {.data = date[i]}, {.data = date[i + 40]});
        ASSERT_EQ(tratto.size(), 39U) << testo_data(date[i]);
        for (std::size_t k = 0; k < tratto.size(); ++k) EXPECT_EQ(tratto[k].data, date[i + 1 + k]);
    }
}

TEST(Calendario, LeFesteSiSpostano) {
    const auto date = calendario_lotto(giorno("31/12/2026"));
    const auto estratto = [&](std::string_view testo) {
        return std::binary_search(date.begin(), date.end(), giorno(testo));
    };
    EXPECT_FALSE(estratto("15/08/2026"));  // a Saturday
    EXPECT_TRUE(estratto("17/08/2026"));
    EXPECT_FALSE(estratto("25/12/2007"));  // a Tuesday: drawn on the eve
    EXPECT_TRUE(estratto("24/12/2007"));
    EXPECT_FALSE(estratto("25/04/2024"));  // a Thursday: Friday and Saturday have draws of their own
    EXPECT_TRUE(estratto("29/04/2024"));
    EXPECT_FALSE(estratto("31/03/2020"));
}

TEST(Calendario, FraDueEstrazioni) {
    // Tuesday, Thursday, Friday, Saturday; neither end counts.
    EXPECT_EQ(fra(Gioco::lotto, "18/08/2026", "27/08/2026"),
              (Testi{"20/08/2026", "21/08/2026", "22/08/2026", "25/08/2026"}));
    EXPECT_EQ(fra(Gioco::superenalotto, "18/08/2026", "21/08/2026"), Testi{"20/08/2026"});
    EXPECT_EQ(fra(Gioco::lotto, "20/08/2026", "21/08/2026"), Testi{});
    EXPECT_EQ(fra(Gioco::lotto, "21/08/2026", "20/08/2026"), Testi{});
    // The eve of Christmas comes back from behind the end.
    EXPECT_EQ(fra(Gioco::lotto, "22/12/2007", "25/12/2007"), Testi{"24/12/2007"});
    // The Lotto's rules are told from 1990 on; nobody waits for a slip of the pen.
    EXPECT_EQ(fra(Gioco::lotto, "07/01/1939", "07/02/1939"), Testi{});
    EXPECT_EQ(fra(Gioco::win_for_life, "01/01/2000", "01/01/2999"), Testi{});
}

TEST(Calendario, WinForLifeAOgniOra) {
    const Data oggi = giorno("06/12/2023");
    const auto ore =
        appuntamenti_fra(Gioco::win_for_life, {oggi, 21 * 60}, {oggi + std::chrono::days{1}, 8 * 60});
    ASSERT_EQ(ore.size(), 3U);
    EXPECT_EQ(ore[0], (Appuntamento{oggi, 22 * 60}));
    EXPECT_EQ(ore[1], (Appuntamento{oggi, 23 * 60}));
    EXPECT_EQ(ore[2], (Appuntamento{oggi + std::chrono::days{1}, 7 * 60}));
}

TEST(Calendario, QuanteNeMancano) {
    // Thirteen weeks of four draws.
    EXPECT_EQ(estrazioni_mancanti(Gioco::lotto, {.data = giorno("21/08/2026")}, giorno("21/11/2026")), 52);
    EXPECT_EQ(estrazioni_mancanti(Gioco::lotto, {.data = giorno("21/08/2026")}, giorno("22/08/2026")), 0)
        << "today's draw is still to come";
    EXPECT_EQ(estrazioni_mancanti(Gioco::lotto, {.data = giorno("21/08/2026")}, giorno("23/08/2026")), 1);
    EXPECT_EQ(estrazioni_mancanti(Gioco::win_for_life, {giorno("06/12/2023"), 11 * 60}, giorno("08/12/2023")),
              12 + 17);
}

TEST(Calendario, LaProssima) {
    const auto dopo = [](std::string_view testo) {
        return testo_data(prossima_estrazione(Gioco::lotto, {.data = giorno(testo)}).data);
    };
    EXPECT_EQ(dopo("21/08/2026"), "22/08/2026");
    EXPECT_EQ(dopo("22/08/2026"), "25/08/2026");
    EXPECT_EQ(dopo("14/08/2026"), "17/08/2026") << "the 15th is a holiday";
    EXPECT_EQ(dopo("01/01/1950"), "02/01/1950");
    const Data sera = giorno("06/12/2023");
    EXPECT_EQ(prossima_estrazione(Gioco::win_for_life, {sera, 23 * 60}),
              (Appuntamento{sera + std::chrono::days{1}, 7 * 60}));
    EXPECT_EQ(prossima_estrazione(Gioco::win_for_life, {sera, 11 * 60}), (Appuntamento{sera, 12 * 60}));
}

}  // namespace
}  // namespace sortimetra
