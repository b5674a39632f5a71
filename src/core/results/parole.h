#pragma once

#include "results/risultato_fwd.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// What the title of a column means: two sentences, and an example from the rows on show ("" where none of
/// them has one).
struct Spiegazione {
    std::string_view nome;   ///< the measure's full name
    std::string_view frasi;  ///< two sentences
    std::string esempio;
};

/// The name of the measure that a title stands for, however it is shortened: "Ritardo Storico" for "R.S.",
/// "R.Storico" and "Rit. Stor."; "" where it is no measure.
[[nodiscard]] std::string_view misura_del_titolo(std::string_view titolo);

/// Explains a column of a table by its last title. `righe` are the rows on show in their order, empty for all
/// of them as written; the example is of the first that has one. Nothing where the title is no measure.
[[nodiscard]] std::optional<Spiegazione> spiega(const Tabella& tabella, std::size_t colonna,
                                                std::span<const std::uint32_t> righe = {});

/// The column of a measure by its name, in the last row of titles; nothing unless exactly one has it.
[[nodiscard]] std::optional<std::size_t> colonna_della_misura(const Tabella& tabella, std::string_view nome);

/// The whole number of a cell; nothing where it shows none.
[[nodiscard]] std::optional<std::int32_t> intero_della_cella(const Tabella& tabella, std::size_t riga,
                                                             std::size_t colonna);

}  // namespace sortimetra
