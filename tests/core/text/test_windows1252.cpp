#include "text/windows1252.h"

#include <gtest/gtest.h>

#include <string>

namespace sortimetra {
namespace {

TEST(Windows1252, LettereCheLeRicercheHanno) {
    EXPECT_EQ(da_windows_1252("pi\xF9 \xE8 \x80 \x93"), "più è € “");
    EXPECT_EQ(in_windows_1252("più è € “"), "pi\xF9 \xE8 \x80 \x93");
    EXPECT_EQ(da_windows_1252(""), "");
    EXPECT_EQ(in_windows_1252(""), "");
}

TEST(Windows1252, OgniByteTornaComEra) {
    std::string tutti;
    for (int b = 0; b < 256; ++b) tutti += static_cast<char>(b);
    EXPECT_EQ(in_windows_1252(da_windows_1252(tutti)), tutti);
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
