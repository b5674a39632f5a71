#include "text/windows1252.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace sortimetra {
namespace {

TEST(Windows1252, CaratteriDelCodice) {
    EXPECT_EQ(da_windows_1252("pi\xF9 \x80 \x93x\x94 \x85"), "più € “x” …");
    EXPECT_EQ(in_windows_1252("più € “x” …"), "pi\xF9 \x80 \x93x\x94 \x85");
    EXPECT_EQ(in_windows_1252("Ω 漢 🂡"), "? ? ?");
    EXPECT_EQ(in_windows_1252("a\xC3"), "a?") << "a character cut short";
    EXPECT_EQ(in_windows_1252("\xC0\x80\xC1\xA1\xE0\x80\x80"), "???????") << "forms that are too long";
}

TEST(Windows1252, OgniByteTornaComEra) {
    std::string tutti;
    for (int b = 0; b < 256; ++b) tutti += static_cast<char>(b);
    EXPECT_EQ(in_windows_1252(da_windows_1252(tutti)), tutti);
}

TEST(Windows1252, ByteACasoTornanoComErano) {
    for (unsigned seme = 0; seme < 200; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        std::string byte(dado() % 60, '\0');
        for (char& b : byte) b = static_cast<char>(dado() % 256);
        EXPECT_EQ(in_windows_1252(da_windows_1252(byte)), byte);
    }
}

TEST(Windows1252, LettereCheIlCodiceNonHa) {
    EXPECT_EQ(in_windows_1252("Ā😀x"), "??x") << "one mark a letter";
    EXPECT_EQ(in_windows_1252("\u0080"), "?") << "byte 80 is the euro, not this control character";
}

TEST(Windows1252, CioCheNonEUtf8) {
    EXPECT_EQ(in_windows_1252("a\xF9z"), "a?z");
    EXPECT_EQ(in_windows_1252("\xC3"), "?");
    EXPECT_EQ(in_windows_1252("\xC0\xAF"), "??") << "no \"/\" by a side door";
    EXPECT_EQ(in_windows_1252("\xF0\x82\x82\xAC"), "????") << "no euro by one either";
}

}  // namespace
}  // namespace sortimetra
