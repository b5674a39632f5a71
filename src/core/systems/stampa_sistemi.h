#pragma once

#include "printing/rapporto.h"
#include "results/domanda.h"

namespace sortimetra {

/// The head of a report on conditioned systems: the statistic beside the search, the word for the size of a
/// combination beside the wheels, the range of concorsi beside the title of the last draws.
void completa_intestazione(Intestazione& testa, const Domanda& domanda);

/// All filled grids of a statistic, as many side by side as the sheet has room for; the table of positions on
/// sheets of its own.
[[nodiscard]] Rapporto rapporto_filtri(const MaterialeRapporto& materiale);
/// The last draws on a lying sheet: the measures, then the groups and the combinations.
[[nodiscard]] Rapporto rapporto_ultimi(const MaterialeRapporto& materiale);

}  // namespace sortimetra
