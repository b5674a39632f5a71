#include "results/risposta.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

std::string detta(const Risposta& risposta) {
    std::string testo;
    for (const VoceAmbito& voce : voci_ambito(risposta))
        testo += std::string{voce.nome} + "=" + voce.valore + "\n";
    return testo;
}

TEST(VociAmbito, DiUnaRicercaConAmbito) {
    Domanda d = prove::domanda("ritardo e frequenza dei 90 numeri");
    d.ambito.ruote.clic(1, true);
    d.ambito.tratto = {2, 9};
    const auto archivio =
        prove::da_testo("1 BA 1 2 3 4 5\n2 BA 1 2 3 4 5\n2 CA 6 7 8 9 10\n3 BA 6 7 8 9 10\n");
    Risposta r = prove::rispondi(d, archivio);
    EXPECT_EQ(detta(r),
              "Ricerca=Ritardo e Frequenza dei 90 numeri\nRuote=Bari, Cagliari\nIntervallo=Tutti i Concorsi\n"
              "Concorsi=2 - 3\nDal=02/01/2000\nAl=03/01/2000\nEstrazioni=2\nArchivio=\n");
    r.ambito->simulato = true;
    EXPECT_NE(detta(r).find("Archivio simulato=sì"), std::string::npos);
}

TEST(VociAmbito, SenzaAmbitoIlTitolo) {
    EXPECT_EQ(detta(prove::rispondi(prove::domanda("tabella dei segnalimite cabalistici"), {})),
              "Ricerca=Tabella dei Segnalimite Cabalistici\n");
}

}  // namespace
}  // namespace sortimetra
