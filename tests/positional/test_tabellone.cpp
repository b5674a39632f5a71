#include "archive/combinazioni.h"
#include "positional/tabellone.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <deque>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

Risultato al_concorso(Risultato (*cerca)(const ArchivioEstrazioni&, const Domanda&, Avanzamento&),
                      const ArchivioEstrazioni& archivio, std::optional<Concorso> concorso = {}) {
    Domanda d = domanda("");
    d.parametri.concorso = concorso;
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
