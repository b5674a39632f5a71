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

/// Numbers as bits, 1 to 90 in two words.
using Insieme = std::array<std::uint64_t, 2>;

/// The bit of each number; 0, an empty cell, has none.
constexpr auto kBit = [] {
    std::array<Insieme, 256> bit{};
    for (unsigned n = 1; n <= kNumeri; ++n) bit[n][n / 64] = std::uint64_t{1} << n % 64;
    return bit;
}();

void aggiungi(Insieme& insieme, Numero n) {
    insieme[0] |= kBit[n][0];
    insieme[1] |= kBit[n][1];
}
/// How many numbers stand in a set: both words in one go, since no instruction that every machine has counts
/// bits.
int quanti(const Insieme& insieme) {
    constexpr std::uint64_t kUno = 0x5555555555555555U;
    constexpr std::uint64_t kDue = 0x3333333333333333U;
    constexpr std::uint64_t kQuattro = 0x0F0F0F0F0F0F0F0FU;
    const auto a_quattro = [](std::uint64_t n) {
        n -= n >> 1U & kUno;
        return (n & kDue) + (n >> 2U & kDue);
    };
    const std::uint64_t n = a_quattro(insieme[0]) + a_quattro(insieme[1]);  // at most 8 in each four bits
    return static_cast<int>(((n & kQuattro) + (n >> 4U & kQuattro)) * 0x0101010101010101U >> 56U);
}

/// The rows of one concorso, in wheel order.
struct RigheConcorso {
    std::array<const Numero*, kRuote> righe{};
    std::size_t quante = 0;

    RigheConcorso(const TabellaLotto& tabella, std::size_t record) {
        const Numero* numeri = tabella.numeri[record].data();
        for (unsigned m = tabella.presenti[record]; m != 0; m &= m - 1)
            righe[quante++] = numeri + std::countr_zero(m) * kEstratti;
    }
    [[nodiscard]] const Numero* riga(std::size_t i) const { return righe[i]; }
};

/// The same of a concorso that has all ten, as nearly all have: nothing to look for, and loops that unroll.
struct RigheIntere {
    static constexpr std::size_t quante = kRuote;
    const Numero* numeri;
    [[nodiscard]] const Numero* riga(std::size_t i) const { return numeri + i * kEstratti; }
};

struct Venti {
    Insieme insieme{};
    int mancano = 0;  ///< numbers that lack to twenty
};

/// The twenty numbers of a draw as a set. Which place a number takes makes no difference to it: a number that
/// comes to a place that is empty, or whose number stands elsewhere too, takes none away. Fewer than twenty
/// are left where the wheels run out of numbers; then it does depend on the places what stands twice.
template <class Righe>
Venti insieme_10elotto(const Righe& r) {
    Insieme insieme{};
#pragma GCC unroll 10
    for (std::size_t i = 0; i < r.quante; ++i) {
        aggiungi(insieme, r.riga(i)[0]);
        aggiungi(insieme, r.riga(i)[1]);
    }
    int mancano = 20 - quanti(insieme);
    for (std::size_t posto = 2; posto < kEstratti && mancano > 0; ++posto)
        for (std::size_t i = 0; i < r.quante && mancano > 0; ++i) {
            const Insieme& bit = kBit[r.riga(i)[posto]];
            mancano -= static_cast<int>(((bit[0] & ~insieme[0]) | (bit[1] & ~insieme[1])) != 0);
            insieme[0] |= bit[0];
            insieme[1] |= bit[1];
        }
    return {insieme, mancano};
}

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

/// The same place by place, for draws that have no twenty different numbers.
Combinazione a_posti_10elotto(const RigheConcorso& r) {
    Combinazione c{};
    for (std::size_t i = 0; i < r.quante; ++i) {
        c[i + 1] = r.righe[i][0];
        c[i + 11] = r.righe[i][1];
    }
    std::size_t posto = 2;
    std::size_t riga = 0;
    for (auto j = primo_difetto(c); j && posto < kEstratti; j = primo_difetto(c)) {
        if (riga < r.quante && r.righe[riga][posto] != 0) c[*j] = r.righe[riga][posto];
        if (++riga >= kRuote) {
            riga = 0;
            ++posto;
        }
    }
    std::sort(c.begin() + 1, c.end());
    return c;
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
    const bool intere = tabella.presenti[record] == (1U << kRuote) - 1;
    const auto [insieme, mancano] = intere ? insieme_10elotto(RigheIntere{tabella.numeri[record].data()})
                                           : insieme_10elotto(RigheConcorso{tabella, record});
    if (mancano != 0) return a_posti_10elotto(RigheConcorso{tabella, record});
    Combinazione c{};
    std::size_t posto = 1;
    for (unsigned parola = 0; parola < 2; ++parola)
        for (std::uint64_t m = insieme[parola]; m != 0; m &= m - 1)
            c[posto++] = static_cast<std::int16_t>(parola * 64 + static_cast<unsigned>(std::countr_zero(m)));
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
