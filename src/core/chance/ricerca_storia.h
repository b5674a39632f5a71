#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "results/domanda.h"
#include "results/evento.h"
#include "results/risultato_fwd.h"

#include <optional>
#include <string>

namespace sortimetra {

/// The event that a question for a story is about.
[[nodiscard]] Evento evento_storia(const Domanda& domanda);

/// "storia": every hit of some numbers, and what chance makes of them. The tables "risultati" and "sintesi".
[[nodiscard]] Risultato ricerca_storia(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);

/// See `FunzioneControlla`.
[[nodiscard]] std::optional<std::string> controlla_storia(const Domanda& domanda);
[[nodiscard]] Gioco gioco_storia(const Domanda& domanda);

}  // namespace sortimetra
