#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// One page of the best delays on one upright sheet: a card per family, laid out as on the screen, under the
/// line that tells the draw and the wheels.
[[nodiscard]] Rapporto stampa_migliori(const MaterialeRapporto& materiale);

}  // namespace sortimetra
