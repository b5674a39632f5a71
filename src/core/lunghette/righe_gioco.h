#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"
#include "draws/gioco.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sortimetra {

/// What a cell holds that is no number at all: an empty place of a combination, a wheel without a draw.
/// 0 is something else: an empty cell of a drawn row of the Lotto, which a slot that shows 0 does meet.
inline constexpr Numero kNessunNumero = kNumeri + 1;
/// Room for a cell's value as an index: 0, the numbers, `kNessunNumero`.
inline constexpr std::size_t kIndiciCella = kNumeri + 2;

/// The rows of a scope as a lunghetta sees them: five numbers of a wheel, or the combination of a draw.
struct RigheGioco {
    std::size_t posti = kEstratti;  ///< cells per row
    int massimo = kNumeri;          ///< highest number of the game
    std::int32_t t = 0;             ///< T, which can differ from the draws walked
    /// Rows per draw that a step back leaves: W in the Lotto (0 without a wheel), 1 by points.
    int passo = 1;
    bool a_punti = false;
    std::vector<Numero> celle{};       ///< row r from `celle[r * posti]`
    std::vector<std::int32_t> c{};     ///< ordinal of each row's draw in scope, from 1
    std::vector<Concorso> concorso{};  ///< by points only

    [[nodiscard]] std::size_t righe() const { return c.size(); }
    [[nodiscard]] std::span<const Numero> riga(std::size_t r) const {
        return std::span{celle}.subspan(r * posti, posti);
    }
};

/// One row per wheel and draw.
[[nodiscard]] RigheGioco righe_lotto(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);
/// One row per draw, the combination in ascending order, whatever wheels the scope names: always all ten.
[[nodiscard]] RigheGioco righe_10elotto(const ArchivioEstrazioni& archivio, AmbitoRicerca ambito);
/// One row per record; two records of one concorso have the numbers of the first.
[[nodiscard]] RigheGioco righe_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);
/// Of the two games by points.
[[nodiscard]] RigheGioco righe_a_punti(Gioco gioco, const ArchivioEstrazioni& archivio,
                                       const AmbitoRicerca& ambito);

/// The combinations of at most `quante` draws read backward from a concorso, the newest first, whatever the
/// calendar or the hour; none where the concorso is not there.
[[nodiscard]] RigheGioco righe_a_ritroso(Gioco gioco, const ArchivioEstrazioni& archivio, Concorso da,
                                         std::size_t quante);

}  // namespace sortimetra
