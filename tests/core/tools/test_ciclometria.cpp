#include "draws/cursore.h"
#include "support/archivi.h"
#include "tools/ciclometria.h"
#include "tools/parametri.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using namespace prove;
using testing::HasSubstr;

constexpr std::string_view kChiave = "calcolo somme e distanze ciclometriche";

Domanda al_concorso(std::optional<Concorso> concorso) {
    Domanda d = domanda(kChiave);
    d.parametri.per<ParametriCiclometria>().concorso = concorso;
    return d;
}
Domanda alla_data(std::string_view data) {
    Domanda d = domanda(kChiave);
    EXPECT_TRUE(kOpzDataCiclometria.leggi(data, d));
    return d;
}

/// Ten rows of one draw: the same five numbers on each but those told.
ArchivioEstrazioni dieci_ruote(const std::map<int, std::string>& altre,
                               const std::string& base = "- - - - -") {
    std::string testo;
    for (int w = 0; w < kRuote; ++w)
        testo += "1 " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} + " " +
                 (altre.contains(w) ? altre.at(w) : base) + "\n";
    return da_testo(testo);
}

/// The shades of a column, wheel by wheel: "." the row's own, else the place in the palette.
std::string tinte(const Tabella& t, std::size_t colonna) {
    std::string testo;
    for (std::size_t r = 0; r < t.righe(); ++r) {
        const Colore c = t.sfondo(r, colonna);
        const auto p = std::find(kPaletta.begin(), kPaletta.end(), c);
        testo += p == kPaletta.end() ? '.' : static_cast<char>('1' + (p - kPaletta.begin()));
    }
    return testo;
}

TEST(Ciclometria, SommeSulCerchioDi90) {
    EXPECT_EQ(somma_ciclometrica(90, 90), 90);
    EXPECT_EQ(somma_ciclometrica(45, 45), 90);
    EXPECT_EQ(somma_ciclometrica(45, 46), 1);
    EXPECT_EQ(somma_ciclometrica(1, 2), 3);
    EXPECT_EQ(somma_ciclometrica(0, 0), 0);
    EXPECT_EQ(somma_ciclometrica(0, 34), 34);
}

TEST(Ciclometria, DistanzeSulCerchioDi90) {
    EXPECT_EQ(distanza_ciclometrica(1, 90), 1);
    EXPECT_EQ(distanza_ciclometrica(90, 1), 1);
    EXPECT_EQ(distanza_ciclometrica(10, 55), 45);
    EXPECT_EQ(distanza_ciclometrica(55, 10), 45);
    EXPECT_EQ(distanza_ciclometrica(10, 56), 44);
    EXPECT_EQ(distanza_ciclometrica(7, 7), 0);
    for (int a = 1; a <= 90; ++a)
        for (int b = 1; b <= 90; ++b)
            EXPECT_EQ(distanza_ciclometrica(a, b), std::min(std::abs(a - b), 90 - std::abs(a - b)));
}

TEST(Ciclometria, TreTabelle) {
    const auto archivio = dieci_ruote({{0, "45 46 90 90 7"}, {9, "1 90 55 10 20"}});
    const Risultato r = esegui(al_concorso(1), archivio);
    ASSERT_EQ(r.tabelle.size(), 3U);
    EXPECT_EQ(r.tabelle[0].nome, "risultati");
    EXPECT_EQ(r.tabelle[1].nome, "somme");
    EXPECT_EQ(r.tabelle[2].nome, "distanze");
    EXPECT_EQ(r.tabelle[0].titoli[0][0], "Estrazione - 01/01/2000");
    EXPECT_EQ(r.tabelle[0].titoli[1], (std::vector<std::string>{"", "1°", "2°", "3°", "4°", "5°"}));
    EXPECT_EQ(r.tabelle[1].titoli[0][0], "Somma Ciclometrica");
    EXPECT_EQ(r.tabelle[2].titoli[0][0], "Distanza Ciclometrica");
    EXPECT_EQ(r.tabelle[2].titoli[1], (std::vector<std::string>{"", "1°- 2°", "2°- 3°", "3°- 4°", "4°- 5°"}));
    EXPECT_EQ(righe(r.tabelle[0]).substr(0, 20), "Bari 45 46 90 90 7\nC");
    EXPECT_EQ(righe(r.tabelle[1]).substr(0, 14), "Bari 1 46 90 7");
    EXPECT_THAT(righe(r.tabelle[1]), HasSubstr("Venezia 1 55 65 30\n"));
    EXPECT_EQ(righe(r.tabelle[2]).substr(0, 19), "Bari 1 44 ... 7\nCag");
    EXPECT_THAT(righe(r.tabelle[2]), HasSubstr("Venezia 1 35 45 10\n"));
    // A wheel that was not drawn.
    EXPECT_THAT(righe(r.tabelle[0]), HasSubstr("Roma ... ... ... ... ...\n"));
    EXPECT_THAT(righe(r.tabelle[1]), HasSubstr("Roma ... ... ... ...\n"));
    EXPECT_TRUE(r.tabelle[0].sfondi.empty());
    // Even and odd rows, the wheels' names with them.
    EXPECT_EQ(r.tabelle[1].sfondo(0, 0), 0xFFFFF2);
    EXPECT_EQ(r.tabelle[1].sfondo(1, 0), 0xFFFFFF);
}

TEST(Ciclometria, UnaCellaVuotaVaPerZero) {
    const Risultato r = esegui(al_concorso(1), dieci_ruote({{0, "- 34 - 90 -"}}));
    EXPECT_EQ(righe(r.tabelle[0]).substr(0, 23), "Bari ... 34 ... 90 ...\n");
    EXPECT_EQ(righe(r.tabelle[1]).substr(0, 17), "Bari 34 34 90 90\n");
    EXPECT_EQ(righe(r.tabelle[2]).substr(0, 19), "Bari 34 34 ... ...\n");
}

TEST(Ciclometria, TreRuoteUgualiHannoUnaTintaSola) {
    const Risultato r =
        esegui(al_concorso(1), dieci_ruote({{1, "3 4 80 81 20"}, {4, "5 2 60 61 62"}, {8, "6 1 40 41 42"}}));
    EXPECT_EQ(tinte(r.tabelle[1], 1), ".1..1...1.");
    // Distances: 1 in the third place of all three, 1 in the fourth of two.
    EXPECT_EQ(tinte(r.tabelle[2], 3), ".1..1...1.");
    EXPECT_EQ(tinte(r.tabelle[2], 4), "....1...1.");
}

TEST(Ciclometria, LaTavolozzaRicominciaEIlValoreTieneLaSuaTinta) {
    const Risultato r =
        esegui(al_concorso(1),
               dieci_ruote({{0, "1 2 8 30 33"}, {1, "2 1 9 40 50"}, {2, "1 9 1 2 90"}, {3, "2 8 2 1 89"}}));
    // First place: 3, 3, 10, 10. Second: 10, 10, 10, 10 have the second shade from there.
    EXPECT_EQ(tinte(r.tabelle[1], 1), "1122......");
    EXPECT_EQ(tinte(r.tabelle[1], 2), "2222......");
    // Third place: 38, 49, 3, 3: the 3 keeps its first shade; fourth: 63, 90, 2, 90: the palette's first.
    EXPECT_EQ(tinte(r.tabelle[1], 3), "..11......");
    EXPECT_EQ(tinte(r.tabelle[1], 4), ".1.1......");
    // The memory goes on into the distances: 1 is new, 8 and 6 too.
    EXPECT_EQ(tinte(r.tabelle[2], 1), "11........");
    // The next draw begins without memory.
    EXPECT_EQ(
        esegui(al_concorso(1), dieci_ruote({{0, "4 6 - - -"}, {1, "5 5 - - -"}})).tabelle[1].sfondo(0, 1),
        kPaletta[0]);
}

TEST(Ciclometria, MenoDiDieciRigheRipetonoLUltima) {
    const auto archivio = da_testo("3 CA 1 2 3 4 5\n3 VE 6 7 8 9 10\n");
    const Risultato r = esegui(al_concorso(3), archivio);
    EXPECT_EQ(righe(r.tabelle[0]).substr(0, 44), "Bari 1 2 3 4 5\nCagliari 6 7 8 9 10\nFirenze 6");
    EXPECT_THAT(righe(r.tabelle[0]), HasSubstr("Venezia 6 7 8 9 10\n"));
    // Nine equal rows are isotopes.
    EXPECT_EQ(tinte(r.tabelle[1], 1), ".111111111");
}

TEST(Ciclometria, GliIsotopiInParole) {
    const Risultato r =
        esegui(al_concorso(1), dieci_ruote({{1, "3 4 80 81 20"}, {4, "5 2 60 61 62"}, {8, "6 1 40 41 43"}}));
    EXPECT_EQ(testi_isotopi(r), (std::vector<std::string>{"Somma 1°- 2°: 7 a Cagliari, Milano e Torino",
                                                          "Distanza 3°- 4°: 1 a Cagliari, Milano e Torino"}));
    EXPECT_TRUE(testi_isotopi({}).empty());
}

TEST(Ciclometria, ConcorsoODataSenzaEstrazione) {
    const auto archivio = da_testo("1 BA 1 2 3 4 5\n4 BA 6 7 8 9 10\n");
    EXPECT_EQ(esegui(al_concorso(std::nullopt), archivio).tabelle[0].titoli[0][0], "Estrazione - 04/01/2000");
    for (const Concorso c : {0, 2, 5, -1}) {
        const Risultato r = esegui(al_concorso(c), archivio);
        EXPECT_FALSE(r.prodotto) << c;
        EXPECT_TRUE(r.messaggi.empty());
        ASSERT_EQ(r.note.size(), 1U);
        EXPECT_THAT(r.note[0], HasSubstr(std::to_string(c)));
    }
    EXPECT_EQ(esegui(alla_data("03/01/2000"), archivio).tabelle[0].titoli[0][0], "Estrazione - 01/01/2000");
    EXPECT_EQ(esegui(alla_data("04/01/2000"), archivio).tabelle[0].titoli[0][0], "Estrazione - 04/01/2000");
    EXPECT_EQ(esegui(alla_data("01/01/2030"), archivio).tabelle[0].titoli[0][0], "Estrazione - 04/01/2000");
    EXPECT_FALSE(esegui(alla_data("31/12/1999"), archivio).prodotto);
    EXPECT_FALSE(esegui(al_concorso(std::nullopt), da_testo("")).prodotto);
}

TEST(Ciclometria, ConcorsoEDataInsiemeNo) {
    Domanda d = alla_data("03/01/2000");
    EXPECT_EQ(controlla_ciclometria(d), std::nullopt);
    EXPECT_EQ(kOpzDataCiclometria.scrivi(d), "03/01/2000");
    d.parametri.per<ParametriCiclometria>().concorso = 7;
    EXPECT_THAT(controlla_ciclometria(d).value_or(""), AllOf(HasSubstr("--data"), HasSubstr("--concorso")));
    for (const std::string_view errata : {"", "3/1/2000", "2000-01-03", "31/02/2000", "oggi"})
        EXPECT_FALSE(kOpzDataCiclometria.leggi(errata, d)) << errata;
}

// ---- the same, plainly, on the texts of the cells ----

struct Piana {
    std::vector<std::vector<std::string>> numeri, somme, distanze;
    std::vector<std::vector<int>> tinte_somme, tinte_distanze;
};

std::string cella(int n) {
    return n > 0 ? std::to_string(n) : "...";
}

Piana piana(const ArchivioEstrazioni& archivio, Concorso concorso) {
    Piana p;
    Cursore righe = estrazione_concorso(archivio, concorso);
    std::vector<int> letta(5);
    for (int w = 0; w < 10; ++w) {
        if (const auto e = righe.corrente())
            for (std::size_t i = 0; i < 5; ++i) letta[i] = e->numeri()[i];
        righe.successivo();
        auto& numeri = p.numeri.emplace_back();
        for (const int n : letta) numeri.push_back(cella(n));
        auto& somme = p.somme.emplace_back();
        auto& distanze = p.distanze.emplace_back();
        for (std::size_t i = 0; i < 4; ++i) {
            const int a = letta[i];
            const int b = letta[i + 1];
            int s = a + b;
            if (s > 90) s -= 90;
            somme.push_back(cella(s));
            int d = a > b ? 90 - a + b : std::abs(b - a);
            if (d > 45) d = 90 - d;
            distanze.push_back(cella(d));
        }
    }
    std::map<std::string, int> memoria;
    const auto colora = [&](const auto& celle, auto& tinte) {
        tinte.assign(10, {0, 0, 0, 0});
        for (std::size_t r = 0; r < 10; ++r)
            for (int& t : tinte[r]) t = r % 2 == 0 ? 0xFFFFF2 : 0xFFFFFF;
        constexpr std::array kColori{0xFFFF00, 65280, 255, 0x80C0FF, 65535};
        for (std::size_t c = 0; c < 4; ++c) {
            std::size_t colore = 0;
            for (std::size_t i = 0; i < 9; ++i)
                for (std::size_t j = i + 1; j < 10; ++j) {
                    if (celle[i][c] == "..." || celle[i][c] != celle[j][c]) continue;
                    if (!memoria.contains(celle[i][c])) memoria[celle[i][c]] = kColori[colore++];
                    tinte[i][c] = tinte[j][c] = memoria[celle[i][c]];
                }
        }
    };
    colora(p.somme, p.tinte_somme);
    colora(p.distanze, p.tinte_distanze);
    return p;
}

void confronta(const Tabella& t, const std::vector<std::vector<std::string>>& celle,
               const std::vector<std::vector<int>>& tinte) {
    for (std::size_t r = 0; r < 10; ++r)
        for (std::size_t c = 0; c < celle[r].size(); ++c) {
            EXPECT_EQ(t.testo(r, c + 1), celle[r][c]);
            if (!tinte.empty()) {
                EXPECT_EQ(t.sfondo(r, c + 1), tinte[r][c]) << r << ' ' << c;
            }
        }
}

TEST(Ciclometria, UgualeAllaSecondaVersione) {
    for (std::uint32_t seme = 1; seme <= 60; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        for (Concorso c = 1; c <= std::min(archivio.ultimo_concorso(), 20); ++c) {
            SCOPED_TRACE(c);
            const Risultato r = esegui(al_concorso(c), archivio);
            if (estrazione_concorso(archivio, c).conteggio() == 0) {
                EXPECT_FALSE(r.prodotto);
                continue;
            }
            const Piana p = piana(archivio, c);
            confronta(r.tabelle.at(0), p.numeri, {});
            confronta(r.tabelle.at(1), p.somme, p.tinte_somme);
            confronta(r.tabelle.at(2), p.distanze, p.tinte_distanze);
        }
    }
}

}  // namespace
}  // namespace sortimetra
