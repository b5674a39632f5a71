#include "files/file_sicuro.h"
#include "results/modulo_xlsx.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using testing::StartsWith;

TEST(ModuloXlsx, LaSuaPortaScriveUnaCartellaDiLavoro) {
    const auto porta = apri_modulo(kModuloXlsx);
    ASSERT_TRUE(porta) << porta.error().testo();
    Risultato r;
    r.tabelle.resize(1);
    r.tabelle[0].nome = "risultati";
    r.tabelle[0].colonne = {ColonnaInteri{.valori = {7, 8}}};
    const auto risposta = prove::risposta_da(r);
    const prove::CartellaProva cartella;
    const auto file = cartella.percorso() / "prova.xlsx";
    const auto scrivi = reinterpret_cast<ScriviXlsx (*)()>(*porta)();
    ASSERT_TRUE(scrivi(file, risposta, 2));
    EXPECT_THAT(leggi_file(file).value(), StartsWith("PK"));
    // The program's own function goes the same way, and so do the bytes of a pipe.
    EXPECT_TRUE(scrivi_xlsx(cartella.percorso() / "altra.xlsx", risposta, 2));
    EXPECT_THAT(byte_xlsx(risposta, 2).value(), StartsWith("PK"));
}

TEST(ModuloXlsx, UnaCartellaCheMancaEUnErrore) {
    const prove::CartellaProva cartella;
    Risultato r;
    r.tabelle.resize(1);
    EXPECT_FALSE(scrivi_xlsx(cartella.percorso() / "manca" / "prova.xlsx", prove::risposta_da(r), 2));
}

}  // namespace
}  // namespace sortimetra
