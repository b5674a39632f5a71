#include "files/modulo.h"
#include "printing/modulo_stampa.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using testing::HasSubstr;

TEST(Modulo, QuelloCheCE) {
    const auto porta = porta_modulo(kModuloStampa, kPortaModuloStampa, "di stampa");
    ASSERT_TRUE(porta) << porta.error().testo();
    EXPECT_NE(*porta, nullptr);
    EXPECT_EQ(porta_modulo(kModuloStampa, kPortaModuloStampa, "di stampa").value(), *porta) << "loaded once";
}

TEST(Modulo, QuelloCheMancaODiUnAltraVersione) {
    const auto manca = porta_modulo("libsortimetra-nessuno.so", "porta", "di prova");
    ASSERT_FALSE(manca);
    EXPECT_EQ(manca.error().testo(),
              "libsortimetra-nessuno.so: il modulo di prova non si trova accanto al programma");
    const auto altra = porta_modulo(kModuloStampa, "una_porta_che_non_ha", "di stampa");
    ASSERT_FALSE(altra);
    EXPECT_EQ(altra.error().motivo, "il modulo di stampa è di un'altra versione");
    // A file of that name that is no library.
    const auto rotto = porta_modulo("sortimetra-cli", "porta", "di prova");
    ASSERT_FALSE(rotto);
    EXPECT_THAT(rotto.error().motivo, HasSubstr("il modulo di prova non si carica"));
}

}  // namespace
}  // namespace sortimetra
