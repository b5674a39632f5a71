#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace sortimetra::jet {

/// What the place of the password in a file's header holds, once it is decoded: 20 letters, zeroes behind
/// those that there are. A file without a password has zeroes only.
enum class StatoPassword : std::uint8_t { Nessuna, Impostata, Guasta };

namespace dettaglio {

/// Whether somebody could have typed it.
constexpr bool lettera(std::uint16_t u) {
    return u >= 0x20 && !(u >= 0x7F && u < 0xA0) && !(u >= 0xD800 && u < 0xE000) && u < 0xFFFE;
}

}  // namespace dettaglio

/// `lettere`: one unit per place, as the file has them. A file that is damaged there is not one with a
/// password: the user would look for a word that there never was. A single bit is damage; so are two letters
/// ten times over, which is what comes of a header whose date, with which the password is mixed, is wrong.
[[nodiscard]] constexpr StatoPassword stato_password(std::span<const std::uint16_t> lettere) {
    std::size_t lunga = 0;
    while (lunga < lettere.size() && lettere[lunga] != 0) ++lunga;
    int bit = 0;
    bool ripetuta = lunga == lettere.size() && lunga > 2;
    for (std::size_t i = 0; i < lettere.size(); ++i) {
        if (i < lunga ? !dettaglio::lettera(lettere[i]) : lettere[i] != 0) return StatoPassword::Guasta;
        bit += std::popcount(lettere[i]);
        ripetuta = ripetuta && lettere[i] == lettere[i % 2];
    }
    if (bit == 0) return StatoPassword::Nessuna;
    return bit == 1 || ripetuta ? StatoPassword::Guasta : StatoPassword::Impostata;
}

}  // namespace sortimetra::jet
