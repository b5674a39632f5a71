#include "draws/cursore.h"
#include "draws/percorso.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <set>

namespace sortimetra {
namespace {

using prove::da_testi;
using prove::da_testo;

TEST(Percorso, LeRigheSonoRuoteEIConcorsiQuelliCheNeHanno) {
    const auto archivio = da_testo(
        "1 BA 1 2 3 4 5\n"
        "1 RM 1 2 3 4 5\n"
        "2 RM 1 2 3 4 5\n"
        "3 NA 1 2 3 4 5\n");
    AmbitoRicerca ambito;
    EXPECT_EQ(percorso_di(archivio, Gioco::lotto, ambito), (Percorso{1, 1}));
    ambito.ruote.clic(7, true);
    EXPECT_EQ(percorso_di(archivio, Gioco::lotto, ambito), (Percorso{3, 2}));
    ambito.ruote = SelezioneRuote::tutte();
    EXPECT_EQ(percorso_di(archivio, Gioco::lotto, ambito), (Percorso{4, 3}));
    EXPECT_DOUBLE_EQ(percorso_di(archivio, Gioco::lotto, ambito).righe_per_concorso(), 4.0 / 3);
}

TEST(Percorso, UnaRigaSenzaNumeriNeiPostiChiestiNonPuoVedereLEvento) {
    const auto archivio = da_testo(
        "1 BA - 2 3 4 5\n"
        "2 BA - - - - -\n"
        "3 BA 1 2 3 4 5\n");
    EXPECT_EQ(percorso_di(archivio, Gioco::lotto, {}), (Percorso{2, 2}));
    EXPECT_EQ(percorso_di(archivio, Gioco::lotto, {}, 1), (Percorso{1, 1}));
}

TEST(Percorso, IlSuperstarCominciaQuandoComincia) {
    const auto archivio = da_testi("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n3 BA 1 2 3 4 5\n",
                                   "1 1 2 3 4 5 6 7 0\n"
                                   "2 1 2 3 4 5 6 7 0\n"
                                   "3 1 2 3 4 5 6 7 44\n",
                                   "");
    constexpr Posti kSuperstar = 1U << 7U;
    EXPECT_EQ(percorso_di(archivio, Gioco::superenalotto, {}), (Percorso{3, 3}));
    EXPECT_EQ(percorso_di(archivio, Gioco::superenalotto, {}, kSuperstar), (Percorso{1, 1}));
}

TEST(Percorso, IlDieciELottoHaUnaRigaPerConcorso) {
    std::string lotto;
    const char* codici[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"};
    for (int c = 1; c <= 3; ++c)
        for (int w = 0; w < 10; ++w) {
            lotto += std::to_string(c) + " " + codici[w];
            for (int k = 0; k < 5; ++k) lotto += " " + std::to_string(5 * w + k + 1);
            lotto += "\n";
        }
    const auto archivio = da_testo(lotto);
    AmbitoRicerca tutte;
    tutte.ruote = SelezioneRuote::tutte();
    EXPECT_EQ(percorso_di(archivio, Gioco::dieci_e_lotto, tutte), (Percorso{3, 3}));
    // In moves of ten rows, a walk of one wheel's three rows stops once.
    EXPECT_EQ(percorso_di(archivio, Gioco::dieci_e_lotto, {}, kOgniPosto, PassoDieciELotto::dieci_righe),
              (Percorso{1, 1}));
}

/// The same counted with a cursor, row by row.
TEST(Percorso, VaDAccordoConIlCursore) {
    for (std::uint32_t seme = 1; seme <= 100; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = prove::archivio_casuale(seme);
        const auto ambito = prove::ambito_casuale(seme);
        const auto conta = [](Cursore cursore) {
            Percorso p;
            std::set<Concorso> concorsi;
            for (; !cursore.fine(); cursore.successivo()) {
                const auto numeri = cursore.corrente()->numeri();
                if (std::all_of(numeri.begin(), numeri.end(), [](Numero n) { return n == 0; })) continue;
                ++p.righe;
                concorsi.insert(cursore.corrente()->concorso());
            }
            p.concorsi = static_cast<std::int32_t>(concorsi.size());
            return p;
        };
        EXPECT_EQ(percorso_di(archivio, Gioco::lotto, ambito), conta(estrazioni_ruote(archivio, ambito)));
        EXPECT_EQ(percorso_di(archivio, Gioco::superenalotto, ambito),
                  conta(estrazioni_superenalotto(archivio, ambito)));
        EXPECT_EQ(percorso_di(archivio, Gioco::win_for_life, ambito),
                  conta(estrazioni_winforlife(archivio, ambito)));
    }
}

}  // namespace
}  // namespace sortimetra
