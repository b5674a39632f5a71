#include "bets/parametri.h"
#include "bets/scommesse.h"
#include "catalogue/rapporti.h"
#include "draws/cursore.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using namespace prove;
using testing::HasSubstr;

Domanda chiedi(int analisi, AmbitoRicerca ambito = {}, std::optional<std::int64_t> decimi = {}) {
    Domanda d = domanda("scommesse lotto", ambito);
    auto& parametri = d.parametri.per<ParametriScommesse>();
    parametri.analisi = analisi;
    if (decimi) parametri.limite = valore_decimi(*decimi);
    return d;
}

/// Ten rows a draw: `bari` on Bari, the same five numbers elsewhere.
ArchivioEstrazioni con_bari(const std::vector<std::string>& bari, std::string_view nazionale = "") {
    std::string testo;
    for (std::size_t i = 0; i < bari.size(); ++i)
        for (std::size_t w = 0; w < kRuote; ++w)
            testo += std::to_string(i + 1) + " " + std::string{kNomiRuote[w].codice} + " " +
                     (w == 0 ? bari[i] : "1 2 3 4 5") + "\n";
    return da_testo(testo.append(nazionale));
}

constexpr std::array<Numero, 5> kMenoDelLimite{45, 46, 47, 48, 41};  // 227
constexpr std::array<Numero, 5> kIlLimite{45, 46, 47, 48, 42};       // 228

TEST(Scommesse, UnderOver) {
    EXPECT_EQ(under_over(kMenoDelLimite.data(), 227.5F), 0U);
    EXPECT_EQ(under_over(kIlLimite.data(), 227.5F), 1U);
    // Equal to the limit is Over; a limit of 0 makes every draw Over.
    EXPECT_EQ(under_over(kMenoDelLimite.data(), 227.0F), 1U);
    EXPECT_EQ(under_over(kMenoDelLimite.data(), 0.0F), 1U);
}

TEST(Scommesse, LeAltreRegole) {
    const auto esito = [](Classifica regola, std::array<Numero, 5> n) { return regola(n.data(), 0); };
    EXPECT_EQ(esito(primo_vs_ultimo, {9, 1, 1, 1, 8}), 0U);
    EXPECT_EQ(esito(primo_vs_ultimo, {8, 1, 1, 1, 8}), 1U);
    EXPECT_EQ(esito(primo_vs_ultimo, {7, 1, 1, 1, 8}), 1U);
    EXPECT_EQ(esito(bassi_vs_alti, {46, 47, 48, 45, 1}), 1U);
    EXPECT_EQ(esito(bassi_vs_alti, {46, 47, 45, 45, 1}), 0U);
    EXPECT_EQ(esito(dispari_vs_pari, {1, 3, 5, 2, 4}), 0U);
    EXPECT_EQ(esito(dispari_vs_pari, {1, 3, 6, 2, 4}), 1U);
    for (const auto& [n, terzo] : std::initializer_list<std::pair<Numero, std::size_t>>{
             {0, 0}, {1, 0}, {30, 0}, {31, 1}, {60, 1}, {61, 2}, {90, 2}}) {
        EXPECT_EQ(esito(sub1_5_estratti<1>, {n, 7, 7, 7, 7}), terzo);
        EXPECT_EQ(esito(sub1_5_estratti<5>, {7, 7, 7, 7, n}), terzo);
    }
}

TEST(Scommesse, NoveVoci) {
    std::string voci;
    for (const Scommessa& s : scommesse()) voci += std::string{s.voce} + "|";
    EXPECT_EQ(voci,
              "Under/Over|Primo Vs Ultimo|Bassi Vs Alti|Dispari vs Pari|1° Estratto|2° Estratto|3° "
              "Estratto|4° Estratto|5° Estratto|");
    EXPECT_EQ(scommesse()[3].titolo, "Dispari Vs Pari");
}

TEST(Scommesse, CinqueConcorsiPerConto) {
    // Pari, Pari, Dispari, Pari, Pari.
    const auto archivio = con_bari({"2 4 6 8 10", "2 4 6 8 1", "1 3 5 2 4", "2 4 6 1 3", "20 40 60 80 90"});
    const Risultato r = esegui(chiedi(3), archivio);
    const Tabella& t = r.tabelle.at(0);
    ASSERT_EQ(t.righe(), 11U);
    ASSERT_EQ(t.n_colonne(), 12U);
    EXPECT_EQ(t.titoli[0], (std::vector<std::string>{"Ruota", "Dispari", "", "", "Pari", "", "",
                                                     "Ultimi 10 concorsi", "", "", "", ""}));
    EXPECT_EQ(t.titoli[1],
              (std::vector<std::string>{"", "F", "R", "RS", "F", "R", "RS", "5", "4", "3", "2", "1"}));
    EXPECT_EQ(t.titoli[2], std::vector<std::string>(12));
    // Dispari once, two draws ago, two draws before it; Pari four times, at most one away.
    EXPECT_EQ(riga(r, "Bari"), "Bari 1 2 2 4 0 1 P P D P P");
    // "1 2 3 4 5" each time: an outcome that never came is as late as the scope is long.
    EXPECT_EQ(riga(r, "Roma"), "Roma 5 0 0 0 5 0 D D D D D");
    EXPECT_EQ(riga(r, "Nazionale"), "Nazionale           ");
    EXPECT_TRUE(r.messaggi.empty());
}

TEST(Scommesse, ITreTerzi) {
    const Risultato r = esegui(chiedi(5), con_bari({"1 31 1 1 1", "1 61 1 1 1", "1 30 1 1 1"}));
    EXPECT_EQ(r.tabelle[0].n_colonne(), 13U);
    EXPECT_EQ(r.tabelle[0].titoli[0][7], "61/90");
    EXPECT_EQ(riga(r, "Bari"), "Bari 1 0 2 1 2 0 1 1 1 1/30 61/90 31/60");
}

TEST(Scommesse, UltimiDieciDiDodici) {
    const Risultato r = esegui(chiedi(1), con_bari(std::vector<std::string>(12, "5 4 3 2 1")));
    const Tabella& t = r.tabelle[0];
    ASSERT_EQ(t.n_colonne(), 17U);
    EXPECT_EQ(t.titoli[1][7], "12");
    EXPECT_EQ(t.titoli[1][16], "3");
    EXPECT_EQ(riga(r, "Bari"), "Bari 12 0 0 0 12 0 P P P P P P P P P P");
}

TEST(Scommesse, UnaRuotaCheNonHaGiocatoSiSalta) {
    const Risultato r = esegui(chiedi(3), con_bari({"1 3 5 7 9", "- 2 4 6 8", "1 3 5 7 9", "1 - - - -"}));
    // No first number: no outcome. A first number with empty cells counts them as 0, which is even.
    EXPECT_EQ(riga(r, "Bari"), "Bari 2 1 1 1 0 3 P D  D");
    EXPECT_EQ(riga(r, "Cagliari"), "Cagliari 4 0 0 0 4 0 D D D D");
}

TEST(Scommesse, LaNazionaleHaConcorsiSuoi) {
    const auto archivio = con_bari({"1 3 5 7 9", "1 3 5 7 9", "1 3 5 7 9"}, "2 NZ 2 4 6 8 10\n");
    const Risultato r = esegui(chiedi(3), archivio);
    EXPECT_EQ(riga(r, "Nazionale"), "Nazionale 0 1 0 1 0 0 P  ");
    // Its titles go over those of the ten wheels.
    EXPECT_EQ(r.tabelle[0].titoli[1][7], "2");
    EXPECT_EQ(r.tabelle[0].titoli[1][8], "2");
    EXPECT_EQ(r.tabelle[0].titoli[1][9], "1");
}

TEST(Scommesse, LeRuoteNonContano) {
    const auto archivio = con_bari({"1 3 5 7 9", "2 4 6 8 10"}, "2 NZ 2 4 6 8 10\n");
    const Risultato dieci = esegui(chiedi(2), archivio);
    for (const auto& ruote :
         {SelezioneRuote::tutte(), SelezioneRuote::nazionale(), SelezioneRuote::nessuna()}) {
        AmbitoRicerca ambito;
        ambito.ruote = ruote;
        const Risposta risposta = rispondi(chiedi(2, ambito), archivio);
        EXPECT_EQ(*risposta.risultato, dieci);
        EXPECT_EQ(risposta.ambito->ruote, "Tutte, Nazionale");
    }
}

TEST(Scommesse, UnAmbitoVuotoDaZeriSenzaMessaggio) {
    AmbitoRicerca ambito;
    ambito.tratto = {2, 1};
    const Risultato r = esegui(chiedi(4, ambito), con_bari({"1 2 3 4 5", "1 2 3 4 5"}));
    EXPECT_TRUE(r.prodotto);
    EXPECT_TRUE(r.messaggi.empty());
    ASSERT_EQ(r.tabelle.at(0).n_colonne(), 10U);
    EXPECT_EQ(r.tabelle[0].righe(), 11U);
    EXPECT_EQ(riga(r, "Bari"), "Bari 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(riga(r, "Nazionale"), "Nazionale         ");
    EXPECT_EQ(r.tabelle[0].titoli[0][7], "61/90");
}

TEST(Scommesse, IlLimiteDecideUnderOver) {
    const auto archivio = con_bari({"45 46 47 48 41"});
    EXPECT_EQ(riga(esegui(chiedi(0, {}, 2275), archivio), "Bari"), "Bari 1 0 0 0 1 0 U");
    EXPECT_EQ(riga(esegui(chiedi(0, {}, 2270), archivio), "Bari"), "Bari 0 1 0 1 0 0 O");
    EXPECT_EQ(riga(esegui(chiedi(0), archivio), "Bari"), "Bari 1 0 0 0 1 0 U");
}

TEST(Scommesse, IlRapportoStaDiTraverso) {
    const Risposta risposta = rispondi(chiedi(0), con_bari(std::vector<std::string>(11, "1 2 3 4 5")));
    const Rapporto rapporto = prepara_rapporto(risposta);
    EXPECT_EQ(rapporto.orientamento, Orientamento::orizzontale);
    EXPECT_EQ(rapporto.pagine, 1);
    EXPECT_EQ(intestazione(risposta).ricerca, "Scommesse Lotto - Under/Over");
    EXPECT_EQ(intestazione(rispondi(chiedi(3), da_testo("1 BA 1 2 3 4 5\n"))).ricerca,
              "Scommesse Lotto - Dispari Vs Pari");
    EXPECT_EQ(intestazione(risposta).ruote, "Tutte, Nazionale");
}

// ---- the same, plainly, on a grid of texts ----

int esito(int analisi, std::span<const Numero> n, float limite) {
    int alti = 0;
    int dispari = 0;
    int somma = 0;
    for (const int x : n) {
        alti += x > 45 ? 1 : 0;
        dispari += x % 2;
        somma += x;
    }
    switch (analisi) {
        case 0:
            return static_cast<float>(somma) < limite ? 0 : 1;
        case 1:
            return n[4] >= n[0] ? 1 : 0;
        case 2:
            return alti >= 3 ? 1 : 0;
        case 3:
            return dispari >= 3 ? 0 : 1;
        default: {
            const int x = n[static_cast<std::size_t>(analisi - 4)];
            return x > 60 ? 2 : x > 30 ? 1 : 0;
        }
    }
}

/// The grid as it is written: columns from 0, the first of them the wheels'.
class Piana {
  public:
    Piana(const ArchivioEstrazioni& archivio, int analisi, AmbitoRicerca ambito, float limite)
        : analisi_{analisi}, limite_{limite}, esiti_{analisi > 3 ? 3 : 2}, griglia_(14) {
        for (auto& r : griglia_) r.resize(1 + static_cast<std::size_t>(esiti_) * 3 + 10);
        ambito.ruote = SelezioneRuote::tutte();
        tabella(estrazioni_ruote(archivio, ambito), 10, 3);
        ambito.ruote = SelezioneRuote::nazionale();
        Cursore nazionale = estrazioni_ruote(archivio, ambito);
        if (nazionale.conteggio() > 0) tabella(std::move(nazionale), 1, 13);
    }
    [[nodiscard]] const std::string& cella(std::size_t r, std::size_t c) const { return griglia_[r][c]; }
    [[nodiscard]] std::size_t colonne() const { return griglia_[0].size(); }

  private:
    void tabella(Cursore cursore, int ruote, int prima_riga) {
        const auto righe = static_cast<int>(cursore.conteggio());
        // To the even one.
        const int c = static_cast<int>(std::nearbyint(righe / static_cast<double>(ruote)));
        for (int w = 0; w < ruote; ++w)
            for (int e = 0; e < esiti_; ++e) misura(cursore, c, {ruote, w, e}, prima_riga);
        ultimi(cursore, c, ruote, prima_riga);
    }

    struct Quale {
        int ruote, ruota, esito;
    };
    void misura(Cursore& cursore, int c, Quale q, int prima_riga) {
        int f = 0;
        int r = c;
        int rs = 0;
        int ultimo = 0;
        for (int d = 1; d <= c; ++d) {
            cursore.primo();
            cursore.sposta((d - 1) * q.ruote + q.ruota);
            const auto e = cursore.corrente();
            if (!e || e->numero(1) == 0 || esito(analisi_, e->numeri(), limite_) != q.esito) continue;
            ++f;
            r = c - d;
            if (d - ultimo - 1 > rs) rs = d - ultimo - 1;
            ultimo = d;
        }
        auto& riga = griglia_[static_cast<std::size_t>(prima_riga + q.ruota)];
        const auto colonna = static_cast<std::size_t>(1 + q.esito * 3);
        riga[colonna] = std::to_string(f);
        riga[colonna + 1] = std::to_string(r);
        riga[colonna + 2] = std::to_string(rs);
    }

    void ultimi(Cursore& cursore, int c, int ruote, int prima_riga) {
        static constexpr std::array<std::array<const char*, 3>, 9> kLettere{{{"U", "O"},
                                                                             {"P", "U"},
                                                                             {"B", "A"},
                                                                             {"D", "P"},
                                                                             {"1/30", "31/60", "61/90"},
                                                                             {"1/30", "31/60", "61/90"},
                                                                             {"1/30", "31/60", "61/90"},
                                                                             {"1/30", "31/60", "61/90"},
                                                                             {"1/30", "31/60", "61/90"}}};
        const int prima = 1 + esiti_ * 3;
        int colonna = prima + 9;
        if (static_cast<int>(cursore.conteggio()) < 10 * ruote) {
            cursore.primo();
            colonna = prima + c - 1;
        } else {
            cursore.ultimo();
            cursore.sposta(-(10 * ruote - 1));
        }
        for (; colonna >= prima; --colonna) {
            const auto k = static_cast<std::size_t>(colonna);
            if (cursore.corrente()) griglia_[1][k] = std::to_string(cursore.corrente()->concorso());
            for (int w = 0; w < ruote; ++w, cursore.successivo())
                if (const auto e = cursore.corrente(); e && e->numero(1) > 0)
                    griglia_[static_cast<std::size_t>(prima_riga + w)][k] =
                        kLettere[static_cast<std::size_t>(analisi_)]
                                [static_cast<std::size_t>(esito(analisi_, e->numeri(), limite_))];
        }
    }

    int analisi_;
    float limite_;
    int esiti_;
    std::vector<std::vector<std::string>> griglia_;
};

TEST(Scommesse, UgualeAllaSecondaVersione) {
    for (std::uint32_t seme = 1; seme <= 120; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const int analisi = static_cast<int>(seme % 9);
        const Risultato r = esegui(chiedi(analisi, ambito, 1500 + seme), archivio);
        const Piana piana{archivio, analisi, ambito, valore_decimi(1500 + seme)};
        const Tabella& t = r.tabelle.at(0);
        for (std::size_t c = 1; c < piana.colonne(); ++c) {
            if (c >= t.n_colonne()) {
                // A column that the grid leaves out is empty.
                for (std::size_t riga = 1; riga < 14; ++riga) EXPECT_EQ(piana.cella(riga, c), "") << c;
                continue;
            }
            if (c > static_cast<std::size_t>(analisi > 3 ? 9 : 6)) {
                EXPECT_EQ(t.titoli[1][c], piana.cella(1, c)) << c;
            }
            for (std::size_t riga = 0; riga < 11; ++riga)
                EXPECT_EQ(t.testo(riga, c), piana.cella(riga + 3, c)) << riga << ' ' << c;
        }
    }
}

}  // namespace
}  // namespace sortimetra
