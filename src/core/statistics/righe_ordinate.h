#pragma once

#include "draws/ruote.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace sortimetra {

/// The five numbers of a row in ascending order.
struct RigaOrdinata {
    std::array<std::uint32_t, kEstratti> n{};
    /// All five are there and differ, as in every sound row: no pair needs a test then.
    bool regolare = false;
};

/// Sorts with a network: nine exchanges without a branch, since which of two drawn numbers is the greater is
/// a coin toss to the processor.
[[nodiscard]] inline RigaOrdinata ordina_riga(const std::uint8_t* numeri) {
    std::uint32_t a = numeri[0];
    std::uint32_t b = numeri[1];
    std::uint32_t c = numeri[2];
    std::uint32_t d = numeri[3];
    std::uint32_t e = numeri[4];
    // The greater one as "sum less the smaller" keeps the compiler from turning the exchange into a jump.
    const auto scambia = [](std::uint32_t& x, std::uint32_t& y) {
        const std::uint32_t minore = std::min(x, y);
        y = x + y - minore;
        x = minore;
    };
    scambia(a, b);
    scambia(d, e);
    scambia(c, e);
    scambia(c, d);
    scambia(b, e);
    scambia(a, d);
    scambia(a, c);
    scambia(b, d);
    scambia(b, c);
    return {{a, b, c, d, e}, a != 0 && a != b && b != c && c != d && d != e};
}

/// Calls `ambo(a, b)`, a < b, for each pair of places of an ascending list. Pairs with an empty cell or with
/// the same number twice stand for no ambo. `n` is a `std::array`: the loops unroll.
template <bool Regolare = false, class Numeri, class Ambo>
void per_ogni_ambo(const Numeri& n, Ambo&& ambo) {
#pragma GCC unroll 8
    for (std::size_t i = 0; i < n.size() - 1; ++i) {
        if (!Regolare && n[i] == 0) continue;
#pragma GCC unroll 8
        for (std::size_t j = i + 1; j < n.size(); ++j)
            if (Regolare || n[i] != n[j]) ambo(std::size_t{n[i]}, std::size_t{n[j]});
    }
}

/// The same for `terno(a, b, c)`, a < b < c.
template <bool Regolare = false, class Numeri, class Terno>
void per_ogni_terno(const Numeri& n, Terno&& terno) {
#pragma GCC unroll 8
    for (std::size_t i = 0; i < n.size() - 2; ++i) {
        if (!Regolare && n[i] == 0) continue;
#pragma GCC unroll 8
        for (std::size_t j = i + 1; j < n.size() - 1; ++j) {
            if (!Regolare && n[i] == n[j]) continue;
#pragma GCC unroll 8
            for (std::size_t k = j + 1; k < n.size(); ++k)
                if (Regolare || n[j] != n[k]) terno(std::size_t{n[i]}, std::size_t{n[j]}, std::size_t{n[k]});
        }
    }
}

}  // namespace sortimetra
