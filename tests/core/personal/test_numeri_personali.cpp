#include "draws/combinazioni.h"
#include "personal/numeri_personali.h"
#include "personal/parametri.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::Conti;
using prove::da_testi;
using prove::da_testo;
using prove::due;

constexpr std::string_view kChiaveLotto = "ricerche su numeri personali";
constexpr std::string_view kChiaveSuper = "ricerche sui numeri personali";
constexpr std::string_view kChiaveDieci = "ricerche sui numeri personali (10 e lotto)";
constexpr std::string_view kChiaveWfl = "ricerche sui numeri personali (win for life)";

Risultato cerca(std::string_view chiave, const ArchivioEstrazioni& archivio, ParametriPersonali parametri,
                const AmbitoRicerca& ambito = {}) {
    Domanda d = prove::domanda(chiave, ambito);
    d.parametri = std::move(parametri);
    return prove::esegui(d, archivio);
}

const Tabella& tabella(const Risultato& r, std::string_view nome) {
    for (const Tabella& t : r.tabelle)
        if (t.nome == nome) return t;
    throw std::logic_error("no such table");
}
std::string testo(const Risultato& r, std::string_view nome) {
    return prove::righe(tabella(r, nome));
}
/// Row and column of every yellow cell.
std::string gialle(const Tabella& t) {
    std::string posti;
    for (std::size_t r = 0; r < t.righe(); ++r)
        for (std::size_t c = 0; c < t.n_colonne(); ++c)
            if (t.sfondo(r, c) == kTrovato) posti += std::to_string(r) + ":" + std::to_string(c) + " ";
    return posti;
}

const auto kPiccolo =
    "1 BA 5 17 30 40 50\n1 CA 60 61 62 63 64\n"
    "2 BA 1 2 3 4 6\n2 CA 17 5 71 72 73\n"
    "3 BA 7 8 9 10 11\n3 CA 12 13 14 15 16\n"
    "4 BA 80 81 82 83 17\n4 CA 20 21 22 23 24\n";

AmbitoRicerca due_ruote() {
    AmbitoRicerca a;
    a.ruote.clic(1, true);
    return a;
}

TEST(NumeriPersonali, OgniUscitaConIlSuoGiallo) {
    const Risultato r = cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {17, 5}}, due_ruote());
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(testo(r, "risultati"),
              "1 01/01/2000 Bari 05 17 30 40 50 2\n"
              "2 02/01/2000 Cagliari 17 05 71 72 73 2\n"
              "4 04/01/2000 Bari 80 81 82 83 17 1\n");
    EXPECT_EQ(gialle(tabella(r, "risultati")), "0:3 0:4 1:3 1:4 2:7 ");
    // 17 at draws 1, 2 and 4 of 4; 5 at 1 and 2.
    EXPECT_EQ(testo(r, "numeri"), "5 2 2 0\n17 3 0 1\n");
    // At least one: draws 1, 2, 4. At least two: 1 and 2; the wait before the first one counts from 1.
    EXPECT_EQ(testo(r, "riepilogo"),
              "Ambata 3 0 1 Bari 2 Cagliari 2\n"
              "Ambo 2 2 0 Cagliari 1 Bari 3\n"
              "Terno 0 4 0 Cagliari 0 Cagliari 4\n"
              "Quaterna 0 4 0 Cagliari 0 Cagliari 4\n"
              "Cinquina 0 4 0 Cagliari 0 Cagliari 4\n");
}

TEST(NumeriPersonali, UnSoloEstrattoContaAlPiuUnNumero) {
    const Risultato r =
        cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {5, 17}, .estratto = 1}, due_ruote());
    EXPECT_EQ(testo(r, "risultati"),
              "1 01/01/2000 Bari 05 17 30 40 50 1\n"
              "2 02/01/2000 Cagliari 17 05 71 72 73 1\n");
    EXPECT_EQ(gialle(tabella(r, "risultati")), "0:3 1:3 ");
    // The single numbers are looked for everywhere.
    EXPECT_EQ(testo(r, "numeri"), "5 2 2 0\n17 3 0 1\n");
    EXPECT_EQ(tabella(r, "riepilogo").testo(1, 1), "0");
}

TEST(NumeriPersonali, FinoAChiusuraDellaSerie) {
    const Risultato r =
        cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {5, 17}, .chiusura = true}, due_ruote());
    // From the last row back, 5 is met at draw 2; what is before goes.
    EXPECT_EQ(testo(r, "risultati"),
              "2 02/01/2000 Cagliari 17 05 71 72 73 2\n"
              "4 04/01/2000 Bari 80 81 82 83 17 1\n");
    EXPECT_EQ(testo(r, "numeri"), "5 1 1 \n17 2 0 \n");
    EXPECT_EQ(testo(r, "serie"),
              "1 01/01/2000 Bari 05 17 30 40 50 2 \n"
              "2 02/01/2000 Cagliari 17 05 71 72 73 2 \n");
    EXPECT_EQ(gialle(tabella(r, "serie")), "0:3 0:4 1:3 1:4 ");
    EXPECT_EQ(tabella(r, "serie").titoli[0].back(), "Numero");
    // The summary stays that of the whole scope.
    EXPECT_EQ(tabella(r, "riepilogo").testo(0, 1), "3");
}

TEST(NumeriPersonali, UnaSerieMaiChiusaRestaIntera) {
    const Risultato r =
        cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {5, 90}, .chiusura = true}, due_ruote());
    EXPECT_EQ(tabella(r, "risultati").righe(), 2U);
    EXPECT_EQ(testo(r, "numeri"), "5 2 0 \n90 0 2 \n");
    // All of the first draw's rows, up to the earliest one that is kept.
    EXPECT_EQ(tabella(r, "serie").righe(), 1U);
}

TEST(NumeriPersonali, LaSerieHaTuttoIlConcorsoDellaPrimaTenuta) {
    const auto archivio = da_testo("1 BA 5 1 2 3 4\n1 CA 17 6 7 8 9\n2 BA 40 41 42 43 44\n");
    const Risultato r = cerca(kChiaveLotto, archivio, {.numeri = {5, 17}, .chiusura = true}, due_ruote());
    EXPECT_EQ(tabella(r, "risultati").righe(), 2U);
    EXPECT_EQ(tabella(r, "serie").righe(), 2U);
}

TEST(NumeriPersonali, SenzaNumeriNonParte) {
    for (const auto chiave : {kChiaveLotto, kChiaveSuper, kChiaveDieci, kChiaveWfl}) {
        const Risultato r = cerca(chiave, da_testo(kPiccolo), {});
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_TRUE(r.messaggi.empty());
    }
}

TEST(NumeriPersonali, AmbitoVuotoLasciaITitoli) {
    AmbitoRicerca ambito;
    ambito.tratto = {3, 2};
    const Risultato r = cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {5}, .chiusura = true}, ambito);
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.messaggi.empty());
    EXPECT_EQ(testo(r, "risultati") + testo(r, "numeri") + testo(r, "serie"), "");
    EXPECT_EQ(testo(r, "riepilogo"),
              "Ambata       \nAmbo       \nTerno       \nQuaterna       \nCinquina       \n");
    ambito.ruote = SelezioneRuote::nazionale();
    const Risultato nz = cerca(kChiaveLotto, da_testo(kPiccolo), {.numeri = {5}}, ambito);
    ASSERT_EQ(nz.messaggi.size(), 1U);
    EXPECT_EQ(nz.messaggi[0].testo, kNessunaEstrazione);
    EXPECT_EQ(nz.tabelle.size(), 3U);
    ambito.ruote = {};
    EXPECT_TRUE(cerca(kChiaveWfl, da_testo(kPiccolo), {.numeri = {5}}, ambito).messaggi.empty());
    EXPECT_EQ(cerca(kChiaveSuper, da_testo(kPiccolo), {.numeri = {5}}, ambito).messaggi.size(), 1U);
}

TEST(NumeriPersonali, Nazionale) {
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::nazionale();
    const Risultato r =
        cerca(kChiaveLotto, da_testo("1 BA 1 2 3 4 5\n1 NZ 9 8 7 6 5\n2 BA 1 2 3 4 5\n2 NZ 10 11 12 13 14\n"),
              {.numeri = {5}}, ambito);
    EXPECT_EQ(testo(r, "risultati"), "1 01/01/2000 NAZIONALE 09 08 07 06 05 1\n");
    EXPECT_EQ(tabella(r, "riepilogo").testo(0, 4), "NAZIONALE");
}

TEST(NumeriPersonali, UnaCellaVuotaNonENumero) {
    const Risultato r = cerca(kChiaveLotto, da_testo("1 BA - 5 3 4 6\n2 BA 5 1 2 3 4\n"), {.numeri = {5}});
    EXPECT_EQ(testo(r, "risultati"),
              "1 01/01/2000 Bari  05 03 04 06 1\n2 02/01/2000 Bari 05 01 02 03 04 1\n");
    // A row without a first number is outside the measures of the single numbers, though its draw counts.
    EXPECT_EQ(testo(r, "numeri"), "5 1 0 1\n");
    EXPECT_EQ(tabella(r, "riepilogo").testo(0, 1), "2");
}

TEST(NumeriPersonali, SuperEnalottoConJolly) {
    const auto archivio =
        da_testi("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n",
                 "1 60 50 40 30 20 10 7 0\n2 1 2 3 4 5 6 50 0\n3 50 7 8 9 11 12 10 0\n", "");
    const Risultato r = cerca(kChiaveSuper, archivio, {.numeri = {10, 50}});
    EXPECT_EQ(testo(r, "risultati"),
              "1 01/01/2000 10 20 30 40 50 60  2\n"
              "3 03/01/2000 07 08 09 11 12 50 10 1 + J\n");
    EXPECT_EQ(gialle(tabella(r, "risultati")), "0:2 0:6 1:7 1:8 ");
    EXPECT_EQ(testo(r, "numeri"), "10 1 2 0\n50 2 0 1\n");
    EXPECT_EQ(testo(r, "riepilogo").substr(0, 39), "1 Numero 2 0 1\n2 Numeri 1 2 0\n3 Numeri ");
    EXPECT_EQ(tabella(r, "riepilogo").righe(), 6U);
}

TEST(NumeriPersonali, WinForLifeConLaDataBreve) {
    const auto archivio =
        da_testi("", "", "1 08:00 1 2 3 4 5 6 7 8 9 10\n2 9:00 20 19 18 17 16 15 14 13 12 11\n");
    const Risultato r = cerca(kChiaveWfl, archivio, {.numeri = {20}});
    EXPECT_EQ(testo(r, "risultati"), "2 02/01/00 11 12 13 14 15 16 17 18 19 20 1\n");
    EXPECT_EQ(tabella(r, "riepilogo").testo(0, 0), "1 Numeri");
    EXPECT_EQ(tabella(r, "riepilogo").righe(), 10U);
}

// ---- the same, told step by step ----

/// A draw of a game, its numbers in the order of the grid.
struct Estrazione {
    int concorso;
    int ruota;
    std::vector<int> n;
    int jolly = 0;
};

struct Attesi {
    std::string risultati, numeri, riepilogo, serie;
};

std::string riga_lenta(const Estrazione& e, const std::vector<int>& posti, const std::string& trovati,
                       bool lotto, bool jolly) {
    std::string t = std::to_string(e.concorso);
    if (lotto)
        t +=
            std::string(" ") +
            (e.ruota == 11 ? "NAZIONALE" : std::string{kNomiRuote[static_cast<std::size_t>(e.ruota)].esteso});
    for (const int n : e.n) t += " " + (n == 0 ? std::string{} : due(n));
    if (jolly) t += " " + (e.jolly == 0 ? std::string{} : due(e.jolly));
    t += " " + trovati + " [";
    for (const int p : posti) t += std::to_string(p) + ",";
    return t + "]\n";
}

/// Everything but the dates, from a plain list of draws.
Attesi lenta(const std::vector<Estrazione>& estrazioni, const std::vector<int>& scelti, int t, bool lotto,
             bool jolly, int estratto, bool chiusura, const std::vector<int>& ruote) {
    std::map<int, Conti> sorti, numeri;
    std::map<std::pair<int, int>, Conti> per_ruota;
    const int posti = lotto   ? 5
                      : jolly ? 6
                              : static_cast<int>(estrazioni.empty() ? 20 : estrazioni[0].n.size());
    for (int k = 1; k <= posti; ++k) {
        sorti[k] = {.ultimo = 1, .ritardo = t};
        for (int w = 0; w < 12; ++w) per_ruota[{w, k}] = {.ritardo = t};
    }
    for (const int n : scelti) numeri[n] = {.ritardo = t};
    struct Riga {
        Estrazione e;
        std::vector<int> dove;
        std::string trovati;
    };
    std::vector<Riga> righe;
    int c = 0;
    int tenuto = 0;
    for (const Estrazione& e : estrazioni) {
        if (e.concorso != tenuto) ++c;
        tenuto = e.concorso;
        std::vector<int> dove;
        for (int p = 0; p < posti; ++p) {
            const int n = e.n[static_cast<std::size_t>(p)];
            const bool scelto = std::find(scelti.begin(), scelti.end(), n) != scelti.end();
            if (scelto && (!lotto || e.n[0] != 0)) numeri[n].esce(c, t);
            if (scelto && (estratto == 0 || p == estratto - 1)) dove.push_back(p);
        }
        const int trovati = static_cast<int>(dove.size());
        if (trovati == 0) continue;
        const bool con_jolly = jolly && std::find(scelti.begin(), scelti.end(), e.jolly) != scelti.end();
        Riga r{e, dove, std::to_string(trovati) + (con_jolly ? " + J" : "")};
        if (con_jolly) r.dove.push_back(6);
        if (!con_jolly) r.e.jolly = 0;
        righe.push_back(r);
        for (int k = 1; k <= trovati; ++k) {
            sorti[k].esce(c, t);
            per_ruota[{e.ruota, k}].esce(c, t);
        }
    }
    Attesi a;
    std::size_t prima = 0;
    if (chiusura) {
        std::vector<int> mancano = scelti;
        for (prima = righe.size(); prima > 0 && !mancano.empty();) {
            --prima;
            for (const int p : righe[prima].dove)
                std::erase(mancano, righe[prima].e.n[static_cast<std::size_t>(p)]);
        }
        if (!mancano.empty()) prima = 0;
        for (const Riga& r : righe)
            if (r.e.concorso <= righe[prima].e.concorso)
                a.serie += riga_lenta(r.e, r.dove, r.trovati, lotto, jolly);
    }
    for (std::size_t i = prima; i < righe.size(); ++i)
        a.risultati += riga_lenta(righe[i].e, righe[i].dove, righe[i].trovati, lotto, jolly);
    for (const int n : scelti) {
        if (estrazioni.empty()) break;
        if (!chiusura) {
            a.numeri += std::to_string(n) + " " + numeri[n].testo();
            continue;
        }
        int quante = 0;
        int dopo = 0;
        for (std::size_t i = prima; i < righe.size(); ++i) {
            bool c_e = false;
            for (const int p : righe[i].dove) c_e = c_e || righe[i].e.n[static_cast<std::size_t>(p)] == n;
            quante += c_e ? 1 : 0;
            dopo = c_e ? 0 : dopo + 1;
        }
        a.numeri += std::to_string(n) + " " + std::to_string(quante) + " " + std::to_string(dopo) + " \n";
    }
    for (int k = 1; k <= posti && !estrazioni.empty(); ++k) {
        std::string riga = std::to_string(sorti[k].frequenza) + " " + std::to_string(sorti[k].ritardo) + " " +
                           std::to_string(sorti[k].storico);
        if (lotto)
            for (const bool frequenza : {true, false}) {
                const auto valore = [&](int w) {
                    return frequenza ? per_ruota[{w, k}].frequenza : per_ruota[{w, k}].ritardo;
                };
                int migliore = ruote[0];
                for (const int w : ruote)
                    if (valore(w) >= valore(migliore)) migliore = w;
                riga +=
                    " " +
                    (migliore == 11 ? "NAZIONALE"
                                    : std::string{kNomiRuote[static_cast<std::size_t>(migliore)].esteso}) +
                    " " + std::to_string(valore(migliore));
            }
        a.riepilogo += riga + "\n";
    }
    return a;
}

/// The tables in the same words: dates left out, yellow cells counted from the first number.
std::string come_lenta(const Tabella& t, bool lotto, bool con_numero = false) {
    std::string testo;
    const std::size_t primo = lotto ? 3 : 2;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        const std::size_t fine = t.n_colonne() - (con_numero ? 1 : 0);
        for (std::size_t c = 0; c < fine; ++c)
            if (c != 1) testo += (c == 0 ? "" : " ") + t.testo(r, c);
        testo += " [";
        for (std::size_t c = 0; c < fine; ++c)
            if (t.sfondo(r, c) == kTrovato) testo += std::to_string(c - primo) + ",";
        testo += "]\n";
    }
    return testo;
}
std::string riepilogo_come_lenta(const Tabella& t) {
    std::string testo;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        for (std::size_t c = 1; c < t.n_colonne(); ++c) testo += (c == 1 ? "" : " ") + t.testo(r, c);
        testo += "\n";
    }
    return testo;
}

std::vector<int> scelti_a_caso(std::mt19937& caso, int massimo) {
    std::vector<int> scelti;
    const int quanti = std::uniform_int_distribution<int>{1, 12}(caso);
    while (static_cast<int>(scelti.size()) < quanti) {
        const int n = std::uniform_int_distribution<int>{1, massimo}(caso);
        if (std::find(scelti.begin(), scelti.end(), n) == scelti.end()) scelti.push_back(n);
    }
    std::sort(scelti.begin(), scelti.end());
    return scelti;
}

TEST(NumeriPersonali, UgualeAllaLentaSulLotto) {
    for (std::uint32_t seme = 0; seme < 150; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const ParametriPersonali p{.numeri = scelti_a_caso(caso, 90),
                                   .estratto = seme % 3 == 0 ? static_cast<int>(seme % 5) + 1 : 0,
                                   .chiusura = seme % 2 == 0};
        std::vector<int> ruote;
        for (int w = 0; w < 10; ++w)
            if (ambito.ruote.spuntata(w) || ambito.ruote.spuntata(kTutte)) ruote.push_back(w);
        if (ambito.ruote.e_nazionale()) ruote = {11};
        if (ruote.empty()) ruote = {0};
        std::vector<Estrazione> estrazioni;
        const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso());
        const auto tieni = [&](int concorso, Data data) {
            return tratto.contiene(concorso) && accetta(kIntervalli[ambito.intervallo], data);
        };
        const auto& l = archivio.lotto();
        const auto& nz = archivio.nazionale();
        for (std::size_t i = 0; i < l.concorso.size() && ruote != std::vector{11}; ++i)
            for (const int w : ruote)
                if ((l.presenti[i] >> w & 1) != 0 && tieni(l.concorso[i], l.data[i])) {
                    const auto* n = l.numeri[i].data() + w * 5;
                    estrazioni.push_back({l.concorso[i], w, {n, n + 5}});
                }
        for (std::size_t i = 0; i < nz.concorso.size() && ruote == std::vector{11}; ++i)
            if (tieni(nz.concorso[i], nz.data[i]))
                estrazioni.push_back({nz.concorso[i], 11, {nz.numeri[i].begin(), nz.numeri[i].end()}});
        const int t = prove::arrotonda(estrazioni.size(), ambito.ruote.n_ruote());
        const Attesi a = lenta(estrazioni, p.numeri, t, true, false, p.estratto, p.chiusura, ruote);
        const Risultato r = cerca(kChiaveLotto, archivio, p, ambito);
        ASSERT_EQ(r.prodotto, !estrazioni.empty());
        ASSERT_EQ(come_lenta(tabella(r, "risultati"), true), a.risultati);
        ASSERT_EQ(testo(r, "numeri"), a.numeri);
        if (r.prodotto) {
            ASSERT_EQ(riepilogo_come_lenta(tabella(r, "riepilogo")), a.riepilogo);
        }
        if (p.chiusura) {
            ASSERT_EQ(come_lenta(tabella(r, "serie"), true, true), a.serie);
        }
    }
}

TEST(NumeriPersonali, UgualeAllaLentaSugliAltriGiochi) {
    for (std::uint32_t seme = 0; seme < 120; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const std::vector<int> scelti = scelti_a_caso(caso, seme % 3 == 2 ? 20 : 90);
        std::vector<Estrazione> estrazioni;
        int t = 0;
        std::string_view chiave = kChiaveSuper;
        if (seme % 3 == 0) {
            for (const auto& riga : prove::righe_superenalotto(archivio, ambito)) {
                std::vector<int> n(riga.n.begin(), riga.n.begin() + 6);
                std::sort(n.begin(), n.end());
                estrazioni.push_back({riga.concorso, 0, n, riga.n[6]});
            }
            t = static_cast<int>(estrazioni.size());
        } else if (seme % 3 == 1) {
            chiave = kChiaveDieci;
            const auto righe = prove::righe_piane(archivio, ambito);
            t = prove::arrotonda(righe.size(), ambito.ruote.n_ruote());
            int ultimo = 0;
            for (const auto& riga : righe) {
                if (riga.concorso == ultimo) continue;
                ultimo = riga.concorso;
                std::vector<int> n(20);
                if (const auto record = cerca_concorso(archivio.lotto().concorso, riga.concorso)) {
                    const Combinazione c = calc_combinazione_10elotto(archivio.lotto(), *record);
                    n.assign(c.begin() + 1, c.end());
                }
                estrazioni.push_back({riga.concorso, 0, n});
            }
        } else {
            chiave = kChiaveWfl;
            const auto& w = archivio.winforlife();
            const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso_winforlife());
            for (std::size_t i = 0; i < w.concorso.size(); ++i) {
                if (!tratto.contiene(w.concorso[i]) || !accetta_ora(ambito.ora, w.ora[i])) continue;
                const Combinazione c = calc_combinazione_WinForLife(w, w.concorso[i]);
                estrazioni.push_back({w.concorso[i], 0, {c.begin() + 1, c.begin() + 11}});
            }
            t = static_cast<int>(estrazioni.size());
        }
        const Attesi a = lenta(estrazioni, scelti, t, false, seme % 3 == 0, 0, false, {});
        const Risultato r = cerca(chiave, archivio, {.numeri = scelti}, ambito);
        ASSERT_EQ(r.prodotto, !estrazioni.empty());
        ASSERT_EQ(come_lenta(tabella(r, "risultati"), false), a.risultati);
        ASSERT_EQ(testo(r, "numeri"), a.numeri);
        if (r.prodotto) {
            ASSERT_EQ(riepilogo_come_lenta(tabella(r, "riepilogo")), a.riepilogo);
        }
    }
}

}  // namespace
}  // namespace sortimetra
