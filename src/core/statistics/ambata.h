#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

namespace sortimetra {

/// Delay, frequency and longest past delay of the 90 numbers over the chosen wheels. With
/// `numeri_per_estrazione` 5 all numbers of a row count, with 1 the first drawn alone.
///
/// One table of 90 rows in number order: "Numeri", "Frequenza" (appearances, one per wheel row), "Ritardo"
/// (draws in scope across all chosen wheels together), "Ritardo Storico". An empty scope gives the message
/// and no table.
[[nodiscard]] Risultato ambatalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                    Avanzamento& avanzamento, int numeri_per_estrazione);

/// "ritardo e frequenza dei 90 numeri"
[[nodiscard]] Risultato novanta_numeri(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);
/// "ritardo e frequenza del primo estratto su ruota"
[[nodiscard]] Risultato primo_estratto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);

}  // namespace sortimetra
