#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <string_view>

namespace sortimetra {

/// Shown when a head number is missing, 0 or above 90; the search does not start.
inline constexpr std::string_view kCapogiocoNonValido = "Capogioco specificato non valido";
inline constexpr std::string_view kCapigiocoNonValidi = "Capigioco specificati non valido";

/// "ambata capogioco": the 89 ambi of the head number with each other number, ascending, measured as all
/// ambi are. The scope is checked first, then the number.
[[nodiscard]] Risultato ambatacapogioco(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);

/// "ambo capogioco": the terni of two head numbers with each other number, ascending. `combo_rit` 1 counts a
/// row that holds two of the three and writes 88 terni. `combo_rit` 0 counts a row that holds one of them
/// and also writes, at their start values, all terni that hold but one of the two head numbers. Two equal
/// head numbers k make the 89 terni (k, k, c) either way.
[[nodiscard]] Risultato ambo_capogioco(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);

/// The line that a report of these searches carries, by the list index of `ComboRit`.
[[nodiscard]] constexpr std::string_view dati_riferiti(int combo_rit) {
    return combo_rit == 0 ? "Dati riferiti alla sortita dell'ambata" : "Dati riferiti alla sortita dell'ambo";
}

}  // namespace sortimetra
