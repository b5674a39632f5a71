#include "draws/avanzamento.h"
#include "files/file_sicuro.h"
#include "printing/modulo_stampa.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

using testing::EndsWith;
using testing::StartsWith;

/// Two pages of a word each.
Rapporto due_pagine() {
    Rapporto r;
    r.titolo = "prova";
    r.pagine = 2;
    r.disegna = [](EasyPrint& stampa, int pagina) {
        stampa.PrintLeft(20, 20, "pagina " + std::to_string(pagina));
    };
    return r;
}

TEST(ModuloStampa, ScriveUnDocumento) {
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    const auto file = cartella.percorso() / "prova.pdf";
    const auto esito = stampa_pdf(due_pagine(), file, nessuno, {});
    ASSERT_TRUE(esito) << esito.error().testo();
    const auto byte = leggi_file(file);
    ASSERT_TRUE(byte);
    EXPECT_THAT(*byte, StartsWith("%PDF-"));
    EXPECT_THAT(*byte, EndsWith("%%EOF\n"));
    EXPECT_NE(byte->find("/Count 2"), std::string::npos);
}

TEST(ModuloStampa, LePagineScelte) {
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    const auto file = cartella.percorso() / "prova.pdf";
    ASSERT_TRUE(stampa_pdf(due_pagine(), file, nessuno, {2, 2}));
    EXPECT_NE(leggi_file(file).value().find("/Count 1"), std::string::npos);
}

TEST(ModuloStampa, DoveNonSiPuoScrivereLoDice) {
    const prove::CartellaProva cartella;
    SenzaAvanzamento nessuno;
    const auto esito = stampa_pdf(due_pagine(), cartella.percorso() / "manca" / "prova.pdf", nessuno, {});
    ASSERT_FALSE(esito);
    EXPECT_FALSE(esito.error().motivo.empty());
}

}  // namespace
}  // namespace sortimetra
