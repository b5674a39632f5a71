#pragma once

#include "draws/avanzamento.h"
#include "lunghette/righe_gioco.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace sortimetra {

/// The row that shares exactly `quanti` numbers with most other rows, the first of equals; nothing if no two
/// rows share so many. Cancelled, it answers with the best of what it has looked at.
[[nodiscard]] std::optional<std::size_t> piu_condivisa(const RigheGioco& righe, int quanti,
                                                       Avanzamento& avanzamento);

// ---- the two ways to count, which must agree ----

/// For each row looked at, how many others share exactly `quanti` numbers with it: one bit a row for every
/// number, the bits of a row's numbers added for many rows at once.
[[nodiscard]] std::vector<std::int32_t> condivisi_per_colonne(const RigheGioco& righe, int quanti,
                                                              Avanzamento& avanzamento);
/// The same for a game of twenty numbers, in a time that hardly grows with the rows: how many rows hold each
/// of the 2^20 sets, then a sum over the sets within each row. Empty when cancelled.
[[nodiscard]] std::vector<std::int32_t> condivisi_per_sottoinsiemi(const RigheGioco& righe, int quanti,
                                                                   Avanzamento& avanzamento);

}  // namespace sortimetra
