#pragma once

#include "draws/ruote.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace sortimetra {

/// 4,005 pairs and 117,480 triples of the 90 numbers.
inline constexpr std::size_t kAmbi = 90 * 89 / 2;
inline constexpr std::size_t kTerni = 90 * 89 * 88 / 6;

/// Places of ambi and terni in ascending order of first, then second, then third number: a cell's index is a
/// sum of one table look-up per number, so that the counting loops address one flat array.
struct IndiciCombinatori {
    std::array<std::int32_t, kNumeri + 1> ambo{};   ///< add b to have the index of (a, b), a < b
    std::array<std::int32_t, kNumeri + 1> terno{};  ///< first part of the index of (a, b, c)

    constexpr IndiciCombinatori() {
        std::int32_t ambi = 0;
        std::int32_t terni = 0;
        for (int a = 1; a <= kNumeri; ++a) {
            const auto i = static_cast<std::size_t>(a);
            ambo[i] = ambi - (a + 1);
            ambi += kNumeri - a;
            // Triples that begin with a lie after `terni`; within them (b, c) are ordered as ambi are,
            // counted from the first ambo above a.
            terno[i] = terni - ambi;
            terni += (kNumeri - a) * (kNumeri - a - 1) / 2;
        }
    }
};
inline constexpr IndiciCombinatori kIndici;

/// Index 0 to 4,004 of the ambo a < b.
[[nodiscard]] constexpr std::size_t indice_ambo(std::size_t a, std::size_t b) {
    return static_cast<std::size_t>(kIndici.ambo[a] + static_cast<std::int32_t>(b));
}
/// Index 0 to 117,479 of the terno a < b < c.
[[nodiscard]] constexpr std::size_t indice_terno(std::size_t a, std::size_t b, std::size_t c) {
    return static_cast<std::size_t>(kIndici.terno[a] + kIndici.ambo[b] + static_cast<std::int32_t>(c));
}

static_assert(indice_ambo(1, 2) == 0 && indice_ambo(1, 90) == 88 && indice_ambo(2, 3) == 89);
static_assert(indice_ambo(89, 90) == kAmbi - 1);
static_assert(indice_terno(1, 2, 3) == 0 && indice_terno(1, 2, 90) == 87 && indice_terno(1, 3, 4) == 88);
static_assert(indice_terno(2, 3, 4) == 89 * 88 / 2 && indice_terno(88, 89, 90) == kTerni - 1);

}  // namespace sortimetra
