#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// The cyclometric board on one upright sheet: numbers, sums and distances one under the other, the isotopes
/// in their shades.
[[nodiscard]] Rapporto stampa_ciclometria(const MaterialeRapporto& materiale);

}  // namespace sortimetra
