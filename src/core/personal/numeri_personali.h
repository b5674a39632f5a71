#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "results/colore.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <string>
#include <vector>

namespace sortimetra {

/// The searches on the user's own numbers, one per game: every draw in scope that holds at least one of them
/// ("risultati", hits in yellow), the measures of each number ("numeri"), and the measures of "at least one,
/// two, … of them" ("riepilogo").
///
/// Without numbers the search does not start and says nothing. A scope without draws leaves the tables
/// without rows; only NAZIONALE and SuperEnalotto say why.

/// Lotto: a row per wheel. `estratto` limits hits to one place, never "numeri". With `chiusura` only the last
/// rows stay, up to the one that completes the numbers, and "serie" lists all hits up to the earliest of
/// them.
[[nodiscard]] Risultato ricerca_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                      Avanzamento& avanzamento);
/// The sestina in ascending order. The Jolly is shown where it is one of the numbers; alone it makes no row.
[[nodiscard]] Risultato ricerca_superenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                              Avanzamento& avanzamento);
/// The combination of twenty, once per concorso that has a row of the chosen wheels.
[[nodiscard]] Risultato ricerca_10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                         Avanzamento& avanzamento);
[[nodiscard]] Risultato ricerca_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                           Avanzamento& avanzamento);

/// The titles of the three tables of a game, for grids that have no rows yet.
struct TitoliPersonali {
    std::vector<std::string> risultati;
    std::vector<std::string> numeri;
    std::vector<std::string> riepilogo;
};
[[nodiscard]] TitoliPersonali titoli_personali(Gioco gioco);

/// The yellow of a number that was met.
inline constexpr Colore kTrovato = 65535;

}  // namespace sortimetra
