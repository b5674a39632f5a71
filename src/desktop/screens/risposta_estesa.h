#pragma once

#include "results/risposta.h"

#include <QRgb>
#include <cstddef>
#include <memory>

namespace sortimetra {

// What a screen may show in place of an answer: the same rows with more columns, or with others. As the
// answer on show it is sorted, printed and exported like any.

/// The answer with what chance makes of its rows, as further columns of the first table: `kTitoliCaso` but
/// for the delay, which stands there already. The answer measures events (`misura_eventi`) and knows its
/// walk.
[[nodiscard]] std::shared_ptr<const Risultato> con_caso(const Risposta& risposta);

/// The answer with the table "ruote" in place of the first: what its rows measure stays known.
[[nodiscard]] std::shared_ptr<const Risultato> con_ruote(const Risposta& risposta, Tabella ruote);

/// The ground of a cell whose value is that part (0 to 1) of the greatest: from the skin's surface towards
/// its accent, never so far that the skin's text could not be read on it.
[[nodiscard]] QRgb calore(double parte);

}  // namespace sortimetra
