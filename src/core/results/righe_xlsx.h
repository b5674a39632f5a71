#pragma once

#include "files/errore.h"
#include "results/scrittori.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace sortimetra {

// The long tables of a workbook. Its library makes everything but their rows: it writes each cell with a
// `printf` and packs the text at one fixed level, which for all terni is nine tenths of the time.

/// From so many rows on a table is written here, if it can be.
inline constexpr std::size_t kRigheLunghe = 5000;

/// Whether the rows of a table can be written here: whole numbers and groups of numbers, in the plain look.
[[nodiscard]] bool righe_semplici(const Tabella& tabella);

/// Rows that the library was not told: those of the `foglio`-th sheet (from 0), of which it knows the titles
/// and the last row, which tells it how large the sheet is.
struct RigheMancanti {
    std::size_t foglio = 0;
    const Tabella* tabella = nullptr;
    RigheScelte scelte{};
    std::size_t quante = 0;      ///< the first so many in the order of `scelte`
    std::size_t prima_riga = 0;  ///< row of the sheet, from 1, in which the first one stands
};

/// Calls `pezzo` with the rows as the sheet's XML, as the library would write them, in pieces of about a
/// megabyte, until it returns false.
void xml_righe(const RigheMancanti& righe, const std::function<bool(std::string_view)>& pezzo);

/// Packs the workbook in `file` anew, with the rows that are missing.
[[nodiscard]] std::expected<void, ErroreArchivio> aggiungi_righe(const std::filesystem::path& file,
                                                                 const std::vector<RigheMancanti>& mancanti);

}  // namespace sortimetra
