#pragma once

#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "results/risposta.h"

#include <expected>
#include <optional>

namespace sortimetra {

/// Runs the search that was asked for and says on `errori` what it has to say beside its tables: why there
/// are none, remarks, messages. The error is an exit code, its reason already said.
[[nodiscard]] std::expected<Risposta, int> fai_ricerca(const Richiesta& richiesta, const Canali& canali);

/// Puts the first table in the order of `--ordina`, if it was given. An exit code where that cannot be, its
/// reason already said.
[[nodiscard]] std::optional<int> ordina_risposta(const Richiesta& richiesta, Risposta& risposta,
                                                 const Canali& canali);

}  // namespace sortimetra
