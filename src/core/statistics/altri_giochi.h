#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

namespace sortimetra {

// The measures of numbers, ambi and terni on the combinations of SuperEnalotto, 10eLotto and Win for Life.
// Tables, start values and the empty-scope message are those of the Lotto; what differs is which rows are
// walked, what a draw's numbers are, and T. An empty cell is no number.

/// The six numbers of the sestina. T is the number of rows in scope.
[[nodiscard]] Risultato ambataSuperEnalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                            Avanzamento& avanzamento);
/// "analisi numeri sparsi": the six cells of a row as they are stored.
[[nodiscard]] Risultato ambatalottoSuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                                 Avanzamento& avanzamento);
/// The SuperStar alone. Draws without it count in T and in C.
[[nodiscard]] Risultato superstar(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                  Avanzamento& avanzamento);
/// The twenty numbers of 10eLotto. The walk goes over the rows of the chosen wheels ten at a time, so with
/// fewer than ten wheels draws are passed over in proportion; T is rows over wheels all the same.
[[nodiscard]] Risultato ambata10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                       Avanzamento& avanzamento);
/// The ten numbers of Win for Life, 20 rows. T counts every hour in scope; rows that share a concorso are one
/// draw in C, and all give the numbers of the first of them.
[[nodiscard]] Risultato ambataWinForLife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                         Avanzamento& avanzamento);
/// All 4,005 ambi, and all 117,480 terni, in the sestina.
[[nodiscard]] Risultato ambisuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                          Avanzamento& avanzamento);
[[nodiscard]] Risultato ternisuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                           Avanzamento& avanzamento);
/// The ambi among the ten numbers that ten SuperEnalotto rows in a row have at the place `estratto`. T is
/// rows over ticked wheels, the only thing that the wheels do here.
[[nodiscard]] Risultato ambi10ruoteSuperenalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                                 Avanzamento& avanzamento);

}  // namespace sortimetra
