#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/importa.h"
#include "stores/limiti.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

namespace sortimetra {
namespace {

using prove::CartellaProva;

TEST(Limiti, PiuRigheDiQuanteSeNeLeggono) {
    RigheArchivio righe;
    righe.superenalotto.resize(kRigheMassime, {.concorso = 1, .data = kPrimaData});
    EXPECT_FALSE(oltre_i_limiti(righe));
    righe.superenalotto.emplace_back();
    EXPECT_EQ(oltre_i_limiti(righe),
              "SuperEnalotto: 4.000.001 righe, un archivio ne contiene al massimo 4.000.000");
}

TEST(Limiti, GliAnniCheSiLeggono) {
    const auto con = [](Data data) {
        RigheArchivio righe;
        righe.winforlife = {{.concorso = 1, .data = kPrimaData, .ora = "8:00"},
                            {.concorso = 2, .data = data, .ora = "9:00"}};
        return oltre_i_limiti(righe);
    };
    EXPECT_FALSE(con(kUltimaData));
    EXPECT_EQ(con(kUltimaData + std::chrono::days{1}),
              "Win for Life: trovata un'estrazione del 01/01/3000, un archivio ne contiene dal 01/01/1800 al "
              "31/12/2999");
    EXPECT_TRUE(con(kPrimaData - std::chrono::days{1}));
}

TEST(Limiti, SonoQuelliDellaLettura) {
    // What is just allowed is written and read again; one day more would have been written and then refused.
    const auto apre = [](Data data) {
        const CartellaProva cartella;
        RigheArchivio righe;
        righe.lotto = {{.concorso = 1, .data = data, .ruota = 0, .numeri = {1, 2, 3, 4, 5}}};
        EXPECT_TRUE(scrivi_drawit(cartella.percorso() / "drawit.db", righe, false));
        return apri_archivio(cartella.percorso(), kTabellaLotto).has_value();
    };
    EXPECT_TRUE(apre(kPrimaData));
    EXPECT_TRUE(apre(kUltimaData));
    EXPECT_FALSE(apre(kPrimaData - std::chrono::days{1}));
    EXPECT_FALSE(apre(kUltimaData + std::chrono::days{1}));
}

TEST(Limiti, UnImportazioneOltreNonScriveNiente) {
    const CartellaProva cartella;
    const auto testo = cartella.percorso() / "lotto.txt";
    std::ofstream{testo} << "2999/12/31\tBA\t1\t2\t3\t4\t5\n3000/01/01\tBA\t1\t2\t3\t4\t5\n";
    SenzaAvanzamento nessuno;
    const auto archivio = cartella.percorso() / "archivio";
    const auto esito = importa_archivio(archivio, {.lotto = testo, .tutto = true}, nessuno);
    ASSERT_FALSE(esito);
    EXPECT_NE(esito.error().motivo.find("3000"), std::string::npos) << esito.error().motivo;
    EXPECT_NE(esito.error().motivo.find("2999"), std::string::npos) << esito.error().motivo;
    EXPECT_FALSE(std::filesystem::exists(archivio));
}

}  // namespace
}  // namespace sortimetra
