#pragma once

#include "draws/ambito.h"
#include "draws/avanzamento.h"
#include "statistics/misure.h"
#include "statistics/serie_corrente.h"

#include <cstdint>
#include <vector>

namespace sortimetra {

/// Measures every member of a series over the rows of a view, in member order. A row hits a member when at
/// least `soglia` of the member's numbers stand in it: 1 for a single number, 2 for an ambo. With 0 or less
/// every row hits every member. ("More than `flag` numbers" is a `soglia` of `flag` + 1.)
///
/// A row whose first cell is empty hits nothing, though its draw counts. `ultimo` starts at `kInizioSerie`,
/// so that the wait before the first hit is a closed delay, less one. `ritardo` of misure.h, with whatever
/// count of draws the caller takes as T, gives the delay. If the user cancels, what was counted until then
/// is returned.
[[nodiscard]] std::vector<Misura> misura_serie(const VistaEstrazioni& vista, const SerieCorrente& serie,
                                               int soglia, Avanzamento& avanzamento);

/// The draw, counted from 1 in the view, of the last hit of every member, 0 without one: all that a delay
/// asks for. Hits are those of `misura_serie`.
[[nodiscard]] std::vector<std::int32_t> ultime_uscite(const VistaEstrazioni& vista,
                                                      const SerieCorrente& serie, int soglia);

}  // namespace sortimetra
