#pragma once

#include "draws/ambito.h"
#include "draws/dieci_e_lotto.h"
#include "draws/gioco.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace sortimetra {

/// Places of a draw as bits, the first drawn at bit 0; 0 for any place.
using Posti = std::uint32_t;
inline constexpr Posti kOgniPosto = 0;

/// The rows of a scope in which an event could have come, and the draws that have at least one of them: what
/// the law of chance is asked about. Rows are wheels in the Lotto, combinations in the other games. A row
/// without any number in the places asked for (the SuperStar before it was invented) is none.
struct Percorso {
    std::int64_t righe = 0;
    std::int32_t concorsi = 0;

    /// Rows per draw: what turns a delay, which counts draws, into rows.
    [[nodiscard]] double righe_per_concorso() const {
        return concorsi == 0 ? 0.0 : static_cast<double>(righe) / static_cast<double>(concorsi);
    }
    friend bool operator==(const Percorso&, const Percorso&) = default;
};

/// A row of a game as a walk meets it: a wheel of the Lotto, the draw of another game.
struct RigaGioco {
    int c = 0;  ///< ordinal of its draw in scope, from 1
    Concorso concorso = 0;
    Data data{};
    int ruota = -1;  ///< 0 to 9 or `kNazionale`; -1 for the games without wheels
    /// Its places as the archive has them: five; six, Jolly, SuperStar; ten; for 10eLotto the twenty in
    /// ascending order. 0 for an empty cell.
    std::span<const Numero> celle;
};

/// The places in which a number of a game counts where none is named: in SuperEnalotto the six.
[[nodiscard]] constexpr Posti posti_contati(Gioco gioco, Posti posti) {
    constexpr Posti kSestina = 0x3F;
    constexpr Posti kTutti = ~Posti{0};
    if (posti != kOgniPosto) return posti;
    return gioco == Gioco::superenalotto ? kSestina : kTutti;
}

/// Calls `una(RigaGioco)` for each row that a search of this game walks in a scope. `passo` matters to
/// 10eLotto alone. Returns T.
template <class Una>
Estrazioni percorri_gioco(const ArchivioEstrazioni& archivio, Gioco gioco, const AmbitoRicerca& ambito,
                          PassoDieciELotto passo, Avanzamento& avanzamento, Una&& una) {
    const auto proprie = [&](const auto& tabella, const std::vector<std::uint32_t>& righe) {
        percorri_righe(righe, tabella.concorso, avanzamento, [&](int c, std::uint32_t i) {
            // Two rows of one concorso have the numbers of the first.
            std::uint32_t primo = i;
            while (primo > 0 && tabella.concorso[primo - 1] == tabella.concorso[i]) --primo;
            una(RigaGioco{c, tabella.concorso[i], tabella.data[i], -1, tabella.numeri[primo]});
        });
        return Estrazioni{static_cast<std::int32_t>(righe.size())};
    };
    if (gioco == Gioco::superenalotto)
        return proprie(archivio.superenalotto(), vista_superenalotto(archivio, ambito));
    if (gioco == Gioco::win_for_life)
        return proprie(archivio.winforlife(), vista_winforlife(archivio, ambito));
    const VistaEstrazioni vista{archivio, ambito};
    const auto indice = [](int c) { return static_cast<std::size_t>(c - 1); };
    if (gioco == Gioco::dieci_e_lotto) {
        percorri_10elotto(archivio.lotto(), vista, passo, avanzamento,
                          [&](int c, int /*righe*/, const Combinazione& combinazione, std::size_t record) {
                              std::array<Numero, 20> celle{};
                              std::transform(combinazione.begin() + 1, combinazione.end(), celle.begin(),
                                             [](std::int16_t n) { return static_cast<Numero>(n); });
                              una(RigaGioco{c, archivio.lotto().concorso[record],
                                            archivio.lotto().data[record], -1, celle});
                          });
        return vista.t();
    }
    const bool nazionale = ambito.ruote.e_nazionale();
    percorri(vista, avanzamento, [&](int c, const Numero* numeri) {
        const std::size_t i = indice(c);
        const std::size_t record = vista.record(i);
        const auto ruota = nazionale ? kNazionale : static_cast<int>((numeri - vista.numeri(i)) / kEstratti);
        una(RigaGioco{c, vista.concorso(i),
                      nazionale ? archivio.nazionale().data[record] : archivio.lotto().data[record], ruota,
                      std::span{numeri, static_cast<std::size_t>(kEstratti)}});
    });
    return vista.t();
}

/// The rows that a search of this game walks in a scope. `passo` matters to 10eLotto alone.
[[nodiscard]] Percorso percorso_di(const ArchivioEstrazioni& archivio, Gioco gioco,
                                   const AmbitoRicerca& ambito, Posti posti = kOgniPosto,
                                   PassoDieciELotto passo = PassoDieciELotto::concorso);

}  // namespace sortimetra
