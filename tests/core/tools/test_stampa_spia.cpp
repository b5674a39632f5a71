#include "catalogue/nomi.h"
#include "catalogue/rapporti.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"
#include "tools/parametri.h"
#include "tools/spia.h"
#include "tools/stampa_spia.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

TEST(StampaSpia, QuarantacinqueNumeriPerFoglioConLeLegende) {
    std::string lotto;
    for (int c = 1; c <= 40; ++c) {
        lotto += std::to_string(c) + " BA";
        for (int i = 0; i < 5; ++i) lotto += " " + std::to_string((c * 7 + i * 13) % 90 + 1);
        lotto += "\n";
    }
    Domanda d = prove::domanda(nomi::kSpia.chiave);
    ASSERT_TRUE(leggi_numeri_spia("tutti", d));
    const Risposta r = prove::rispondi(d, prove::da_testo(lotto));
    ASSERT_TRUE(r.prodotta());
    const Tabella& t = r.risultato->tabelle.front();
    const Rapporto rapporto = prepara_rapporto(r);
    EXPECT_EQ(rapporto.pagine, static_cast<int>((t.righe() + kRighePaginaSpia - 1) / kRighePaginaSpia));
    SuperficieRegistrata foglio;
    EasyPrint stampante{foglio, [](const std::string&, const std::string& testo) { FAIL() << testo; }};
    SenzaAvanzamento nessuno;
    ASSERT_TRUE(stampa(stampante, rapporto, {}, nessuno));
    for (int p = 1; p <= rapporto.pagine; ++p)
        for (const std::string& titolo : t.titoli.front())
            EXPECT_NE(foglio.trova(titolo, p), nullptr) << titolo;
    for (std::size_t riga = 0; riga < t.righe(); ++riga) {
        const int p = static_cast<int>(riga / kRighePaginaSpia) + 1;
        for (std::size_t c = 0; c < t.n_colonne(); ++c)
            EXPECT_NE(foglio.trova(t.testo(riga, c), p), nullptr) << riga << " " << c;
    }
}

}  // namespace
}  // namespace sortimetra
