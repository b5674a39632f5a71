// Writes n90ridd.rid, the list of the "cinquine dei 90", to standard output: a first line with the count,
// then 436 different cinquine that together hold each of the 4,005 ambi at least once.
//
// Numbers are taken as residues mod 90, 0 standing for 90, so that an ambo is a difference 1 to 45 and a
// place.
// - Four base cinquine, each moved by 0 to 89: their 40 differences are all different and are none of 9, 18,
//   27, 36, 45, so that each ambo with another difference is met exactly once. 360 cinquine.
// - What is left are the ambi inside the nine classes r, r + 9, ..., r + 81 of ten numbers. Six cinquine
// cover
//   the 45 ambi of ten numbers. 54 cinquine.
// - 22 more fill the list up to the length that the search expects: the 18 of numbers 18 apart, so that all
//   numbers stay equally frequent, and four runs of five.

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

namespace {

using Cinquina = std::array<int, 5>;

constexpr int kNumeri = 90;
constexpr std::size_t kCinquine = 436;

constexpr std::array<Cinquina, 4> kBasi{{
    {0, 1, 3, 8, 58},
    {0, 4, 21, 51, 70},
    {0, 6, 16, 29, 44},
    {0, 11, 25, 37, 59},
}};

/// All 45 pairs of ten things in six blocks of five.
constexpr std::array<Cinquina, 6> kDieciInSei{{
    {0, 1, 2, 3, 4},
    {0, 1, 2, 5, 6},
    {0, 1, 7, 8, 9},
    {2, 3, 7, 8, 9},
    {3, 4, 5, 6, 7},
    {4, 5, 6, 8, 9},
}};

/// The cinquina `da` + `passo` * k for the five k of a block, as numbers 1 to 90 in ascending order.
Cinquina numeri(const Cinquina& blocco, int da, int passo) {
    Cinquina c{};
    for (std::size_t i = 0; i < c.size(); ++i) {
        const int residuo = (da + passo * blocco[i]) % kNumeri;
        c[i] = residuo == 0 ? kNumeri : residuo;
    }
    std::sort(c.begin(), c.end());
    return c;
}

}  // namespace

int main() {
    std::set<Cinquina> cinquine;
    for (const Cinquina& base : kBasi)
        for (int da = 0; da < kNumeri; ++da) cinquine.insert(numeri(base, da, 1));
    for (int classe = 0; classe < 9; ++classe)
        for (const Cinquina& blocco : kDieciInSei) cinquine.insert(numeri(blocco, classe, 9));
    constexpr Cinquina kFila{0, 1, 2, 3, 4};
    for (int da = 1; da <= 18; ++da) cinquine.insert(numeri(kFila, da, 18));
    for (int da = 1; da <= 16; da += 5) cinquine.insert(numeri(kFila, da, 1));

    std::printf("%zu\n", cinquine.size());
    for (const Cinquina& c : cinquine) std::printf("%d,%d,%d,%d,%d\n", c[0], c[1], c[2], c[3], c[4]);
    return cinquine.size() == kCinquine && std::fflush(stdout) == 0 ? 0 : 1;
}
