#pragma once

#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "draws/archivio.h"
#include "results/risultato.h"

#include <cstdint>
#include <expected>
#include <vector>

namespace sortimetra {

/// A search that has been run, and what it was run on.
struct RicercaEseguita {
    ArchivioEstrazioni archivio;
    Risultato risultato;
};

/// Runs the search that was asked for and says on `errori` what it has to say beside its tables: why there
/// are none, remarks, messages. The error is an exit code, its reason already said.
[[nodiscard]] std::expected<RicercaEseguita, int> fai_ricerca(Richiesta& richiesta, const Canali& canali);

/// The row order of `--ordina` for the first table, empty for the order of writing. The error is an exit
/// code, its reason already said.
[[nodiscard]] std::expected<std::vector<std::uint32_t>, int> ordine_richiesto(const Richiesta& richiesta,
                                                                              const Risultato& risultato,
                                                                              const Canali& canali);

}  // namespace sortimetra
