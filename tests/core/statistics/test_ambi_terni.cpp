#include "statistics/ambi_terni.h"
#include "statistics/combinatoria.h"
#include "statistics/parametri.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

AmbitoRicerca due_ruote() {
    AmbitoRicerca a;
    a.ruote.clic(1, true);
    return a;
}

TEST(Ambi, UnaEstrazioneSuUnaRuota) {
    const auto archivio = da_testo("1 BA 3 1 90 4 5\n");
    const Risultato r = ambilotto(archivio, domanda(""), nessuno);
    ASSERT_EQ(r.tabelle[0].righe(), 4005U);
    for (const char* uscito :
         {"01-03", "01-04", "01-05", "01-90", "03-04", "03-05", "03-90", "04-05", "04-90", "05-90"})
        EXPECT_EQ(riga(r, uscito), std::string{uscito} + " 1 0 0");
    EXPECT_EQ(riga(r, "02-03"), "02-03 0 1 0");
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "01-02");
    EXPECT_EQ(r.tabelle[0].testo(4004, 0), "89-90");
}

TEST(Ambi, DueRuoteDelloStessoConcorsoContanoDue) {
    const auto archivio = da_testo(
        "1 BA 10 20 1 2 3\n1 CA 20 10 4 5 6\n"
        "2 BA 11 12 13 14 15\n2 CA 11 13 16 17 18\n");
    const Risultato r = ambilotto(archivio, domanda("", due_ruote()), nessuno);
    EXPECT_EQ(riga(r, "10-20"), "10-20 2 1 0");
    EXPECT_EQ(riga(r, "11-13"), "11-13 2 0 0");
}

TEST(Ambi, RitardoStoricoChiuso) {
    const auto archivio =
        da_testo("1 BA 1 2 30 31 32\n2 BA 3 4 5 6 7\n3 BA 3 4 5 6 7\n4 BA 2 1 8 9 10\n5 BA 3 4 5 6 7\n");
    EXPECT_EQ(riga(ambilotto(archivio, domanda(""), nessuno), "01-02"), "01-02 2 1 2");
}

TEST(Ambi, RigaSenzaPrimoNumeroContaComeConcorso) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA - 1 2 6 7\n");
    const Risultato r = ambilotto(archivio, domanda(""), nessuno);
    EXPECT_EQ(riga(r, "01-02"), "01-02 1 1 0");
    EXPECT_EQ(riga(r, "06-07"), "06-07 0 2 0");
}

TEST(Ambi, CellaVuotaOltreLaPrimaNonFaAmbo) {
    const Risultato r = ambilotto(da_testo("1 BA 1 - 3 4 5\n"), domanda(""), nessuno);
    EXPECT_EQ(riga(r, "01-03"), "01-03 1 0 0");
}

TEST(Terni, UnaEstrazione) {
    const auto archivio = da_testo("1 BA 90 1 2 50 7\n");
    Domanda d = domanda("");
    d.parametri.per<ParametriStatistica>().tipo = 1;
    const Risultato r = tutti_i_terni(archivio, d, nessuno);
    ASSERT_EQ(r.tabelle[0].righe(), 117480U);
    EXPECT_EQ(riga(r, "01-02-07"), "01-02-07 1 0 0");
    EXPECT_EQ(riga(r, "07-50-90"), "07-50-90 1 0 0");
    EXPECT_EQ(riga(r, "01-02-03"), "01-02-03 0 1 0");
    EXPECT_EQ(r.tabelle[0].testo(117479, 0), "88-89-90");
}

TEST(Terni, MisuratiDaiLoroAmbi) {
    const auto archivio = da_testo(
        "1 BA 1 2 60 61 62\n"
        "2 BA 40 41 42 43 44\n"
        "3 BA 1 3 70 71 72\n"
        "4 BA 40 41 42 43 45\n");
    const Risultato r = tutti_i_terni(archivio, domanda(""), nessuno);
    // 01-02-03: ambo 01-02 at draw 1, ambo 01-03 at draw 3; one closed gap of 1.
    EXPECT_EQ(riga(r, "01-02-03"), "01-02-03 2 1 1");
    // Three ambi in one row: frequency 3, one draw.
    EXPECT_EQ(riga(r, "01-60-61"), "01-60-61 3 3 0");
    EXPECT_EQ(riga(r, "80-81-82"), "80-81-82 0 4 0");
}

TEST(Terni, AmbitoVuoto) {
    AmbitoRicerca a;
    a.tratto = {9, 3};
    const Risultato r =
        tutti_i_terni(da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n9 BA 1 2 3 4 5\n"), domanda("", a), nessuno);
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
}

std::string ambi_lenti(const std::vector<RigaPiana>& righe, int t) {
    std::vector<std::vector<Conti>> ambi(91, std::vector<Conti>(91, Conti{t - 1, 0, t, 0}));
    cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] <= 0) return;
        for (std::size_t i = 0; i < 4; ++i)
            for (std::size_t j = i + 1; j < 5; ++j)
                ambi[static_cast<std::size_t>(std::min(n[i], n[j]))]
                    [static_cast<std::size_t>(std::max(n[i], n[j]))]
                        .esce(c, t);
    });
    std::string testo;
    for (int a = 1; a <= 89; ++a)
        for (int b = a + 1; b <= 90; ++b)
            testo += due(a) + "-" + due(b) + " " +
                     ambi[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)].testo();
    return testo;
}

std::size_t cella(int a, int b, int c) {
    std::array<int, 3> n{a, b, c};
    std::sort(n.begin(), n.end());
    return static_cast<std::size_t>((n[0] * 91 + n[1]) * 91 + n[2]);
}

std::string terni_lenti(const std::vector<RigaPiana>& righe, int t, bool per_ambi) {
    std::vector<Conti> terni(91 * 91 * 91, Conti{t - 1, 0, t, 0});
    std::vector<Conti> ambi(91 * 91, Conti{t - 1, 0, t, 0});
    const auto ambo = [&](int a, int b) -> Conti& {
        return ambi[static_cast<std::size_t>(std::min(a, b) * 91 + std::max(a, b))];
    };
    cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] <= 0) return;
        for (std::size_t i = 0; i < 4; ++i)
            for (std::size_t j = i + 1; j < 5; ++j) {
                if (per_ambi) {
                    ambo(n[i], n[j]).esce(c, t);
                    for (int terzo = 1; terzo <= 90; ++terzo) terni[cella(n[i], n[j], terzo)].vuoto(c);
                    continue;
                }
                for (std::size_t k = j + 1; k < 5; ++k) terni[cella(n[i], n[j], n[k])].esce(c, t);
            }
    });
    std::string testo;
    for (int a = 1; a <= 88; ++a)
        for (int b = a + 1; b <= 89; ++b)
            for (int c = b + 1; c <= 90; ++c) {
                Conti x = terni[cella(a, b, c)];
                if (per_ambi) {
                    x.frequenza = ambo(a, b).frequenza + ambo(a, c).frequenza + ambo(b, c).frequenza;
                    x.ritardo = std::min({ambo(a, b).ritardo, ambo(a, c).ritardo, ambo(b, c).ritardo});
                }
                testo += due(a) + "-" + due(b) + "-" + due(c) + " " + x.testo();
            }
    return testo;
}

TEST(Ambi, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 60; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const auto righe_scelte = righe_piane(archivio, ambito);
        const Risultato r = ambilotto(archivio, domanda("", ambito), nessuno);
        ASSERT_EQ(r.prodotto, !righe_scelte.empty());
        if (!r.prodotto) continue;
        EXPECT_EQ(righe(r.tabelle[0]),
                  ambi_lenti(righe_scelte, arrotonda(righe_scelte.size(), ambito.ruote.n_ruote())));
    }
}

TEST(Terni, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 24; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const auto righe_scelte = righe_piane(archivio, ambito);
        const int t = arrotonda(righe_scelte.size(), ambito.ruote.n_ruote());
        for (const bool per_ambi : {false, true}) {
            Domanda d = domanda("", ambito);
            d.parametri.per<ParametriStatistica>().tipo = per_ambi ? 0 : 1;
            const Risultato r = tutti_i_terni(archivio, d, nessuno);
            ASSERT_EQ(r.prodotto, !righe_scelte.empty());
            if (!r.prodotto) continue;
            // Compared as one bool: a wrong table would print 117,480 lines twice.
            EXPECT_TRUE(righe(r.tabelle[0]) == terni_lenti(righe_scelte, t, per_ambi))
                << "per_ambi " << per_ambi;
        }
    }
}

}  // namespace
}  // namespace sortimetra
