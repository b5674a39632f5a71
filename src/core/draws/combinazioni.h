#pragma once

#include "draws/archivio.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace sortimetra {

/// The combination of one draw, 0 for no number.
///
/// SuperEnalotto: 1 to 6 the sestina in ascending order, 0 the Jolly, 7 the SuperStar. 10eLotto: 1 to 20 in
/// ascending order. Win for Life: 1 to 10 in ascending order. What a game does not use stays 0.
using Combinazione = std::array<std::int16_t, 21>;

/// SuperEnalotto from its own table. A row beyond the last gives a combination of zeros.
[[nodiscard]] Combinazione calc_combinazione_superenalotto(const TabellaSuperEnalotto& tabella,
                                                           std::size_t riga);

/// SuperEnalotto worked out from the wheels, as it was drawn until June 2009: the first numbers of Bari,
/// Firenze, Milano, Napoli, Palermo and Roma, each replaced by the next place of its wheel where it repeats
/// an earlier one, and the Jolly from Venezia. A draw in which a wheel that is needed has no row or an empty
/// cell gives zeros. SuperStar stays 0.
[[nodiscard]] Combinazione calc_combinazione_superenalotto_s(const TabellaLotto& tabella, std::size_t record);

/// 10eLotto worked out from the wheels: the first and second numbers of the rows of one concorso, then the
/// third, fourth and fifth ones in wheel order, each put where a number is missing or stands twice. Where the
/// wheels run out of numbers, what is still missing or double stays as it is.
[[nodiscard]] Combinazione calc_combinazione_10elotto(const TabellaLotto& tabella, std::size_t record);

/// Win for Life of the first row with that concorso; zeros if there is none.
[[nodiscard]] Combinazione calc_combinazione_WinForLife(const TabellaWinForLife& tabella, Concorso concorso);

}  // namespace sortimetra
