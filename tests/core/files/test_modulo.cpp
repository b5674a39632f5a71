#include "files/modulo.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

TEST(Modulo, QuelloCheNonCeLoDice) {
    const auto porta = porta_modulo("libsortimetra-che-non-esiste.so", "porta");
    ASSERT_FALSE(porta.has_value());
    EXPECT_NE(porta.error().testo().find("libsortimetra-che-non-esiste.so"), std::string::npos);
    EXPECT_NE(porta.error().testo().find("non si trova accanto al programma"), std::string::npos);
}

}  // namespace
}  // namespace sortimetra
