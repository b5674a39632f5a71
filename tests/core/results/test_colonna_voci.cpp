#include "results/risultato.h"
#include "results/scrittori.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

using testing::ElementsAre;

/// Days and wheels told once each, and the same told row by row.
Tabella con_voci() {
    Tabella t;
    t.titoli = {{"Concorso", "Data", "Ruota"}};
    t.colonne = {ColonnaInteri{{7, 7, 8, 9}},
                 ColonnaVoci{{"30/01/2000", "02/02/2000", "01/03/2000"}, {0, 0, 1, 2}, true},
                 ColonnaVoci{{"Torino", "Bari", "a;b \"c\""}, {0, 1, 2, 1}, false}};
    return t;
}
Tabella con_testi() {
    Tabella t = con_voci();
    t.colonne[1] = ColonnaTesti{{"30/01/2000", "30/01/2000", "02/02/2000", "01/03/2000"}};
    t.colonne[2] = ColonnaTesti{{"Torino", "Bari", "a;b \"c\"", "Bari"}};
    return t;
}

TEST(ColonnaVoci, SiLeggeComeITesti) {
    EXPECT_EQ(con_voci().righe(), 4U);
    EXPECT_EQ(lunghezza(con_voci().colonne[1]), 4U);
    EXPECT_EQ(prove::righe(con_voci()), prove::righe(con_testi()));
}

TEST(ColonnaVoci, SiScriveComeITesti) {
    std::string voci;
    std::string testi;
    scrivi_csv(voci, con_voci());
    scrivi_csv(testi, con_testi());
    EXPECT_EQ(voci, testi);
    voci.clear();
    testi.clear();
    scrivi_tabella(voci, con_voci());
    scrivi_tabella(testi, con_testi());
    EXPECT_EQ(voci, testi);
}

TEST(ColonnaVoci, SiOrdinaPerTestoOPerPosto) {
    // Wheels by their letters, days as days: as texts the first of March would come first.
    EXPECT_THAT(ordina(con_voci(), 2, Verso::crescente), ElementsAre(2, 1, 3, 0));
    EXPECT_THAT(ordina(con_voci(), 1, Verso::crescente), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(ordina(con_voci(), 1, Verso::decrescente), ElementsAre(3, 2, 0, 1));
    EXPECT_THAT(ordina(con_testi(), 1, Verso::crescente), ElementsAre(3, 2, 0, 1));
}

}  // namespace
}  // namespace sortimetra
