#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/ricerca.h"
#include "results/risultato_fwd.h"
#include "statistics/famiglie.h"
#include "statistics/serie_corrente.h"

#include <expected>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// The search of the 42 named families; the row of the question says which. One row per member, in member
/// order: its numbers (or its short label), "Frequenza" (hits, one per wheel row), "Ritardo", "Ritardo
/// Storico". "all'Ambata" one number of the member in a row is a hit, "all'Ambo" two of them.
///
/// With `tutte_le_ruote` the table of `decine_a_tutte_le_ruote` instead, for the families that have one. The
/// label `descrizione` comes with those eight. An empty scope and a damaged file give their message alone.
[[nodiscard]] Risultato serie_speciali(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);

/// "scomposizione": all combinations of `sorte` of the user's numbers, in the given order, measured as a
/// series; `combo_rit` 0, 1, 2 asks for one, two or three numbers in a row. Fewer numbers than the bet make
/// no rows.
[[nodiscard]] Risultato scomposizione(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                      Avanzamento& avanzamento);

/// Every subset of `k` of the numbers, by ascending places, the last place fastest. `k` outside 1 to 5 gives
/// the empty series.
[[nodiscard]] SerieCorrente scomposizione_gruppo(std::span<const Numero> numeri, int k);

/// What ends the title of the table of all wheels: "decine - Ritardo per ogni ruota".
inline constexpr std::string_view kTitoloOgniRuota = " - Ritardo per ogni ruota";

/// The titles of the grid of a series: short ones on the wider families.
[[nodiscard]] const std::vector<std::string>& titoli_serie(const Famiglia* famiglia);

/// Reads the list of the cinquine dei 90 into the question of their search. A list that cannot be read leaves
/// none: the search says so once its scope has draws.
[[nodiscard]] std::expected<void, Messaggio> carica_cinquine(const std::filesystem::path& cartella,
                                                             Domanda& domanda);

}  // namespace sortimetra
