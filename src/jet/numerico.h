#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

namespace sortimetra::jet {

/// A number of the type NUMERIC: a byte of sign, then sixteen of magnitude, in four words of which the most
/// significant comes first and each begins with its least byte.
inline constexpr std::size_t kByteNumerico = 17;
/// Digits behind the point that the type can have.
inline constexpr int kDecimaliMassimi = 28;

/// Its value; nothing where there are too few bytes or the column declares a scale that cannot be. The
/// library's own conversion works digit by digit to the longest that there can be: a table of such columns
/// took ten seconds.
[[nodiscard]] inline std::optional<double> numerico(std::span<const unsigned char> byte, int decimali) {
    if (byte.size() < kByteNumerico || decimali < 0 || decimali > kDecimaliMassimi) return std::nullopt;
    constexpr unsigned char kNegativo = 0x80;
    constexpr std::array<std::size_t, 4> kParole{1, 5, 9, 13};
    double valore = 0;
    for (const std::size_t parola : kParole)
        for (std::size_t i = 4; i-- > 0;) valore = valore * 256 + byte[parola + i];
    valore /= std::pow(10.0, decimali);
    return (byte[0] & kNegativo) != 0 ? -valore : valore;
}

}  // namespace sortimetra::jet
