#pragma once

#include "results/risultato.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// What a user writes to choose rows and columns of a table: the same words on the command line and over the
// grids. A column is told by its title (in any of the title rows, without regard to case and accents) or,
// where no title is alike, by its number from 0. Errors are sentences for the user.

/// The column of a title or number.
[[nodiscard]] std::expected<std::size_t, std::string> trova_colonna(const Tabella& tabella,
                                                                    std::string_view nome);

/// "Ritardo:desc,Numeri": columns joined by ",", each with its way (descending if none is told); the first
/// decides.
[[nodiscard]] std::expected<std::vector<Criterio>, std::string> leggi_criteri(const Tabella& tabella,
                                                                              std::string_view testo);

/// The same for a result of several tables: what of it is for each table, "" for nothing. A piece that begins
/// with a table's name and a point is that table's ("MSH_Distanza(9).Freq.:asc"), any other the first one's.
[[nodiscard]] std::vector<std::string> criteri_per_tabella(std::span<const Tabella> tabelle,
                                                           std::string_view testo);

/// "Ritardo, 0": columns joined by ",".
[[nodiscard]] std::expected<std::vector<std::size_t>, std::string> leggi_colonne(const Tabella& tabella,
                                                                                 std::string_view testo);

/// The rows, in the order given (empty: that of writing), for which an expression holds: `ritardo > 100`,
/// `Numeri contiene 07 e frequenza <= 20 o ritardo >= 90`. A comparison is a title, one of `< <= > >= = !=`
/// or `contiene`, and a value; titles and values may stand in double quotes. `e` binds more tightly than `o`.
/// Numbers compare as numbers, other text without regard to case and accents; where only one of the two is a
/// number, `<` and the like are false.
[[nodiscard]] std::expected<std::vector<std::uint32_t>, std::string> filtra(
    const Tabella& tabella, std::string_view espressione, std::span<const std::uint32_t> ordine = {});

/// The table of some rows, in their order, and some columns, in theirs. A title that spans columns stays over
/// those of them that are kept.
[[nodiscard]] Tabella seleziona(const Tabella& tabella, std::span<const std::uint32_t> righe,
                                std::span<const std::size_t> colonne);

}  // namespace sortimetra
