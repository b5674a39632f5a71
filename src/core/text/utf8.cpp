#include "text/utf8.h"

#include <array>

namespace sortimetra {

namespace {

constexpr char32_t kUltima = 0x10FFFF;
/// The least character that needs so many bytes.
constexpr std::array<char32_t, 5> kMinima{0, 0, 0x80, 0x800, 0x10000};

/// Characters, but for the numbers that UTF-16 uses in pairs.
bool esiste(char32_t c) {
    return c <= kUltima && (c < 0xD800 || c > 0xDFFF);
}

/// Bytes of the character that this byte begins, 0 if it begins none.
std::size_t lunghezza(unsigned primo) {
    if (primo < 0x80) return 1;
    if (primo < 0xC0) return 0;
    if (primo < 0xE0) return 2;
    if (primo < 0xF0) return 3;
    return primo < 0xF8 ? 4 : 0;
}

}  // namespace

Lettera prima_lettera(std::string_view testo) {
    const auto primo = static_cast<unsigned char>(testo.front());
    const std::size_t n = lunghezza(primo);
    if (n == 1) return {primo, 1};
    if (n == 0 || n > testo.size()) return {kLetteraIgnota, 1};
    char32_t codice = primo & (0x7FU >> n);
    for (std::size_t i = 1; i < n; ++i) {
        if (!continua_lettera(testo[i])) return {kLetteraIgnota, 1};
        codice = codice << 6U | (static_cast<unsigned char>(testo[i]) & 0x3FU);
    }
    if (codice < kMinima.at(n) || !esiste(codice)) return {kLetteraIgnota, 1};
    return {codice, n};
}

char32_t prendi_lettera(std::string_view& testo) {
    const auto [codice, byte] = prima_lettera(testo);
    testo.remove_prefix(byte);
    return codice;
}

void aggiungi_lettera(std::string& testo, char32_t codice) {
    if (!esiste(codice)) codice = kLetteraIgnota;
    if (codice < 0x80) {
        testo += static_cast<char>(codice);
        return;
    }
    const std::size_t n = codice < 0x800 ? 2 : codice < 0x10000 ? 3 : 4;
    testo += static_cast<char>((0xF00U >> n & 0xFFU) | codice >> 6 * (n - 1));
    for (std::size_t i = n - 1; i-- > 0;) testo += static_cast<char>(0x80U | (codice >> 6 * i & 0x3FU));
}

std::string_view tronca_lettere(std::string_view testo, std::size_t massimo) {
    if (testo.size() <= massimo) return testo;
    std::size_t fine = massimo;
    // A character has at most three bytes behind its first; what has more is none, and may be cut anywhere.
    for (std::size_t passi = 0; passi < 3 && fine > 0 && continua_lettera(testo[fine]); ++passi) --fine;
    return testo.substr(0, continua_lettera(testo[fine]) ? massimo : fine);
}

}  // namespace sortimetra
