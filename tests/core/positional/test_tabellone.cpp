#include "draws/combinazioni.h"
#include "positional/parametri.h"
#include "positional/tabellone.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

Risultato al_concorso(Risultato (*cerca)(const ArchivioEstrazioni&, const Domanda&, Avanzamento&),
                      const ArchivioEstrazioni& archivio, std::optional<Concorso> concorso = {}) {
    Domanda d = domanda("");
    d.parametri.per<ParametriTabellone>().concorso = concorso;
    return cerca(archivio, d, nessuno);
}

/// The columns that hold something in a row of the first table: "column=text".
std::string piene(const Risultato& r, std::string_view prima) {
    const Tabella& t = r.tabelle.at(0);
    for (std::size_t i = 0; i < t.righe(); ++i) {
        if (t.testo(i, 0) != prima) continue;
        std::string testo;
        for (std::size_t c = 1; c < t.n_colonne(); ++c)
            if (!t.testo(i, c).empty()) testo += std::to_string(c) + "=" + t.testo(i, c) + " ";
        return testo;
    }
    return "assente";
}

TEST(Tabellone, OgniNumeroStaDoveEUscitoPerUltimo) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n1 CA 1 2 3 4 5\n1 VE 90 2 3 4 5\n"
        "2 BA 3 6 7 8 9\n2 CA 11 12 13 14 15\n2 VE 1 2 3 4 5\n2 NZ 50 51 52 53 54\n");
    const Risultato r = al_concorso(tabellone_lotto, archivio);
    EXPECT_EQ(piene(r, "0"),
              "1=3 2=6 3=7 4=8 5=9 6=11 7=12 8=13 9=14 10=15 46=1 47=2 48=3 49=4 50=5 51=50 52=51 53=52 "
              "54=53 55=54 ");
    // 3 of Bari has come out since; the wheels do not touch one another.
    EXPECT_EQ(piene(r, "1"), "1=1 2=2 4=4 5=5 6=1 7=2 8=3 9=4 10=5 46=90 ");
    EXPECT_EQ(r.tabelle[0].righe(), 2U);
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "1");
    EXPECT_EQ(r.tabelle[0].titoli[0][1], "Bari");
    EXPECT_EQ(r.tabelle[0].titoli[0][51], "Nazionale");
    EXPECT_EQ(r.tabelle[0].sfondo(0, 0), kNessunColore);
    EXPECT_EQ(r.tabelle[0].sfondo(0, 1), 0xC0FFFF);
    EXPECT_EQ(r.tabelle[0].sfondo(0, 6), 15914962);
    EXPECT_EQ(r.tabelle[0].sfondo(1, 55), 0xC0FFFF);
}

TEST(Tabellone, LaNazionaleVuotaDoveIlConcorsoLeManca) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n1 NZ 50 51 52 53 54\n2 BA 6 7 8 9 10\n");
    EXPECT_EQ(piene(al_concorso(tabellone_lotto, archivio), "0"), "1=6 2=7 3=8 4=9 5=10 ");
    EXPECT_EQ(piene(al_concorso(tabellone_lotto, archivio), "1"), "1=1 2=2 3=3 4=4 5=5 ");
}

TEST(Tabellone, UnNumeroAssenteDaTrecentounoConcorsiNonCe) {
    std::string testo = "1 BA 77 2 3 4 5\n2 BA 78 2 3 4 5\n";
    for (int c = 3; c <= 302; ++c) testo += std::to_string(c) + " BA 1 2 3 4 5\n";
    const Risultato r = al_concorso(tabellone_lotto, da_testo(testo));
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "300");
    EXPECT_EQ(piene(r, "300"), "1=78 ");
}

TEST(Tabellone, UnRitardoSenzaNumeriNonHaRiga) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n2 BA 6 7 8 9 10\n3 BA 6 7 8 9 10\n4 BA 6 7 8 9 11\n");
    const Tabella t = al_concorso(tabellone_lotto, archivio).tabelle[0];
    std::string ritardi;
    for (std::size_t r = 0; r < t.righe(); ++r) ritardi += t.testo(r, 0) + " ";
    // Delay 2 has only numbers that have come out since; behind the first draw nothing is left.
    EXPECT_EQ(ritardi, "3 1 0 ");
}

TEST(Tabellone, AlConcorsoSceltoNonAllUltimo) {
    std::string testo;
    for (int c = 1; c <= 600; ++c)
        testo += std::to_string(c) + (c > 550 ? " BA 6 7 8 9 10\n" : " BA 1 2 3 4 5\n");
    const Risultato r = al_concorso(tabellone_lotto, da_testo(testo), 540);
    EXPECT_EQ(piene(r, "0"), "1=1 2=2 3=3 4=4 5=5 ");
    EXPECT_EQ(r.tabelle[0].righe(), 1U);
    EXPECT_EQ(r.titolo, "La Posizione dei 90 numeri dopo l'estrazione del 23/06/2001 - Lotto");
}

TEST(Tabellone, IlConcorsoTornaNeiSuoiLimiti) {
    std::string testo;
    for (int c = 1; c <= 600; ++c)
        testo += std::to_string(c) + " BA 1 2 3 4 " + std::to_string(5 + c % 80) + "\n";
    const auto archivio = da_testo(testo);
    EXPECT_EQ(limiti_concorso(archivio, TipoTabellone::lotto).riporta(12), 500);
    EXPECT_EQ(limiti_concorso(archivio, TipoTabellone::lotto).riporta(700), 600);
    EXPECT_EQ(limiti_concorso(archivio, TipoTabellone::lotto).riporta(555), 555);
    // Rows above 401 divided by ten: 199 rows of one wheel give 20, below the lower end.
    EXPECT_EQ(limiti_concorso(archivio, TipoTabellone::dieci_e_lotto).riporta(555), 20);
    const Risultato r = al_concorso(tabellone_lotto, archivio, 12);
    EXPECT_EQ(r.note, std::vector<std::string>{"concorso 12 riportato a 500"});
    EXPECT_TRUE(al_concorso(tabellone_lotto, archivio).note.empty());
}

TEST(Tabellone, OgniTabelloneHaIProprioLimite) {
    std::string lotto;
    std::string sestine;
    std::string wfl;
    for (int c = 1; c <= 1000; ++c) {
        // Bari misses every hundredth draw; from 402 on Cagliari is there, too.
        if (c % 100 != 0) lotto += std::to_string(c) + " BA 1 2 3 4 5\n";
        if (c % 100 == 0 || c > 401) lotto += std::to_string(c) + " CA 1 2 3 4 5\n";
        if (c > 401) sestine += std::to_string(c) + " 1 2 3 4 5 6 7 8\n";
    }
    for (int c = 1; c <= 700; ++c) wfl += std::to_string(c) + " 9:00 1 2 3 4 5 6 7 8 9 10\n";
    const auto archivio = da_testi(lotto, sestine, wfl);
    const auto massimo = [&](TipoTabellone tipo) {
        EXPECT_EQ(limiti_concorso(archivio, tipo).minimo, 500);
        return limiti_concorso(archivio, tipo).massimo;
    };
    EXPECT_EQ(massimo(TipoTabellone::lotto), 990);            // Bari's rows
    EXPECT_EQ(massimo(TipoTabellone::primi_estratti), 1000);  // the last concorso
    EXPECT_EQ(massimo(TipoTabellone::sestina), 599);          // rows of its table
    EXPECT_EQ(massimo(TipoTabellone::win_for_life), 700);     // its own last concorso
    // 593 rows of Bari and 599 of Cagliari above 401: 1192 / 10.
    EXPECT_EQ(massimo(TipoTabellone::dieci_e_lotto), 119);
    // Nothing typed is the last one as it is, typed it is brought back.
    std::vector<std::string> note;
    EXPECT_EQ(concorso_scelto(archivio, TipoTabellone::sestina, {}, &note), 1000);
    EXPECT_TRUE(note.empty());
    EXPECT_EQ(concorso_scelto(archivio, TipoTabellone::sestina, 1000, &note), 599);
    EXPECT_EQ(concorso_scelto(archivio, TipoTabellone::win_for_life, {}, &note), 700);
    EXPECT_EQ(note, std::vector<std::string>{"concorso 1000 riportato a 599"});
}

TEST(Tabellone, PrimiEstrattiSonoINumeriDiBariConUnaCasellaVuota) {
    std::string testo;
    for (int c = 404; c <= 407; ++c)
        testo += std::to_string(c) + " BA 5 4 3 2 " + std::to_string(c - 350) + "\n";
    const Risultato r = al_concorso(tabellone_primi_estratti, da_testo(testo));
    EXPECT_EQ(piene(r, "0"), "2=2 3=3 4=4 5=5 6=57 ");
    EXPECT_EQ(piene(r, "1"), "6=56 ");
    EXPECT_EQ(piene(r, "2"), "assente");  // concorso 405 is below 406
    EXPECT_EQ(r.tabelle[0].titoli[0], (std::vector<std::string>{"Ritardo", "Bari", "Firenze", "Milano",
                                                                "Napoli", "Palermo", "Roma"}));
}

TEST(Tabellone, IPrimiEstrattiGuardanoDuemilaEstrazioniIndietro) {
    std::string testo;
    for (int c = 402; c <= 2700; ++c)
        testo += std::to_string(c) + (c == 700   ? " BA 90 2 3 4 5\n"
                                      : c == 699 ? " BA 89 2 3 4 5\n"
                                                 : " BA 1 2 3 4 5\n");
    const Risultato r = al_concorso(tabellone_primi_estratti, da_testo(testo));
    // 90 came out 2000 draws ago, 89 one earlier.
    EXPECT_EQ(r.tabelle[0].testo(0, 0), "2000");
    EXPECT_EQ(piene(r, "2000"), "6=90 ");
    EXPECT_EQ(r.tabelle[0].righe(), 2U);
}

TEST(Tabellone, CinquecentoEstrazioniIndietroSugliAltri) {
    std::string lotto;
    std::string sestine;
    std::string wfl;
    for (int c = 402; c <= 1100; ++c) {
        const int ultimo = c == 600 ? 20 : c == 599 ? 19 : 10;
        lotto += std::to_string(c) + " BA 1 2 3 4 5\n";
        sestine += std::to_string(c) + " 1 2 3 4 5 " + std::to_string(ultimo) + " 0 0\n";
        wfl += std::to_string(c) + " 9:00 1 2 3 4 5 6 7 8 9 " + std::to_string(ultimo) + "\n";
    }
    const auto archivio = da_testi(lotto, sestine, wfl);
    const Risultato sestina = al_concorso(tabellone_sestina, archivio);
    EXPECT_EQ(sestina.tabelle[0].testo(0, 0), "500");
    EXPECT_EQ(piene(sestina, "500"), "6=20 ");
    const Risultato vita = al_concorso(tabellone_winforlife, archivio);
    EXPECT_EQ(vita.tabelle[0].testo(0, 0), "500");
    EXPECT_EQ(piene(vita, "500"), "10=20 ");
}

TEST(Tabellone, LaSestinaCheMancaLasciaVuotoIlRitardoZero) {
    std::string lotto;
    std::string sestine;
    for (int c = 402; c <= 510; ++c) lotto += std::to_string(c) + " BA 1 2 3 4 5\n";
    for (int c = 402; c <= 508; ++c)
        sestine += std::to_string(c) + " 1 2 3 4 5 " + std::to_string(10 + c % 70) + " 9 0\n";
    const auto archivio = da_testi(lotto, sestine, "");
    const Risultato r = al_concorso(tabellone_sestina, archivio);
    EXPECT_EQ(piene(r, "0"), "assente");
    EXPECT_EQ(piene(r, "1"), "1=1 2=2 3=3 4=4 5=5 6=28 ");
    EXPECT_EQ(r.tabelle[0].titoli[0][0], "Rit.");
}

TEST(Tabellone, WinForLifeParteDal406) {
    std::string testo;
    for (int c = 1; c <= 520; ++c)
        testo += std::to_string(c) + " 9:00 1 2 3 4 5 6 7 8 9 " +
                 std::to_string(c == 405   ? 20
                                : c == 406 ? 19
                                           : 10) +
                 "\n";
    const Risultato r = al_concorso(tabellone_winforlife, da_testi("", "", testo));
    EXPECT_EQ(piene(r, "114"), "10=19 ");
    EXPECT_EQ(r.tabelle[0].righe(), 2U);
    EXPECT_EQ(r.tabelle[0].titoli.size(), 2U);
    // From the lowest concorso that can be chosen the walk ends 94 draws back.
    const Risultato a500 = al_concorso(tabellone_winforlife, da_testi("", "", testo), 500);
    EXPECT_EQ(piene(a500, "94"), "10=19 ");
    EXPECT_EQ(a500.tabelle[0].testo(0, 0), "94");
}

TEST(DieciInRitardo, GliAssentiStannoInTesta) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n1 NZ 6 7 8 9 10\n2 BA 11 12 13 14 15\n2 NZ 6 7 8 9 10\n");
    const Risultato r = al_concorso(dieci_piu_in_ritardo, archivio);
    const Tabella& t = r.tabelle[0];
    ASSERT_EQ(t.righe(), 120U);
    // Each absent number goes before the earlier ones; two draws of Nazionale are their delay.
    EXPECT_EQ(t.testo(0, 0) + t.testo(0, 1) + " " + t.testo(0, 2) + " " + t.testo(0, 3), "Bari1 90 2");
    EXPECT_EQ(t.testo(9, 2), "81");
    EXPECT_EQ(t.testo(100, 0), "Nazionale");
    EXPECT_EQ(t.testo(110, 0), "Tutte");
    // Across all wheels: delay 1 for the first draw's numbers, then 0 in number order.
    EXPECT_EQ(t.testo(110, 2) + " " + t.testo(110, 3), "1 1");
    EXPECT_EQ(t.testo(115, 2) + " " + t.testo(115, 3), "6 0");
    EXPECT_EQ(t.sfondo(110, 2), 0xDDFFDF);
    EXPECT_EQ(t.primo_piano(119, 3), 255);
    EXPECT_EQ(t.sfondo(110, 0), kNessunColore);
    EXPECT_EQ(t.sfondo(0, 2), kNessunColore);
}

TEST(DieciInRitardo, SenzaNazionaleIlSuoGruppoEVuoto) {
    const Risultato r = al_concorso(dieci_piu_in_ritardo, da_testo("1 BA 1 2 3 4 5\n"));
    EXPECT_EQ(r.tabelle[0].testo(100, 0), "Nazionale");
    EXPECT_EQ(r.tabelle[0].testo(100, 2), "");
    EXPECT_EQ(r.tabelle[0].testo(109, 3), "");
    EXPECT_EQ(r.tabelle[0].testo(0, 3), "0");
}

TEST(DieciInRitardo, NellaStessaRigaValeLOrdineDeiPosti) {
    // Fifteen numbers of Bari stand on the board, all others are absent from it; ten draws of 90 numbers
    // leave nobody absent.
    std::string testo = "1 BA 90 3 7 1 5\n";
    for (int c = 2; c <= 18; ++c) {
        testo += std::to_string(c) + " BA";
        for (int i = 0; i < 5; ++i) {
            // The other 85 numbers, five a draw.
            const int k = 5 * (c - 2) + i;
            int n = 0;
            for (int viste = -1; viste < k;)
                if (++n; n != 90 && n != 3 && n != 7 && n != 1 && n != 5) ++viste;
            testo += " " + std::to_string(n);
        }
        testo += "\n";
    }
    const Tabella t = al_concorso(dieci_piu_in_ritardo, da_testo(testo)).tabelle[0];
    std::string bari;
    for (std::size_t p = 0; p < 10; ++p) bari += t.testo(p, 2) + "/" + t.testo(p, 3) + " ";
    EXPECT_EQ(bari, "90/17 3/17 7/17 1/17 5/17 2/16 4/16 6/16 8/16 9/16 ");
}

TEST(DieciInRitardo, TutteGuardaLeUltimeCinquecentodieciRigheDellArchivio) {
    std::string testo;
    for (int c = 1; c <= 520; ++c)
        testo += std::to_string(c) + (c == 10   ? " BA 90 2 3 4 5\n"
                                      : c == 11 ? " BA 89 2 3 4 5\n"
                                                : " BA 1 2 3 4 5\n");
    const auto archivio = da_testo(testo);
    const Tabella t = al_concorso(dieci_piu_in_ritardo, archivio, 510).tabelle[0];
    // 510 rows from the end begin with draw 11: 90 came out one too early, and has no delay at all. The list
    // does not stop at the chosen concorso.
    EXPECT_EQ(t.testo(110, 2) + " " + t.testo(110, 3), "89 509");
    EXPECT_EQ(t.testo(111, 2) + " " + t.testo(111, 3), "1 0");
    EXPECT_EQ(t.testo(119, 2), "9");
}

TEST(DieciInRitardo, GliAssentiAspettanoLeEstrazioniDellaNazionaleFinoAlConcorso) {
    std::string testo;
    for (int c = 1; c <= 520; ++c) {
        testo += std::to_string(c) + " BA 1 2 3 4 5\n";
        if (c >= 505) testo += std::to_string(c) + " NZ 1 2 3 4 5\n";
    }
    const auto archivio = da_testo(testo);
    // Six of Nazionale's draws up to 510, sixteen up to the end.
    EXPECT_EQ(al_concorso(dieci_piu_in_ritardo, archivio, 510).tabelle[0].testo(0, 3), "6");
    EXPECT_EQ(al_concorso(dieci_piu_in_ritardo, archivio).tabelle[0].testo(0, 3), "16");
    // Before its first draw its group is empty, and absent numbers have delay 0.
    const Tabella prima = al_concorso(dieci_piu_in_ritardo, archivio, 504).tabelle[0];
    EXPECT_EQ(prima.testo(0, 2) + " " + prima.testo(0, 3), "90 0");
    EXPECT_EQ(prima.testo(100, 2) + prima.testo(109, 3), "");
}

TEST(DieciInRitardo, LaNazionaleCheMancaAlConcorsoDaTuttiAssenti) {
    const auto archivio =
        da_testo("1 BA 1 2 3 4 5\n1 NZ 6 7 8 9 10\n2 BA 1 2 3 4 5\n2 NZ 6 7 8 9 10\n3 BA 1 2 3 4 5\n");
    const Tabella t = al_concorso(dieci_piu_in_ritardo, archivio).tabelle[0];
    // Its columns of the board are empty, but it has two draws: all ninety are put in front, 90 last of all.
    EXPECT_EQ(t.testo(100, 2) + " " + t.testo(100, 3), "90 2");
    EXPECT_EQ(t.testo(109, 2) + " " + t.testo(109, 3), "81 2");
}

/// A board by the cubic comparison: each cell against all newer rows of its group.
std::vector<std::vector<int>> tabellone_lento(const std::deque<std::vector<int>>& dal_piu_nuovo,
                                              std::size_t gruppo, std::size_t ritardi) {
    std::vector<std::vector<int>> t;
    for (std::size_t d = 0; d < ritardi; ++d) {
        t.push_back(d < dal_piu_nuovo.size()
                        ? dal_piu_nuovo[d]
                        : std::vector<int>(dal_piu_nuovo.empty() ? gruppo : dal_piu_nuovo[0].size()));
        for (std::size_t g = 0; g < t[d].size(); g += gruppo)
            for (std::size_t p = 0; p < gruppo; ++p)
                for (std::size_t k = 1; k <= d; ++k)
                    for (std::size_t q = 0; q < gruppo; ++q)
                        if (t[d][g + p] == t[d - k][g + q]) t[d][g + p] = 0;
    }
    return t;
}

TEST(Tabellone, UgualeAlConfrontoCubicoSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 25; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        if (archivio.lotto().concorso.empty()) continue;
        const Tabellone veloce = iniz_tabellone(archivio, TipoTabellone::lotto, archivio.ultimo_concorso());
        std::deque<std::vector<int>> draws;
        for (std::size_t i = archivio.lotto().concorso.size(); i-- > 0;)
            draws.emplace_back(archivio.lotto().numeri[i].begin(), archivio.lotto().numeri[i].end());
        const auto lento = tabellone_lento(draws, 5, 301);
        for (std::size_t d = 0; d < 301; ++d)
            for (std::size_t c = 0; c < 50; ++c) ASSERT_EQ(veloce.cella(d, c), lento[d][c]) << d << " " << c;
        const auto& nz = archivio.nazionale();
        draws.clear();
        if (const auto inizio = cerca_concorso(nz.concorso, archivio.ultimo_concorso()))
            for (std::size_t i = *inizio + 1; i-- > 0;)
                draws.emplace_back(nz.numeri[i].begin(), nz.numeri[i].end());
        const auto lento_nz = tabellone_lento(draws, 5, 301);
        for (std::size_t d = 0; d < 301; ++d)
            for (std::size_t c = 0; c < 5; ++c)
                ASSERT_EQ(veloce.cella(d, 50 + c), lento_nz[d][c]) << d << " " << c;
    }
}

/// Draws of all games from a concorso near 395 on, so that the boards begin inside of them; some are missing
/// from a table, some wheels from a draw.
ArchivioEstrazioni archivio_attorno_al_402(std::uint32_t seme) {
    std::mt19937 caso{seme};
    const auto fra = [&](int da, int a) {
        return da + static_cast<int>(caso() % static_cast<unsigned>(a - da + 1));
    };
    const auto numeri = [&](int quanti, int massimo) {
        std::string testo;
        std::set<int> messi;
        while (static_cast<int>(messi.size()) < quanti)
            if (const int n = fra(1, massimo); messi.insert(n).second) testo += " " + std::to_string(n);
        return testo;
    };
    std::string lotto;
    std::string sestine;
    std::string wfl;
    const int primo = fra(395, 410);
    const int quanti = fra(1, 120);
    const int urna = fra(25, 90);
    for (int c = primo; c < primo + quanti; ++c) {
        for (int w = 0; w < kRuote; ++w)
            if (fra(0, 40) > 0)
                lotto += std::to_string(c) + " " +
                         std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} + numeri(5, urna) + "\n";
        if (fra(0, 12) > 0) sestine += std::to_string(c) + numeri(6, urna) + " 0 0\n";
        if (fra(0, 12) > 0) wfl += std::to_string(c) + " 9:00" + numeri(10, 20) + "\n";
    }
    return da_testi(lotto, sestine, wfl);
}

/// The draws of a board with one group, newest first from `concorso`: the table's rows above 401, each with
/// its numbers, an empty one for those below 406 and for a concorso that is not there.
std::deque<std::vector<int>> dal_concorso(const std::map<int, std::vector<int>>& tabella, int concorso,
                                          std::size_t colonne) {
    std::deque<std::vector<int>> draws;
    const bool trovato = tabella.count(concorso) > 0 && concorso > 401;
    if (!trovato) draws.emplace_back(colonne, 0);
    for (auto it = tabella.rbegin(); it != tabella.rend(); ++it) {
        if (it->first <= 401 || (trovato && it->first > concorso)) continue;
        draws.push_back(it->first < 406 ? std::vector<int>(colonne, 0) : it->second);
    }
    return draws;
}

TEST(Tabellone, UnGruppoSoloUgualeAlConfrontoCubico) {
    for (std::uint32_t seme = 1; seme <= 12; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_attorno_al_402(seme);
        const auto ordinati = [](std::vector<int> v) {
            std::sort(v.begin(), v.end());
            return v;
        };
        std::map<int, std::vector<int>> primi;
        std::map<int, std::vector<int>> dieci;
        std::map<int, std::vector<int>> sestine;
        std::map<int, std::vector<int>> wfl;
        const auto& lotto = archivio.lotto();
        for (std::size_t i = 0; i < lotto.concorso.size(); ++i) {
            const Combinazione c = calc_combinazione_10elotto(lotto, i);
            dieci[lotto.concorso[i]].assign(c.begin() + 1, c.end());
            if ((lotto.presenti[i] & 1U) == 0) continue;
            std::vector<int> v{0};
            v.insert(v.end(), lotto.numeri[i].begin(), lotto.numeri[i].begin() + 5);
            primi[lotto.concorso[i]] = ordinati(v);
        }
        const auto& s = archivio.superenalotto();
        for (std::size_t i = 0; i < s.concorso.size(); ++i)
            sestine[s.concorso[i]] = ordinati({s.numeri[i].begin(), s.numeri[i].begin() + 6});
        const auto& w = archivio.winforlife();
        for (std::size_t i = 0; i < w.concorso.size(); ++i)
            wfl[w.concorso[i]] = ordinati({w.numeri[i].begin(), w.numeri[i].end()});

        struct Caso {
            TipoTabellone tipo;
            const std::map<int, std::vector<int>>* tabella;
            std::size_t colonne;
        };
        const int ultimo = archivio.ultimo_concorso();
        for (const Caso& caso :
             {Caso{TipoTabellone::primi_estratti, &primi, 6}, Caso{TipoTabellone::sestina, &sestine, 6},
              Caso{TipoTabellone::dieci_e_lotto, &dieci, 20}, Caso{TipoTabellone::win_for_life, &wfl, 10}})
            for (const int concorso : {ultimo, ultimo - 1, ultimo - 7, 404, 402, 401, ultimo + 5}) {
                const Tabellone t = iniz_tabellone(archivio, caso.tipo, concorso);
                ASSERT_EQ(t.colonne, caso.colonne);
                const auto draws = dal_concorso(*caso.tabella, concorso, caso.colonne);
                const auto lento =
                    tabellone_lento(draws, caso.colonne, std::min(t.ritardi, draws.size() + 2));
                std::multiset<int> stanno;
                for (std::size_t d = 0; d < t.ritardi; ++d)
                    for (std::size_t c = 0; c < t.colonne; ++c) {
                        ASSERT_EQ(t.cella(d, c), d < lento.size() ? lento[d][c] : 0)
                            << static_cast<int>(caso.tipo) << " " << concorso << " " << d << " " << c;
                        if (t.cella(d, c) != 0) stanno.insert(t.cella(d, c));
                    }
                // Every number stands once at most.
                for (const int n : stanno)
                    if (caso.tipo != TipoTabellone::dieci_e_lotto) {
                        EXPECT_EQ(stanno.count(n), 1U) << n;
                    }
            }
    }
}

/// The list of a wheel, told step by step: the numbers by the draw that last had them, from the oldest of 301
/// draws; absent numbers before them, the highest first.
std::string dieci_lenti(const std::vector<std::vector<int>>& estrazioni, int assenti) {
    std::vector<std::pair<int, int>> lista;
    std::set<int> visti;
    const int n = static_cast<int>(estrazioni.size());
    for (int d = std::min(300, n - 1); d >= 0; --d)
        for (const int x : estrazioni[static_cast<std::size_t>(n - 1 - d)]) {
            bool dopo = false;
            for (int k = 0; k < d; ++k) {
                const auto& v = estrazioni[static_cast<std::size_t>(n - 1 - k)];
                dopo = dopo || std::count(v.begin(), v.end(), x) > 0;
            }
            if (x == 0 || dopo) continue;
            lista.emplace_back(x, d);
            visti.insert(x);
        }
    lista.resize(10);
    for (int x = 1; x <= 90; ++x)
        if (visti.count(x) == 0) {
            lista.insert(lista.begin(), {x, assenti});
            lista.pop_back();
        }
    std::string testo;
    for (const auto& [x, d] : lista) testo += std::to_string(x) + "/" + std::to_string(d) + " ";
    return testo;
}

TEST(DieciInRitardo, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 30; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        const auto& lotto = archivio.lotto();
        if (lotto.concorso.empty()) continue;
        const Tabella t = al_concorso(dieci_piu_in_ritardo, archivio).tabelle[0];
        const auto gruppo = [&](std::size_t g) {
            std::string testo;
            for (std::size_t p = 0; p < 10; ++p)
                testo += t.testo(g * 10 + p, 2) + "/" + t.testo(g * 10 + p, 3) + " ";
            return testo;
        };
        const auto& nz = archivio.nazionale();
        const int ultimo = archivio.ultimo_concorso();
        const int assenti = static_cast<int>(
            std::count_if(nz.concorso.begin(), nz.concorso.end(), [&](int c) { return c <= ultimo; }));
        for (std::size_t w = 0; w < 10; ++w) {
            std::vector<std::vector<int>> estrazioni;
            for (const auto& n : lotto.numeri)
                estrazioni.emplace_back(n.begin() + static_cast<std::ptrdiff_t>(5 * w),
                                        n.begin() + static_cast<std::ptrdiff_t>(5 * w + 5));
            EXPECT_EQ(gruppo(w), dieci_lenti(estrazioni, assenti)) << w;
        }
        std::vector<std::vector<int>> estrazioni;
        if (std::count(nz.concorso.begin(), nz.concorso.end(), ultimo) > 0)
            for (const auto& n : nz.numeri) estrazioni.emplace_back(n.begin(), n.end());
        std::string vuoto;
        for (int p = 0; p < 10; ++p) vuoto += "/ ";
        EXPECT_EQ(gruppo(10), assenti == 0 ? vuoto : dieci_lenti(estrazioni, assenti));

        // All wheels: row by row through the last 510.
        std::vector<std::pair<int, std::vector<int>>> righe;
        for (std::size_t i = 0; i < lotto.concorso.size(); ++i)
            for (std::size_t w = 0; w < 10; ++w)
                if ((lotto.presenti[i] >> w & 1U) != 0)
                    righe.emplace_back(
                        lotto.concorso[i],
                        std::vector<int>(lotto.numeri[i].begin() + static_cast<std::ptrdiff_t>(5 * w),
                                         lotto.numeri[i].begin() + static_cast<std::ptrdiff_t>(5 * w + 5)));
        std::vector<std::pair<int, int>> ritardi;
        for (int x = 1; x <= 90; ++x) ritardi.emplace_back(x, 0);
        for (std::size_t i = righe.size() > 510 ? righe.size() - 510 : 0; i < righe.size(); ++i)
            for (const int x : righe[i].second)
                if (x > 0) ritardi[static_cast<std::size_t>(x - 1)].second = ultimo - righe[i].first;
        std::stable_sort(ritardi.begin(), ritardi.end(),
                         [](const auto& a, const auto& b) { return a.second > b.second; });
        std::string tutte;
        for (int p = 0; p < 10; ++p)
            tutte += std::to_string(ritardi[static_cast<std::size_t>(p)].first) + "/" +
                     std::to_string(ritardi[static_cast<std::size_t>(p)].second) + " ";
        EXPECT_EQ(gruppo(11), tutte);
    }
}

TEST(Tabellone, DieciELottoUgualeAlConfrontoCubico) {
    const ArchivioEstrazioni* vero = archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws beside the project";
    for (const Concorso concorso : {500, 1234, 4655}) {
        const Tabellone veloce = iniz_tabellone(*vero, TipoTabellone::dieci_e_lotto, concorso);
        std::deque<std::vector<int>> draws;
        for (Concorso c = concorso; c > concorso - 501; --c) {
            draws.emplace_back(20, 0);
            if (c < 406) continue;
            const Combinazione n =
                calc_combinazione_10elotto(vero->lotto(), *cerca_concorso(vero->lotto().concorso, c));
            draws.back().assign(n.begin() + 1, n.end());
        }
        const auto lento = tabellone_lento(draws, 20, 501);
        for (std::size_t d = 0; d < 501; ++d)
            for (std::size_t c = 0; c < 20; ++c) ASSERT_EQ(veloce.cella(d, c), lento[d][c]) << d << " " << c;
    }
}

}  // namespace
}  // namespace sortimetra
