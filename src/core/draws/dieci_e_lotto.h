#pragma once

#include "draws/ambito.h"
#include "draws/avanzamento.h"
#include "draws/combinazioni.h"

#include <bit>
#include <cstddef>
#include <optional>
#include <type_traits>

namespace sortimetra {

/// How a walk of 10eLotto, which has no rows of its own, goes over the rows of the chosen wheels.
enum class PassoDieciELotto : unsigned char {
    concorso,     ///< every draw of the view
    dieci_righe,  ///< moves of ten rows: with fewer than ten wheels draws are passed over in proportion
};

/// Calls `una(c, righe, combinazione)` for each draw that the walk stops at: C from 1, how many rows of the
/// view the draw has, its twenty numbers worked out from all ten wheels (and, for who takes a fourth value,
/// the draw's record in the table of the wheels). A draw that none of the ten has (the view is NAZIONALE's)
/// counts in C and is left out.
template <class Una>
void percorri_10elotto(const TabellaLotto& lotto, const VistaEstrazioni& vista, PassoDieciELotto passo,
                       Avanzamento& avanzamento, Una&& una) {
    int c = 0;
    std::size_t oltre = 0;     // ordinal of the row behind the draw's last
    std::size_t prossima = 0;  // row that the cursor stands on after its moves
    for (std::size_t i = 0; i < vista.concorsi(); ++i) {
        const int righe = std::popcount(vista.maschera(i));
        oltre += static_cast<std::size_t>(righe);
        if (prossima >= oltre) continue;
        prossima = passo == PassoDieciELotto::dieci_righe ? prossima + kRuote : oltre;
        ++c;
        // A view of the ten wheels knows its records; that of NAZIONALE has them in a table of its own.
        std::optional<std::size_t> record = vista.record(i);
        if (*record >= lotto.concorso.size() || lotto.concorso[*record] != vista.concorso(i))
            record = cerca_concorso(lotto.concorso, vista.concorso(i));
        if (!record) continue;
        if constexpr (std::is_invocable_v<Una&, int, int, const Combinazione&, std::size_t>)
            una(c, righe, calc_combinazione_10elotto(lotto, *record), *record);
        else
            una(c, righe, calc_combinazione_10elotto(lotto, *record));
    }
    avanzamento.procedi(vista.concorsi(), vista.concorsi());
}

}  // namespace sortimetra
