#pragma once

#include "files/errore.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

// The limit of the bet Under/Over. It is typed, shown and kept in `uo.dat` with one decimal after a comma,
// in tenths inside the program.

/// The file in the program's folder: one line, the limit between quotes.
inline constexpr std::string_view kFileLimite = "uo.dat";
/// The limit of an installation that has no file yet: 227,5.
inline constexpr float kLimiteIniziale = 227.5F;
inline constexpr std::string_view kTestoLimiteIniziale = "227,5";

/// What `uo.dat` holds: the text to show, and the limit that is in force until the box is left once. The file
/// is read up to its comma, so that "227,5" puts 227 in force.
struct LimiteArchiviato {
    std::string testo{kTestoLimiteIniziale};
    float valore = kLimiteIniziale;

    friend bool operator==(const LimiteArchiviato&, const LimiteArchiviato&) = default;
};

/// Reads `uo.dat`; nothing if there is no such file. A text without a number is a limit of 0.
[[nodiscard]] std::expected<std::optional<LimiteArchiviato>, ErroreArchivio> leggi_limite(
    const std::filesystem::path& cartella);
/// Writes `uo.dat`, whole or not at all.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_limite(const std::filesystem::path& cartella,
                                                                std::string_view testo);

/// A limit as typed, in tenths, rounded half away from zero: "227,45" is 2275. Points may group the digits
/// before a comma; without a comma a point that groups no thousands is the decimal sign. Nothing for an empty
/// or any other text, or a number of more than twelve digits.
[[nodiscard]] std::optional<std::int64_t> leggi_decimi(std::string_view testo);
/// One decimal, the thousands grouped: "227,5", "1.000,0".
[[nodiscard]] std::string testo_decimi(std::int64_t decimi);
/// A limit in force with as many decimals as it has: "227", "1.000,3", "1,227".
[[nodiscard]] std::string testo_limite(float limite);
[[nodiscard]] constexpr float valore_decimi(std::int64_t decimi) {
    return static_cast<float>(static_cast<double>(decimi) / 10);
}

}  // namespace sortimetra
