#pragma once

#include "statistics/serie_corrente.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// What the grid's first column shows for a member.
enum class EtichettaMembro : std::uint8_t {
    numeri,        ///< all its numbers, two digits each, joined by "."
    primo_ultimo,  ///< "1/81"
    decina,        ///< "1/9 (90)" for the first, then "10/19"
    cifra,         ///< "1" to "8", "9/0"
};

/// A named family of numbers: the members, and how they are told to the user.
struct Famiglia {
    std::string_view chiave{};  ///< key of its search
    std::string_view carica{};  ///< name of its loader
    std::size_t righe = 0;
    std::size_t colonne = 0;
    std::string_view scritta{};                              ///< members written out, ";" between them; or
    void (*regola)(SerieCorrente&) = [](SerieCorrente&) {};  ///< the rule that makes them; or
    bool su_file = false;                                    ///< members read from `kFileCinquine`
    EtichettaMembro etichetta = EtichettaMembro::numeri;
    std::string_view descrizione{};  ///< the fixed text on the eight families that have a table of all wheels
};

/// The 42 families.
[[nodiscard]] std::span<const Famiglia> famiglie();

/// The family of a search key or of a loader name; null if there is none.
[[nodiscard]] const Famiglia* trova_famiglia(std::string_view chiave);
[[nodiscard]] const Famiglia* trova_caricatore(std::string_view carica);

/// The file of the "cinquine dei 90", in the program's folder: a first line that is skipped, then 436 times
/// five numbers 1 to 90, parted by commas, blanks or line ends.
inline constexpr std::string_view kFileCinquine = "n90ridd.rid";
/// Shown when that file is missing, cut short or no list of such numbers.
inline constexpr std::string_view kFileDanneggiato =
    "File danneggiato! Impossibile effettuare Ricerca Statistica!";
/// The title of that message's box.
inline constexpr std::string_view kTitoloFileDanneggiato = "Sortimetra 2001";

/// The members of a family. `cartella` is the program's folder. The error is the message for the user.
[[nodiscard]] std::expected<SerieCorrente, std::string> carica_serie(const Famiglia& famiglia,
                                                                     const std::filesystem::path& cartella);

/// The short label of member `i` (from 0) as the grid shows it; empty where it lists the numbers.
[[nodiscard]] std::string etichetta_membro(const Famiglia& famiglia, const SerieCorrente& serie,
                                           std::size_t i);

}  // namespace sortimetra
