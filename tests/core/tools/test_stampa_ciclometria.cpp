#include "catalogue/nomi.h"
#include "catalogue/rapporti.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"
#include "tools/stampa_ciclometria.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

TEST(StampaCiclometria, TreTabelleSuUnFoglio) {
    std::string lotto;
    for (std::size_t w = 0; w < kRuote; ++w) {
        lotto += "1 " + std::string{kNomiRuote[w].codice};
        for (int i = 0; i < 5; ++i)
            lotto += " " + std::to_string((static_cast<int>(w) * 9 + i * 17) % 90 + 1);
        lotto += "\n";
    }
    const Risposta r = prove::rispondi(prove::domanda(nomi::kCiclometria.chiave), prove::da_testo(lotto));
    ASSERT_TRUE(r.prodotta());
    ASSERT_EQ(r.risultato->tabelle.size(), 3U);
    const Rapporto rapporto = prepara_rapporto(r);
    EXPECT_EQ(rapporto.pagine, 1);
    SuperficieRegistrata foglio;
    EasyPrint stampante{foglio, [](const std::string&, const std::string& testo) { FAIL() << testo; }};
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(stampa(stampante, rapporto, {}, nessuno));
    for (const Tabella& t : r.risultato->tabelle)
        for (std::size_t riga = 0; riga < t.righe(); ++riga)
            for (std::size_t c = 1; c < t.n_colonne(); ++c)
                EXPECT_NE(foglio.trova(t.testo(riga, c)), nullptr) << t.nome << " " << riga << " " << c;
}

}  // namespace
}  // namespace sortimetra
