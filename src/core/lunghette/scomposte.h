#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/risultato_fwd.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

namespace sortimetra {

/// The 3,003 cinquine that can stand in the lower or in the upper half of a Win for Life draw.
[[nodiscard]] Risultato lunghette_scomposte(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                            Avanzamento& avanzamento);

/// Which half must be said.
[[nodiscard]] std::optional<std::string> controlla_scomposte(const Domanda& domanda);

/// The hour has no effect: the scope says so, on paper too.
[[nodiscard]] std::expected<void, Messaggio> ogni_ora(const std::filesystem::path& cartella,
                                                      Domanda& domanda);

}  // namespace sortimetra
