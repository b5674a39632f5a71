#include "personal/parametri.h"
#include "personal/piramide.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::da_testo;

Risultato cerca(const ArchivioEstrazioni& archivio, ParametriPiramide parametri,
                const AmbitoRicerca& ambito = {}) {
    Domanda d = prove::domanda("piramide statistica", ambito);
    d.parametri = parametri;
    return prove::esegui(d, archivio);
}
std::vector<int> numeri(const Risultato& r) {
    const auto p = piramide_di(r);
    return p ? std::vector<int>(p->begin(), p->end()) : std::vector<int>{};
}
std::string piede(const Risultato& r) {
    return std::get<std::string>(r.etichette.at(0).testo);
}

TEST(Piramide, UnNumeroMaiUscitoPrendeLOrdineDiScrittura) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 10\n");
    // No pair has a value: ranks 19 to 27 of (1,90), (2,90), ...
    const Risultato r = cerca(archivio, {.opzione = 0, .numero = 90});
    EXPECT_EQ(numeri(r), (std::vector<int>{90, 19, 20, 21, 22, 23, 24, 25, 26, 27}));
    EXPECT_EQ(piede(r), "Piramide generata per ritardo ottenuta a partire dal numero 90");
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "90");
    EXPECT_EQ(r.tabelle[0].testo(0, 1), "");
    EXPECT_EQ(r.tabelle[0].testo(9, 9), "27");
    EXPECT_EQ(numeri(cerca(archivio, {.opzione = 0, .numero = 80})),
              (std::vector<int>{80, 19, 20, 21, 22, 23, 24, 25, 26, 27}));
}

TEST(Piramide, LeDiciottoPiuFortiSiSaltano) {
    // 90 comes with each of 1 to 40 in turn: the frequency of a pair tells its rank.
    std::string testo;
    int c = 0;
    for (int n = 1; n <= 40; ++n)
        for (int volte = 0; volte < n; ++volte)
            testo += std::to_string(++c) + " BA 90 " + std::to_string(n) + " - - -\n";
    // The strongest are 40, 39, ... 23; the nine behind them 22 to 14.
    EXPECT_EQ(numeri(cerca(da_testo(testo), {.opzione = 3, .numero = 90})),
              (std::vector<int>{90, 22, 21, 20, 19, 18, 17, 16, 15, 14}));
    // By delay: 1 came first of all, so it waits longest.
    EXPECT_EQ(numeri(cerca(da_testo(testo), {.opzione = 0, .numero = 90})),
              (std::vector<int>{90, 19, 20, 21, 22, 23, 24, 25, 26, 27}));
}

TEST(Piramide, ParteDallAmbataPiuInRitardoOPiuFrequente) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 3 4 5 6\n3 BA 2 3 4 5 6\n");
    // 7 never came, as many behind it: the lowest. 3, 4 and 5 came three times.
    EXPECT_EQ(numeri(cerca(archivio, {.opzione = 1})).front(), 7);
    EXPECT_EQ(piede(cerca(archivio, {.opzione = 1})),
              "Piramide generata per ritardo ottenuta a partire dal numero più in ritardo");
    EXPECT_EQ(numeri(cerca(archivio, {.opzione = 2})).front(), 3);
    EXPECT_EQ(piede(cerca(archivio, {.opzione = 2})),
              "Piramide generata per frequenza ottenuta a partire dal numero più frequente");
}

TEST(Piramide, SenzaNumeroOSenzaRuotaNonParteESiTace) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    AmbitoRicerca nessuna;
    nessuna.ruote = SelezioneRuote::nessuna();
    for (const Risultato& r : {cerca(archivio, {.opzione = 0}), cerca(archivio, {.opzione = 3}),
                               cerca(archivio, {.opzione = 1}, nessuna)}) {
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_TRUE(r.messaggi.empty());
    }
    AmbitoRicerca vuoto;
    vuoto.tratto = {2, 1};
    EXPECT_EQ(cerca(da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n"), {.opzione = 1}, vuoto).messaggi.at(0).testo,
              kNessunaEstrazione);
}

TEST(Piramide, UnaRuotaSola) {
    Domanda d = prove::domanda("piramide statistica");
    EXPECT_EQ(d.ricerca->controlla(d), std::nullopt);
    d.ambito.ruote.clic(1, true);
    EXPECT_NE(d.ricerca->controlla(d), std::nullopt);
    for (const SelezioneRuote& r :
         {SelezioneRuote::tutte(), SelezioneRuote::nazionale(), SelezioneRuote::nessuna()}) {
        d.ambito.ruote = r;
        EXPECT_EQ(d.ricerca->controlla(d), std::nullopt);
    }
}

/// The whole tables of pairs, as a player would fill them.
std::vector<int> piramide_lenta(const std::vector<prove::RigaPiana>& righe, int numero, bool frequenza) {
    static int rit[91][91];
    static int freq[91][91];
    std::fill(&rit[0][0], &rit[0][0] + 91 * 91, 0);
    std::fill(&freq[0][0], &freq[0][0] + 91 * 91, 0);
    for (const auto& r : righe) {
        if (std::find(r.n.begin(), r.n.end(), numero) == r.n.end()) continue;
        for (std::size_t i = 0; i < 5; ++i)
            for (std::size_t j = i + 1; j < 5; ++j) {
                const int a = std::min(r.n[i], r.n[j]);
                const int b = std::max(r.n[i], r.n[j]);
                rit[a][b] = righe.back().concorso - r.concorso;
                freq[a][b] += 1;
            }
    }
    struct Riga {
        int a1, a2, v;
    };
    std::vector<Riga> temp;
    for (int i = 1; i <= 90; ++i)
        for (int j = 1; j <= 90; ++j)
            if (i == numero || j == numero) temp.push_back({i, j, frequenza ? freq[i][j] : rit[i][j]});
    std::stable_sort(temp.begin(), temp.end(), [](const Riga& a, const Riga& b) { return a.v > b.v; });
    std::vector<int> p{numero};
    for (std::size_t i = 18; i < 27; ++i) p.push_back(temp[i].a1 != numero ? temp[i].a1 : temp[i].a2);
    return p;
}

int ambata_lenta(const std::vector<prove::RigaPiana>& righe, bool frequenza) {
    std::vector<int> rit(91, static_cast<int>(righe.size()));
    std::vector<int> freq(91, 0);
    prove::cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] == 0) return;
        for (const int x : n) {
            rit[static_cast<std::size_t>(x)] = static_cast<int>(righe.size()) - c;
            ++freq[static_cast<std::size_t>(x)];
        }
    });
    const auto& v = frequenza ? freq : rit;
    return static_cast<int>(std::max_element(v.begin() + 1, v.end()) - v.begin());
}

TEST(Piramide, UgualeAllaLenta) {
    for (std::uint32_t seme = 0; seme < 200; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        AmbitoRicerca ambito = ambito_casuale(seme);
        if (ambito.ruote.n_ruote() == 0) continue;
        const auto righe = prove::righe_piane(archivio, ambito);
        const int opzione = static_cast<int>(seme % 4);
        const int numero = static_cast<int>(seme * 37 % 90) + 1;
        const Risultato r = cerca(archivio, {.opzione = opzione, .numero = numero}, ambito);
        ASSERT_EQ(r.prodotto, !righe.empty());
        if (righe.empty()) continue;
        const bool frequenza = opzione >= 2;
        const int da = opzione == 0 || opzione == 3 ? numero : ambata_lenta(righe, frequenza);
        ASSERT_EQ(numeri(r), piramide_lenta(righe, da, frequenza));
    }
}

}  // namespace
}  // namespace sortimetra
