#include "stores/apertura.h"
#include "stores/perdite.h"
#include "text/data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace sortimetra {
namespace {

Data giorno(std::string_view testo) {
    return leggi_data_italiana(testo).value();
}

std::string detto(const RigheArchivio& vecchie, const RigheArchivio& nuove) {
    return racconta(perdite(vecchie, nuove, kTutteLeTabelle));
}

RigheArchivio piccolo() {
    RigheArchivio r;
    r.lotto = {{1, giorno("01/01/2000"), 0, {1, 2, 3, 4, 5}},
               {1, giorno("01/01/2000"), 7, {6, 7, 8, 9, 0}},
               {2, giorno("04/01/2000"), 0, {1, 2, 3, 4, 5}}};
    r.nazionale = {{2, giorno("04/01/2000"), kNazionale, {1, 2, 3, 4, 5}}};
    r.superenalotto = {{1, giorno("01/01/2000"), {1, 2, 3, 4, 5, 6}, 7, 0}};
    r.winforlife = {{1, giorno("01/01/2000"), "08:00", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
                    {2, giorno("01/01/2000"), "09:00", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}}};
    return r;
}

TEST(Perdite, CioCheNonSiPerde) {
    const RigheArchivio vecchie = piccolo();
    EXPECT_EQ(detto(vecchie, vecchie), "");
    RigheArchivio nuove = vecchie;
    // More draws, another concorso, an empty cell that gets its number, an hour in another writing.
    nuove.lotto.insert(nuove.lotto.begin(), {1, giorno("29/12/1999"), 0, {1, 2, 3, 4, 5}});
    for (auto& r : nuove.lotto) ++r.concorso;
    nuove.lotto[2].numeri[4] = 90;
    nuove.superenalotto[0].superstar = 9;
    nuove.winforlife[0].ora = "8:00 ";
    EXPECT_EQ(detto(vecchie, nuove), "");
    EXPECT_EQ(detto({}, vecchie), "");
}

TEST(Perdite, TolteECambiate) {
    const RigheArchivio vecchie = piccolo();
    RigheArchivio nuove = vecchie;
    nuove.lotto.erase(nuove.lotto.begin() + 1);
    EXPECT_EQ(detto(vecchie, nuove), "Lotto: 1 riga in meno (concorso 1 del 01/01/2000, RM)");
    nuove.lotto.clear();
    nuove.nazionale.clear();
    EXPECT_EQ(detto(vecchie, nuove),
              "Lotto: 3 righe in meno (la prima: concorso 1 del 01/01/2000, BA); Lotto, Nazionale: 1 riga in "
              "meno (concorso 2 del 04/01/2000)");
    nuove = vecchie;
    nuove.superenalotto[0].jolly = 8;
    nuove.winforlife[1].numeri[9] = 20;
    EXPECT_EQ(detto(vecchie, nuove),
              "SuperEnalotto: 1 riga cambiata (concorso 1 del 01/01/2000); Win for Life: 1 riga cambiata "
              "(concorso 2 del 01/01/2000, ore 09:00)");
    // A number that goes is one that changes.
    nuove = vecchie;
    nuove.lotto[0].numeri[0] = 0;
    nuove.lotto[1].data = giorno("02/01/2000");
    EXPECT_EQ(detto(vecchie, nuove),
              "Lotto: 1 riga in meno (concorso 1 del 01/01/2000, RM), 1 riga cambiata (concorso 1 del "
              "01/01/2000, BA)");
}

TEST(Perdite, SoloLeTabelleChieste) {
    const RigheArchivio vecchie = piccolo();
    EXPECT_EQ(perdite(vecchie, {}, kTutteLeTabelle).size(), 4U);
    const auto una = perdite(vecchie, {}, kTabellaSuperEnalotto);
    ASSERT_EQ(una.size(), 1U);
    EXPECT_EQ(una[0].gioco, "SuperEnalotto");
    EXPECT_EQ(una[0].tolte, 1U);
}

/// The plain count: each old row looks for its draw in a map.
TEST(Perdite, ComeIlContoSemplice) {
    for (unsigned seme = 1; seme <= 60; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto fino_a = [&](unsigned n) { return static_cast<int>(caso() % n); };
        const auto a_caso = [&] {
            RigheArchivio r;
            for (int g = 0; g < 12; ++g)
                for (int w = 0; w < 3; ++w)
                    if (fino_a(5) != 0)
                        r.lotto.push_back({g + 1,
                                           giorno("01/01/2000") + std::chrono::days{g},
                                           w,
                                           {static_cast<Numero>(fino_a(3)), 2, 3, 4, 5}});
            std::shuffle(r.lotto.begin(), r.lotto.end(), caso);
            return r;
        };
        const RigheArchivio vecchie = a_caso();
        const RigheArchivio nuove = a_caso();
        std::map<std::pair<Data, int>, Numero> presenti;
        for (const auto& r : nuove.lotto) presenti[{r.data, r.ruota}] = r.numeri[0];
        std::size_t tolte = 0;
        std::size_t cambiate = 0;
        for (const auto& r : vecchie.lotto) {
            const auto trovata = presenti.find({r.data, r.ruota});
            if (trovata == presenti.end())
                ++tolte;
            else if (r.numeri[0] != 0 && trovata->second != r.numeri[0])
                ++cambiate;
        }
        const auto dette = perdite(vecchie, nuove, kTabellaLotto);
        EXPECT_EQ(dette.empty() ? 0 : dette[0].tolte, tolte);
        EXPECT_EQ(dette.empty() ? 0 : dette[0].cambiate, cambiate);
    }
}

}  // namespace
}  // namespace sortimetra
