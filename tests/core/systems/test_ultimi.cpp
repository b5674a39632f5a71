#include "draws/ambito.h"
#include "draws/combinazioni.h"
#include "draws/cursore.h"
#include "support/archivi.h"
#include "systems/misure_combinazione.h"
#include "systems/parametri.h"
#include "systems/ultimi.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using prove::archivio_casuale;
using prove::da_testi;
using prove::da_testo;

constexpr std::string_view kChiave = "ultimi 20 concorsi";

Domanda domanda(int gioco, AmbitoRicerca ambito = {}) {
    Domanda d = prove::domanda(kChiave, ambito);
    auto& p = d.parametri.per<ParametriSistemi>();
    p.sistema = gioco;
    if (gioco == 2) p.posizioni = {1, 3, 5, 7, 9, 11, 13, 15, 17, 19};
    return d;
}

std::size_t riga_di(const Tabella& t, std::string_view titolo) {
    for (std::size_t r = 0; r < t.righe(); ++r)
        if (t.testo(r, 0) == titolo) return r;
    throw std::runtime_error{"no row " + std::string{titolo}};
}

/// The cells of a row, joined by blanks.
std::string riga(const Risultato& r, std::string_view titolo) {
    const Tabella& t = r.tabelle.at(0);
    std::string testo;
    for (std::size_t c = 1; c < t.n_colonne(); ++c)
        testo += (c == 1 ? "" : " ") + t.testo(riga_di(t, titolo), c);
    return testo;
}

TEST(Ultimi, RigheDiOgniGioco) {
    EXPECT_EQ(titoli_ultimi(5).size(), 54U);
    EXPECT_EQ(titoli_ultimi(6).size(), 56U);
    EXPECT_EQ(titoli_ultimi(10).size(), 64U);
    const auto lotto = titoli_ultimi(5);
    EXPECT_EQ(lotto[0], "Simmetrie");
    EXPECT_EQ(lotto[5], "Casella 1");
    EXPECT_EQ(lotto[10], "Somma Generale");
    EXPECT_EQ(lotto[16], "SiS2 (S.Cadenze)");
    EXPECT_EQ(lotto[17], "Distanza 1");
    EXPECT_EQ(lotto[21], "Somma Distanze");
    EXPECT_EQ(lotto[22], "Cons. Passo 1");
    EXPECT_EQ(lotto[31], "Somma Cons.");
    EXPECT_EQ(lotto[32], "Ripetizione Filtri");
    EXPECT_EQ(lotto[33], "");
    EXPECT_EQ(lotto[34], "Decina 1-9 e 90");
    EXPECT_EQ(lotto[43], "Cadenza 1");
    EXPECT_EQ(lotto[53], "Ripetizione Gruppi");
    for (const std::size_t n : {5U, 6U, 10U}) {
        const RigheUltimi posti{n};
        EXPECT_EQ(titoli_ultimi(n)[posti.ripetizione_filtri()], "Ripetizione Filtri");
        EXPECT_EQ(titoli_ultimi(n)[posti.decine()], "Decina 1-9 e 90");
        EXPECT_EQ(titoli_ultimi(n)[posti.ripetizione_gruppi()], "Ripetizione Gruppi");
        EXPECT_EQ(titoli_ultimi(n).size(), posti.quante());
    }
}

TEST(Ultimi, IlPiuNuovoSiTrovaPrimo) {
    const auto archivio = da_testo("1 BA 10 20 30 40 50\n2 BA 12 2 90 45 46\n");
    const Risultato r = prove::esegui(domanda(0), archivio);
    EXPECT_EQ(r.tabelle[1].nome, "lista");
    EXPECT_EQ(r.tabelle[1].righe(), 20U);
    EXPECT_EQ(r.tabelle[1].testo(0, 0), "2");
    EXPECT_EQ(r.tabelle[1].testo(0, 1), "12 - 02 - 90 - 45 - 46");
    EXPECT_EQ(r.tabelle[1].testo(2, 0), "");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Casella 1"), 1), "12");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Simmetrie"), 1), "1");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Paralleli"), 1), "1");
    // Here 12 does belong to the Cadenza of 2.
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Cadenza 2"), 1), "2");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Decina 1-9 e 90"), 1), "2");
}

TEST(Ultimi, ColonneVuoteSonoUguali) {
    const auto archivio = da_testo("1 BA 10 20 30 40 50\n");
    const Risultato r = prove::esegui(domanda(0), archivio);
    EXPECT_EQ(riga(r, "Ripetizione Filtri"), "0 32 32 32 32 32 32 32 32 32 32 32 32 32 32 32 32 32 32 32");
    EXPECT_EQ(riga(r, "Ripetizione Gruppi"), "0 19 19 19 19 19 19 19 19 19 19 19 19 19 19 19 19 19 19 19");
    EXPECT_EQ(riga(r, ""), "                   ");
}

TEST(Ultimi, IlVentunesimoNonSiVedeMaConta) {
    std::string righe = "1 BA 10 20 30 40 50\n";
    for (int c = 2; c <= 20; ++c) righe += fmt::format("{} BA 1 3 5 7 9\n", c);
    const std::string ultimo = "21 BA 1 3 5 7 9\n";
    const Risultato diverso = prove::esegui(domanda(0), da_testo(righe + ultimo));
    const Risultato uguale =
        prove::esegui(domanda(0), da_testo("1 BA 1 3 5 7 9\n" + righe.substr(20) + ultimo));
    EXPECT_EQ(riga(diverso, "Casella 1"), riga(uguale, "Casella 1"));
    EXPECT_EQ(diverso.tabelle[0].testo(32, 19), "32");
    // What a draw of tens and one of odd units have alike: no symmetry, parallel, step below 10 ...
    EXPECT_LT(std::stoi(diverso.tabelle[0].testo(32, 20)), 32);
    EXPECT_EQ(uguale.tabelle[0].testo(32, 20), "32");
    EXPECT_EQ(uguale.tabelle[0].testo(53, 20), "19");
}

TEST(Ultimi, DueMisureUgualiDiNumeriDiversi) {
    const auto archivio = da_testo("1 BA 11 22 33 44 55\n2 BA 1 90 15 60 88\n3 BA 2 89 17 70 87\n");
    const Risultato r = prove::esegui(domanda(0), archivio);
    EXPECT_EQ(riga(r, "Simmetrie").substr(0, 5), "1 1 0");
    EXPECT_GE(std::stoi(r.tabelle[0].testo(32, 1)), 1);
}

TEST(Ultimi, RigaVuotaUnaColonnaDiZeri) {
    const auto archivio = da_testo("1 BA - - - - -\n");
    const Risultato r = prove::esegui(domanda(0), archivio);
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Pari"), 1), "5");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Cadenza 10"), 1), "0");
    EXPECT_EQ(r.tabelle[1].testo(0, 1), "00 - 00 - 00 - 00 - 00");
}

TEST(Ultimi, PiuRuoteUnaColonnaOgnuna) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n1 CA 11 12 13 14 15\n2 BA 6 7 8 9 10\n");
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    const Risultato r = prove::esegui(domanda(0, ambito), archivio);
    EXPECT_EQ(riga(r, "Casella 1").substr(0, 6), "6 11 1");
    EXPECT_EQ(r.tabelle[1].testo(1, 0), "1");
    EXPECT_EQ(r.tabelle[1].testo(2, 0), "1");
}

TEST(Ultimi, WinForLifeSaltaQuelCheNonPassa) {
    const auto archivio = da_testi("", "",
                                   "1 8:00 1 2 3 4 5 6 7 8 9 10\n2 9:00 2 3 4 5 6 7 8 9 10 20\n"
                                   "3 10:00 11 12 13 14 15 16 17 18 19 20\n");
    Domanda d = domanda(3);
    d.parametri.per<ParametriSistemi>().contenenti = {2};
    const Risultato r = prove::esegui(d, archivio);
    EXPECT_EQ(r.tabelle[1].testo(0, 0), "2");
    EXPECT_EQ(r.tabelle[1].testo(1, 0), "1");
    EXPECT_EQ(r.tabelle[1].testo(2, 0), "");
    EXPECT_EQ(r.tabelle[0].testo(riga_di(r.tabelle[0], "Paralleli"), 1), "1");  // 10 and 20
    d.parametri.per<ParametriSistemi>().contenenti = {1, 20};
    const Risultato nessuno = prove::esegui(d, archivio);
    EXPECT_TRUE(nessuno.prodotto);
    EXPECT_EQ(nessuno.tabelle[1].testo(0, 0), "");
    d.parametri.per<ParametriSistemi>().contenenti = {0};
    EXPECT_FALSE(prove::esegui(d, archivio).prodotto);
}

// ---- the plain way ----

std::string due(int n) {
    return fmt::format("{:02}", n);
}
int coppie(const std::vector<int>& c, const auto& vale) {
    int n = 0;
    for (std::size_t i = 0; i < c.size(); ++i)
        for (std::size_t j = i + 1; j < c.size(); ++j) n += vale(c[i], c[j]) ? 1 : 0;
    return n;
}

std::vector<std::string> colonna_lenta(std::vector<int> c, bool vita) {
    std::vector<int> v;
    const int specchio = vita ? 21 : 91;
    const int meta = vita ? 10 : 45;
    v.push_back(coppie(c, [=](int a, int b) { return a + b == specchio; }));
    v.push_back(coppie(c, [=](int a, int b) { return std::abs(a - b) == meta; }));
    v.push_back(v[0] + v[1]);
    std::vector<int> o = c;
    std::sort(o.begin(), o.end());
    int rotte = 0;
    for (std::size_t i = 1; i < o.size(); ++i) {
        const auto testo = [](int n) { return n == 0 ? std::string{} : std::to_string(n); };
        rotte += testo(o[i]).find_first_of(testo(o[i - 1])) == std::string::npos ? 1 : 0;
    }
    v.push_back(rotte);
    v.push_back(static_cast<int>(std::count_if(c.begin(), c.end(), [](int n) { return n % 2 == 0; })));
    v.insert(v.end(), c.begin(), c.end());
    int s1 = 0;
    int s2 = 0;
    int decine = 0;
    int cadenze = 0;
    const std::size_t primi = c.size() == 10 ? 5 : 3;
    for (std::size_t i = 0; i < c.size(); ++i) {
        (i < primi ? s1 : s2) += c[i];
        decine += due(c[i])[0] - '0';
        cadenze += due(c[i])[1] - '0';
    }
    v.insert(v.end(), {s1 + s2, s1, s2, c.front() + c.back(), (s1 + s2) % static_cast<int>(c.size()), decine,
                       cadenze});
    int distanze = 0;
    for (std::size_t i = 1; i < c.size(); ++i) {
        v.push_back(std::abs(c[i] - c[i - 1]) - 1);
        distanze += v.back();
    }
    v.push_back(distanze);
    int consecutivi = 0;
    for (int s = 1; s <= 9; ++s) {
        v.push_back(coppie(c, [=](int a, int b) { return std::abs(a - b) == s; }));
        consecutivi += v.back();
    }
    v.push_back(consecutivi);
    std::vector<std::string> testi;
    testi.reserve(v.size() + kGruppiNumeri.size() + 3);
    for (const int n : v) testi.push_back(std::to_string(n));
    testi.insert(testi.end(), {"", ""});
    const auto quanti = [&](const auto& dentro) {
        testi.push_back(std::to_string(std::count_if(c.begin(), c.end(), dentro)));
    };
    quanti([](int n) { return (n >= 1 && n <= 9) || n == 90; });
    for (int g = 2; g <= 9; ++g) quanti([g](int n) { return n >= 10 * (g - 1) && n <= 10 * (g - 1) + 9; });
    for (int g = 1; g <= 9; ++g) quanti([g](int n) { return n % 10 == g; });
    quanti([](int n) { return n != 0 && n % 10 == 0; });
    testi.emplace_back("");
    return testi;
}

/// The draws in the order of the screen, each as its concorso and its numbers.
std::vector<std::pair<int, std::vector<int>>> estrazioni_lente(const ArchivioEstrazioni& a,
                                                               const Domanda& d) {
    const auto& p = d.di<ParametriSistemi>();
    std::vector<std::pair<int, std::vector<int>>> tutte;
    if (p.sistema == 1) {
        for (const auto r : vista_superenalotto(a, d.ambito)) {
            std::vector<int> n(a.superenalotto().numeri[r].begin(), a.superenalotto().numeri[r].begin() + 6);
            std::sort(n.begin(), n.end());
            tutte.emplace_back(a.superenalotto().concorso[r], n);
        }
    } else if (p.sistema == 3) {
        for (const auto r : vista_winforlife(a, d.ambito)) {
            const int concorso = a.winforlife().concorso[r];
            const Combinazione c = calc_combinazione_WinForLife(a.winforlife(), concorso);
            const std::vector<int> n(c.begin() + 1, c.begin() + 11);
            if (p.contenenti.empty() || std::find(n.begin(), n.end(), p.contenenti[0]) != n.end())
                tutte.emplace_back(concorso, n);
        }
    } else {
        AmbitoRicerca ambito = d.ambito;
        if (p.sistema == 2) ambito.ruote = SelezioneRuote{};
        const VistaEstrazioni vista{a, ambito};
        for (std::size_t i = 0; i < vista.concorsi(); ++i)
            for (int w = 0; w < kRuote; ++w) {
                if ((vista.maschera(i) >> w & 1U) == 0) continue;
                const Numero* numeri = vista.numeri(i) + w * kEstratti;
                std::vector<int> n(numeri, numeri + kEstratti);
                if (p.sistema == 2) {
                    const Combinazione c = calc_combinazione_10elotto(a.lotto(), vista.record(i));
                    n.clear();
                    for (const int posto : p.posizioni) n.push_back(c[static_cast<std::size_t>(posto)]);
                }
                tutte.emplace_back(vista.concorso(i), n);
            }
    }
    std::reverse(tutte.begin(), tutte.end());
    if (tutte.size() > 21) tutte.resize(21);
    return tutte;
}

TEST(Ultimi, UgualeAllaViaPiana) {
    for (unsigned seme = 0; seme < 80; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        for (int gioco = 0; gioco < 4; ++gioco) {
            SCOPED_TRACE(gioco);
            Domanda d = domanda(gioco, prove::ambito_casuale(seme));
            if (gioco == 3 && seme % 2 == 0) d.parametri.per<ParametriSistemi>().contenenti = {7};
            const Risultato r = prove::esegui(d, archivio);
            const auto estrazioni = estrazioni_lente(archivio, d);
            if (!r.prodotto) {
                EXPECT_TRUE(estrazioni.empty());
                continue;
            }
            const Tabella& t = r.tabelle.at(0);
            std::vector<std::vector<std::string>> colonne(21, std::vector<std::string>(t.righe()));
            for (std::size_t c = 0; c < estrazioni.size(); ++c)
                colonne[c] = colonna_lenta(estrazioni[c].second, gioco == 3);
            const std::size_t rip = t.righe() - 22;
            for (std::size_t c = 0; c < 20; ++c) {
                int filtri = 0;
                int gruppi = 0;
                for (std::size_t i = 0; i < rip; ++i) filtri += colonne[c][i] == colonne[c + 1][i] ? 1 : 0;
                for (std::size_t i = rip + 2; i + 1 < t.righe(); ++i)
                    gruppi += colonne[c][i] == colonne[c + 1][i] ? 1 : 0;
                for (std::size_t i = 0; i < t.righe(); ++i) {
                    const std::string atteso = i == rip             ? std::to_string(filtri)
                                               : i + 1 == t.righe() ? std::to_string(gruppi)
                                                                    : colonne[c][i];
                    EXPECT_EQ(t.testo(i, c + 1), atteso) << t.testo(i, 0) << " " << c;
                }
                std::string lista;
                if (c < estrazioni.size())
                    for (const int n : estrazioni[c].second) lista += (lista.empty() ? "" : " - ") + due(n);
                EXPECT_EQ(r.tabelle[1].testo(c, 1), lista);
            }
        }
    }
}

}  // namespace
}  // namespace sortimetra
