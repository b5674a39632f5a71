#pragma once

#include "printing/rapporto.h"

#include <cstddef>

namespace sortimetra {

/// Rows of the Lotto board on one page, and of the other boards: there two blocks stand side by side, and a
/// board that one block holds stands in the middle of the sheet in wider columns.
inline constexpr std::size_t kRighePaginaTabellone = 40;
inline constexpr std::size_t kRighePaginaTabellone2 = 114;

/// The Lotto board: lying sheets, the 55 columns side by side under the names of the wheels. Every page has
/// the board's caption and "  (pag. 1 di 2)".
[[nodiscard]] Rapporto stampa_tab_pos(const MaterialeRapporto& materiale);
/// The boards of SuperEnalotto on upright sheets; the first drawn numbers under the wheels' short names, the
/// six under their own.
[[nodiscard]] Rapporto stampa_tab_pos_s2(const MaterialeRapporto& materiale);
/// The boards of 10eLotto and of Win for Life on upright sheets.
[[nodiscard]] Rapporto stampa_tab_pos_10(const MaterialeRapporto& materiale);
/// The ten most delayed numbers on one lying sheet: two bands of six, Bari to Napoli and Palermo to Tutte.
[[nodiscard]] Rapporto stampa_10_num(const MaterialeRapporto& materiale);

}  // namespace sortimetra
