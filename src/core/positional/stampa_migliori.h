#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// One page of the best delays on one upright sheet: a card per family, laid out as on the screen, under the
/// line that tells the draw and the wheels; on the first page the ten most delayed numbers under the cards.
[[nodiscard]] Rapporto stampa_migliori(const MaterialeRapporto& materiale);

}  // namespace sortimetra
