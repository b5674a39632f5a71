#include "files/modulo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sortimetra {
namespace {

TEST(Modulo, QuandoNonCE) {
    const auto porta = apri_modulo({"libsortimetra-nessuno.so", "porta", "il modulo di prova"});
    ASSERT_FALSE(porta);
    EXPECT_EQ(porta.error().testo(),
              "libsortimetra-nessuno.so: il modulo di prova non si trova accanto al programma");
}

TEST(Modulo, QuandoNonNeHaLaPorta) {
    // (The module is there once anything that needs it was built.)
    const auto porta = apri_modulo({"libsortimetra-spacchetta.so", "porta_di_ieri", "il modulo di prova"});
    ASSERT_FALSE(porta);
    EXPECT_THAT(porta.error().motivo, testing::HasSubstr("è di un'altra versione"));
}

}  // namespace
}  // namespace sortimetra
