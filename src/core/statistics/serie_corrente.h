#pragma once

#include "draws/archivio.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {

/// A series in use: members of equally many numbers, in the order in which they were loaded. The numbers of a
/// member keep their order too, since the grid lists them as they stand, and one may stand twice.
struct SerieCorrente {
    std::size_t colonne = 0;       ///< numbers per member
    std::vector<Numero> numeri{};  ///< 1 to 90; member i (from 0) is `numeri[i * colonne]` onward

    [[nodiscard]] constexpr std::size_t righe() const { return colonne == 0 ? 0 : numeri.size() / colonne; }
    [[nodiscard]] constexpr std::span<const Numero> membro(std::size_t i) const {
        return std::span{numeri}.subspan(i * colonne, colonne);
    }
    /// Appends numbers; a member is complete once there are `colonne` of them.
    constexpr void aggiungi(std::initializer_list<int> altri) {
        for (const int n : altri) numeri.push_back(static_cast<Numero>(n));
    }

    friend bool operator==(const SerieCorrente&, const SerieCorrente&) = default;
};

/// How many numbers of a member stand among the five of a row. A number that is twice in the member counts
/// twice; one that is twice in the row counts once. An empty cell of the row is no number.
[[nodiscard]] constexpr int presenti(std::span<const Numero> membro, const Numero* riga) {
    int quanti = 0;
    for (const Numero n : membro)
        if (n != 0 && (n == riga[0] || n == riga[1] || n == riga[2] || n == riga[3] || n == riga[4]))
            ++quanti;
    return quanti;
}

}  // namespace sortimetra
