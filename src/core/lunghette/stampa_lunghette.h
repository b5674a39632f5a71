#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// A lunghetta on paper: the search and what it began with, four rows of five boxed numbers, the score.
[[nodiscard]] Rapporto stampa_lunghetta(const MaterialeRapporto& materiale);

/// The grid of the scattered cinquine under its short titles.
[[nodiscard]] Rapporto stampa_scomposte(const MaterialeRapporto& materiale);

}  // namespace sortimetra
