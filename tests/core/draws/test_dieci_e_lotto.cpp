#include "draws/dieci_e_lotto.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

/// "c:rows:first number" of each stop of the walk.
std::string fermate(const ArchivioEstrazioni& archivio, SelezioneRuote ruote, PassoDieciELotto passo) {
    const VistaEstrazioni vista{archivio, {ruote, 0, 0, {}}};
    SenzaAvanzamento nessuno;
    std::string testo;
    percorri_10elotto(archivio.lotto(), vista, passo, nessuno,
                      [&](int c, int righe, const Combinazione& combinazione) {
                          testo += std::to_string(c) + ":" + std::to_string(righe) + ":" +
                                   std::to_string(combinazione[20]) + " ";
                      });
    return testo;
}

/// `quanti` draws; the highest number of draw c is 70 + c. Bari and Roma have rows, and Nazionale where told.
ArchivioEstrazioni due_ruote(int quanti, bool nazionale = false) {
    std::string testo;
    for (int c = 1; c <= quanti; ++c) {
        const std::string concorso = std::to_string(c);
        testo += concorso + " BA 1 2 3 4 5\n";
        testo += concorso + " RM " + std::to_string(70 + c) + " 12 13 14 15\n";
        if (nazionale) testo += concorso + " NZ 1 2 3 4 5\n";
    }
    return prove::da_testo(testo);
}

TEST(PercorriDieciELotto, OgniConcorsoConLeSueRighe) {
    SelezioneRuote due;
    due.clic(7, true);
    const auto archivio = due_ruote(3);
    EXPECT_EQ(fermate(archivio, due, PassoDieciELotto::concorso), "1:2:71 2:2:72 3:2:73 ");
    EXPECT_EQ(fermate(archivio, {}, PassoDieciELotto::concorso), "1:1:71 2:1:72 3:1:73 ")
        << "the numbers come from all wheels, whichever are chosen";
}

TEST(PercorriDieciELotto, APassiDiDieciRighe) {
    SelezioneRuote due;
    due.clic(7, true);
    const auto archivio = due_ruote(12);
    // Two rows a draw: the cursor stands on rows 0, 10 and 20, which are draws 1, 6 and 11.
    EXPECT_EQ(fermate(archivio, due, PassoDieciELotto::dieci_righe), "1:2:71 2:2:76 3:2:81 ");
    // One row a draw: rows 0 and 10, which are draws 1 and 11.
    EXPECT_EQ(fermate(archivio, {}, PassoDieciELotto::dieci_righe), "1:1:71 2:1:81 ");
}

TEST(PercorriDieciELotto, SullaNazionaleINumeriDelleDieci) {
    EXPECT_EQ(fermate(due_ruote(2, true), SelezioneRuote::nazionale(), PassoDieciELotto::concorso),
              "1:1:71 2:1:72 ");
    // A draw that Nazionale alone has counts, and has no numbers.
    EXPECT_EQ(fermate(prove::da_testo("1 NZ 1 2 3 4 5\n2 NZ 1 2 3 4 5\n2 BA 80 2 3 4 5\n"),
                      SelezioneRuote::nazionale(), PassoDieciELotto::concorso),
              "2:1:80 ");
}

TEST(PercorriDieciELotto, ComeUnCursoreRigaPerRiga) {
    for (std::uint32_t seme = 0; seme < 150; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = prove::archivio_casuale(seme);
        const VistaEstrazioni vista{archivio, prove::ambito_casuale(seme)};
        // One entry per row: the draw that it belongs to.
        std::vector<std::size_t> righe;
        for (std::size_t i = 0; i < vista.concorsi(); ++i)
            for (int n = std::popcount(vista.maschera(i)); n > 0; --n) righe.push_back(i);
        std::vector<Combinazione> attese;
        for (std::size_t r = 0; r < righe.size(); r += kRuote)
            if (const auto record = cerca_concorso(archivio.lotto().concorso, vista.concorso(righe[r])))
                attese.push_back(calc_combinazione_10elotto(archivio.lotto(), *record));
        std::vector<Combinazione> trovate;
        SenzaAvanzamento nessuno;
        percorri_10elotto(archivio.lotto(), vista, PassoDieciELotto::dieci_righe, nessuno,
                          [&](int, int, const Combinazione& c) { trovate.push_back(c); });
        EXPECT_EQ(trovate, attese);
    }
}

}  // namespace
}  // namespace sortimetra
