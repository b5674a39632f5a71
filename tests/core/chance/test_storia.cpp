#include "chance/parametri.h"
#include "chance/storia.h"
#include "statistics/ambata.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

namespace sortimetra {
namespace {

using prove::da_testi;
using prove::da_testo;
using prove::domanda;

Evento evento(std::initializer_list<int> numeri, int presenti = 1, Gioco gioco = Gioco::lotto) {
    Evento e{.gioco = gioco, .presenti = static_cast<std::uint8_t>(presenti)};
    for (const int n : numeri) e.caselle[e.quanti++] = static_cast<Numero>(n);
    return e;
}

Storia racconta(const ArchivioEstrazioni& archivio, const Evento& e, const AmbitoRicerca& ambito = {}) {
    SenzaAvanzamento nessuno;
    return storia(archivio, ambito, e, nessuno);
}

constexpr std::string_view kTreRuote =
    "1 BA 90 12 33 4 5\n"
    "1 RM 1 2 12 4 5\n"
    "2 BA 1 2 3 4 5\n"
    "3 BA 7 8 9 10 11\n"
    "3 RM 45 12 9 10 11\n"
    "4 BA 1 2 3 4 6\n"
    "5 RM 12 45 3 4 6\n"
    "6 BA 1 2 3 4 6\n";

TEST(Storia, LeUsciteDiUnNumeroSuUnaRuota) {
    const Storia s = racconta(da_testo("1 BA 90 12 33 4 5\n"
                                       "2 BA 1 2 90 3 4\n"
                                       "3 BA 7 8 9 10 11\n"
                                       "4 BA 7 8 9 10 90\n"
                                       "5 BA 7 8 9 10 11\n"),
                              evento({90}));
    EXPECT_EQ(s.frequenza, 3);
    EXPECT_EQ(s.ritardo, 1);
    EXPECT_EQ(s.storico, 1);
    EXPECT_EQ(prove::righe(tabella_colpi(s)),
              "1 1 01/01/2000 Bari 90 ...\n"
              "2 2 02/01/2000 Bari 90 0\n"
              "3 4 04/01/2000 Bari 90 1\n");
}

TEST(Storia, PiuRuoteInUnConcorsoSonoUnaRigaSola) {
    AmbitoRicerca ambito;
    ambito.ruote.clic(7, true);
    const Storia uno = racconta(da_testo(kTreRuote), evento({12}), ambito);
    EXPECT_EQ(uno.frequenza, 4);
    EXPECT_EQ(prove::righe(tabella_colpi(uno)),
              "1 1 01/01/2000 Bari, Roma 12 ...\n"
              "2 3 03/01/2000 Roma 12 1\n"
              "3 5 05/01/2000 Roma 12 1\n");
    // Different numbers on the two wheels of the first draw: told wheel by wheel.
    const Storia due = racconta(da_testo(kTreRuote), evento({12, 90}), ambito);
    EXPECT_EQ(tabella_colpi(due).testo(0, 4), "12-90, 12");
    const Storia ambo = racconta(da_testo(kTreRuote), evento({12, 45}, 2), ambito);
    EXPECT_EQ(prove::righe(tabella_colpi(ambo)),
              "1 3 03/01/2000 Roma 12-45 ...\n"
              "2 5 05/01/2000 Roma 12-45 1\n");
}

TEST(Storia, UnPostoSolo) {
    Evento primo = evento({12});
    primo.posti = 1;
    AmbitoRicerca ambito;
    ambito.ruote.clic(7, true);
    const Storia s = racconta(da_testo(kTreRuote), primo, ambito);
    EXPECT_EQ(prove::righe(tabella_colpi(s)), "1 5 05/01/2000 Roma 12 ...\n");
    EXPECT_EQ(nome_evento(primo), "12 al 1° posto");
}

TEST(Storia, LaSintesiMisuraComeINovantaNumeri) {
    const Storia s = racconta(da_testo(kTreRuote), evento({12}));
    const Tabella sintesi = tabella_sintesi(s);
    EXPECT_EQ(sintesi.titoli.front(),
              (std::vector<std::string>{"Frequenza", "Ritardo", "Ritardo Storico", "Attesa", "Scarto",
                                        "Probabilità", "In tabella", "Record atteso"}));
    // Five rows on Bari, 5/18 expected: (1 - 5/18) / sqrt(5/18 * 17/18) = 1.41; away for 4 of 5 draws:
    // (17/18)^4.
    EXPECT_EQ(prove::righe(sintesi), "1 4 0 0,3 +1,41 79,6% 79,6% 0\n");
}

TEST(Storia, GliAltriGiochi) {
    const auto archivio = da_testi("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n",
                                   "1 10 20 30 40 50 60 70 80\n"
                                   "2 11 20 30 41 51 61 10 80\n",
                                   "1 8:00 1 2 3 4 5 6 7 8 9 10\n"
                                   "2 9:00 11 12 13 14 15 16 17 18 19 20\n"
                                   "3 10:00 1 2 3 4 5 6 7 8 9 20\n");
    // The Jolly is no number of the sestina.
    const Storia uno = racconta(archivio, evento({10}, 1, Gioco::superenalotto));
    EXPECT_EQ(prove::righe(tabella_colpi(uno)), "1 1 01/01/2000  10 ...\n");
    const Storia ambo = racconta(archivio, evento({30, 20}, 2, Gioco::superenalotto));
    EXPECT_EQ(ambo.frequenza, 2);
    EXPECT_EQ(tabella_colpi(ambo).testo(0, 4), "20-30");
    const Storia vinto = racconta(archivio, evento({7}, 1, Gioco::win_for_life));
    EXPECT_EQ(vinto.frequenza, 2);
    EXPECT_EQ(vinto.storico, 1);
}

TEST(Storia, LeUscitePerAnnoNonHannoBuchi) {
    const Storia s = racconta(da_testo("1999-12-31 1 BA 7 2 3 4 5\n"
                                       "2000-01-02 2 BA 7 2 3 4 5\n"
                                       "2002-01-02 3 BA 1 2 3 4 5\n"),
                              evento({7}));
    ASSERT_EQ(s.anni.size(), 4U);
    EXPECT_EQ(s.anni[0].anno, 1999);
    EXPECT_EQ(s.anni[1].colpi, 1);
    EXPECT_EQ(s.anni[2].righe, 0);
    EXPECT_EQ(s.anni[3].righe, 1);
    EXPECT_EQ(s.anni[3].colpi, 0);
}

TEST(Storia, SenzaEstrazioniEVuota) {
    EXPECT_TRUE(racconta(da_testo(""), evento({7})).vuota);
    EXPECT_EQ(tabella_colpi(racconta(da_testo(""), evento({7}))).righe(), 0U);
}

TEST(Storia, INomiDegliEventi) {
    EXPECT_EQ(nome_evento(evento({7})), "07");
    EXPECT_EQ(nome_evento(evento({12, 45}, 2)), "12-45");
    EXPECT_EQ(nome_evento(evento({12, 45, 67}, 2)), "2 su 12-45-67");
}

/// Each number's story has the frequency, delay and longest delay that the search of all numbers gives.
TEST(Storia, VaDAccordoConLaRicercaDeiNumeri) {
    const std::pair<Gioco, std::string_view> giochi[] = {
        {Gioco::lotto, "ritardo e frequenza dei 90 numeri"},
        {Gioco::superenalotto, "ritardo e frequenza dei 90 numeri nella sestina superenalotto"},
        {Gioco::win_for_life, "ritardo e frequenza dei 20 numeri nella combinazione win for life"}};
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        const auto archivio = prove::archivio_casuale(seme);
        const auto ambito = prove::ambito_casuale(seme);
        for (const auto& [gioco, chiave] : giochi) {
            SCOPED_TRACE(std::to_string(seme) + " " + std::string{chiave});
            const Risposta tutti = prove::rispondi(domanda(chiave, ambito), archivio);
            for (int n = 1; n <= 20; ++n) {
                const Storia s = racconta(archivio, evento({n}, 1, gioco), ambito);
                EXPECT_EQ(s.vuota, !tutti.prodotta());
                if (s.vuota) break;
                EXPECT_EQ(prove::riga(*tutti.risultato, std::to_string(n)),
                          std::to_string(n) + " " + std::to_string(s.frequenza) + " " +
                              std::to_string(s.ritardo) + " " + std::to_string(s.storico));
                EXPECT_EQ(s.percorso, *tutti.percorso);
            }
        }
    }
}

/// Delays, frequency and years all tell the same hits.
TEST(Storia, IConteggiTornano) {
    for (std::uint32_t seme = 1; seme <= 40; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = prove::archivio_casuale(seme);
        const Storia s = racconta(archivio, evento({1, 2, 3}, 1), prove::ambito_casuale(seme));
        std::uint32_t uscite = 0;
        std::int32_t colpi = 0;
        std::int64_t righe = 0;
        for (const ColpoStoria& c : s.colpi) {
            EXPECT_EQ(c.prima_uscita, uscite);
            uscite += c.uscite;
        }
        for (const Storia::Anno& a : s.anni) {
            colpi += a.colpi;
            righe += a.righe;
        }
        EXPECT_EQ(static_cast<std::size_t>(s.frequenza), s.uscite.size());
        EXPECT_EQ(uscite, s.uscite.size());
        EXPECT_EQ(colpi, s.frequenza);
        EXPECT_EQ(righe, s.percorso.righe);
        for (std::size_t i = 1; i < s.colpi.size(); ++i)
            EXPECT_EQ(*s.colpi[i].ritardo, s.colpi[i].estrazione - s.colpi[i - 1].estrazione - 1);
    }
}

}  // namespace
}  // namespace sortimetra
