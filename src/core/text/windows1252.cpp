#include "text/windows1252.h"

#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace sortimetra {

namespace {

/// Characters of the bytes 0x80 to 0x9F; below and above, byte and character have the same number.
constexpr std::array<std::uint16_t, 32> kDa80a9F{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::string da_windows_1252(std::string_view byte) {
    std::string testo;
    testo.reserve(byte.size() + byte.size() / 8);
    for (const char b : byte) {
        const auto n = static_cast<unsigned char>(b);
        aggiungi_lettera(testo, n >= 0x80 && n <= 0x9F ? kDa80a9F[n - 0x80] : n);
    }
    return testo;
}

std::string in_windows_1252(std::string_view testo) {
    std::string byte;
    byte.reserve(testo.size());
    while (!testo.empty()) {
        const char32_t c = prendi_lettera(testo);
        const auto* alto = std::find(kDa80a9F.begin(), kDa80a9F.end(), c);
        if (alto != kDa80a9F.end())
            byte += static_cast<char>(0x80 + (alto - kDa80a9F.begin()));
        else
            byte += c < 0x80 || (c >= 0xA0 && c <= 0xFF) ? static_cast<char>(c) : '?';
    }
    return byte;
}

}  // namespace sortimetra
