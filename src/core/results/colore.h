#pragma once

#include <cstdint>

namespace sortimetra {

/// A packed colour, 0xBBGGRR.
using Colore = std::int32_t;
/// The cell keeps the colour that the grid gives it.
inline constexpr Colore kNessunColore = -1;

}  // namespace sortimetra
