#include "catalogue/ricerche.h"
#include "support/archivi.h"
#include "text/testi.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace sortimetra {
namespace {

TEST(Ricerche, LeChiaviSonoMinuscoleEDistinte) {
    std::set<std::string_view> viste;
    for (const Ricerca& r : ricerche()) {
        EXPECT_EQ(r.chiave, minuscolo(r.chiave));
        EXPECT_TRUE(viste.insert(r.chiave).second) << r.chiave;
        EXPECT_FALSE(r.titolo.empty()) << r.chiave;
    }
}

TEST(Ricerche, SiTrovanoSenzaRiguardoAlleMaiuscole) {
    for (const Ricerca& r : ricerche()) {
        EXPECT_EQ(trova_ricerca(r.chiave), &r);
    }
    EXPECT_EQ(trova_ricerca("AMBATA CAPOGIOCO"), trova_ricerca("ambata capogioco"));
    EXPECT_NE(trova_ricerca("AMBATA CAPOGIOCO"), nullptr);
    EXPECT_EQ(trova_ricerca("i 10 numeri PIÙ in ritardo su ogni ruota"),
              trova_ricerca("I 10 numeri più in ritardo su ogni ruota"));
    EXPECT_EQ(trova_ricerca(""), nullptr);
    EXPECT_EQ(trova_ricerca("ambata capogioco "), nullptr) << "blanks count";
}

TEST(Ricerche, IlRisultatoPrendeIlNomeDallaRiga) {
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        SCOPED_TRACE(r.chiave);
        const auto archivio = prove::archivio_casuale(3);
        Domanda domanda = prove::domanda("un'altra", prove::ambito_casuale(3));
        domanda.parametri.capogioco = {1, 2};
        domanda.parametri.numeri = {1, 2, 3};
        SenzaAvanzamento nessuno;
        const Risultato risultato = esegui(r, archivio, domanda, nessuno);
        EXPECT_EQ(risultato.chiave, r.chiave);
        EXPECT_FALSE(risultato.titolo.empty());
        EXPECT_TRUE(risultato.prodotto || !risultato.messaggi.empty()) << "a refusal says why";
        for (const Tabella& t : risultato.tabelle)
            for (const Colonna& c : t.colonne) EXPECT_EQ(lunghezza(c), t.righe());
    }
}

TEST(Ricerche, SenzaEstrazioniNessunaCade) {
    const ArchivioEstrazioni vuoto;
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        SCOPED_TRACE(r.chiave);
        SenzaAvanzamento nessuno;
        const Risultato risultato = esegui(r, vuoto, prove::domanda(r.chiave), nessuno);
        EXPECT_EQ(risultato.chiave, r.chiave);
        EXPECT_TRUE(risultato.prodotto || !risultato.messaggi.empty());
    }
}

}  // namespace
}  // namespace sortimetra
