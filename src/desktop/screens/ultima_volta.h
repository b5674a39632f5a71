#pragma once

#include "draws/archivio.h"
#include "files/sessione.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <optional>
#include <utility>

namespace sortimetra {

// What the screens remember of the last question, in the file of the windows' places: one section a search,
// with the wheels by their codes, calendar and range, and the text of each of the search's options.

/// Column and direction of a grid's order.
using OrdineGriglia = std::pair<int, Verso>;

struct UltimaVolta {
    Domanda domanda;
    std::optional<OrdineGriglia> ordine;
};

/// Writes a question down. A range that ends at `ultimo` or beyond is remembered as ending at the last
/// concorso, whichever that will be.
void ricorda(const Sessione& sessione, const Domanda& domanda, Concorso ultimo);
void ricorda_ordine(const Sessione& sessione, const Ricerca& ricerca, std::optional<OrdineGriglia> ordine);
/// What was asked last; nothing where this search was never run. `ultimo` is the last concorso now.
[[nodiscard]] std::optional<UltimaVolta> ultima_volta(const Sessione& sessione, const Ricerca& ricerca,
                                                      Concorso ultimo);

/// The setting "Riapri come l'ultima volta", off at first.
[[nodiscard]] bool riapre_come_l_ultima_volta(const Sessione& sessione);
void imposta_riapre_come_l_ultima_volta(const Sessione& sessione, bool si);

}  // namespace sortimetra
