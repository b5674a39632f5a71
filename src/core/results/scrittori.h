#pragma once

#include "files/errore.h"
#include "results/risposta.h"
#include "results/risultato_fwd.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <limits>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

// A result as a file or on a terminal. All writers only read it: numbers become text here and nowhere before,
// straight into one buffer. The text of a cell is what the grid shows, with the blanks at both ends removed.

/// As many rows as there are.
inline constexpr std::size_t kOgniRiga = std::numeric_limits<std::size_t>::max();

/// Which rows of a table are written, and in what order.
struct RigheScelte {
    /// A permutation as `ordina` gives it; empty for the order of writing.
    std::span<const std::uint32_t> ordine{};
    /// At most so many, counted in that order.
    std::size_t massimo = kOgniRiga;
};

/// Appends a table as CSV: UTF-8, ";" between fields, a field quoted where it holds ";", a quote or a line
/// end, LF after each record. Title rows first.
void scrivi_csv(std::string& testo, const Tabella& tabella, RigheScelte scelte = {});

/// Appends what an answer is of as CSV records, a name and its value each, and an empty line.
void scrivi_intestazione_csv(std::string& testo, const Risposta& risposta);

/// Appends an answer as one JSON object and a line end, keys in the order "chiave", "titolo", "tabelle",
/// "etichette", "messaggi", then "ambito" where the search has a scope, and "simulato" where the archive is;
/// every cell is a string. The first table stands in the order on
/// show, at most `massimo` rows of it. Bytes that are no UTF-8 become U+FFFD, so that the object can always
/// be read.
void scrivi_json(std::string& testo, const Risposta& risposta, std::size_t massimo = kOgniRiga);

/// Appends a table aligned for a terminal: columns two blanks apart, numbers to the right, texts to the left,
/// a line under the titles, a merged title over the columns that it spans.
void scrivi_tabella(std::string& testo, const Tabella& tabella, RigheScelte scelte = {});

/// Appends an answer for a terminal: title, tables (each under its name where there are several),
/// labels. Messages are not part of it.
/// With `intestazione` the lines of `voci_ambito` stand under the title; without, a simulated archive says so
/// there.
void scrivi_terminale(std::string& testo, const Risposta& risposta, std::size_t massimo = kOgniRiga,
                      bool intestazione = false);

/// Columns that a text takes on a terminal: 2 for East Asian wide characters and emoji, 0 for combining
/// marks.
[[nodiscard]] std::size_t larghezza_terminale(std::string_view testo);

/// Writes an answer as a workbook, one sheet a table, whole or not at all. Whole numbers, decimals and
/// percentages are typed numbers (shown as the grid shows them), back and fore colours are kept, title rows
/// stay in sight. The first table as in `scrivi_json`; the last sheet tells what the answer is of.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_xlsx(const std::filesystem::path& file,
                                                              const Risposta& risposta,
                                                              std::size_t massimo = kOgniRiga);
/// The bytes of such a workbook, for a pipe.
[[nodiscard]] std::expected<std::string, ErroreArchivio> byte_xlsx(const Risposta& risposta,
                                                                   std::size_t massimo = kOgniRiga);

}  // namespace sortimetra
