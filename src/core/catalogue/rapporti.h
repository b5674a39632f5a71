#pragma once

#include "draws/archivio.h"
#include "printing/rapporto.h"
#include "results/domanda.h"
#include "results/risultato.h"

#include <cstdint>
#include <span>

namespace sortimetra {

/// The head's texts for a search as it was asked: its title (with the capi it runs on), the wheels ("Tutte"
/// for all ten, the game where wheels have no meaning) with the size word of its combinations, the concorsi
/// as "1 - 4655", and the interval with the first and the last date. A search without a scope has its title
/// alone.
[[nodiscard]] Intestazione intestazione(const Risultato& risultato, const Domanda& domanda,
                                        const ArchivioEstrazioni& archivio);

/// The report of a result, by the row of its search in the dispatch table. `ordine` is the grid's row order
/// on the screen, empty for the order of writing. The result must outlive the report; the archive need not.
[[nodiscard]] Rapporto prepara_rapporto(const Risultato& risultato, const Domanda& domanda,
                                        const ArchivioEstrazioni& archivio,
                                        std::span<const std::uint32_t> ordine = {});

}  // namespace sortimetra
