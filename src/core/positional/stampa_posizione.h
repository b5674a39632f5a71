#pragma once

#include "printing/rapporto.h"

#include <cstddef>

namespace sortimetra {

/// Rows of numbers on one page of the report by position.
inline constexpr std::size_t kRighePaginaPosizione = 45;
/// At most so many places stand side by side; a game with more goes on in further pages.
inline constexpr std::size_t kPostiPaginaPosizione = 10;

/// The report of a result by position: lying sheets, 45 numbers a page in the grid's order, each place with
/// its three columns. Lotto and SuperEnalotto take two pages; the twenty places of 10eLotto stand on two
/// sheets a block of 45 numbers, the ten of Win for Life on one. The last page has the legend.
[[nodiscard]] Rapporto rapporto_posizione(const MaterialeRapporto& materiale);

}  // namespace sortimetra
