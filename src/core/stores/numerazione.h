#pragma once

#include "draws/archivio.h"

#include <chrono>
#include <expected>
#include <set>
#include <string>
#include <vector>

namespace sortimetra {

// How draws of published texts get their concorsi.

/// The Lotto draw of this day has concorso 402: a text that holds it is a whole history.
inline constexpr Data kGiornoDellaNumerazione{std::chrono::year{1997} / 12 / 3};

/// Gives each date of the rows, which are ordered by date, its concorso, and drops the draws before number 1.
/// Without that draw and without `tutto` there is nothing to count from.
[[nodiscard]] std::expected<void, std::string> numera_lotto(std::vector<RigaLotto>& righe, bool tutto);

/// Numbers SuperEnalotto by the Lotto's dates; draws that find no concorso are dropped and named in the
/// answer.
[[nodiscard]] std::vector<std::string> numera_superenalotto(std::vector<RigaSuperEnalotto>& righe,
                                                            const std::vector<RigaLotto>& lotto);

/// The day of a Lotto concorso.
struct GiornoConcorso {
    Data data{};
    Concorso concorso{};
};
/// The same beside SuperEnalotto draws that stand already and have the concorsi `presi`.
[[nodiscard]] std::vector<std::string> numera_superenalotto(std::vector<RigaSuperEnalotto>& righe,
                                                            std::vector<GiornoConcorso> giorni,
                                                            std::set<Concorso> presi);

}  // namespace sortimetra
