#pragma once

#include <cstdint>

namespace sortimetra {

/// The game that a search asks about. `sistemi` lets the user choose one of the others.
enum class Gioco : std::uint8_t { lotto, superenalotto, dieci_e_lotto, win_for_life, sistemi };

}  // namespace sortimetra
