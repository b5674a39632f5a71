#include "catalogue/ricerche.h"
#include "catalogue/segnalimite.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

namespace sortimetra {
namespace {

using prove::riga;

Risultato tabella() {
    return prove::esegui(prove::domanda("Tabella dei segnalimite cabalistici"), ArchivioEstrazioni{});
}

TEST(Segnalimite, NonChiedeUnArchivio) {
    const Ricerca* ricerca = trova_ricerca("TABELLA DEI SEGNALIMITE CABALISTICI");
    ASSERT_NE(ricerca, nullptr);
    EXPECT_TRUE(ricerca->pronta());
    EXPECT_EQ(ricerca->tabelle, 0U);
    EXPECT_EQ(ricerca->titolo(), "Tabella dei Segnalimite Cabalistici");
}

TEST(Segnalimite, NovantaRighe) {
    const Risultato r = tabella();
    EXPECT_TRUE(r.prodotto);
    ASSERT_EQ(r.tabelle.size(), 1U);
    EXPECT_EQ(r.tabelle[0].titoli, (std::vector<std::vector<std::string>>{{"N.", "Segnalimiti"}}));
    ASSERT_EQ(r.tabelle[0].righe(), 90U);
    EXPECT_EQ(riga(r, "1"), "1 04 - 07 - 70");
    EXPECT_EQ(riga(r, "45"), "45 16 - 61 - 89");
    EXPECT_EQ(riga(r, "88"), "88 04 - 82 - 79") << "l'unica terna che non è in ordine crescente";
    EXPECT_EQ(riga(r, "90"), "90 06 - 60 - 87");
}

TEST(Segnalimite, SoloIl88NonCresce) {
    for (std::size_t n = 1; n <= 90; ++n) {
        const auto& [a, b, c] = kSegnalimite[n - 1];
        EXPECT_EQ(a < b && b < c, n != 88) << n;
    }
}

TEST(Segnalimite, ComeNegliEsempi) {
    const auto cartella = prove::cartella_condivisa();
    if (!cartella) GTEST_SKIP() << "gli esempi non ci sono";
    std::ifstream file{*cartella / "examples" / "best_delays.jsonl"};
    int trovati = 0;
    for (std::string linea; std::getline(file, linea);) {
        const auto esempio = nlohmann::json::parse(linea);
        if (esempio.at("args").at(1) != "Tabella dei segnalimite cabalistici") continue;
        ++trovati;
        const Risultato r = tabella();
        const auto& righe = esempio.at("expected").at("tabelle").at(0).at("righe");
        ASSERT_EQ(r.tabelle[0].righe(), righe.size());
        for (std::size_t i = 0; i < righe.size(); ++i) {
            EXPECT_EQ(r.tabelle[0].testo(i, 0), righe[i].at(0).get<std::string>());
            EXPECT_EQ(r.tabelle[0].testo(i, 1), righe[i].at(1).get<std::string>());
        }
    }
    EXPECT_EQ(trovati, 1);
}

}  // namespace
}  // namespace sortimetra
