#pragma once

#include "files/errore.h"
#include "results/messaggio.h"
#include "statistics/serie_corrente.h"

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

namespace sortimetra {

/// The list of the "cinquine dei 90" as its file holds it: a first line with the count, then 436 different
/// cinquine that together hold each of the 4,005 ambi at least once, numbers ascending.
///
/// Numbers are taken as residues mod 90, 0 standing for 90, so that an ambo is a difference 1 to 45 and a
/// place.
/// - Four base cinquine, each moved by 0 to 89: their 40 differences are all different and are none of 9, 18,
///   27, 36, 45, so that each ambo with another difference is met exactly once. 360 cinquine.
/// - What is left are the ambi inside the nine classes r, r + 9, ..., r + 81 of ten numbers. Six cinquine
///   cover the 45 ambi of ten numbers. 54 cinquine.
/// - 22 more fill the list up to the length that the search expects: the 18 of numbers 18 apart, so that all
///   numbers stay equally frequent, and four runs of five.
[[nodiscard]] std::string testo_cinquine_dei_90();

/// The file of the "cinquine dei 90", in the program's folder: a first line that is skipped, then 436 times
/// five numbers 1 to 90, parted by commas, blanks or line ends.
inline constexpr std::string_view kFileCinquine = "n90ridd.rid";
/// Shown when that file is missing, cut short or no list of such numbers.
inline constexpr std::string_view kFileDanneggiato =
    "File danneggiato! Impossibile effettuare Ricerca Statistica!";

/// The cinquine of that file. The error is the message for the user.
[[nodiscard]] std::expected<SerieCorrente, Messaggio> leggi_cinquine_dei_90(
    const std::filesystem::path& cartella);

/// Puts the list into the program's folder if that has none; one that is there stays, whatever it holds.
[[nodiscard]] std::expected<void, ErroreArchivio> prepara_cinquine_dei_90(
    const std::filesystem::path& cartella);

}  // namespace sortimetra
