#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/risposta.h"
#include "results/risultato_fwd.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace sortimetra {

/// The measure by which wheels are compared, in the order of the words of `--misura`.
enum class MisuraRuote : std::uint8_t { ritardo, frequenza, storico };
inline constexpr std::array<std::string_view, 3> kMisureRuote{"ritardo", "frequenza", "storico"};

/// Whether a question can be asked wheel by wheel: its rows measure one event each on the wheels of the
/// Lotto.
[[nodiscard]] bool ha_ruote(const Ricerca& ricerca);

/// The table "ruote": the first column of an answer, then one column per wheel of its scope, titled by the
/// wheel's code, with what the same search gives on that wheel alone; in the same row order. A wheel without
/// a draw in scope has empty cells.
[[nodiscard]] Tabella tabella_ruote(const Risposta& risposta, const ArchivioEstrazioni& archivio,
                                    MisuraRuote misura, Avanzamento& avanzamento);

}  // namespace sortimetra
