#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sortimetra {

// The one reading of UTF-8. What is no character (a byte that begins none, a sequence cut short, in more
// bytes than it needs, of half a pair, or beyond U+10FFFF) counts as one unknown character per byte.

inline constexpr char32_t kLetteraIgnota = U'\uFFFD';

/// A character and the bytes that it takes.
struct Lettera {
    char32_t codice;
    std::size_t byte;
};

/// The first character of a text that is not empty.
[[nodiscard]] Lettera prima_lettera(std::string_view testo);
/// The same, taken away from the text.
[[nodiscard]] char32_t prendi_lettera(std::string_view& testo);

/// Appends a character, as `kLetteraIgnota` where there is none of that number.
void aggiungi_lettera(std::string& testo, char32_t codice);

/// Whether a byte stands within a character, behind its first byte.
[[nodiscard]] constexpr bool continua_lettera(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// As much of the text as fits into `massimo` bytes without a character cut in two.
[[nodiscard]] std::string_view tronca_lettere(std::string_view testo, std::size_t massimo);

}  // namespace sortimetra
