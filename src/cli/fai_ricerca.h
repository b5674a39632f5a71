#pragma once

#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "results/risposta.h"

#include <expected>
#include <optional>

namespace sortimetra {

/// Runs the search that was asked for and says on `errori` what it has to say beside its tables: why there
/// are none, remarks, messages (but those that a JSON object holds). The error is an exit code, its reason
/// already said.
[[nodiscard]] std::expected<Risposta, int> fai_ricerca(const Richiesta& richiesta, const Canali& canali,
                                                       bool in_json = false);

/// Gives the first table the rows and columns that were asked for: `--ordina`, `--dove`, `--colonne`. An exit
/// code where that cannot be, its reason already said.
[[nodiscard]] std::optional<int> disponi_risposta(const Richiesta& richiesta, Risposta& risposta,
                                                  const Canali& canali);

}  // namespace sortimetra
