#include "positional/migliori_ritardi.h"
#include "statistics/famiglie.h"
#include "support/archivi.h"
#include "support/lente.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace sortimetra {
namespace {

using namespace prove;

SenzaAvanzamento nessuno;

Domanda domanda_pagina(int pagina, AmbitoRicerca ambito = {}) {
    Domanda d = domanda("tabellone migliori ritardi", ambito);
    d.parametri.pagina = pagina;
    d.cartella = std::filesystem::path{SORTIMETRA_RADICE} / "data";
    return d;
}

/// Rows of one family: "group R. n".
std::vector<std::string> della_serie(const Risultato& r, std::string_view serie) {
    std::vector<std::string> trovate;
    for (std::size_t i = 0; i < r.tabelle.at(0).righe(); ++i)
        if (r.tabelle[0].testo(i, 0) == serie)
            trovate.push_back(r.tabelle[0].testo(i, 1) + " " + r.tabelle[0].testo(i, 2));
    return trovate;
}

TEST(MiglioriRitardi, LeEtichetteSonoCentosessantotto) {
    std::set<int> gruppi;
    std::set<int> ritardi;
    for (const int pagina : {1, 2}) {
        EXPECT_EQ(famiglie_migliori(pagina).size(), 16U);
        for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
            ASSERT_NE(trova_caricatore(f.carica), nullptr) << f.carica;
            std::istringstream g{std::string{f.gruppi}};
            std::istringstream t{std::string{f.ritardi}};
            int i = 0;
            std::size_t quanti = 0;
            for (; g >> i; ++quanti) EXPECT_TRUE(gruppi.insert(i).second) << i;
            EXPECT_EQ(quanti, f.righe) << f.titolo;
            for (quanti = 0; t >> i; ++quanti) EXPECT_TRUE(ritardi.insert(i).second) << i;
            EXPECT_EQ(quanti, f.righe) << f.titolo;
        }
    }
    EXPECT_EQ(gruppi.size() + ritardi.size(), 166U);  // 0 to 167 without 112 and 115
    EXPECT_EQ(gruppi.count(112) + ritardi.count(115), 0U);
}

TEST(MiglioriRitardi, LAmboMaiUscitoVaInTesta) {
    std::string testo;
    for (int c = 1; c <= 20; ++c) testo += std::to_string(c) + " BA 1 2 3 4 " + std::to_string(5 + c) + "\n";
    const Risultato r = migliori_ritardi(da_testo(testo), domanda_pagina(1), nessuno);
    EXPECT_EQ(r.tabelle[0].righe(), 47U);
    // Nothing of 12-21 has ever come out together: the whole archive is its delay.
    EXPECT_EQ(della_serie(r, "Ambi vertibili"),
              (std::vector<std::string>{"12 - 21 R. 20", "13 - 31 R. 20", "14 - 41 R. 20"}));
    // 1-2 has come out in every draw.
    EXPECT_EQ(della_serie(r, "Ambi consecutivi")[0], "04 - 05 R. 20");
    EXPECT_EQ(della_serie(r, "Gemelli"), (std::vector<std::string>{"11/88 R. 20", " ", " "}));
    // Never two numbers that end in 5 together, nor two of the second ten.
    EXPECT_EQ(della_serie(r, "Cadenze")[0], "5/85 R. 20");
    EXPECT_EQ(della_serie(r, "Decine")[0], "10/19 R. 20");
}

TEST(MiglioriRitardi, LaPrimaCadenzaSiChiamaComeLUltima) {
    const Risultato r = migliori_ritardi(da_testo("1 BA 2 12 3 13 40\n"), domanda_pagina(1), nessuno);
    EXPECT_EQ(della_serie(r, "Cadenze"), (std::vector<std::string>{"10/90 R. 1", "4/84 R. 1", "5/85 R. 1"}));
    EXPECT_EQ(della_serie(r, "Decine"), (std::vector<std::string>{"20/29 R. 1", "30/39 R. 1", "40/49 R. 1"}));
    EXPECT_EQ(della_serie(r, "Cifre"), (std::vector<std::string>{"4 R. 1", "5 R. 1", "6 R. 1"}));
}

TEST(MiglioriRitardi, FinoAlConcorsoScelto) {
    std::string testo;
    for (int c = 1; c <= 600; ++c)
        testo += std::to_string(c) + (c == 590 ? " BA 12 21 3 4 5\n" : " BA 1 2 3 4 5\n");
    Domanda d = domanda_pagina(1);
    EXPECT_EQ(della_serie(migliori_ritardi(da_testo(testo), d, nessuno), "Ambi vertibili")[0],
              "13 - 31 R. 600");
    d.parametri.concorso = 550;
    const Risultato r = migliori_ritardi(da_testo(testo), d, nessuno);
    EXPECT_EQ(della_serie(r, "Ambi vertibili")[0], "12 - 21 R. 550");
    EXPECT_TRUE(r.note.empty());
    d.parametri.concorso = 7;
    EXPECT_EQ(migliori_ritardi(da_testo(testo), d, nessuno).note,
              std::vector<std::string>{"concorso 7 riportato a 500"});
}

TEST(MiglioriRitardi, LaSogliaDelleDecineSimmetricheVieneDallAltraSchermata) {
    const auto archivio = da_testo("1 BA 2 30 50 60 70\n2 BA 1 7 11 31 41\n3 BA 2 30 50 60 70\n");
    Domanda d = domanda_pagina(2);
    d.parametri.indice_combo = -1;  // every draw counts as out
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "01-03-22-24-45-46-67-69-88-90 R. 0");
    d.parametri.indice_combo = 0;  // one number is enough
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "06-19-27-38-40-51-53-64-72-85 R. 3");
    d.parametri.indice_combo = 1;
    EXPECT_EQ(della_serie(migliori_ritardi(archivio, d, nessuno), "Decine simmetriche")[0],
              "01-03-22-24-45-46-67-69-88-90 R. 3");
}

TEST(MiglioriRitardi, SenzaIlFileDelleCinquineIlRestoSiCalcola) {
    const CartellaProva vuota;
    Domanda d = domanda_pagina(2);
    d.cartella = vuota.percorso();
    const Risultato r = migliori_ritardi(da_testo("1 BA 1 2 3 4 5\n"), d, nessuno);
    EXPECT_TRUE(r.prodotto);
    EXPECT_EQ(r.messaggi, std::vector<std::string>{std::string{kFileDanneggiato}});
    EXPECT_EQ(della_serie(r, "Cinquine dei  90"), (std::vector<std::string>{" ", " ", " "}));
    EXPECT_EQ(della_serie(r, "Cinquine Sun")[0], "06-07-08-09-10 R. 1");
    EXPECT_EQ(della_serie(r, "Cinquine pari/dispari")[0], "D. 11-13-15-17-19 R. 1");
}

TEST(MiglioriRitardi, AmbitoVuoto) {
    AmbitoRicerca nazionale;
    nazionale.ruote = SelezioneRuote::nazionale();
    const Risultato r = migliori_ritardi(da_testo("1 BA 1 2 3 4 5\n"), domanda_pagina(1, nazionale), nessuno);
    EXPECT_FALSE(r.prodotto);
    EXPECT_EQ(r.messaggi, std::vector<std::string>{std::string{kNessunaEstrazione}});
}

TEST(MiglioriRitardi, UgualiAiLentiSuArchiviCasuali) {
    for (std::uint32_t seme = 1; seme <= 12; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        AmbitoRicerca ambito;
        ambito.ruote = ambito_casuale(seme).ruote;
        const auto scelte = righe_piane(archivio, ambito);
        if (scelte.empty()) continue;
        const int n = arrotonda(scelte.size(), ambito.ruote.n_ruote());
        for (const int pagina : {1, 2}) {
            const Risultato r = migliori_ritardi(archivio, domanda_pagina(pagina, ambito), nessuno);
            std::size_t riga = 0;
            for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
                const auto serie = *carica_serie(*trova_caricatore(f.carica), domanda_pagina(1).cartella);
                const int flag = f.soglia == SogliaFamiglia::ambo ? 1 : -1;
                std::vector<int> ritardi;
                for (std::size_t i = 0; i < serie.righe(); ++i) {
                    int delay = n;
                    cammina(scelte, [&](int c, const std::vector<int>& numeri) {
                        if (numeri[0] <= 0) return;
                        int presenti_qui = 0;
                        for (const Numero x : serie.membro(i))
                            presenti_qui += std::count(numeri.begin(), numeri.end(), int{x}) > 0 ? 1 : 0;
                        if (presenti_qui > flag) delay = n - c;
                    });
                    ritardi.push_back(delay);
                }
                std::stable_sort(ritardi.begin(), ritardi.end(), std::greater<>{});
                for (std::size_t i = 0; i < f.righe; ++i, ++riga) {
                    EXPECT_EQ(r.tabelle[0].testo(riga, 2),
                              i < ritardi.size() ? "R. " + std::to_string(ritardi[i]) : "")
                        << f.titolo;
                }
            }
        }
    }
}

}  // namespace
}  // namespace sortimetra
