#include "draws/combinazioni.h"
#include "statistics/altri_giochi.h"
#include "statistics/parametri.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <set>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

/// The Lotto's last concorso ends the range of SuperEnalotto.
constexpr const char* kTreConcorsi = "1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n";

TEST(SuperEnalotto, NumeriDellaSestina) {
    const auto archivio =
        da_testi(kTreConcorsi, "1 9 1 2 3 4 5 60 61\n2 10 11 12 13 14 15 9 0\n3 9 20 21 22 23 24 1 2\n", "");
    const Risultato r = ambataSuperEnalotto(archivio, domanda(""), nessuno);
    EXPECT_EQ(riga(r, "9"), "9 2 0 1");
    EXPECT_EQ(riga(r, "60"), "60 0 3 0");
    EXPECT_EQ(r.tabelle[0].righe(), 90U);
}

TEST(SuperEnalotto, UnoZeroNonEUnNumero) {
    const auto archivio = da_testi(kTreConcorsi, "1 - 1 2 3 4 5 60 61\n", "");
    const Risultato r = ambataSuperEnalotto(archivio, domanda(""), nessuno);
    EXPECT_EQ(riga(r, "1"), "1 1 0 0");
}

TEST(SuperEnalotto, SuperstarContaAncheSenzaNumero) {
    const auto archivio =
        da_testi(kTreConcorsi, "1 1 2 3 4 5 6 7 33\n2 1 2 3 4 5 6 7 -\n3 1 2 3 4 5 6 7 33\n", "");
    EXPECT_EQ(riga(superstar(archivio, domanda(""), nessuno), "33"), "33 2 0 1");
}

TEST(SuperEnalotto, OltreLUltimoConcorsoDelLottoNonSiVa) {
    const auto archivio = da_testi(kTreConcorsi, "3 1 2 3 4 5 6 7 33\n4 11 12 13 14 15 16 17 33\n", "");
    EXPECT_EQ(riga(ambataSuperEnalotto(archivio, domanda(""), nessuno), "11"), "11 0 1 0");
}

TEST(SuperEnalotto, AmbitoVuoto) {
    const Risultato r = ambisuperenalotto(da_testi(kTreConcorsi, "", ""), domanda(""), nessuno);
    EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{std::string{kNessunaEstrazione}});
    EXPECT_FALSE(r.prodotto);
}

TEST(WinForLife, OgniRigaEUnEstrazione) {
    const auto archivio = da_testi("", "",
                                   "1 8:00 1 2 3 4 5 6 7 8 9 10\n2 9:00 11 12 13 14 15 16 17 18 19 20\n"
                                   "3 08:00 1 11 12 13 14 15 16 17 18 19\n");
    AmbitoRicerca alle_otto;
    alle_otto.ora = 1;
    const Risultato r = ambataWinForLife(archivio, domanda("", alle_otto), nessuno);
    EXPECT_EQ(r.tabelle[0].righe(), 20U);
    EXPECT_EQ(riga(r, "1"), "1 2 0 0");
    EXPECT_EQ(riga(r, "20"), "20 0 2 0");
    EXPECT_EQ(riga(ambataWinForLife(archivio, domanda(""), nessuno), "1"), "1 2 0 1");
}

TEST(WinForLife, LoStessoConcorsoDaINumeriDellaPrimaRiga) {
    const auto archivio =
        da_testi("", "", "1 8:00 1 2 3 4 5 6 7 8 9 10\n1 9:00 11 12 13 14 15 16 17 18 19 20\n");
    const Risultato r = ambataWinForLife(archivio, domanda(""), nessuno);
    // T is 2 rows, C stays 1: the delay is 1 although it is the last draw.
    EXPECT_EQ(riga(r, "1"), "1 2 1 0");
    EXPECT_EQ(riga(r, "11"), "11 0 2 0");
}

TEST(DieciELotto, MenoRuoteSaltanoEstrazioni) {
    std::string testo;
    for (int c = 1; c <= 12; ++c)
        for (const char* ruota : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"}) {
            const int w = *indice_ruota(ruota);
            testo += std::to_string(c) + " " + ruota + " " + std::to_string(w + 1) + " " +
                     std::to_string(w + 11) + (c == 11 ? " 88 89 90\n" : " 50 51 52\n");
        }
    const auto archivio = da_testo(testo);
    AmbitoRicerca bari;
    // Bari alone: rows 0 and 10 are visited, T is 12.
    EXPECT_EQ(riga(ambata10elotto(archivio, domanda("", bari), nessuno), "7"), "7 2 10 0");
    AmbitoRicerca tutte;
    tutte.ruote = SelezioneRuote::tutte();
    EXPECT_EQ(riga(ambata10elotto(archivio, domanda("", tutte), nessuno), "7"), "7 12 0 0");
    EXPECT_EQ(riga(ambata10elotto(archivio, domanda("", tutte), nessuno), "21"), "21 0 12 0");
}

std::string tabella_lenta(const std::map<int, Conti>& conti) {
    std::string testo;
    for (const auto& [n, x] : conti) testo += std::to_string(n) + " " + x.testo();
    return testo;
}

std::map<int, Conti> conti_da(int quanti, int t) {
    std::map<int, Conti> conti;
    for (int n = 1; n <= quanti; ++n) conti[n] = {t - 1, 0, t, 0};
    return conti;
}

/// The twenty numbers the long way: the pair scan told in full, on the rows of one concorso.
std::vector<int> dieci_lenta(const std::vector<RigaPiana>& righe_concorso) {
    std::vector<int> c(21);
    const std::size_t n = righe_concorso.size();
    for (std::size_t i = 1; i <= n; ++i) c[i] = righe_concorso[i - 1].n[0];
    for (std::size_t i = 1; i <= n; ++i) c[i + 10] = righe_concorso[i - 1].n[1];
    std::size_t posto = 3;
    std::size_t ruota_n = 1;
    for (;;) {
        std::size_t difetto = 0;
        for (std::size_t i = 1; i <= 20 && difetto == 0; ++i)
            for (std::size_t j = 1; j <= 20 && difetto == 0; ++j)
                if (i != j && (c[j] == 0 || c[j] == c[i])) difetto = j;
        if (difetto == 0 || posto > 5) break;
        if (ruota_n <= n && righe_concorso[ruota_n - 1].n[posto - 1] > 0)
            c[difetto] = righe_concorso[ruota_n - 1].n[posto - 1];
        if (++ruota_n == 11) {
            ruota_n = 1;
            ++posto;
        }
    }
    std::sort(c.begin() + 1, c.end());
    return c;
}

TEST(AltriGiochi, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 120; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const Domanda d = domanda("", ambito);
        const auto sestine = righe_superenalotto(archivio, ambito);
        const int t = static_cast<int>(sestine.size());
        if (!sestine.empty()) {
            auto sei = conti_da(90, t);
            auto stella = conti_da(90, t);
            cammina(sestine, [&](int c, const std::vector<int>& n) {
                for (std::size_t i = 0; i < 6; ++i)
                    if (n[i] > 0) sei[n[i]].esce(c, t);
                if (n[7] > 0) stella[n[7]].esce(c, t);
            });
            EXPECT_EQ(righe(ambataSuperEnalotto(archivio, d, nessuno).tabelle.at(0)), tabella_lenta(sei));
            EXPECT_EQ(righe(ambatalottoSuperenalotto(archivio, d, nessuno).tabelle.at(0)),
                      tabella_lenta(sei));
            EXPECT_EQ(righe(superstar(archivio, d, nessuno).tabelle.at(0)), tabella_lenta(stella));
        } else {
            EXPECT_FALSE(ambataSuperEnalotto(archivio, d, nessuno).prodotto);
        }

        std::map<int, std::vector<RigaPiana>> per_concorso;
        AmbitoRicerca intero;
        intero.ruote = SelezioneRuote::tutte();
        for (const RigaPiana& r : righe_piane(archivio, intero)) per_concorso[r.concorso].push_back(r);
        const auto cursore = righe_piane(archivio, ambito);
        const int t10 = arrotonda(cursore.size(), ambito.ruote.n_ruote());
        if (!cursore.empty()) {
            auto dieci = conti_da(90, t10);
            int c = 0;
            int tenuto = 0;
            for (std::size_t i = 0; i < cursore.size(); i += 10) {
                if (cursore[i].concorso != tenuto) ++c;
                tenuto = cursore[i].concorso;
                for (const int n : dieci_lenta(per_concorso[tenuto]))
                    if (n > 0) dieci[n].esce(c, t10);
            }
            EXPECT_EQ(righe(ambata10elotto(archivio, d, nessuno).tabelle.at(0)), tabella_lenta(dieci));
        }

        std::vector<RigaPiana> ore;
        const auto& wfl = archivio.winforlife();
        const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso_winforlife());
        for (std::size_t i = 0; i < wfl.concorso.size(); ++i) {
            if (!tratto.contiene(wfl.concorso[i]) || !accetta_ora(ambito.ora, wfl.ora[i])) continue;
            std::size_t primo = i;
            while (primo > 0 && wfl.concorso[primo - 1] == wfl.concorso[i]) --primo;
            ore.push_back({wfl.concorso[i], {wfl.numeri[primo].begin(), wfl.numeri[primo].end()}});
        }
        if (!ore.empty()) {
            const int tw = static_cast<int>(ore.size());
            auto venti = conti_da(20, tw);
            cammina(ore, [&](int c, const std::vector<int>& n) {
                for (const int x : n)
                    if (x > 0) venti[x].esce(c, tw);
            });
            EXPECT_EQ(righe(ambataWinForLife(archivio, d, nessuno).tabelle.at(0)), tabella_lenta(venti));
        }
    }
}

TEST(AltriGiochi, AmbiETerniDellaSestinaUgualiAiLenti) {
    for (std::uint32_t seme = 1; seme <= 16; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        Domanda d = domanda("", ambito);
        const auto sestine = righe_superenalotto(archivio, ambito);
        if (sestine.empty()) continue;
        const int t = static_cast<int>(sestine.size());
        std::vector<Conti> ambi(91 * 91, Conti{t - 1, 0, t, 0});
        std::vector<Conti> terni(91 * 91 * 91, Conti{t - 1, 0, t, 0});
        cammina(sestine, [&](int c, const std::vector<int>& tutti) {
            std::vector<int> n(tutti.begin(), tutti.begin() + 6);
            std::sort(n.begin(), n.end());
            for (std::size_t i = 0; i < 6; ++i)
                for (std::size_t j = i + 1; j < 6; ++j) {
                    ambi[static_cast<std::size_t>(n[i] * 91 + n[j])].esce(c, t);
                    for (std::size_t k = j + 1; k < 6; ++k)
                        terni[static_cast<std::size_t>((n[i] * 91 + n[j]) * 91 + n[k])].esce(c, t);
                }
        });
        std::string testo_ambi;
        std::string testo_terni;
        for (int a = 1; a <= 89; ++a)
            for (int b = a + 1; b <= 90; ++b) {
                testo_ambi +=
                    due(a) + "-" + due(b) + " " + ambi[static_cast<std::size_t>(a * 91 + b)].testo();
                for (int c = b + 1; c <= 90; ++c)
                    testo_terni += due(a) + "-" + due(b) + "-" + due(c) + " " +
                                   terni[static_cast<std::size_t>((a * 91 + b) * 91 + c)].testo();
            }
        EXPECT_TRUE(righe(ambisuperenalotto(archivio, d, nessuno).tabelle[0]) == testo_ambi);
        EXPECT_TRUE(righe(ternisuperenalotto(archivio, d, nessuno).tabelle[0]) == testo_terni);

        for (int estratto = 1; estratto <= 5; ++estratto) {
            d.parametri.per<ParametriStatistica>().estratto = estratto;
            const int t10 = arrotonda(sestine.size(), ambito.ruote.n_ruote());
            std::vector<Conti> dieci(91 * 91, Conti{t10 - 1, 0, t10, 0});
            int c = 0;
            for (std::size_t i = 0; i < sestine.size(); i += 10) {
                ++c;
                for (std::size_t x = i; x < std::min(i + 10, sestine.size()); ++x)
                    for (std::size_t y = x + 1; y < std::min(i + 10, sestine.size()); ++y) {
                        const int a = sestine[x].n[static_cast<std::size_t>(estratto - 1)];
                        const int b = sestine[y].n[static_cast<std::size_t>(estratto - 1)];
                        dieci[static_cast<std::size_t>(std::min(a, b) * 91 + std::max(a, b))].esce(c, t10);
                    }
            }
            std::string testo;
            for (int a = 1; a <= 89; ++a)
                for (int b = a + 1; b <= 90; ++b)
                    testo +=
                        due(a) + "-" + due(b) + " " + dieci[static_cast<std::size_t>(a * 91 + b)].testo();
            EXPECT_TRUE(righe(ambi10ruoteSuperenalotto(archivio, d, nessuno).tabelle[0]) == testo);
        }
    }
}

}  // namespace
}  // namespace sortimetra
