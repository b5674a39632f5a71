#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"
#include "statistics/misure.h"

#include <cstdint>
#include <span>
#include <vector>

namespace sortimetra {

/// All 4,005 ambi, in ascending order, over the rows of the chosen wheels. A row whose first cell is empty
/// counts as a draw and is skipped otherwise.
///
/// One table: "Numeri" ("01-02"), "Frequenza" (one per wheel row), "Ritardo", "Ritardo Storico".
[[nodiscard]] Risultato ambilotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                  Avanzamento& avanzamento);

/// All 117,480 terni by their own appearances.
[[nodiscard]] Risultato ternilotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                   Avanzamento& avanzamento);

/// All 117,480 terni by the ambi in them: a row with two of the three numbers is a hit. "Frequenza" is the
/// sum of the three ambi's, "Ritardo" the least of theirs, "Ritardo Storico" the longest gap between two
/// hits.
[[nodiscard]] Risultato ternilotto_ambo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);

/// "ricerche su tutti i terni": `ternilotto_ambo` when `ComboRit` stands on its first entry, else
/// `ternilotto`.
[[nodiscard]] Risultato tutti_i_terni(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                      Avanzamento& avanzamento);

/// The measures of all ambi over a view, indexed by `indice_ambo`.
[[nodiscard]] std::vector<Misura> misura_ambi(const VistaEstrazioni& vista, Avanzamento& avanzamento);

/// The finished tables of measures of all ambi and of all terni of a game, in ascending order; T for the
/// delays.
[[nodiscard]] Risultato tabella_ambi(std::span<const Misura> misure, Estrazioni t, Gioco gioco);
[[nodiscard]] Risultato tabella_terni(std::span<const Misura> misure, Estrazioni t, Gioco gioco);

}  // namespace sortimetra
