#pragma once

#include "files/errore.h"

#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The addresses of published result files from which an update may be fetched: a setting of the user's, none
/// at first, kept with the other settings (`file_impostazioni`) and shared by both programs.
[[nodiscard]] std::vector<std::string> leggi_indirizzi();

/// So many can be kept.
inline constexpr std::size_t kIndirizziMassimi = 9;

/// Why a text cannot be one of them, in Italian; empty if it can.
[[nodiscard]] std::string_view rifiuto_indirizzo(std::string_view indirizzo);

/// Puts these in the place of those that were kept; all else in the settings stays.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_indirizzi(std::span<const std::string> indirizzi);

}  // namespace sortimetra
