#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace sortimetra {

/// The ten regional wheels of the Lotto, in the order that rows of one concorso have.
inline constexpr int kRuote = 10;
/// One bit for each of the ten.
inline constexpr unsigned kDieciRuote = (1U << kRuote) - 1;
/// Index of the entry "all ten wheels" wherever wheels are indexed by their check box.
inline constexpr int kTutte = 10;
/// Index of the wheel NAZIONALE.
inline constexpr int kNazionale = 11;
/// Numbers drawn per wheel and draw.
inline constexpr int kEstratti = 5;
/// Highest number of the Lotto, of SuperEnalotto and of 10eLotto; Win for Life stops at 20.
inline constexpr int kNumeri = 90;
inline constexpr int kNumeriWinForLife = 20;

/// A wheel's three names. `codice` is empty for the entry "all ten wheels".
struct NomeRuota {
    std::string_view codice;   ///< two letters, as in the archive and on the command line
    std::string_view schermo;  ///< capitals, as on a check box
    std::string_view esteso;   ///< as printed in reports and board titles
};

/// Index 0 to 9 the wheels in alphabetical order of their codes, 10 all of them, 11 NAZIONALE.
inline constexpr std::array<NomeRuota, 12> kNomiRuote{{
    {"BA", "BARI", "Bari"},
    {"CA", "CAGLIARI", "Cagliari"},
    {"FI", "FIRENZE", "Firenze"},
    {"GE", "GENOVA", "Genova"},
    {"MI", "MILANO", "Milano"},
    {"NA", "NAPOLI", "Napoli"},
    {"PA", "PALERMO", "Palermo"},
    {"RM", "ROMA", "Roma"},
    {"TO", "TORINO", "Torino"},
    {"VE", "VENEZIA", "Venezia"},
    {"", "TUTTE", "Tutte"},
    {"NZ", "NAZIONALE", "Nazionale"},
}};

/// The archive's own word for the wheel NAZIONALE in the column `ruota`.
inline constexpr std::string_view kParolaNazionale = "NAZIONALE";

/// By two capitals, -1 for a pair that is no wheel's. NAZIONALE is published under two codes.
inline constexpr auto kRuotaDaLettere = [] {
    std::array<std::int8_t, 26 * 26> t{};
    t.fill(-1);
    const auto metti = [&](std::string_view codice, int ruota) {
        t[static_cast<std::size_t>((codice[0] - 'A') * 26 + (codice[1] - 'A'))] =
            static_cast<std::int8_t>(ruota);
    };
    for (int w = 0; w < kRuote; ++w) metti(kNomiRuote[static_cast<std::size_t>(w)].codice, w);
    metti(kNomiRuote[kNazionale].codice, kNazionale);
    metti("RN", kNazionale);
    return t;
}();

/// Index 0 to 9 or 11 of a two-letter code; exact capitals, as the archive writes them.
[[nodiscard]] constexpr std::optional<int> indice_ruota(std::string_view codice) {
    if (codice.size() != 2) return std::nullopt;
    const unsigned a = static_cast<unsigned char>(codice[0]) - 'A';
    const unsigned b = static_cast<unsigned char>(codice[1]) - 'A';
    const int ruota = a < 26 && b < 26 ? kRuotaDaLettere[a * 26 + b] : -1;
    return ruota < 0 ? std::nullopt : std::optional{ruota};
}

}  // namespace sortimetra
