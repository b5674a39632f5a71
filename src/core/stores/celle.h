#pragma once

#include "draws/archivio.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

// What the stores of the archive share: which columns each table has, and how the cells of a row become a
// draw. The native file and the Jet file differ only in how a cell is fetched.

/// One cell as a store holds it. Stores are lax: the numbers of a draw stand as text in one table and as
/// numbers in the next, and an empty cell is a blank, a 0 or nothing at all.
struct Cella {
    enum class Tipo : std::uint8_t {
        Vuota,
        Intero,
        Reale,
        Testo,
        Momento,  ///< `reale` counts days from 30 December 1899, the time of day is the fraction
        Guasta    ///< something stands there that the store itself cannot read
    };
    Tipo tipo = Tipo::Vuota;
    std::int64_t intero = 0;
    double reale = 0;
    std::string_view testo;
};

/// A table of the archive: `bit` is its value in `Tabelle`, `colonne` the names of the columns that are read,
/// in the order in which `LettoreRighe` takes them. Names are compared without regard to case.
struct FormaTabella {
    unsigned bit;
    std::string_view nome;
    std::span<const std::string_view> colonne;
};

/// The three tables of drawit, then the one of drawit2.
[[nodiscard]] std::span<const FormaTabella> tabelle_drawit();
[[nodiscard]] std::span<const FormaTabella> tabelle_drawit2();

/// No table of a lottery has more columns or rows than this; a file that claims it is damaged or hostile.
inline constexpr std::size_t kColonneMassime = 13;
inline constexpr std::size_t kRigheMassime = 4'000'000;

/// Turns rows of cells into rows of the archive.
class LettoreRighe {
  public:
    explicit LettoreRighe(RigheArchivio& righe) : righe_{righe} {}

    /// `celle` stand in the order of `forma.colonne`. Returns why the row cannot be true, in Italian.
    [[nodiscard]] std::optional<std::string> aggiungi(const FormaTabella& forma,
                                                      std::span<const Cella> celle);

  private:
    [[nodiscard]] std::optional<std::string> interpreta(const FormaTabella& forma,
                                                        std::span<const Cella> celle);
    [[nodiscard]] std::optional<Data> data(const Cella& cella);

    RigheArchivio& righe_;
    // Ten rows in a run have the same date: the last one read is kept.
    bool testo_letto_ = false;
    bool momento_letto_ = false;
    std::array<char, 10> testo_data_{};
    Data data_testo_{};
    double momento_ = 0;
    Data data_momento_{};
};

}  // namespace sortimetra
