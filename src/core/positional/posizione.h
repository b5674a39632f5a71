#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <cstddef>
#include <string>
#include <vector>

/// Frequency and delay of each number in each place of the draw.
///
/// One table with three title rows: "Num.", then per place its frequency, delay and longest closed delay. A
/// place that a number never held shows "...", N, "...". For the Lotto a place is the order of drawing, for
/// the other games the rank in the sorted combination.
namespace sortimetra::posizione {

/// The three title rows of a table with that many places, the last of them the Jolly where told.
[[nodiscard]] std::vector<std::vector<std::string>> titoli(std::size_t posti, bool jolly = false);

/// Lotto: 90 numbers, 5 places. N is rows over wheels, as T everywhere.
[[nodiscard]] Risultato estratto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                 Avanzamento& avanzamento);
/// SuperEnalotto: 90 numbers, 6 places and the Jolly. N is the number of rows.
[[nodiscard]] Risultato ambataSuperEnalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                            Avanzamento& avanzamento);
/// 10eLotto: 90 numbers, 20 places. Every row of the chosen wheels is scanned and counts, although the rows
/// of one concorso share a combination; N is the number of rows.
[[nodiscard]] Risultato ambata10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);
/// Win for Life: 20 numbers, 10 places. N is the number of rows.
[[nodiscard]] Risultato ambataWinForLife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                         Avanzamento& avanzamento);

}  // namespace sortimetra::posizione
