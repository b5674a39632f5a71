#pragma once

#include "results/risposta.h"
#include "results/risultato_fwd.h"

#include <memory>

namespace sortimetra {

// What may stand in the place of an answer: the same rows with more columns, or with others. As the answer on
// show it is sorted, printed and exported like any.

/// The answer with what chance makes of its rows, as further columns of the first table: `kTitoliCaso` but
/// for the delay, which stands there already. The answer measures events (`misura_eventi`) and knows its
/// walk.
[[nodiscard]] std::shared_ptr<const Risultato> con_caso(const Risposta& risposta);

/// The answer with the table "ruote" in place of the first: what its rows measure stays known.
[[nodiscard]] std::shared_ptr<const Risultato> con_ruote(const Risposta& risposta, Tabella ruote);

}  // namespace sortimetra
