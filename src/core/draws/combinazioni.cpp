#include "draws/combinazioni.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <optional>

namespace sortimetra {

namespace {

/// The six wheels whose first numbers made the sestina, in order, and the wheel of the Jolly.
constexpr std::array<std::size_t, 6> kRuoteSestina{0, 2, 4, 5, 6, 7};
constexpr std::size_t kRuotaJolly = 9;

/// Index of the place that the next number goes to: the first pair (i, j), i before j in order of trial, in
/// which j is empty or equals i, puts it at j. Nothing when all twenty are there and differ.
std::optional<std::size_t> primo_difetto(const Combinazione& c) {
    // i = 1: any later place that is empty or repeats the first number.
    for (std::size_t j = 2; j <= 20; ++j)
        if (c[j] == 0 || c[j] == c[1]) return j;
    // i = 2, j = 1: only the first place can be empty now.
    if (c[1] == 0) return 1;
    // From here no place is empty: the smallest i that stands again later, at its first repetition.
    std::array<std::uint8_t, kNumeri + 1> primo{};
    std::size_t i_migliore = 21;
    std::size_t j_migliore = 0;
    for (std::size_t j = 2; j <= 20; ++j) {
        std::uint8_t& i = primo[static_cast<std::size_t>(c[j])];
        if (i == 0) {
            i = static_cast<std::uint8_t>(j);
        } else if (i < i_migliore) {
            i_migliore = i;
            j_migliore = j;
        }
    }
    if (j_migliore == 0) return std::nullopt;
    return j_migliore;
}

/// The twenty places in ascending order. Twenty different numbers, as nearly every draw has them, come out of
/// a set of bits; only what is missing or double has to be compared.
void ordina(Combinazione& c) {
    std::array<std::uint64_t, 2> insieme{};
    for (std::size_t i = 1; i <= 20; ++i) {
        const auto n = static_cast<unsigned>(c[i]);
        insieme[n / 64] |= std::uint64_t{1} << (n % 64);
    }
    insieme[0] &= ~std::uint64_t{1};
    if (std::popcount(insieme[0]) + std::popcount(insieme[1]) != 20) {
        std::sort(c.begin() + 1, c.end());
        return;
    }
    std::size_t posto = 1;
    for (unsigned parola = 0; parola < 2; ++parola)
        for (std::uint64_t m = insieme[parola]; m != 0; m &= m - 1)
            c[posto++] = static_cast<std::int16_t>(parola * 64 + static_cast<unsigned>(std::countr_zero(m)));
}

}  // namespace

Combinazione calc_combinazione_superenalotto(const TabellaSuperEnalotto& tabella, std::size_t riga) {
    Combinazione c{};
    if (riga >= tabella.numeri.size()) return c;
    const auto& n = tabella.numeri[riga];
    std::copy_n(n.begin(), 6, c.begin() + 1);
    std::sort(c.begin() + 1, c.begin() + 7);
    c[0] = n[6];
    c[7] = n[7];
    return c;
}

Combinazione calc_combinazione_superenalotto_s(const TabellaLotto& tabella, std::size_t record) {
    Combinazione c{};
    const auto& numeri = tabella.numeri[record];
    const auto presente = [&](std::size_t w) { return (tabella.presenti[record] >> w & 1U) != 0; };
    const auto gia_presa = [&c](int n) {
        return std::find(c.begin() + 1, c.begin() + 7, n) != c.begin() + 7;
    };
    // First place of a wheel whose number is not taken yet; 0 when all five are. An empty cell met on the way
    // cannot be read as a number and empties the whole combination.
    const auto primo_libero = [&](std::size_t w, bool& illeggibile) -> std::int16_t {
        for (std::size_t p = 0; p < kEstratti; ++p) {
            const Numero n = numeri[w * kEstratti + p];
            if (n == 0) {
                illeggibile = true;
                return 0;
            }
            if (!gia_presa(n)) return n;
        }
        return 0;
    };
    bool illeggibile = false;
    for (std::size_t i = 0; i < kRuoteSestina.size(); ++i) {
        if (!presente(kRuoteSestina[i])) return Combinazione{};
        c[i + 1] = primo_libero(kRuoteSestina[i], illeggibile);
        if (illeggibile) return Combinazione{};
    }
    // All five of Roma taken: the number before it is lost as well.
    if (c[6] == 0) c[5] = 0;
    std::sort(c.begin() + 1, c.begin() + 7);
    if (!presente(kRuotaJolly)) return Combinazione{};
    const std::int16_t jolly = primo_libero(kRuotaJolly, illeggibile);
    if (illeggibile) return Combinazione{};
    if (jolly == 0) c[6] = 0;
    c[0] = jolly;
    return c;
}

Combinazione calc_combinazione_10elotto(const TabellaLotto& tabella, std::size_t record) {
    Combinazione c{};
    const auto& numeri = tabella.numeri[record];
    std::array<const Numero*, kRuote> righe{};
    std::size_t n_righe = 0;
    for (unsigned m = tabella.presenti[record]; m != 0; m &= m - 1)
        righe[n_righe++] = numeri.data() + std::countr_zero(m) * kEstratti;
    for (std::size_t i = 0; i < n_righe; ++i) {
        c[i + 1] = righe[i][0];
        c[i + 11] = righe[i][1];
    }
    std::size_t posto = 2;
    std::size_t riga = 0;
    for (auto j = primo_difetto(c); j && posto < kEstratti; j = primo_difetto(c)) {
        if (riga < n_righe && righe[riga][posto] != 0) c[*j] = righe[riga][posto];
        if (++riga >= kRuote) {
            riga = 0;
            ++posto;
        }
    }
    ordina(c);
    return c;
}

Combinazione calc_combinazione_WinForLife(const TabellaWinForLife& tabella, Concorso concorso) {
    Combinazione c{};
    const auto riga = cerca_concorso(tabella.concorso, concorso);
    if (!riga) return c;
    const auto& n = tabella.numeri[*riga];
    std::copy(n.begin(), n.end(), c.begin() + 1);
    std::sort(c.begin() + 1, c.begin() + 11);
    return c;
}

}  // namespace sortimetra
