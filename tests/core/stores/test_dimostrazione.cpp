#include "stores/dimostrazione.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace sortimetra {
namespace {

Data giorno(std::string_view testo) {
    return leggi_data_italiana(testo).value();
}

const ArchivioEstrazioni& dimostrativo() {
    static const ArchivioEstrazioni archivio = ArchivioEstrazioni::componi(archivio_dimostrativo()).value();
    return archivio;
}

TEST(Dimostrazione, HaLaFormaDelVero) {
    const auto& a = dimostrativo();
    ASSERT_EQ(a.lotto().concorso.size(), 4655U);
    EXPECT_EQ(a.lotto().righe, 46'550U);
    EXPECT_EQ(a.lotto().data.front(), giorno("22/12/1990"));
    EXPECT_EQ(a.data_bari(402), giorno("03/12/1997"));
    EXPECT_EQ(a.data_bari(1182), giorno("04/05/2005"));
    EXPECT_EQ(a.nazionale().concorso.front(), 1182);
    EXPECT_EQ(a.nazionale().concorso.size(), 3474U);
    EXPECT_EQ(a.superenalotto().concorso.front(), 402);
    EXPECT_EQ(a.superenalotto().concorso.back(), 4655);
    EXPECT_GE(a.winforlife().concorso.size(), 20'000U);
    for (std::size_t i = 0; i < a.lotto().concorso.size(); ++i) {
        ASSERT_EQ(a.lotto().concorso[i], static_cast<Concorso>(i) + 1);
        ASSERT_EQ(a.lotto().presenti[i], (1U << kRuote) - 1);
    }
}

TEST(Dimostrazione, OgniEstrazioneHaNumeriDiversiEBuoni) {
    const auto& a = dimostrativo();
    for (const auto& n : a.lotto().numeri)
        for (std::size_t w = 0; w < kRuote; ++w) {
            const std::set<int> ruota(n.begin() + static_cast<int>(w) * kEstratti,
                                      n.begin() + static_cast<int>(w + 1) * kEstratti);
            ASSERT_EQ(ruota.size(), 5U);
            ASSERT_GE(*ruota.begin(), 1);
            ASSERT_LE(*ruota.rbegin(), 90);
        }
    for (const auto& n : a.winforlife().numeri) {
        ASSERT_EQ(std::set<int>(n.begin(), n.end()).size(), 10U);
        ASSERT_GE(n.front(), 1);
        ASSERT_LE(n.back(), 20);
        ASSERT_TRUE(std::is_sorted(n.begin(), n.end()));
    }
    for (const auto& n : a.superenalotto().numeri) {
        ASSERT_EQ(std::set<int>(n.begin(), n.begin() + 7).size(), 7U);  // sestina and Jolly
        ASSERT_TRUE(std::is_sorted(n.begin(), n.begin() + 6));
        ASSERT_GE(n[0], 1);
    }
}

TEST(Dimostrazione, SuperstarComincia2006) {
    const auto& t = dimostrativo().superenalotto();
    for (std::size_t i = 0; i < t.concorso.size(); ++i)
        ASSERT_EQ(t.numeri[i][7] != 0, t.data[i] >= giorno("28/03/2006")) << t.concorso[i];
}

TEST(Dimostrazione, WinForLifeOgniOraDaSetteAVentitre) {
    const auto& t = dimostrativo().winforlife();
    std::map<Data, std::set<std::string>> ore;
    for (std::size_t i = 0; i < t.concorso.size(); ++i) ore[t.data[i]].emplace(t.ora[i]);
    for (const auto& [data, del_giorno] : ore) {
        ASSERT_EQ(del_giorno.size(), 17U) << testo_data(data);
        ASSERT_EQ(*del_giorno.begin(), "07:00");
        ASSERT_EQ(*del_giorno.rbegin(), "23:00");
    }
}

TEST(Dimostrazione, NessunNumeroEFavorito) {
    // 46,550 rows of five: each number is expected 2,586 times, with a deviation of about 50.
    std::array<int, 91> uscite{};
    for (const auto& n : dimostrativo().lotto().numeri)
        for (const Numero x : n) ++uscite[x];
    EXPECT_EQ(uscite[0], 0);
    EXPECT_GT(*std::min_element(uscite.begin() + 1, uscite.end()), 2586 - 250);
    EXPECT_LT(*std::max_element(uscite.begin() + 1, uscite.end()), 2586 + 250);
}

TEST(Dimostrazione, SempreLaStessa) {
    // The first rows as they came out on the day they were drawn: other numbers mean another generator, and
    // every screenshot, example and saved note of a player no longer fits.
    const auto righe = archivio_dimostrativo();
    const auto& bari = righe.lotto.front();
    EXPECT_EQ(bari.numeri, (std::array<Numero, 5>{90, 66, 18, 33, 21}));
    EXPECT_EQ(righe.winforlife.back().numeri, (std::array<Numero, 10>{2, 3, 6, 7, 8, 9, 10, 15, 17, 18}));
}

}  // namespace
}  // namespace sortimetra
