#pragma once

#include "printing/rapporto.h"

#include <cstddef>

namespace sortimetra {

/// Rows on one page of the report of the spies.
inline constexpr std::size_t kRighePaginaSpia = 45;

/// The spies on upright sheets, 45 numbers a page in the grid's order, the coloured cells in their shades; at
/// the foot of each page what the figures and shades mean.
[[nodiscard]] Rapporto stampa_spia(const MaterialeRapporto& materiale);

}  // namespace sortimetra
