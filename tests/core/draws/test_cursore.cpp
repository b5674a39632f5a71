#include "draws/cursore.h"
#include "support/archivi.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <set>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::da_testi;
using prove::da_testo;
using testing::ElementsAre;

/// "concorso ruota primo" of every row from the first to the last.
std::vector<std::string> passi(Cursore c) {
    std::vector<std::string> righe;
    for (c.primo(); !c.fine(); c.successivo()) {
        const auto e = c.corrente().value();
        righe.push_back(fmt::format("{} {} {}", e.concorso(), e.ruota(), e.numero(1)));
    }
    return righe;
}

const ArchivioEstrazioni& piccolo() {
    static const ArchivioEstrazioni a = da_testi(
        "2000-05-01 1 BA 1 2 3 4 5\n"
        "2000-05-01 1 CA 6 7 8 9 10\n"
        "2000-05-04 2 CA 11 - 13 14 15\n"
        "2000-05-04 2 VE 16 17 18 19 20\n"
        "2000-05-04 2 NZ 71 72 73 74 75\n"
        "2000-06-01 3 BA 21 22 23 24 1\n"
        "2000-06-01 3 NZ 81 82 83 84 85\n",
        "2000-05-04 2 31 32 33 34 35 36 37 38\n", "2000-05-01 1 08:00 1 2 3 4 5 6 7 8 9 10\n");
    return a;
}

AmbitoRicerca tutte() {
    AmbitoRicerca a;
    a.ruote = SelezioneRuote::tutte();
    return a;
}

TEST(Cursore, AvantiIndietroEOltreLaFine) {
    Cursore c = estrazioni_ruote(piccolo(), tutte());
    EXPECT_EQ(c.conteggio(), 5U);
    EXPECT_FALSE(c.fine());
    EXPECT_EQ(c.corrente()->numero(1), 1);
    c.sposta(2);
    EXPECT_EQ(c.corrente()->numero(1), 11);
    c.precedente();
    EXPECT_EQ(c.corrente()->numero(1), 6);
    c.ultimo();
    EXPECT_EQ(c.corrente()->numero(1), 21);
    c.successivo();
    EXPECT_TRUE(c.fine());
    EXPECT_FALSE(c.corrente());
    c.successivo();  // further than the end there is nothing
    c.precedente();
    EXPECT_EQ(c.corrente()->numero(1), 21);
    c.sposta(-100);
    EXPECT_TRUE(c.inizio());
    EXPECT_FALSE(c.corrente());
    c.successivo();
    EXPECT_EQ(c.corrente()->numero(1), 1);
    c.sposta(std::numeric_limits<std::ptrdiff_t>::max());
    EXPECT_TRUE(c.fine());
    c.sposta(std::numeric_limits<std::ptrdiff_t>::min());
    EXPECT_TRUE(c.inizio());
}

TEST(Cursore, SenzaRighe) {
    Cursore c = estrazione_concorso(piccolo(), 99);
    EXPECT_EQ(c.conteggio(), 0U);
    EXPECT_TRUE(c.fine());
    c.primo();
    c.ultimo();
    EXPECT_TRUE(c.fine());
    EXPECT_FALSE(c.corrente());
    c.sposta(-5);
    c.sposta(9);
    EXPECT_TRUE(c.fine());
}

TEST(Cursore, OgniSelezioneNelSuoOrdine) {
    const auto& a = piccolo();
    EXPECT_THAT(passi(tutte_le_estrazioni(a)),
                ElementsAre("1 BA 1", "1 CA 6", "2 CA 11", "2 VE 16", "3 BA 21"));
    EXPECT_THAT(passi(estrazioni_nazionale(a, {})), ElementsAre("2 NAZIONALE 71", "3 NAZIONALE 81"));
    EXPECT_THAT(passi(estrazioni_superenalotto(a, {})), ElementsAre("2  31"));
    EXPECT_THAT(passi(estrazioni_winforlife(a, {})), ElementsAre("1  1"));
    EXPECT_THAT(passi(estrazione_concorso(a, 2)), ElementsAre("2 CA 11", "2 VE 16"));
    EXPECT_THAT(passi(estrazione_bari(a, 3)), ElementsAre("3 BA 21"));
    EXPECT_THAT(passi(estrazione_bari(a, 2)), ElementsAre());
    EXPECT_THAT(passi(estrazioni_ruota(a, 1, 1, 2)), ElementsAre("1 CA 6", "2 CA 11"));
    EXPECT_THAT(passi(estrazioni_ruota(a, kNazionale, 3, 9)), ElementsAre("3 NAZIONALE 81"));
    EXPECT_THAT(passi(estrazioni_fino_a(a, leggi_data_italiana("04/05/2000").value())),
                ElementsAre("2 CA 11", "2 VE 16", "1 BA 1", "1 CA 6"));
    EXPECT_THAT(passi(estrazioni_nazionale_fino_a(a, 2)), ElementsAre("2 NAZIONALE 71"));
    EXPECT_THAT(passi(estrazioni_con_numeri(a, tutte(), std::array{1, 20})),
                ElementsAre("1 BA 1", "2 VE 16", "3 BA 21"));
    EXPECT_THAT(passi(estrazioni_con_numeri(a, tutte(), std::array{0, -4, 400})), ElementsAre());
}

TEST(Cursore, IlFiltroResta) {
    AmbitoRicerca maggio = tutte();
    maggio.intervallo = trova_intervallo("Maggio").value();
    maggio.tratto = {2, 3};
    EXPECT_THAT(passi(estrazioni_ruote(piccolo(), maggio)), ElementsAre("2 CA 11", "2 VE 16"));
}

TEST(Cursore, CercaStaSullaPrimaRigaEPoiCammina) {
    auto c = cerca_concorso(piccolo(), TabellaArchivio::Lotto, 2);
    ASSERT_TRUE(c);
    EXPECT_EQ(c->corrente()->ruota(), "CA");
    EXPECT_EQ(c->corrente()->concorso(), 2);
    c->precedente();
    EXPECT_EQ(c->corrente()->concorso(), 1);
    EXPECT_FALSE(cerca_concorso(piccolo(), TabellaArchivio::Nazionale, 1));
    EXPECT_EQ(cerca_concorso(piccolo(), TabellaArchivio::Nazionale, 3)->corrente()->numero(1), 81);
    EXPECT_EQ(cerca_concorso(piccolo(), TabellaArchivio::SuperEnalotto, 2)->corrente()->jolly(), 37);
    EXPECT_FALSE(cerca_concorso(piccolo(), TabellaArchivio::WinForLife, 2));
}

TEST(Estrazione, CampiPerPostoEPerNome) {
    const Estrazione lotto = estrazione_concorso(piccolo(), 2).corrente().value();
    const Data giorno = leggi_data_italiana("04/05/2000").value();
    EXPECT_EQ(lotto.campo(0), Campo{giorno});
    EXPECT_EQ(lotto.campo(1), Campo{std::string_view{"CA"}});
    EXPECT_EQ(lotto.campo(2), Campo{11});
    EXPECT_EQ(lotto.campo(3), Campo{0});  // an empty cell
    EXPECT_EQ(lotto.campo(7), Campo{2});
    EXPECT_EQ(lotto.campo(8), Campo{});
    EXPECT_EQ(lotto.campo(-1), Campo{});
    EXPECT_EQ(lotto.campo("Concorso"), Campo{2});
    EXPECT_EQ(lotto.campo("[concorso]"), Campo{});
    EXPECT_EQ(lotto.campo("3°ESTRATTO"), Campo{13});
    EXPECT_EQ(lotto.campo("6°estratto"), Campo{});
    EXPECT_EQ(lotto.campo("Jolly"), Campo{});
    EXPECT_FALSE(lotto.jolly());
    EXPECT_EQ(lotto.numero(6), 0);

    const Estrazione s = estrazioni_superenalotto(piccolo(), {}).corrente().value();
    EXPECT_EQ(s.campo(0), Campo{giorno});
    EXPECT_EQ(s.campo(1), Campo{});
    EXPECT_EQ(s.campo(7), Campo{36});
    EXPECT_EQ(s.campo(8), Campo{38});
    EXPECT_EQ(s.campo(9), Campo{2});
    EXPECT_EQ(s.campo("jolly"), Campo{37});
    EXPECT_EQ(s.campo("6°estratto"), Campo{36});
    EXPECT_EQ(s.campo("ruota"), Campo{});

    const Estrazione w = estrazioni_winforlife(piccolo(), {}).corrente().value();
    EXPECT_EQ(w.campo(0), Campo{1});
    EXPECT_EQ(w.campo(2), Campo{std::string_view{"08:00"}});
    EXPECT_EQ(w.campo(12), Campo{10});
    EXPECT_EQ(w.campo(13), Campo{});
    EXPECT_EQ(w.campo("10°"), Campo{10});
    EXPECT_EQ(w.campo("1°estratto"), Campo{});
    EXPECT_EQ(w.campo("ora"), Campo{std::string_view{"08:00"}});
}

TEST(Cursore, ComeUnaSceltaPianaSuTutteLeRighe) {
    for (std::uint32_t seme = 0; seme < 300; ++seme) {
        SCOPED_TRACE(seme);
        const ArchivioEstrazioni a = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const std::array cercati{3, 17, static_cast<int>(seme % 90) + 1};
        const TrattoConcorsi tratto = ambito.tratto.riportato(a.ultimo_concorso());
        std::vector<std::string> scelte;
        std::vector<std::string> con_numeri;
        Cursore tutte_righe = tutte_le_estrazioni(
            a, ambito.ruote.e_nazionale() ? TabellaArchivio::Nazionale : TabellaArchivio::Lotto);
        for (; !tutte_righe.fine(); tutte_righe.successivo()) {
            const Estrazione e = *tutte_righe.corrente();
            if (e.concorso() < tratto.da || e.concorso() > tratto.a) continue;
            if (!accetta(kIntervalli[ambito.intervallo], e.data())) continue;
            if (!ambito.ruote.e_nazionale() &&
                (ambito.ruote.ruote_lette() >> indice_ruota(e.ruota()).value() & 1U) == 0)
                continue;
            const std::string riga = fmt::format("{} {} {}", e.concorso(), e.ruota(), e.numero(1));
            scelte.push_back(riga);
            for (const int n : cercati)
                if (std::find(e.numeri().begin(), e.numeri().end(), n) != e.numeri().end()) {
                    con_numeri.push_back(riga);
                    break;
                }
        }
        ASSERT_EQ(passi(estrazioni_ruote(a, ambito)), scelte);
        ASSERT_EQ(passi(estrazioni_con_numeri(a, ambito, cercati)), con_numeri);
        ASSERT_EQ(estrazioni_ruote(a, ambito).conteggio(), VistaEstrazioni(a, ambito).righe());
    }
}

// ---- the scratch table ----

std::vector<std::vector<int>> copia(const std::vector<std::span<const int>>& righe) {
    std::vector<std::vector<int>> tutte;
    for (const auto& r : righe) tutte.emplace_back(r.begin(), r.end());
    return tutte;
}

TEST(Temp, DecrescenteEAParitaNellOrdineDiScrittura) {
    TabellaTemp t;
    t.crea_temp({"num", "rit"});
    for (const auto& riga : std::vector<std::array<int, 2>>{{1, 5}, {2, 9}, {3, 5}, {4, 0}, {5, 9}})
        EXPECT_TRUE(t.riempi_temp(riga));
    EXPECT_EQ(copia(t.leggi_temp("rit")),
              (std::vector<std::vector<int>>{{2, 9}, {5, 9}, {1, 5}, {3, 5}, {4, 0}}));
    EXPECT_EQ(copia(t.leggi_temp("RIT")), copia(t.leggi_temp("rit")));
    EXPECT_EQ(t.leggi_temp("freq").size(), 5U);
    EXPECT_EQ(t.leggi_temp("freq")[0][0], 1);
}

TEST(Temp, CreareDiNuovoSvuota) {
    TabellaTemp t;
    EXPECT_FALSE(t.riempi_temp(std::array{1, 2}));
    t.crea_temp({"num", "rit"});
    EXPECT_TRUE(t.riempi_temp(std::array{1, 2}));
    EXPECT_FALSE(t.riempi_temp(std::array{1, 2, 3}));
    t.crea_temp({"a1", "a2", "rit", "freq"});
    EXPECT_EQ(t.conteggio(), 0U);
    EXPECT_TRUE(t.riempi_temp(std::array{1, 2, 3, 4}));
    EXPECT_EQ(t.conteggio(), 1U);
    t.elimina_temp();
    EXPECT_EQ(t.conteggio(), 0U);
    EXPECT_TRUE(t.leggi_temp("rit").empty());
}

}  // namespace
}  // namespace sortimetra
