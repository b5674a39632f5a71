#include "jet/numerico.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <span>

namespace sortimetra::jet {
namespace {

using Byte = std::array<unsigned char, kByteNumerico>;

/// The last word is the least one.
Byte byte(unsigned long n, unsigned char segno = 0) {
    Byte b{segno};
    for (std::size_t i = 0; i < 4; ++i) b.at(13 + i) = static_cast<unsigned char>(n >> (8 * i));
    for (std::size_t i = 0; i < 4; ++i) b.at(9 + i) = static_cast<unsigned char>(n >> (32 + 8 * i));
    return b;
}

TEST(Numerico, NumeriInteriEConVirgola) {
    EXPECT_EQ(numerico(byte(0), 0), 0.0);
    EXPECT_EQ(numerico(byte(90), 0), 90.0);
    EXPECT_EQ(numerico(byte(9000), 2), 90.0);
    EXPECT_EQ(numerico(byte(9050), 2), 90.5);
    EXPECT_EQ(numerico(byte(7, 0x80), 0), -7.0);
    EXPECT_EQ(numerico(byte(0x1'0000'0001), 0), 4'294'967'297.0);
}

TEST(Numerico, LeParolePiuAlte) {
    Byte b{};
    b[1] = 1;  // the least byte of the most significant word: 2 to the 96th
    EXPECT_EQ(numerico(b, 0), 0x1p96);
    b[1] = 0;
    b[5] = 1;
    EXPECT_EQ(numerico(b, 0), 0x1p64);
}

TEST(Numerico, CioCheNonPuoEssere) {
    const Byte b = byte(5);
    EXPECT_EQ(numerico(std::span{b}.first(16), 0), std::nullopt);
    EXPECT_EQ(numerico(b, 29), std::nullopt);
    EXPECT_EQ(numerico(b, -1), std::nullopt);
}

}  // namespace
}  // namespace sortimetra::jet
