#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// The report of the searches on personal numbers: under its own head (wheels, concorsi, the numbers) the
/// draws with their hits framed and the measures of each number beside the first of them, then the summary.
/// With a series, the draws up to its closing follow on pages of their own.
[[nodiscard]] Rapporto rapporto_personali(const MaterialeRapporto& materiale);

/// The draws up to the closing of a series alone: what the summary window prints.
[[nodiscard]] Rapporto rapporto_serie(const MaterialeRapporto& materiale);

}  // namespace sortimetra
