#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <optional>
#include <string>

namespace sortimetra {

// What the statistics screen analyses as a group: with `analisi` set in the question, the answer is that of
// `analisi_gruppo` on what the search is about; else it is the search's own.

/// The members of a named family.
[[nodiscard]] Risultato serie_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);
/// The 89 ambi of the head number, ascending.
[[nodiscard]] Risultato ambata_capogioco_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                                  Avanzamento& avanzamento);
/// The first `combinazioni` rows of the grid, in the order in which it is shown.
[[nodiscard]] Risultato ambo_capogioco_o_gruppo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                                Avanzamento& avanzamento);
/// The 19 ambi of the head number with the other numbers of Win for Life, ascending, analysed as a group over
/// its draws whatever the hour.
[[nodiscard]] Risultato gruppo_capogioco_winforlife(const ArchivioEstrazioni& archivio,
                                                    const Domanda& domanda, Avanzamento& avanzamento);

/// What belongs to the analysis is asked only with it, and not beside the table of all wheels.
[[nodiscard]] std::optional<std::string> controlla_analisi(const Domanda& domanda);

}  // namespace sortimetra
