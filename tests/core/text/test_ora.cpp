#include "text/ora.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

TEST(Ora, ConOSenzaZeroDavanti) {
    EXPECT_EQ(leggi_ora("8:00"), 480);
    EXPECT_EQ(leggi_ora("08:00"), 480);
    EXPECT_EQ(leggi_ora("0:00"), 0);
    EXPECT_EQ(leggi_ora("23:59"), 23 * 60 + 59);
}

TEST(Ora, NientAltro) {
    for (const char* testo : {"", "8", "8:0", "8:60", "24:00", "08.00", " 8:00", "8:00 ", "8:0x", "x:00",
                              "008:00", "-8:00", "8:000"})
        EXPECT_FALSE(leggi_ora(testo)) << testo;
}

}  // namespace
}  // namespace sortimetra
