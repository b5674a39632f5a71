#include "printing/fogli.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

TEST(Fogli, NomiDaiCodici) {
    EXPECT_EQ(nome_foglio(1), "Letter");
    EXPECT_EQ(nome_foglio(8), "A3");
    EXPECT_EQ(nome_foglio(9), "A4");
    EXPECT_EQ(nome_foglio(11), "A5");
    EXPECT_EQ(nome_foglio(27), "Envelope DL");
    EXPECT_EQ(nome_foglio(43), "Japanese Postcard");
    EXPECT_EQ(nome_foglio(47), "Envelope Invite");
    EXPECT_EQ(nome_foglio(48), "Unknown");
    EXPECT_EQ(nome_foglio(50), "Letter Extra");
    EXPECT_EQ(nome_foglio(66), "A2");
    EXPECT_EQ(nome_foglio(68), "A3 Extra Transverse");
    EXPECT_EQ(nome_foglio(69), "Unknown");
    EXPECT_EQ(nome_foglio(0), "Unknown");
    EXPECT_EQ(nome_foglio(-1), "Unknown");
    EXPECT_EQ(nome_foglio(256), "User");
    EXPECT_EQ(nome_foglio(400), "User");
}

TEST(Fogli, CodiciDalleMisure) {
    EXPECT_EQ(codice_foglio({210, 297}), 9);
    EXPECT_EQ(codice_foglio({297, 210}), 9);
    EXPECT_EQ(codice_foglio({215.9, 279.4}), 1);
    EXPECT_EQ(codice_foglio({279.4, 431.8}), 3);
    EXPECT_EQ(codice_foglio({431.8, 279.4}), 4);
    EXPECT_EQ(codice_foglio({148, 210}), 11);
    EXPECT_EQ(codice_foglio({100, 100}), kFoglioUtente);
    EXPECT_FALSE(misure_foglio(49).has_value());
}

}  // namespace
}  // namespace sortimetra
