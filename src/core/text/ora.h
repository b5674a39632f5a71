#pragma once

#include <optional>
#include <string_view>

namespace sortimetra {

/// The minutes since midnight of exactly "8:00" or "08:00"; nothing for any other text or an hour that no
/// clock shows.
[[nodiscard]] std::optional<int> leggi_ora(std::string_view testo);

}  // namespace sortimetra
