#include "personal/analisi_serie.h"
#include "personal/gruppi.h"
#include "personal/parametri.h"
#include "statistics/capogioco.h"
#include "statistics/parametri.h"
#include "statistics/serie_speciali.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

namespace sortimetra {
namespace {

using prove::ambito_casuale;
using prove::archivio_casuale;
using prove::Conti;
using prove::da_testo;

Risultato cerca(const ArchivioEstrazioni& archivio, ParametriGruppi parametri,
                const AmbitoRicerca& ambito = {}) {
    Domanda d = prove::domanda("ricerche per gruppi", ambito);
    d.parametri = std::move(parametri);
    return prove::esegui(d, archivio);
}
SerieCorrente gruppo(std::string_view testo) {
    return leggi_lunghette(testo).value();
}
std::string etichetta(const Risultato& r, std::string_view nome) {
    for (const Etichetta& e : r.etichette)
        if (e.nome == nome) {
            if (const auto* testo = std::get_if<std::string>(&e.testo)) return *testo;
            std::string tutti;
            for (const std::string& t : std::get<std::vector<std::string>>(e.testo)) tutti += t + "|";
            return tutti;
        }
    return "?";
}

const auto kCinque =
    "1 BA 1 10 20 30 40\n"
    "2 BA 50 51 52 53 54\n"
    "3 BA 4 2 60 61 62\n"
    "4 BA 50 51 52 53 54\n"
    "5 BA 50 51 52 53 54\n";

TEST(Gruppi, EsitiRitardiESintesi) {
    const Risultato r = cerca(da_testo(kCinque), {.lunghette = gruppo("1 2 3;4 5 6"), .entro = 1});
    // Draw 1 hits the first lunghetta, draw 3 both: the second outcome of a draw has delay 0.
    EXPECT_EQ(prove::righe(r.tabelle[1]), "0 1 01/01/2000\n1 3 03/01/2000\n0 3 03/01/2000\n");
    EXPECT_EQ(prove::righe(r.tabelle[0]), "0 2 66,67%\n1 1 33,33%\n");
    EXPECT_EQ(prove::righe(r.tabelle[2]), "1 - 2 - 3 2 2 1\n4 - 5 - 6 1 2 2\n");
    EXPECT_EQ(prove::righe(r.tabelle[3]), "3 / 5 2 1 0,33\n");
    EXPECT_EQ(etichetta(r, "lblfasce"), "0 - 1  (75%)|0 - 1  (85%)|0 - 1  (95%)|");
    // The delay of now is above the longest one: there is nothing to wait for.
    EXPECT_EQ(etichetta(r, "lblprob"), "");
}

TEST(Gruppi, UnSoloConcorso) {
    AmbitoRicerca ambito;
    ambito.tratto = {3, 3};
    EXPECT_EQ(cerca(da_testo(kCinque), {.lunghette = gruppo("4")}, ambito).tabelle[3].testo(0, 1), "0");
    EXPECT_EQ(cerca(da_testo(kCinque), {.lunghette = gruppo("90")}, ambito).tabelle[3].testo(0, 1), "1");
}

TEST(Gruppi, SenzaEsitiPercentualiEMediaVuote) {
    const Risultato r = cerca(da_testo(kCinque), {.lunghette = gruppo("89 90"), .sorte = 2});
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(prove::righe(r.tabelle[0]) + prove::righe(r.tabelle[1]), "");
    EXPECT_EQ(prove::righe(r.tabelle[2]), "89 - 90 0 5 0\n");
    EXPECT_EQ(prove::righe(r.tabelle[3]), "0 / 5 5 0 \n");
}

TEST(Gruppi, UnNumeroRipetutoContaDueVolte) {
    EXPECT_EQ(cerca(da_testo(kCinque), {.lunghette = gruppo("10 10"), .sorte = 2}).tabelle[3].testo(0, 0),
              "1 / 5");
}

TEST(Gruppi, RitardiOltreMilleSenzaRiga) {
    std::string testo;
    for (int c = 1; c <= 1010; ++c)
        testo += std::to_string(c) + (c == 1 || c == 1003 ? " BA 1 2 3 4 5\n" : " BA 6 7 8 9 10\n");
    const Risultato r = cerca(da_testo(testo), {.lunghette = gruppo("1")});
    EXPECT_EQ(prove::righe(r.tabelle[0]), "0 1 50,00%\n");
    EXPECT_EQ(prove::righe(r.tabelle[3]), "2 / 1010 7 1001 500,50\n");
    EXPECT_EQ(etichetta(r, "lblfasce"), "0 - 751  (75%)|0 - 851  (85%)|0 - 951  (95%)|");
}

TEST(Gruppi, Probabilita) {
    EXPECT_EQ(probabilita_gruppo(100, 121, 736), "30,03%");
    EXPECT_EQ(probabilita_gruppo(1, 0, 3), "33,33%");
    EXPECT_EQ(probabilita_gruppo(5, 1, 3), "100,00%");
    EXPECT_EQ(probabilita_gruppo(1, 3, 3), "");
    EXPECT_EQ(probabilita_gruppo(1, 0, 0), "");
    EXPECT_EQ(probabilita_gruppo(std::numeric_limits<int>::max(), 1, 3), "100,00%");
}

TEST(Gruppi, LeFasceSiArrotondanoAlPari) {
    // 75 % of 2 is 1,5: two. 75 % of 6 is 4,5: four.
    for (const auto& [s, atteso] : std::map<int, std::string>{{2, "0 - 2  (75%)"}, {6, "0 - 4  (75%)"}}) {
        std::string testo;
        for (int c = 1; c <= s + 2; ++c)
            testo += std::to_string(c) + (c == 1 || c == s + 2 ? " BA 1 2 3 4 5\n" : " BA 6 7 8 9 10\n");
        EXPECT_TRUE(
            etichetta(cerca(da_testo(testo), {.lunghette = gruppo("1")}), "lblfasce").starts_with(atteso));
    }
}

TEST(Gruppi, IlDettaglioElencaAncheLeCombinazioniMaiUscite) {
    const Risultato r = cerca(da_testo(kCinque), {.lunghette = gruppo("90;2"), .dettaglio = 2});
    ASSERT_EQ(r.tabelle.size(), 5U);
    EXPECT_EQ(prove::righe(r.tabelle[4]), "02 2 1 2\n");
    const Risultato ambi =
        cerca(da_testo(kCinque), {.lunghette = gruppo("10 1 2"), .sorte = 2, .dettaglio = 1});
    EXPECT_EQ(ambi.tabelle[4].titoli[0],
              (std::vector<std::string>{"Combinazioni", "Ritardo", "Frequenza", "Ritardo Storico"}));
    EXPECT_EQ(prove::righe(ambi.tabelle[4]), "01-02 5 0 0\n01-10 4 1 0\n02-10 5 0 0\n");
}

TEST(Gruppi, SenzaGruppoESenzaEstrazioni) {
    const Risultato r = cerca(da_testo(kCinque), {});
    EXPECT_FALSE(r.prodotto);
    ASSERT_EQ(r.messaggi.size(), 1U);
    EXPECT_EQ(r.messaggi[0].testo, "Completare l'inserimento del gruppo da analizzare.");
    AmbitoRicerca ambito;
    ambito.tratto = {3, 2};
    EXPECT_EQ(cerca(da_testo(kCinque), {.lunghette = gruppo("1")}, ambito).messaggi[0].testo,
              kNessunaEstrazione);
}

TEST(Gruppi, IlRitardoPiuFrequenteEIlPrimoFraUguali) {
    const Risultato r = cerca(da_testo(kCinque), {.lunghette = gruppo("50;60")});
    EXPECT_EQ(prove::righe(r.tabelle[0]), "0 3 75,00%\n1 1 25,00%\n");
    EXPECT_EQ(ritardo_piu_frequente(r.tabelle[0]), 0U);
    EXPECT_EQ(ritardo_piu_frequente(cerca(da_testo(kCinque), {.lunghette = gruppo("89")}).tabelle[0]),
              std::nullopt);
}

TEST(Gruppi, LeLunghetteSiLeggonoOSiRifiutano) {
    EXPECT_EQ(testo_lunghette(gruppo(" 1  2 3 ;4 5 6")), "1 2 3;4 5 6");
    std::string troppe = "1";
    for (int i = 0; i < 50; ++i) troppe += ";1";
    for (const std::string& testo :
         {std::string{""}, std::string{"1 2;3"}, std::string{"0"}, std::string{"91"}, std::string{"1;"},
          std::string{"1,2"}, troppe, std::string{"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21"}})
        EXPECT_FALSE(leggi_lunghette(testo)) << testo;
    EXPECT_TRUE(leggi_lunghette(troppe.substr(2)));
}

TEST(Gruppi, ControllaLaSorteEIlDettaglio) {
    Domanda d = prove::domanda("ricerche per gruppi");
    const auto controlla = [&](std::string_view lunghette, int sorte, std::optional<int> dettaglio) {
        d.parametri = ParametriGruppi{.lunghette = gruppo(lunghette), .sorte = sorte, .dettaglio = dettaglio};
        return d.ricerca->controlla(d).value_or("");
    };
    EXPECT_EQ(controlla("1 2 3", 3, 1), "");
    EXPECT_NE(controlla("1 2 3", 4, {}), "");
    EXPECT_EQ(controlla("1 2 3 4 5 6", 5, {}), "");
    EXPECT_NE(controlla("1 2 3;4 5 6", 1, 3), "");
    EXPECT_NE(controlla("1 2 3 4", 4, 1), "");
}

// ---- the analysis of the statistics screen ----

Risultato analizza(std::string_view chiave, const ArchivioEstrazioni& archivio, ParametriStatistica p,
                   const AmbitoRicerca& ambito = {}) {
    p.analisi = true;
    Domanda d = prove::domanda(chiave, ambito);
    d.parametri = std::move(p);
    return prove::esegui(d, archivio);
}

TEST(AnalisiGruppo, UnaFamigliaELaStessaDelGruppoScritto) {
    const auto archivio = archivio_casuale(3);
    const Risultato r = analizza("gemelli", archivio, {.tipo = 1, .entro = 2});
    Risultato atteso =
        cerca(archivio, {.lunghette = gruppo("11 22 33 44 55 66 77 88"), .sorte = 2, .entro = 2});
    EXPECT_EQ(r.titolo, "Analisi Gruppo - Gemelli");
    atteso.titolo = r.titolo;
    EXPECT_EQ(r, atteso);
}

TEST(AnalisiGruppo, AmbataCapogiocoPrendeTuttiGliAmbi) {
    const Risultato r = analizza("ambata capogioco", da_testo(kCinque), {.capogioco = {2}});
    EXPECT_EQ(r.tabelle[2].righe(), 89U);
    EXPECT_EQ(r.tabelle[2].testo(0, 0), "1 - 2");
    EXPECT_EQ(r.tabelle[2].testo(88, 0), "2 - 90");
    // Draw 1 has the 1 of the first pair, draw 3 the 2 of all of them.
    EXPECT_EQ(r.tabelle[2].testo(0, 1), "2");
    EXPECT_EQ(analizza("ambata capogioco", da_testo(kCinque), {.capogioco = {0}}).messaggi[0].testo,
              "Capogioco specificato non valido");
}

TEST(AnalisiGruppo, AmboCapogiocoPrendeLePrimeRigheMostrate) {
    const ParametriStatistica p{.tipo = 1, .capogioco = {4, 2}, .combinazioni = 2};
    EXPECT_EQ(prove::righe(analizza("ambo capogioco", da_testo(kCinque), p).tabelle[2]),
              "1 - 2 - 4 1 2 2\n2 - 3 - 4 1 2 2\n");
    ParametriStatistica ordinata = p;
    ordinata.ordine.resize(88);
    for (std::uint32_t i = 0; i < 88; ++i) ordinata.ordine[i] = 87 - i;
    EXPECT_EQ(prove::righe(analizza("ambo capogioco", da_testo(kCinque), ordinata).tabelle[2]),
              "2 - 4 - 90 1 2 2\n2 - 4 - 89 1 2 2\n");
    ParametriStatistica tutte = p;
    tutte.combinazioni.reset();
    EXPECT_EQ(analizza("ambo capogioco", da_testo(kCinque), tutte).tabelle[2].righe(), 88U);
    tutte.combinazioni = 1000;
    EXPECT_EQ(analizza("ambo capogioco", da_testo(kCinque), tutte).tabelle[2].righe(), 88U);
}

// ---- the ambi of one number in Win for Life ----

Risultato ambi_winforlife(const ArchivioEstrazioni& archivio, ParametriAmbiWinForLife parametri,
                          const AmbitoRicerca& ambito = {}) {
    Domanda d = prove::domanda("analisi gruppo win for life", ambito);
    d.parametri = std::move(parametri);
    return prove::esegui(d, archivio);
}

TEST(AnalisiGruppo, GliAmbiDelCapogiocoInWinForLife) {
    const auto archivio = prove::da_testi("", "",
                                          "1 9:00 1 2 3 4 5 6 7 8 9 10\n"
                                          "2 9:00 11 12 13 14 15 16 17 18 19 20\n"
                                          "3 10:00 1 2 11 12 13 14 15 16 17 18\n");
    const Risultato r = ambi_winforlife(archivio, {.capogioco = {1}});
    EXPECT_EQ(r.titolo, "Analisi Gruppo - ambi del 1");
    ASSERT_EQ(r.tabelle[2].righe(), 19U);
    // Nine ambi come with draw 1, none with draw 2, nine with draw 3; 1-2 with both, 1-20 with neither.
    const std::string ambi = prove::righe(r.tabelle[2]);
    EXPECT_TRUE(ambi.starts_with("1 - 2 2 0 1\n")) << ambi;
    EXPECT_TRUE(ambi.ends_with("\n1 - 19 0 3 0\n1 - 20 0 3 0\n")) << ambi;
    EXPECT_EQ(prove::righe(r.tabelle[3]), "18 / 3 0 1 0,06\n");
    EXPECT_EQ(prove::righe(r.tabelle[0]), "0 17 94,44%\n1 1 5,56%\n");
    // One number of an ambo is enough: in draw 1 each of the 19, in draw 2 the ten that hold one of its
    // numbers.
    EXPECT_EQ(prove::righe(ambi_winforlife(archivio, {.capogioco = {1}, .tipo = 0}).tabelle[3]),
              "48 / 3 0 0 0,00\n");
    EXPECT_EQ(r.tabelle[2].evento(0)->gioco, Gioco::win_for_life);
}

TEST(AnalisiGruppo, InWinForLifeUnCapogiocoSbagliatoSiDice) {
    const auto archivio = prove::da_testi("", "",
                                          "1 9:00 1 2 3 4 5 6 7 8 9 10\n"
                                          "2 9:00 1 2 3 4 5 6 7 8 9 10\n");
    for (const int capo : {0, 21}) {
        const Risultato r = ambi_winforlife(archivio, {.capogioco = {capo}});
        EXPECT_FALSE(r.prodotto);
        ASSERT_EQ(r.messaggi.size(), 1U);
        EXPECT_EQ(r.messaggi[0].testo, kCapogiocoNonValido);
    }
    AmbitoRicerca vuoto;
    vuoto.tratto = {2, 1};
    EXPECT_EQ(ambi_winforlife(archivio, {.capogioco = {1}}, vuoto).messaggi[0].testo, kNessunaEstrazione);
    // The hour does not cut these draws.
    AmbitoRicerca alle_dieci;
    alle_dieci.ora = 3;
    EXPECT_TRUE(ambi_winforlife(archivio, {.capogioco = {1}}, alle_dieci).prodotto);
}

/// What the steps of the analysis give when they are walked one by one.
TEST(AnalisiGruppo, GliAmbiInWinForLifeUgualiAllaLenta) {
    for (unsigned seme = 1; seme <= 30; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const int capo = 1 + static_cast<int>(seme % 20);
        const int sorte = 1 + static_cast<int>(seme % 2);
        const auto& tabella = archivio.winforlife();
        const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso_winforlife());
        struct Ambo {
            int frequenza = 0, ultimo = 0, storico = 0;
        };
        std::map<std::pair<int, int>, Ambo> ambi;
        for (int n = 1; n <= 20; ++n)
            if (n != capo) ambi[std::minmax(n, capo)];
        int c = 0;
        int record = 0;
        Concorso prima = 0;
        for (std::size_t i = 0; i < tabella.concorso.size(); ++i) {
            if (!tratto.contiene(tabella.concorso[i])) continue;
            ++record;
            if (tabella.concorso[i] != prima) ++c;
            prima = tabella.concorso[i];
            for (auto& [numeri, a] : ambi) {
                int colpi = 0;
                for (const Numero n : tabella.numeri[i]) colpi += n == numeri.first || n == numeri.second;
                if (colpi < sorte) continue;
                ++a.frequenza;
                a.storico = std::max(a.storico, c - a.ultimo - 1);
                a.ultimo = c;
            }
        }
        const Risultato r = ambi_winforlife(archivio, {.capogioco = {capo}, .tipo = sorte - 1}, ambito);
        ASSERT_EQ(r.prodotto, record > 0);
        if (!r.prodotto) continue;
        std::string attese;
        for (const auto& [numeri, a] : ambi)
            attese += fmt::format("{} - {} {} {} {}\n", numeri.first, numeri.second, a.frequenza,
                                  record - a.ultimo, a.storico);
        EXPECT_EQ(prove::righe(r.tabelle[2]), attese);
    }
}

TEST(AnalisiGruppo, CioCheNonVaInsieme) {
    Domanda d = prove::domanda("decine");
    const auto controlla = [&](ParametriStatistica p) {
        d.parametri = std::move(p);
        return d.ricerca->controlla(d).value_or("");
    };
    EXPECT_EQ(controlla({.tipo = 1}), "");
    EXPECT_NE(controlla({.entro = 3}), "");
    EXPECT_NE(controlla({.combinazioni = 3}), "");
    EXPECT_NE(controlla({.tutte_le_ruote = true, .analisi = true}), "");
    EXPECT_EQ(controlla({.analisi = true, .combinazioni = 3, .entro = 3}), "");
    d = prove::domanda("ambata capogioco");
    EXPECT_NE(controlla({.tipo = 1}), "");
    EXPECT_EQ(controlla({.tipo = 1, .analisi = true}), "");
}

// ---- the same, told step by step ----

struct Lenta {
    std::string ritardi, esiti, lunghette, sintesi;
};

Lenta analisi_lenta(const std::vector<prove::RigaPiana>& righe, const SerieCorrente& g, int k, int t) {
    const std::size_t lunghette = g.righe();
    std::vector<Conti> conti(lunghette, Conti{.ritardo = t});
    std::map<int, int> tavola;
    int d = 0;
    int c = 0;
    int s = 0;
    int o = 0;
    long u = 0;
    int tenuto = 0;
    Lenta l;
    for (std::size_t r = 0; r < righe.size(); ++r) {
        if (righe[r].concorso != tenuto) ++c;
        tenuto = righe[r].concorso;
        for (std::size_t i = 0; i < lunghette; ++i) {
            int presi = 0;
            for (const Numero n : g.membro(i))
                for (const int e : righe[r].n) presi += e == n ? 1 : 0;
            if (presi < k) continue;
            d = std::max(d, 0);
            l.esiti += std::to_string(d) + " " + std::to_string(righe[r].concorso) + "\n";
            conti[i].esce(c, t);
            if (d <= 1000) ++tavola[d];
            u += d;
            ++o;
            s = std::max(s, d);
            d = -1;
        }
        if (r + 1 == righe.size() || righe[r + 1].concorso != righe[r].concorso) ++d;
    }
    for (const auto& [ritardo, quanti] : tavola)
        l.ritardi += std::to_string(ritardo) + " " + std::to_string(quanti) + "\n";
    for (std::size_t i = 0; i < lunghette; ++i) l.lunghette += conti[i].testo();
    char media[32] = "";
    if (o > 0)
        std::snprintf(media, sizeof media, "%ld.%02ld", (u * 200 + o) / (2 * o) / 100,
                      (u * 200 + o) / (2 * o) % 100);
    l.sintesi = std::to_string(o) + " / " + std::to_string(righe.size()) + " " + std::to_string(d) + " " +
                std::to_string(s) + " " + media;
    return l;
}

SerieCorrente gruppo_a_caso(std::mt19937& caso, bool doppi) {
    const auto fra = [&](int a, int b) { return std::uniform_int_distribution<int>{a, b}(caso); };
    SerieCorrente g{.colonne = static_cast<std::size_t>(fra(1, 20))};
    for (int i = fra(1, 70); i > 0; --i) {
        std::vector<int> numeri;
        while (numeri.size() < g.colonne) {
            const int n = fra(1, 90);
            if (doppi || std::find(numeri.begin(), numeri.end(), n) == numeri.end()) numeri.push_back(n);
        }
        for (const int n : numeri) g.aggiungi({n});
    }
    return g;
}

TEST(Gruppi, UgualeAllaLenta) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 0; seme < 150; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        const SerieCorrente g = gruppo_a_caso(caso, seme % 5 == 0);
        const int k = static_cast<int>(seme % 5) + 1;
        const auto righe = prove::righe_piane(archivio, ambito);
        const Lenta attesa =
            analisi_lenta(righe, g, k, prove::arrotonda(righe.size(), ambito.ruote.n_ruote()));
        const Risultato r = analisi_gruppo(archivio, ambito, {.gruppo = g, .sorte = k}, nessuno);
        ASSERT_EQ(r.prodotto, !righe.empty());
        if (!r.prodotto) continue;
        const auto colonne = [](const Tabella& t, std::vector<std::size_t> quali) {
            std::string testo;
            for (std::size_t i = 0; i < t.righe(); ++i) {
                for (std::size_t c = 0; c < quali.size(); ++c)
                    testo += (c == 0 ? "" : " ") + t.testo(i, quali[c]);
                testo += "\n";
            }
            return testo;
        };
        ASSERT_EQ(colonne(r.tabelle[0], {0, 1}), attesa.ritardi);
        ASSERT_EQ(colonne(r.tabelle[1], {0, 1}), attesa.esiti);
        ASSERT_EQ(colonne(r.tabelle[2], {1, 2, 3}), attesa.lunghette);
        std::string sintesi = prove::righe(r.tabelle[3]);
        std::replace(sintesi.begin(), sintesi.end(), ',', '.');
        sintesi.pop_back();
        ASSERT_EQ(sintesi, attesa.sintesi);
    }
}

TEST(Gruppi, IlDettaglioUgualeAllaSerieDelleCombinazioni) {
    SenzaAvanzamento nessuno;
    for (std::uint32_t seme = 0; seme < 80; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto archivio = archivio_casuale(seme);
        const AmbitoRicerca ambito = ambito_casuale(seme);
        SerieCorrente g = gruppo_a_caso(caso, false);
        const int k = static_cast<int>(seme % 3) + 1;
        if (static_cast<int>(g.colonne) < k) continue;
        std::vector<Numero> numeri(g.membro(0).begin(), g.membro(0).end());
        std::sort(numeri.begin(), numeri.end());
        const SerieCorrente combinazioni = scomposizione_gruppo(numeri, k);
        const auto righe = prove::righe_piane(archivio, ambito);
        const int t = prove::arrotonda(righe.size(), ambito.ruote.n_ruote());
        std::vector<Conti> conti(combinazioni.righe(), Conti{.ritardo = t});
        prove::cammina(righe, [&](int c, const std::vector<int>& n) {
            for (std::size_t i = 0; i < combinazioni.righe(); ++i) {
                bool tutti = true;
                for (const Numero x : combinazioni.membro(i))
                    tutti = tutti && std::find(n.begin(), n.end(), x) != n.end();
                if (tutti) conti[i].esce(c, t);
            }
        });
        std::string atteso;
        for (std::size_t i = 0; i < combinazioni.righe(); ++i) {
            std::string nome;
            for (const Numero n : combinazioni.membro(i)) nome += (nome.empty() ? "" : "-") + prove::due(n);
            atteso += nome + " " + std::to_string(conti[i].ritardo) + " " +
                      std::to_string(conti[i].frequenza) + " " + std::to_string(conti[i].storico) + "\n";
        }
        ASSERT_EQ(prove::righe(dettaglio_scomposta(archivio, ambito, g.membro(0), k, nessuno)), atteso);
    }
}

}  // namespace
}  // namespace sortimetra
