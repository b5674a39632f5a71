#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/risultato_fwd.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

namespace sortimetra {

/// How often each value of the measures of a statistic came in the draws of a scope. One table per grid of
/// the statistic; the label "titoli" has what stands above each.
[[nodiscard]] Risultato ricerche_filtri(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);
/// The same over the combinations of a saved system; needs no archive.
[[nodiscard]] Risultato ricerche_Sistemi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                         Avanzamento& avanzamento);

/// Looks up the saved system that a question names. None of the name is no error: the search tells it.
[[nodiscard]] std::expected<void, Messaggio> carica_sistema(const std::filesystem::path& cartella,
                                                            Domanda& domanda);
[[nodiscard]] std::optional<std::string> controlla_filtri(const Domanda& domanda);
/// The game that the ticked box of `CheckSistema` stands for.
[[nodiscard]] Gioco gioco_filtri(const Domanda& domanda);

}  // namespace sortimetra
