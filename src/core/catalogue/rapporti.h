#pragma once

#include "printing/rapporto.h"
#include "results/risposta.h"

namespace sortimetra {

/// The head's texts for an answer: its title (with the capi it runs on), the wheels ("Tutte" for all ten, the
/// game where wheels have no meaning) with the size word of its combinations, the concorsi as "1 - 4655", and
/// the interval with the first and the last date; a game with draws of its own has their dates too. A search
/// without a scope has its title alone.
[[nodiscard]] Intestazione intestazione(const Risposta& risposta);

/// The report of an answer, as the row that it carries prints it, in the order on show. It holds the result
/// as long as it is needed. What was found in a simulated archive says so on every page.
[[nodiscard]] Rapporto prepara_rapporto(const Risposta& risposta);

}  // namespace sortimetra
