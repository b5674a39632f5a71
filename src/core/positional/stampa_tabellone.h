#pragma once

#include "printing/rapporto.h"

#include <cstddef>

namespace sortimetra {

/// Rows of the Lotto board on one page, and of the other boards: there two blocks stand side by side, and a
/// board that one block holds stands in the middle of the sheet in wider columns.
inline constexpr std::size_t kRighePaginaTabellone = 40;
inline constexpr std::size_t kRighePaginaTabellone2 = 114;

/// The Lotto board: lying sheets, the 55 columns side by side under the names of the wheels and the places 1
/// to 5, a gap between wheels. Every page has the board's caption and "  (pag. 1 di 2)".
[[nodiscard]] Rapporto stampa_tab_pos(const MaterialeRapporto& materiale);
/// The boards of SuperEnalotto on upright sheets; the first drawn numbers under the wheels' short names, the
/// six under their own.
[[nodiscard]] Rapporto stampa_tab_pos_s2(const MaterialeRapporto& materiale);
/// The boards of 10eLotto and of Win for Life on upright sheets.
[[nodiscard]] Rapporto stampa_tab_pos_10(const MaterialeRapporto& materiale);
/// The ten most delayed numbers on one lying sheet: two bands of six, Bari to Napoli and Palermo to Tutte.
[[nodiscard]] Rapporto stampa_10_num(const MaterialeRapporto& materiale);

/// Where that list stands on a sheet, in mm.
struct PosaDieci {
    float x = 0;
    float y = 0;  ///< top of the first band's names
    float larga = kBanda;
    float riga = 0;
    float tra_fasce = 0;  ///< from one band to the next
    float spazio = 0;     ///< between two groups
};
/// Whether a table is the answer of `dieci_piu_in_ritardo`.
[[nodiscard]] bool e_lista_dieci(const Tabella& tabella);
/// Draws the list in the size of text that the printer has.
void stampa_lista_dieci(EasyPrint& stampante, const Tabella& tabella, const PosaDieci& posa);

}  // namespace sortimetra
