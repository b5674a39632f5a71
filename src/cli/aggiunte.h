#pragma once

#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/risposta.h"

#include <optional>
#include <string>

namespace sortimetra {

/// What is wrong with asking for these additions together, before anything is run; nothing if they can be.
[[nodiscard]] std::optional<std::string> aggiunte_sbagliate(const Richiesta& richiesta);

/// Adds to an answer what was asked beside it: the tables of `--caso` and `--per-ruota` (on paper their
/// columns, in the first table), the picture of `--grafico`. The exit code where that cannot be, its reason
/// already said.
[[nodiscard]] std::optional<int> aggiungi(const Richiesta& richiesta, Risposta& risposta,
                                          const ArchivioEstrazioni& archivio, const Canali& canali);

/// Whether a further table has a row for each row of the first one, and so goes along with its order.
[[nodiscard]] bool segue_la_prima(const Tabella& tabella);

}  // namespace sortimetra
