#pragma once

#include "draws/archivio.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What a table would lose if rows took the place of those that stand. A draw is known by its day (and wheel,
/// or hour), whatever concorso it is counted as; an empty cell that gets its number is no loss.
struct Perdita {
    std::string_view gioco;
    std::size_t tolte = 0;      ///< rows that would be gone
    std::size_t cambiate = 0;   ///< rows whose numbers would be others
    std::string primo_tolto{};  ///< "concorso 3114 del 05/03/2012, BA"
    std::string primo_cambiato{};
};

/// The losses of each of the wanted tables (`Tabelle`, apertura.h), those without any left out.
[[nodiscard]] std::vector<Perdita> perdite(const RigheArchivio& vecchie, const RigheArchivio& nuove,
                                           unsigned tabelle);

/// The same as a user reads it: "Lotto: 15.404 righe in meno (la prima: concorso …)", joined by "; ".
[[nodiscard]] std::string racconta(const std::vector<Perdita>& perdite);

}  // namespace sortimetra
