#include "printing/metriche.h"

#include "text/testi.h"
#include "text/utf8.h"

#include <array>
#include <cstdint>

namespace sortimetra {

namespace {

/// Advances of U+0020 to U+007E, then of U+00A0 to U+00FF, in 1/2048 of the font's size.
using Avanzamenti = std::array<std::uint16_t, 191>;
constexpr double kEm = 2048;
constexpr double kAscendente = 1854;
constexpr double kDiscendente = 434;
constexpr double kPasso = 1229;  ///< every character of the typewriter font
constexpr double kAltezzaPasso = 1705 + 615;
constexpr double kMillimetriPerPunto = 25.4 / 72;

constexpr Avanzamenti kTondo{
    569,  569,  727,  1139, 1139, 1821, 1366, 391,  682,  682,  797,  1196, 569,  682,  569,  569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 569,  569,  1196, 1196, 1196, 1139,
    2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593, 1479, 569,  1024, 1366, 1139, 1706, 1479, 1593,
    1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 569,  569,  569,  961,  1139,
    682,  1139, 1139, 1024, 1139, 1139, 569,  1139, 1139, 455,  455,  1024, 455,  1706, 1139, 1139,
    1139, 1139, 682,  1024, 569,  1139, 1024, 1479, 1024, 1024, 1024, 684,  532,  684,  1196,  //
    569,  682,  1139, 1139, 1139, 1139, 532,  1139, 682,  1509, 758,  1139, 1196, 682,  1509, 1131,
    819,  1124, 682,  682,  682,  1180, 1100, 682,  682,  682,  748,  1139, 1708, 1708, 1708, 1251,
    1366, 1366, 1366, 1366, 1366, 1366, 2048, 1479, 1366, 1366, 1366, 1366, 569,  569,  569,  569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366, 1251,
    1139, 1139, 1139, 1139, 1139, 1139, 1821, 1024, 1139, 1139, 1139, 1139, 569,  569,  569,  569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1124, 1251, 1139, 1139, 1139, 1139, 1024, 1139, 1024};

constexpr Avanzamenti kGrassetto{
    569,  682,  971,  1139, 1139, 1821, 1479, 487,  682,  682,  797,  1196, 569,  682,  569,  569,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 682,  682,  1196, 1196, 1196, 1251,
    1997, 1479, 1479, 1479, 1479, 1366, 1251, 1593, 1479, 569,  1139, 1479, 1251, 1706, 1479, 1593,
    1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 682,  569,  682,  1196, 1139,
    682,  1139, 1251, 1139, 1251, 1139, 682,  1251, 1251, 569,  569,  1139, 569,  1821, 1251, 1251,
    1251, 1251, 797,  1139, 682,  1251, 1139, 1593, 1139, 1139, 1024, 797,  573,  797,  1196,  //
    569,  682,  1139, 1139, 1139, 1139, 573,  1139, 682,  1509, 758,  1139, 1196, 682,  1509, 1131,
    819,  1124, 682,  682,  682,  1180, 1139, 682,  682,  682,  748,  1139, 1708, 1708, 1708, 1251,
    1479, 1479, 1479, 1479, 1479, 1479, 2048, 1479, 1366, 1366, 1366, 1366, 569,  569,  569,  569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366, 1251,
    1139, 1139, 1139, 1139, 1139, 1139, 1821, 1139, 1139, 1139, 1139, 1139, 569,  569,  569,  569,
    1251, 1251, 1251, 1251, 1251, 1251, 1251, 1124, 1251, 1251, 1251, 1251, 1251, 1139, 1251, 1139};

double avanzamento(char32_t c, bool grassetto) {
    const Avanzamenti& tabella = grassetto ? kGrassetto : kTondo;
    if (c >= 0x20 && c <= 0x7E) return tabella[c - 0x20];
    if (c >= 0xA0 && c <= 0xFF) return tabella[c - 0xA0 + 95];
    switch (c) {
        case U'‘':
        case U'’':
            return grassetto ? 569 : 455;
        case U'“':
        case U'”':
            return grassetto ? 1024 : 682;
        case U'—':
        case U'…':
            return kEm;
        default:
            return c < 0x20 ? 0 : 1139;  // "€", "–" and, near enough, every other letter
    }
}

bool a_passo_fisso(const Carattere& carattere) {
    return minuscolo(carattere.famiglia).find("courier") != std::string::npos;
}

}  // namespace

double larghezza_testo(const Carattere& carattere, std::string_view testo) {
    const bool fisso = a_passo_fisso(carattere);
    double somma = 0;
    while (!testo.empty()) {
        const char32_t c = prendi_lettera(testo);
        somma += fisso ? (c < 0x20 ? 0 : kPasso) : avanzamento(c, carattere.grassetto);
    }
    return somma / kEm * carattere.corpo * kMillimetriPerPunto;
}

double altezza_testo(const Carattere& carattere) {
    const double altezza = a_passo_fisso(carattere) ? kAltezzaPasso : kAscendente + kDiscendente;
    return altezza / kEm * carattere.corpo * kMillimetriPerPunto;
}

}  // namespace sortimetra
