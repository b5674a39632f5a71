#include "draws/combinazioni.h"
#include "positional/posizione.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <functional>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

TEST(Posizione, OgniPostoPerConto) {
    const auto archivio = da_testo(
        "1 BA 7 1 2 3 4\n"
        "2 BA 1 7 2 3 4\n"
        "3 BA 7 1 2 3 4\n"
        "4 BA 8 1 2 3 4\n");
    const Risultato r = posizione::estratto(archivio, domanda(""), nessuno);
    // First place at draws 1 and 3: one closed gap of 1, one draw since; second place once, two draws since.
    EXPECT_EQ(riga(r, "7"), "7 2 1 1 1 2 0 ... 4 ... ... 4 ... ... 4 ...");
    EXPECT_EQ(riga(r, "2"), "2 ... 4 ... ... 4 ... 4 0 0 ... 4 ... ... 4 ...");
    EXPECT_EQ(r.tabelle[0].titoli[0][1], "Posizione");
    EXPECT_EQ(r.tabelle[0].titoli[1][4], "2");
    EXPECT_EQ(r.tabelle[0].titoli[2][15], "RS");
    EXPECT_EQ(r.tabelle[0].n_colonne(), 16U);
}

TEST(Posizione, UnaSolaUscitaNonHaRitardoStorico) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 9 2 3 4 5\n3 BA 1 2 3 4 5\n4 BA 1 2 3 4 5\n");
    const Risultato r = posizione::estratto(archivio, domanda(""), nessuno);
    EXPECT_EQ(riga(r, "9").substr(0, 8), "9 1 2 0 ");
}

TEST(Posizione, DueRuoteContanoLaFrequenzaDiCiascuna) {
    const auto archivio =
        da_testo("1 BA 5 2 3 4 6\n1 CA 5 12 13 14 15\n2 BA 1 2 3 4 6\n2 CA 11 12 13 14 15\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    EXPECT_EQ(riga(posizione::estratto(archivio, domanda("", ambito), nessuno), "5").substr(0, 7), "5 2 1 0");
}

TEST(Posizione, DueUsciteDiFilaNonLascianoRitardo) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 9 2 3 4 5\n3 BA 9 2 3 4 5\n4 BA 1 2 3 4 5\n");
    const Risultato r = posizione::estratto(archivio, domanda(""), nessuno);
    EXPECT_EQ(riga(r, "9").substr(0, 8), "9 2 1 0 ");
    // The wait before the first time and the one that still goes on are no closed delays.
    EXPECT_EQ(riga(r, "1").substr(0, 8), "1 2 0 2 ");
}

TEST(Posizione, DoveUnaRuotaMancaIlRitardoNeRisente) {
    // Five rows of two wheels: N is 2.5, to the even number 2, while three draws are walked.
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n1 CA 11 12 13 14 15\n"
        "2 BA 6 7 8 9 10\n"
        "3 BA 1 7 8 9 10\n3 CA 16 17 18 19 20\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    const Risultato r = posizione::estratto(archivio, domanda("", ambito), nessuno);
    EXPECT_EQ(riga(r, "6").substr(0, 8), "6 1 0 0 ");
    EXPECT_EQ(riga(r, "1").substr(0, 9), "1 2 -1 1 ");
    EXPECT_EQ(riga(r, "90").substr(0, 13), "90 ... 2 ... ");
}

TEST(Posizione, SenzaRuoteSiLeggeBariENVale0) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nessuna();
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n1 CA 6 7 8 9 10\n2 BA 1 7 8 9 10\n");
    const Risultato r = posizione::estratto(archivio, domanda("", ambito), nessuno);
    // Started at -1, `ultimo` makes the wait of the first time count: one draw.
    EXPECT_EQ(riga(r, "1").substr(0, 9), "1 2 -2 1 ");
    EXPECT_EQ(riga(r, "6").substr(0, 12), "6 ... 0 ... ");
}

TEST(Posizione, IlDieciELottoContaOgniRigaDelleRuoteScelte) {
    // Two wheels give ten numbers, ranked behind ten empty places; both rows of the draw are counted.
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n1 CA 11 12 13 14 15\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    const Tabella t = posizione::ambata10elotto(archivio, domanda("", ambito), nessuno).tabelle[0];
    const auto posto = [&](std::size_t numero, std::size_t p) {
        std::string testo;
        for (std::size_t k = 0; k < 3; ++k) testo += t.testo(numero - 1, 1 + 3 * (p - 1) + k) + " ";
        return testo;
    };
    EXPECT_EQ(posto(1, 11), "2 1 0 ");
    EXPECT_EQ(posto(15, 20), "2 1 0 ");
    EXPECT_EQ(posto(1, 1), "... 2 ... ");
    // Of one wheel alone the draw has one row, and the same combination.
    const Tabella una = posizione::ambata10elotto(archivio, domanda(""), nessuno).tabelle[0];
    EXPECT_EQ(una.testo(0, 31) + " " + una.testo(0, 32), "1 0");
}

TEST(Posizione, WinForLifeAUnOra) {
    const auto archivio = da_testi("", "",
                                   "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 10:00 1 2 3 4 5 6 7 8 9 10\n"
                                   "3 09:00 2 3 4 5 6 7 8 9 10 11\n4 19:00 1 2 3 4 5 6 7 8 9 10\n");
    AmbitoRicerca ambito;
    ambito.ora = *trova_ora("9:00");
    const Risultato r = posizione::ambataWinForLife(archivio, domanda("", ambito), nessuno);
    EXPECT_EQ(riga(r, "1").substr(0, 8), "1 1 1 0 ");
    EXPECT_EQ(riga(r, "2").substr(0, 14), "2 1 0 0 1 1 0 ");
}

TEST(Posizione, UnPostoVuotoSiSalta) {
    const Risultato r = posizione::estratto(da_testo("1 BA - 2 3 4 6\n"), domanda(""), nessuno);
    EXPECT_EQ(riga(r, "2"), "2 ... 1 ... 1 0 0 ... 1 ... ... 1 ... ... 1 ...");
}

TEST(Posizione, IlJollyEUnSettimoPosto) {
    const auto archivio = da_testi("1 BA 1 2 3 4 5\n", "1 60 10 50 20 40 30 7 88\n", "");
    const Risultato r = posizione::ambataSuperEnalotto(archivio, domanda(""), nessuno);
    EXPECT_EQ(r.tabelle[0].titoli[1][19], "Jolly");
    EXPECT_EQ(riga(r, "7"), "7 ... 1 ... ... 1 ... ... 1 ... ... 1 ... ... 1 ... ... 1 ... 1 0 0");
    // The sestina is ranked: 60 stands last, wherever it was stored.
    EXPECT_EQ(r.tabelle[0].testo(59, 16), "1");
}

TEST(Posizione, WinForLifeHaVentiNumeriEDieciPosti) {
    const auto archivio = da_testi("", "", "1 8:00 20 1 2 3 4 5 6 7 8 9\n");
    const Risultato r = posizione::ambataWinForLife(archivio, domanda(""), nessuno);
    EXPECT_EQ(r.tabelle[0].righe(), 20U);
    EXPECT_EQ(r.tabelle[0].n_colonne(), 31U);
    EXPECT_EQ(r.tabelle[0].testo(19, 28), "1");
}

TEST(Posizione, AmbitoVuoto) {
    AmbitoRicerca ambito;
    ambito.tratto = {2, 1};
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n");
    for (const auto& cerca : {posizione::estratto, posizione::ambataSuperEnalotto, posizione::ambata10elotto,
                              posizione::ambataWinForLife}) {
        const Risultato r = cerca(archivio, domanda("", ambito), nessuno);
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{std::string{kNessunaEstrazione}});
    }
}

TEST(Posizione, IPuntiniSiOrdinanoFraINumeri) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    const Risultato r = posizione::estratto(archivio, domanda(""), nessuno);
    const auto ordine = ordina(r.tabelle[0], 1, Verso::decrescente);
    EXPECT_EQ(ordine[0], 0U);  // the one number with a frequency
    EXPECT_EQ(ordine[1], 1U);  // the others keep their order
}

/// Places of a row's numbers, walked row by row with four counters per cell.
std::string posizioni_lente(const std::vector<RigaPiana>& righe, int numeri, std::size_t posti, int n) {
    std::map<std::pair<int, std::size_t>, Conti> celle;
    for (int x = 1; x <= numeri; ++x)
        for (std::size_t p = 0; p < posti; ++p) celle[{x, p}] = {n - 1, 0, n, 0};
    cammina(righe, [&](int c, const std::vector<int>& riga) {
        for (std::size_t p = 0; p < posti; ++p)
            if (riga[p] > 0) celle[{riga[p], p}].esce(c, n);
    });
    std::string testo;
    for (int x = 1; x <= numeri; ++x) {
        testo += std::to_string(x);
        for (std::size_t p = 0; p < posti; ++p) {
            const Conti& q = celle[{x, p}];
            const bool mai = q.frequenza == 0;
            testo += " " + (mai ? "..." : std::to_string(q.frequenza)) + " " + std::to_string(q.ritardo) +
                     " " + (mai ? "..." : std::to_string(q.storico));
        }
        testo += "\n";
    }
    return testo;
}

TEST(Posizione, UgualeAllaLentaSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 120; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const Domanda d = domanda("", ambito);
        const auto prova = [](const Risultato& r, const std::vector<RigaPiana>& scelte, int numeri,
                              std::size_t posti, int n) {
            ASSERT_EQ(r.prodotto, !scelte.empty());
            if (r.prodotto) {
                EXPECT_EQ(righe(r.tabelle[0]), posizioni_lente(scelte, numeri, posti, n));
            }
        };
        const auto cursore = righe_piane(archivio, ambito);
        prova(posizione::estratto(archivio, d, nessuno), cursore, 90, 5,
              arrotonda(cursore.size(), ambito.ruote.n_ruote()));

        auto dieci = cursore;
        for (RigaPiana& r : dieci) {
            r.n.assign(20, 0);
            if (const auto record = cerca_concorso(archivio.lotto().concorso, r.concorso)) {
                const Combinazione c = calc_combinazione_10elotto(archivio.lotto(), *record);
                r.n.assign(c.begin() + 1, c.end());
            }
        }
        prova(posizione::ambata10elotto(archivio, d, nessuno), dieci, 90, 20, static_cast<int>(dieci.size()));

        auto sestine = righe_superenalotto(archivio, ambito);
        for (RigaPiana& r : sestine) std::sort(r.n.begin(), r.n.begin() + 6);
        prova(posizione::ambataSuperEnalotto(archivio, d, nessuno), sestine, 90, 7,
              static_cast<int>(sestine.size()));

        std::vector<RigaPiana> ore;
        for (const std::uint32_t i : vista_winforlife(archivio, ambito)) {
            const Concorso concorso = archivio.winforlife().concorso[i];
            const Combinazione c = calc_combinazione_WinForLife(archivio.winforlife(), concorso);
            ore.push_back({concorso, {c.begin() + 1, c.begin() + 11}});
        }
        prova(posizione::ambataWinForLife(archivio, d, nessuno), ore, 20, 10, static_cast<int>(ore.size()));
    }
}

}  // namespace
}  // namespace sortimetra
