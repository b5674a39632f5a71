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

/// The lunghette of the Lotto: a seed, then the growth to the length asked for.
[[nodiscard]] Risultato lunghette_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);

/// The lunghette by points of 10eLotto and of Win for Life, by the game of the question's row.
[[nodiscard]] Risultato lunghette_a_punti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                          Avanzamento& avanzamento);

/// Options that do not go together.
[[nodiscard]] std::optional<std::string> controlla_lunghette(const Domanda& domanda);

/// 10eLotto is always read on all ten wheels: the scope says so, on paper too.
[[nodiscard]] std::expected<void, Messaggio> tutte_le_ruote(const std::filesystem::path& cartella,
                                                            Domanda& domanda);

}  // namespace sortimetra
