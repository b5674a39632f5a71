#pragma once

#include "draws/archivio.h"
#include "results/opzione.h"
#include "statistics/serie_corrente.h"

#include <array>
#include <memory>
#include <optional>

namespace sortimetra {

/// What the boards take.
struct ParametriTabellone {
    std::optional<Concorso> concorso{};  ///< the concorso box; none typed means the last
    int pagina = 1;                      ///< page 1 or 2 of the best delays
    int indice_combo = -1;               ///< `ComboRit` as the statistics screen left it, -1 no selection
    /// The members of the one family whose numbers stand in a file; null where it cannot be read.
    std::shared_ptr<const SerieCorrente> cinquine{};
};

inline constexpr Opzione kOpzConcorso =
    intero<&ParametriTabellone::concorso>({.nome = "--concorso",
                                           .meta = "N",
                                           .atteso = "un numero",
                                           .frase = "Il concorso al quale guardare. Se manca: l'ultimo."});
inline constexpr Opzione kOpzPagina = intero<&ParametriTabellone::pagina, 1, 2>(
    {.nome = "--pagina", .meta = "P", .atteso = "1|2", .frase = "La pagina del tabellone. Se manca: 1."});
inline constexpr Opzione kOpzIndiceCombo = intero<&ParametriTabellone::indice_combo, -1, 2>(
    {.nome = "--indice-combo",
     .meta = "I",
     .atteso = "un numero da -1 a 2",
     .frase = "La scelta rimasta nella finestra delle statistiche: -1 nessuna, 0 all'Ambata, 1 all'Ambo. "
              "Se manca: -1."});

inline constexpr std::array kOpzioniTabellone{&kOpzConcorso};
inline constexpr std::array kOpzioniMigliori{&kOpzConcorso, &kOpzPagina, &kOpzIndiceCombo};

}  // namespace sortimetra
