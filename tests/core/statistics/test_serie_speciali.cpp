#include "catalogue/ricerche.h"
#include "files/file_sicuro.h"
#include "statistics/famiglie.h"
#include "statistics/misura_serie.h"
#include "statistics/parametri.h"
#include "statistics/serie_speciali.h"
#include "support/archivi.h"
#include "support/lente_serie.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::da_testo;
using prove::riga;

Risultato cerca(const ArchivioEstrazioni& archivio, std::string_view chiave, int combo_rit,
                const AmbitoRicerca& ambito = {}, bool tutte_le_ruote = false) {
    Domanda d = prove::domanda(chiave, ambito);
    d.parametri.per<ParametriStatistica>().tipo = combo_rit;
    d.parametri.per<ParametriStatistica>().tutte_le_ruote = tutte_le_ruote;
    return prove::esegui(d, archivio, prove::cartella_dati());
}

/// Every text of a table after its first column.
std::string misure(const Risultato& r) {
    if (r.tabelle.empty()) return "";
    const Tabella& t = r.tabelle.front();
    std::string testo;
    for (std::size_t i = 0; i < t.righe(); ++i) {
        for (std::size_t c = 1; c < t.n_colonne(); ++c) testo += (c > 1 ? " " : "") + t.testo(i, c);
        testo += '\n';
    }
    return testo;
}

TEST(SerieSpeciali, AmbataBastaUnNumeroAmboNeVuoleDue) {
    const auto archivio = da_testo(
        "1 BA 1 50 51 52 53\n"
        "2 BA 2 3 60 61 62\n"
        "3 BA 70 71 72 73 74\n"
        "4 BA 4 5 1 75 76\n");
    EXPECT_EQ(riga(cerca(archivio, "cinquine sun", 0), "01.02.03.04.05"), "01.02.03.04.05 3 0 1");
    // Two numbers at draws 2 and 4: the wait before draw 2 counts as 2 - 1 - 1 = 0, the next as 1.
    EXPECT_EQ(riga(cerca(archivio, "cinquine sun", 1), "01.02.03.04.05"), "01.02.03.04.05 2 0 1");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1), "02.03"), "02.03 1 2 0");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 0), "02.03"), "02.03 1 2 0");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1), "89.90"), "89.90 0 4 0");
}

TEST(SerieSpeciali, IlRitardoPrimaDellaPrimaUscitaConta) {
    std::string testo;
    for (int c = 1; c <= 12; ++c)
        testo += std::to_string(c) + (c == 10 ? " BA 11 40 41 42 43\n" : " BA 9 40 41 42 43\n");
    // From the start value 1 to draw 10: 10 - 1 - 1.
    EXPECT_EQ(riga(cerca(da_testo(testo), "gemelli", 0), "11/88"), "11/88 1 2 8");
}

TEST(SerieSpeciali, UscitaAlPrimoConcorsoNonChiudeRitardi) {
    EXPECT_EQ(riga(cerca(da_testo("1 BA 11 1 2 3 4\n2 BA 1 2 3 4 5\n"), "gemelli", 0), "11/88"),
              "11/88 1 1 0");
}

TEST(SerieSpeciali, DueRuoteDelloStessoConcorsoContanoDue) {
    const auto archivio = da_testo(
        "1 BA 1 2 30 40 50\n1 CA 31 41 51 60 70\n"
        "2 BA 32 42 52 61 71\n2 CA 33 43 53 62 72\n"
        "3 BA 1 2 30 40 50\n3 CA 2 1 31 41 51\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1, ambito), "01.02"), "01.02 3 0 1");
}

TEST(SerieSpeciali, IDueNumeriDevonoStareSullaStessaRuota) {
    const auto archivio = da_testo("1 BA 1 30 40 50 60\n1 CA 2 31 41 51 61\n");
    AmbitoRicerca ambito;
    ambito.ruote.clic(1, true);
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1, ambito), "01.02"), "01.02 0 1 0");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 0, ambito), "01.02"), "01.02 2 0 0");
}

TEST(SerieSpeciali, RigaConLaPrimaCellaVuotaContaComeConcorso) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n"
        "2 BA - 1 2 3 4\n"
        "3 BA 1 - 3 4 5\n");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 0), "01.02"), "01.02 2 0 1");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1), "03.04"), "03.04 2 0 1");
    EXPECT_EQ(riga(cerca(archivio, "ambi consecutivi", 1), "01.02"), "01.02 1 2 0");
}

TEST(SerieSpeciali, TerzineConsecutiveAllAmboDueDelleTre) {
    const auto archivio = da_testo("1 BA 1 3 50 60 70\n2 BA 2 51 61 71 81\n");
    EXPECT_EQ(riga(cerca(archivio, "terzine consecutive", 1), "01.02.03"), "01.02.03 1 1 0");
    EXPECT_EQ(riga(cerca(archivio, "terzine consecutive", 0), "01.02.03"), "01.02.03 2 0 0");
}

TEST(SerieSpeciali, TitoliLunghiEBrevi) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    using Titoli = std::vector<std::vector<std::string>>;
    const Titoli lunghi{{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    const Titoli brevi{{"Numeri", "Freq.", "Rit.", "R. S."}};
    for (const Famiglia& f : famiglie()) {
        SCOPED_TRACE(f.nome.chiave);
        const bool breve = f.nome.chiave.starts_with("sestine") || f.nome.chiave.starts_with("settine") ||
                           f.nome.chiave.starts_with("cinquine") || f.nome.chiave == "controfigure" ||
                           f.nome.chiave == "decine simmetriche";
        EXPECT_EQ(cerca(archivio, f.nome.chiave, 0).tabelle.at(0).titoli, breve ? brevi : lunghi);
    }
}

TEST(SerieSpeciali, EtichetteNellaPrimaColonnaEDescrizione) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    const Risultato r = cerca(archivio, "decine", 0);
    EXPECT_EQ(r.tabelle.at(0).testo(0, 0), "1/9 (90)");
    EXPECT_EQ(r.tabelle.at(0).testo(8, 0), "80/89");
    ASSERT_EQ(r.etichette.size(), 1U);
    EXPECT_EQ(r.etichette[0].nome, "descrizione");
    EXPECT_TRUE(std::get<std::string>(r.etichette[0].testo).starts_with("Le Decine sono composte da 10"));
    EXPECT_EQ(cerca(archivio, "radicali", 0).tabelle.at(0).testo(7, 0), "08.80.88.89");
    EXPECT_TRUE(cerca(archivio, "cinquine sun", 0).etichette.empty());
}

TEST(SerieSpeciali, AmbitoVuoto) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n");
    AmbitoRicerca ambito;
    ambito.tratto = {2, 1};
    for (const std::string_view chiave : {"cinquine dei 90", "decine", "scomposizione"})
        for (const bool tutte_le_ruote : {false, true})
            for (const Risultato& r : {cerca(archivio, chiave, 0, ambito, tutte_le_ruote),
                                       cerca(da_testo(""), chiave, 0, {}, tutte_le_ruote)}) {
                EXPECT_FALSE(r.prodotto);
                EXPECT_TRUE(r.tabelle.empty());
                EXPECT_EQ(prove::messaggi(r), std::vector<std::string>{std::string{kNessunaEstrazione}});
            }
}

TEST(SerieSpeciali, CinquineDei90ConIlFileDanneggiato) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n");
    const prove::CartellaProva cartella;
    const Risultato r = prove::esegui(prove::domanda("cinquine dei 90"), archivio, cartella.percorso());
    EXPECT_FALSE(r.prodotto);
    EXPECT_TRUE(r.tabelle.empty());
    EXPECT_EQ(prove::messaggi(r),
              std::vector<std::string>{"File danneggiato! Impossibile effettuare Ricerca Statistica!"});
}

TEST(SerieSpeciali, UgualeAllaLentaSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 42 * 4; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const Famiglia& f = famiglie()[seme % famiglie().size()];
        const int combo_rit = seme / famiglie().size() % 2 == 0 ? 0 : 1;
        const SerieCorrente s = prove::serie(f);
        std::vector<std::vector<int>> membri;
        for (std::size_t i = 0; i < s.righe(); ++i)
            membri.emplace_back(s.membro(i).begin(), s.membro(i).end());
        EXPECT_EQ(misure(cerca(archivio, f.nome.chiave, combo_rit, ambito)),
                  prove::serie_lenta(prove::righe_piane(archivio, ambito), ambito.ruote.n_ruote(), membri,
                                     combo_rit + 1))
            << f.nome.chiave;
    }
}

// ---- the counting itself ----

/// A random series, also with numbers that a member repeats and with more members than one walk takes.
std::vector<std::vector<int>> membri_casuali(std::uint32_t seme) {
    std::mt19937 caso{seme * 31U + 5U};
    const auto fra = [&](int da, int a) { return std::uniform_int_distribution<int>{da, a}(caso); };
    constexpr std::array kGrandezze{1, 63, 64, 65, 128, 129, 511, 512, 513, 700};
    const int righe = kGrandezze[static_cast<std::size_t>(fra(0, 9))];
    const int colonne = fra(1, 7);
    const int massimo = fra(0, 2) == 0 ? 12 : 90;  // few numbers: members repeat some
    std::vector<std::vector<int>> membri(static_cast<std::size_t>(righe));
    for (auto& m : membri)
        for (int i = 0; i < colonne; ++i) m.push_back(fra(1, massimo));
    return membri;
}

SerieCorrente come_serie(const std::vector<std::vector<int>>& membri) {
    SerieCorrente s{.colonne = membri.at(0).size()};
    for (const auto& m : membri)
        for (const int n : m) s.aggiungi({n});
    return s;
}

std::string testo(const std::vector<Misura>& misure, int t) {
    std::string r;
    for (const Misura& m : misure)
        r += std::to_string(m.frequenza) + " " + std::to_string(ritardo(m, Estrazioni{t})) + " " +
             std::to_string(m.storico) + "\n";
    return r;
}

TEST(MisuraSerie, OgniSogliaUgualeAllaLenta) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 1; seme <= 30; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto ambito = ambito_casuale(seme);
        const VistaEstrazioni vista{archivio, ambito};
        if (vista.vuota()) continue;
        const auto membri = membri_casuali(seme);
        const auto righe = prove::righe_piane(archivio, ambito);
        for (const int soglia : {-1, 0, 1, 2, 3, 4, 6}) {
            SCOPED_TRACE(soglia);
            EXPECT_EQ(testo(misura_serie(vista, come_serie(membri), soglia, nessuno), vista.t()),
                      prove::serie_lenta(righe, ambito.ruote.n_ruote(), membri, soglia));
        }
    }
}

/// Read from the last draw back, or with all that is counted on the way.
TEST(MisuraSerie, LUltimaUscitaLettaAllIndietro) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 1; seme <= 80; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const VistaEstrazioni vista{archivio, ambito_casuale(seme)};
        auto serie = come_serie(membri_casuali(seme));
        // Sometimes more members than are looked for at once.
        if (seme % 5 == 0)
            for (const auto primi = serie.numeri; serie.righe() < 600 && !primi.empty();)
                serie.numeri.insert(serie.numeri.end(), primi.begin(), primi.end());
        for (const int soglia : {-1, 0, 1, 2, 3, 4}) {
            SCOPED_TRACE(soglia);
            std::vector<std::int32_t> attese;
            for (const Misura& m : misura_serie(vista, serie, soglia, nessuno))
                attese.push_back(m.frequenza == 0 ? 0 : m.ultimo);
            EXPECT_EQ(ultime_uscite(vista, serie, soglia), attese);
        }
    }
}

TEST(MisuraSerie, NumeroDueVolteNelMembroContaDue) {
    const auto archivio = da_testo("1 BA 1 30 40 50 60\n2 BA 5 31 41 51 61\n");
    SenzaAvanzamento nessuno;
    const VistaEstrazioni vista{archivio, {}};
    const SerieCorrente s{.colonne = 3, .numeri = {5, 5, 7, 5, 6, 7, 7, 5, 5}};
    EXPECT_EQ(testo(misura_serie(vista, s, 2, nessuno), 2), "1 0 0\n0 2 0\n1 0 0\n");
}

TEST(MisuraSerie, NumeroDueVolteNellaRigaContaUnaVolta) {
    const auto archivio = da_testo("1 BA 5 5 40 50 60\n");
    SenzaAvanzamento nessuno;
    const VistaEstrazioni vista{archivio, {}};
    const SerieCorrente s{.colonne = 2, .numeri = {5, 7, 5, 40}};
    EXPECT_EQ(testo(misura_serie(vista, s, 2, nessuno), 1), "0 1 0\n1 0 0\n");
}

TEST(MisuraSerie, RitardiLunghiACavalloDiMoltiConcorsi) {
    // Waits within, across and beyond spans of 64 draws.
    for (const auto& uscite : std::vector<std::vector<int>>{{1, 64, 65, 128},
                                                            {2, 200, 300},
                                                            {64},
                                                            {63, 66, 130},
                                                            {10, 30, 31, 60, 64, 129},
                                                            {100, 101},
                                                            {128},
                                                            {65}}) {
        std::string righe;
        std::vector<int> colpite(301, 0);
        for (const int c : uscite) colpite[static_cast<std::size_t>(c)] = 1;
        for (int c = 1; c <= 300; ++c)
            righe += std::to_string(c) +
                     (colpite[static_cast<std::size_t>(c)] != 0 ? " BA 5 1 2 3 4\n" : " BA 6 1 2 3 4\n");
        const auto archivio = da_testo(righe);
        SenzaAvanzamento nessuno;
        const VistaEstrazioni vista{archivio, {}};
        const auto m = misura_serie(vista, SerieCorrente{.colonne = 1, .numeri = {5}}, 1, nessuno).at(0);
        int storico = 0;
        int ultimo = 1;
        for (const int c : uscite) {
            storico = std::max(storico, c - ultimo - 1);
            ultimo = c;
        }
        EXPECT_EQ(m, (Misura{.ultimo = ultimo,
                             .frequenza = static_cast<std::int32_t>(uscite.size()),
                             .storico = storico}));
    }
}

TEST(MisuraSerie, SerieVuotaEAnnullamento) {
    const auto archivio = da_testo("1 BA 5 5 40 50 60\n");
    const VistaEstrazioni vista{archivio, {}};
    SenzaAvanzamento nessuno;
    EXPECT_TRUE(misura_serie(vista, {}, 1, nessuno).empty());
    struct Annulla final : Avanzamento {
        bool procedi(std::size_t, std::size_t) override { return false; }
    } annulla;
    const auto m =
        misura_serie(vista, SerieCorrente{.colonne = 1, .numeri = std::vector<Numero>(1000, 5)}, 1, annulla);
    ASSERT_EQ(m.size(), 1000U);
    EXPECT_EQ(m.front().frequenza, 1);  // the rows read before the cancel
    EXPECT_EQ(m.back().frequenza, 0);   // its walk did not begin
}

TEST(MisuraSerie, LaBarraCorreUnaVoltaSola) {
    const auto archivio = archivio_casuale(11);
    AmbitoRicerca ambito;
    ambito.ruote = SelezioneRuote::tutte();
    const VistaEstrazioni vista{archivio, ambito};
    ASSERT_FALSE(vista.vuota());
    struct Barra final : Avanzamento {
        bool procedi(std::size_t fatto, std::size_t totale) override {
            const double parte = static_cast<double>(fatto) / static_cast<double>(totale);
            EXPECT_GT(parte, ultima);
            ultima = parte;
            return true;
        }
        double ultima = 0;
    } barra;
    (void)misura_serie(vista, SerieCorrente{.colonne = 1, .numeri = std::vector<Numero>(1500, 5)}, 1, barra);
    EXPECT_EQ(barra.ultima, 1.0);
}

// ---- all wheels ----

TEST(OgniRuota, RitardiRuotaPerRuota) {
    const auto archivio = da_testo(
        "1 BA 11 1 2 3 4\n1 CA 5 6 7 8 9\n"
        "2 BA 5 6 7 8 9\n2 CA 22 1 2 3 4\n"
        "3 BA 5 6 7 8 9\n3 CA 5 6 7 8 9\n3 NZ 33 1 2 3 4\n"
        "4 CA 5 6 7 8 9\n4 NZ 5 6 7 8 9\n");
    const Risultato r = cerca(archivio, "gemelli", 0, {}, true);
    EXPECT_EQ(r.titolo, "gemelli - Ritardo per ogni ruota");
    EXPECT_EQ(r.tabelle.at(0).titoli,
              (std::vector<std::vector<std::string>>{
                  {"Numeri", "BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "NZ"}}));
    // Seven rows over ten wheels: T is 1, so a delay of the first draw is 0 and later ones fall below.
    EXPECT_EQ(riga(r, "11/88"), "11/88 0 -1 1 1 1 1 1 1 1 1 1");
    EXPECT_EQ(r.etichette.size(), 1U);
}

TEST(OgniRuota, NazionaleSenzaEstrazioniRestaVuota) {
    const auto archivio = da_testo("1 BA 11 1 2 3 4\n2 BA 5 6 7 8 9\n2 NZ 5 6 7 8 9\n");
    AmbitoRicerca ambito;
    ambito.tratto = {1, 1};
    EXPECT_EQ(cerca(archivio, "gemelli", 0, ambito, true).tabelle.at(0).testo(0, 11), "");
    ambito.tratto = {1, 2};
    EXPECT_EQ(cerca(archivio, "gemelli", 0, ambito, true).tabelle.at(0).testo(0, 11), "1");
}

TEST(OgniRuota, LeRuoteSpuntateNonContano) {
    const auto archivio = archivio_casuale(11);
    AmbitoRicerca nazionale;
    nazionale.ruote = SelezioneRuote::nazionale();
    EXPECT_EQ(cerca(archivio, "figure", 1, nazionale, true), cerca(archivio, "figure", 1, {}, true));
}

TEST(OgniRuota, UgualeAllaLentaSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 80; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        auto ambito = ambito_casuale(seme);
        constexpr std::array<std::string_view, 3> kChiavi{"decine", "gemelli", "controfigure"};
        const std::string_view chiave = kChiavi[seme % kChiavi.size()];
        const int soglia = seme % 2 == 0 ? 1 : 2;
        const Risultato r = cerca(archivio, chiave, soglia - 1, ambito, true);

        const SerieCorrente s = prove::serie(*prove::famiglia(chiave));
        std::vector<std::vector<std::string>> attesi(s.righe(), std::vector<std::string>(11));
        ambito.ruote = SelezioneRuote::tutte();
        const auto dieci = prove::righe_piane(archivio, ambito);
        ambito.ruote = SelezioneRuote::nazionale();
        const auto nazionale = prove::righe_piane(archivio, ambito);
        if (dieci.empty()) {
            EXPECT_TRUE(r.tabelle.empty());
            continue;
        }
        const auto colma = [&](const std::vector<prove::RigaPiana>& righe, std::size_t ruote, std::size_t da,
                               const std::function<std::size_t(std::size_t)>& ruota) {
            const int t = prove::arrotonda(righe.size(), static_cast<int>(ruote));
            for (auto& m : attesi)
                for (std::size_t w = 0; w < ruote; ++w) m[da + w] = righe.empty() ? "" : std::to_string(t);
            std::size_t i = 0;
            prove::cammina(righe, [&](int c, const std::vector<int>& n) {
                const std::size_t w = ruota(i++);
                if (n[0] == 0) return;
                for (std::size_t m = 0; m < s.righe(); ++m) {
                    int quanti = 0;
                    for (const Numero x : s.membro(m))
                        quanti += prove::trovato(prove::testo_riga(n), x) ? 1 : 0;
                    if (quanti >= soglia) attesi[m][da + w] = std::to_string(t - c);
                }
            });
        };
        // The wheel of each row, in the order of the walk.
        std::vector<std::size_t> ruote;
        const auto& t = archivio.lotto();
        for (const auto& x : dieci) {
            const auto d = static_cast<std::size_t>(
                std::find(t.concorso.begin(), t.concorso.end(), x.concorso) - t.concorso.begin());
            std::size_t w = 0;
            if (!ruote.empty() && x.concorso == dieci[ruote.size() - 1].concorso) w = ruote.back() + 1;
            while ((t.presenti[d] >> w & 1U) == 0) ++w;
            ruote.push_back(w);
        }
        colma(dieci, 10, 0, [&](std::size_t i) { return ruote[i]; });
        colma(nazionale, 1, 10, [](std::size_t) { return std::size_t{0}; });
        std::string atteso;
        for (const auto& m : attesi) {
            for (std::size_t c = 0; c < m.size(); ++c) atteso += (c > 0 ? " " : "") + m[c];
            atteso += '\n';
        }
        EXPECT_EQ(misure(r), atteso);
    }
}

// ---- decompositions ----

std::string sottoinsiemi(const std::vector<Numero>& numeri, int k) {
    const SerieCorrente s = scomposizione_gruppo(numeri, k);
    std::string testo;
    for (std::size_t i = 0; i < s.righe(); ++i) {
        for (const Numero n : s.membro(i)) testo += std::to_string(n) + " ";
        testo += "/ ";
    }
    return testo;
}

TEST(Scomposizione, SottoinsiemiNellOrdineDeiPosti) {
    EXPECT_EQ(sottoinsiemi({9, 5, 7}, 2), "9 5 / 9 7 / 5 7 / ");
    EXPECT_EQ(sottoinsiemi({1, 2, 3, 4}, 3), "1 2 3 / 1 2 4 / 1 3 4 / 2 3 4 / ");
    EXPECT_EQ(sottoinsiemi({8, 3}, 1), "8 / 3 / ");
    EXPECT_EQ(sottoinsiemi({1, 2, 3, 4, 5}, 5), "1 2 3 4 5 / ");
    EXPECT_EQ(sottoinsiemi({1, 2}, 3), "");
    EXPECT_EQ(sottoinsiemi({}, 1), "");
    EXPECT_EQ(sottoinsiemi({1, 2, 3, 4, 5, 6, 7}, 0), "");
    EXPECT_EQ(sottoinsiemi({1, 2, 3, 4, 5, 6, 7}, 6), "");
    EXPECT_EQ(scomposizione_gruppo(std::vector<Numero>(20, 1), 5).righe(), 15504U);
}

Risultato scomponi(const ArchivioEstrazioni& archivio, std::vector<int> numeri, int sorte, int combo_rit) {
    Domanda d = prove::domanda("scomposizione");
    d.parametri.per<ParametriStatistica>().numeri = std::move(numeri);
    d.parametri.per<ParametriStatistica>().sorte = sorte;
    d.parametri.per<ParametriStatistica>().tipo = combo_rit;
    return prove::esegui(d, archivio);
}

TEST(Scomposizione, NumeriNellOrdineDato) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 5 60 1 70 80\n");
    const Risultato r = scomponi(archivio, {5, 90, 1}, 2, 1);
    EXPECT_EQ(prove::righe(r.tabelle.at(0)), "05.90 0 2 0\n05.01 2 0 0\n90.01 0 2 0\n");
    EXPECT_EQ(r.tabelle[0].titoli.at(0).at(1), "Frequenza");
}

TEST(Scomposizione, TreSorti) {
    const auto archivio = da_testo("1 BA 1 2 3 40 50\n2 BA 1 2 60 61 62\n3 BA 1 63 64 65 66\n");
    EXPECT_EQ(riga(scomponi(archivio, {1, 2, 3}, 3, 0), "01.02.03"), "01.02.03 3 0 0");
    EXPECT_EQ(riga(scomponi(archivio, {1, 2, 3}, 3, 1), "01.02.03"), "01.02.03 2 1 0");
    EXPECT_EQ(riga(scomponi(archivio, {1, 2, 3}, 3, 2), "01.02.03"), "01.02.03 1 2 0");
}

TEST(Scomposizione, NumeroRipetutoContaDueVolte) {
    const auto archivio = da_testo("1 BA 5 2 3 40 50\n");
    EXPECT_EQ(riga(scomponi(archivio, {5, 5, 7}, 2, 1), "05.05"), "05.05 1 0 0");
    EXPECT_EQ(riga(scomponi(archivio, {5, 5, 7}, 2, 1), "05.07"), "05.07 0 1 0");
}

TEST(Scomposizione, MenoNumeriDellaSorteNessunaRiga) {
    const Risultato r = scomponi(da_testo("1 BA 5 2 3 40 50\n"), {5, 6}, 3, 0);
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(r.tabelle.at(0).righe(), 0U);
    EXPECT_EQ(r.tabelle.at(0).titoli.at(0).size(), 4U);
}

TEST(Scomposizione, TroppeCombinazioniNonPartono) {
    std::vector<int> numeri;
    for (int i = 0; i < 300; ++i) numeri.push_back(i % 90 + 1);
    const Risultato r = scomponi(da_testo("1 BA 5 2 3 40 50\n"), numeri, 5, 0);
    EXPECT_FALSE(r.prodotto);
    EXPECT_EQ(r.messaggi.size(), 1U);
}

}  // namespace
}  // namespace sortimetra
