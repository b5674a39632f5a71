#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace sortimetra::jet {

/// A column as a table's definition has it, wanted or not.
struct Colonna {
    int tipo = 0;        ///< one of libmdb's `MDB_INT`, `MDB_TEXT` …
    int grandezza = 0;   ///< declared, in bytes
    bool fissa = false;  ///< stands at a place of its own in each row, the same in all
    int posto = 0;       ///< that place, for a fixed column
    int variabile = 0;   ///< its number among those of varying length, for one that is not
    int numero = 0;      ///< among all: its bit in the row's mask of empty cells
};

struct Definizione {
    std::vector<Colonna> colonne;
    int massime = 0;    ///< columns that the table has had, deleted ones too
    int variabili = 0;  ///< of these the ones of varying length
};

/// A column whose definition contradicts itself or that of another: a type that has not the declared size,
/// two columns at one place, a place that no column has though none was ever deleted. Such a table would be
/// read without a fault, and give other values. The number of columns where it is no one's in particular;
/// nothing where all fit together.
[[nodiscard]] std::optional<std::size_t> contraddizione(const Definizione& definizione);

}  // namespace sortimetra::jet
