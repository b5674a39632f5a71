#include "lunghette/lunghette.h"
#include "lunghette/parametri.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

// The lunghette by points, worked by hand; the comparison with the plain second way stands beside that of the
// Lotto.

namespace sortimetra::prove {
namespace {

std::string punteggio(const Risultato& r) {
    for (const Etichetta& e : r.etichette)
        if (e.nome == "lblRit_freq") return std::get<std::string>(e.testo);
    return "manca";
}
std::string numeri(const Risultato& r) {
    return r.tabelle.empty() ? "nessuna tabella" : r.tabelle[0].testo(0, 0);
}

TEST(LunghetteAPunti, LOraRestringeLeEstrazioniPrimaDiContare) {
    const auto archivio = da_testi("", "",
                                   "1 9:00 1 2 3 4 5 6 7 8 9 10\n"
                                   "2 10:00 11 12 13 14 15 16 17 18 19 20\n"
                                   "3 09:00 1 2 3 4 5 11 12 13 14 15\n"
                                   "4 10:00 11 12 13 14 15 16 17 18 19 20\n");
    Domanda d = domanda("calcolo lunghette per punteggio");
    d.ambito.ora = *trova_ora("9:00");
    d.parametri = ParametriLunghette{.ricerca = 16, .opzione = 2, .lunghezza = 5, .numeri = {1, 2, 3, 4, 5}};
    EXPECT_EQ(punteggio(esegui(d, archivio)), "2");
    // The delay is told from the last concorso of the range, 4, to the last hit at that hour, 3.
    d.parametri.per<ParametriLunghette>().ricerca = 5;
    EXPECT_EQ(punteggio(esegui(d, archivio)), "1");
    d.ambito.ora = *trova_ora("10:00");
    d.parametri.per<ParametriLunghette>().ricerca = 16;
    EXPECT_EQ(punteggio(esegui(d, archivio)), "0");
}

TEST(LunghetteAPunti, SulWinForLifeIDoppiPerPosizioneRestano) {
    // Places 1 and 2 hold 1, 2 and 2, 3: the most frequent of both is 2 and 2.
    const auto archivio = da_testi("", "",
                                   "1 9:00 1 2 4 5 6 7 8 9 10 11\n"
                                   "2 9:00 2 3 4 5 6 7 8 9 10 11\n"
                                   "3 9:00 2 3 4 5 6 7 8 9 10 11\n"
                                   "4 9:00 1 2 4 5 6 7 8 9 10 11\n"
                                   "5 9:00 1 2 4 5 6 7 8 9 10 11\n"
                                   "6 9:00 2 12 13 14 15 16 17 18 19 20\n");
    Domanda d = domanda("calcolo lunghette per punteggio");
    d.parametri = ParametriLunghette{.ricerca = 13, .lunghezza = 10, .posizione = true};
    // First place: 1 three times, 2 three times, the lower wins; second: 2 three times.
    EXPECT_EQ(numeri(esegui(d, archivio)), "01.02.04.05.06.07.08.09.10.11");
    d.ambito.tratto = {.da = 2, .a = 6};
    // First place now 2; second place 2 and 3 twice each.
    EXPECT_EQ(numeri(esegui(d, archivio)), "02.02.04.05.06.07.08.09.10.11");
    d.parametri.per<ParametriLunghette>().lunghezza = 9;
    EXPECT_EQ(numeri(esegui(d, archivio)), "02.04.05.06.07.08.09.10.11");
}

TEST(LunghetteAPunti, LeRuoteDelDieciELottoSonoSempreTutte) {
    const auto archivio = archivio_casuale(12);
    Domanda d = domanda("calcolo lunghette per punteggio 10elotto");
    d.parametri = ParametriLunghette{.ricerca = 4};
    const auto bari = rispondi(d, archivio);
    d.ambito.ruote = SelezioneRuote::tutte();
    EXPECT_EQ(*bari.risultato, *rispondi(d, archivio).risultato);
    EXPECT_EQ(bari.ambito->ruote, "Tutte");
}

}  // namespace
}  // namespace sortimetra::prove
