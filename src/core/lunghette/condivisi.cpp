#include "lunghette/condivisi.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <span>
#include <utility>

namespace sortimetra {

namespace {

// ---- by columns ----

using Parola = std::uint64_t;
/// Rows that are added at once: one bit each.
constexpr std::size_t kBitParola = 64;
/// Words of a block, so that the compiler can take several at once.
constexpr std::size_t kBlocco = 4;
/// Most numbers of one row; a row with fewer is filled up with a column of zeros.
constexpr std::size_t kColonneRiga = 20;

/// Adds three bits of equal weight: what stays, and what is carried to the next weight.
struct Somma {
    Parola resto;
    Parola riporto;
};
constexpr Somma somma(Parola a, Parola b, Parola c) {
    const Parola ab = a ^ b;
    return {ab ^ c, (a & b) | (ab & c)};
}

/// For one word of rows, which of them hold exactly `quanti` of the numbers whose columns are given.
inline Parola con_esattamente(const std::array<const Parola*, kColonneRiga>& colonne, std::size_t parola,
                              std::size_t usate, unsigned quanti) {
    std::array<Parola, 5> cifre{};
    for (std::size_t i = 0; i < usate; i += 4) {
        const Somma x = somma(cifre[0], colonne[i][parola], colonne[i + 1][parola]);
        const Somma y = somma(x.resto, colonne[i + 2][parola], colonne[i + 3][parola]);
        const Somma due = somma(cifre[1], x.riporto, y.riporto);
        cifre[0] = y.resto;
        cifre[1] = due.resto;
        Parola riporto = due.riporto;
        for (std::size_t k = 2; k < cifre.size(); ++k) {
            const Parola prossimo = cifre[k] & riporto;
            cifre[k] ^= riporto;
            riporto = prossimo;
        }
    }
    Parola uguali = ~Parola{0};
    for (std::size_t k = 0; k < cifre.size(); ++k) uguali &= (quanti >> k & 1U) != 0 ? cifre[k] : ~cifre[k];
    return uguali;
}

/// How many rows hold exactly `quanti` of the numbers.
inline std::int32_t quante_righe(const std::array<const Parola*, kColonneRiga>& colonne, std::size_t parole,
                                 std::size_t usate, unsigned quanti) {
    std::int32_t n = 0;
    for (std::size_t w = 0; w < parole; w += kBlocco) {
        std::array<Parola, kBlocco> uguali{};
        for (std::size_t i = 0; i < kBlocco; ++i) uguali[i] = con_esattamente(colonne, w + i, usate, quanti);
        for (const Parola u : uguali) n += std::popcount(u);
    }
    return n;
}

[[gnu::target("avx2,popcnt"), gnu::flatten]] std::int32_t quante_avx2(
    const std::array<const Parola*, kColonneRiga>& colonne, std::size_t parole, std::size_t usate,
    unsigned quanti) {
    return quante_righe(colonne, parole, usate, quanti);
}
std::int32_t quante_comune(const std::array<const Parola*, kColonneRiga>& colonne, std::size_t parole,
                           std::size_t usate, unsigned quanti) {
    return quante_righe(colonne, parole, usate, quanti);
}
/// Of two functions that do the same, the one for what this machine has.
template <class Funzione>
Funzione* di_questa_macchina(Funzione* avx2, Funzione* comune) {
    return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("popcnt") != 0 ? avx2 : comune;
}

/// The numbers of a row, each once.
std::size_t numeri_diversi(std::span<const Numero> celle, std::array<Numero, kColonneRiga>& numeri) {
    std::size_t n = 0;
    for (const Numero cella : celle)
        if (cella != kNessunNumero &&
            std::find(numeri.begin(), numeri.begin() + static_cast<std::ptrdiff_t>(n), cella) ==
                numeri.begin() + static_cast<std::ptrdiff_t>(n))
            numeri[n++] = cella;
    return n;
}

// ---- by subsets ----

constexpr std::size_t kBitBassi = 10;
constexpr std::size_t kBassi = std::size_t{1} << kBitBassi;
/// From one line of the table to the next: a power of two would put every line into the same few places of
/// the cache.
constexpr std::size_t kPassoLinea = kBassi + 16;
/// Entries taken at once across the lines.
constexpr std::size_t kStriscia = 16;

/// A count for each set of twenty numbers, the upper ten choose the line.
class TavolaInsiemi {
  public:
    std::uint32_t& di(std::uint32_t insieme) {
        return celle_[(insieme >> kBitBassi) * kPassoLinea + (insieme & (kBassi - 1))];
    }
    std::uint32_t* linea(std::size_t alta) { return celle_.data() + alta * kPassoLinea; }

    /// Over the upper ten numbers: each set with one of them and the same set without it meet in `unisci(a,
    /// b)`.
    template <class Unisci>
    void per_le_alte(Unisci&& unisci) {
        for (std::size_t inizio = 0; inizio < kBassi; inizio += kStriscia)
            per_i_bit([&](std::size_t senza, std::size_t con) {
                std::uint32_t* a = linea(senza) + inizio;
                std::uint32_t* b = linea(con) + inizio;
                for (std::size_t i = 0; i < kStriscia; ++i) unisci(a[i], b[i]);
            });
    }
    /// Calls `coppia(senza, con)` for each of ten bits and each number without it.
    template <class Coppia>
    static void per_i_bit(Coppia&& coppia) {
        for (std::size_t bit = 1; bit < kBassi; bit <<= 1U)
            for (std::size_t i = 0; i < kBassi; i += 2 * bit)
                for (std::size_t j = i; j < i + bit; ++j) coppia(j, j + bit);
    }

  private:
    std::vector<std::uint32_t> celle_ = std::vector<std::uint32_t>(kBassi * kPassoLinea);
};

// Counts wrap round 2^32 on the way; what comes out at the end is the true number again.
constexpr auto con_in_senza = [](std::uint32_t& senza, std::uint32_t con) { senza += con; };
constexpr auto senza_in_con = [](std::uint32_t senza, std::uint32_t& con) { con += senza; };

/// Four entries of a line: the sums over its two lowest numbers are made within.
using Quattro [[gnu::vector_size(16)]] = std::uint32_t;
inline Quattro con_in_senza_di_due(Quattro x) {
    x += __builtin_shufflevector(x, x, 1, 1, 3, 3) & Quattro{~0U, 0, ~0U, 0};
    return x + (__builtin_shufflevector(x, x, 2, 3, 2, 3) & Quattro{~0U, ~0U, 0, 0});
}
inline Quattro senza_in_con_di_due(Quattro x) {
    x += __builtin_shufflevector(x, x, 0, 0, 2, 2) & Quattro{0, ~0U, 0, ~0U};
    return x + (__builtin_shufflevector(x, x, 0, 1, 0, 1) & Quattro{0, 0, ~0U, ~0U});
}

/// Within one line, the sums over the lower ten numbers.
template <class InQuattro, class Unisci>
void per_le_basse(std::uint32_t* linea, InQuattro&& di_due, Unisci&& unisci) {
    for (std::size_t i = 0; i < kBassi; i += 4) {
        Quattro x;
        std::memcpy(&x, linea + i, sizeof x);
        x = di_due(x);
        std::memcpy(linea + i, &x, sizeof x);
    }
    for (std::size_t bit = 4; bit < kBassi; bit <<= 1U)
        for (std::size_t i = 0; i < kBassi; i += 2 * bit)
            for (std::size_t j = i; j < i + bit; ++j) unisci(linea[j], linea[j + bit]);
}

using LineaPesi = std::array<std::uint32_t, kBassi>;

/// From how many rows have just this set to how many rows share so many numbers with it.
inline void somma_insiemi(TavolaInsiemi& tavola, const std::vector<LineaPesi>& pesi) {
    tavola.per_le_alte(con_in_senza);
    for (std::size_t alta = 0; alta < kBassi; ++alta) {
        std::uint32_t* linea = tavola.linea(alta);
        per_le_basse(linea, con_in_senza_di_due, con_in_senza);
        const LineaPesi& per = pesi[static_cast<std::size_t>(std::popcount(alta))];
        for (std::size_t i = 0; i < kBassi; ++i) linea[i] *= per[i];
        per_le_basse(linea, senza_in_con_di_due, senza_in_con);
    }
    tavola.per_le_alte(senza_in_con);
}
[[gnu::target("avx2,popcnt"), gnu::flatten]] void somma_insiemi_avx2(TavolaInsiemi& tavola,
                                                                     const std::vector<LineaPesi>& pesi) {
    somma_insiemi(tavola, pesi);
}
void somma_insiemi_comune(TavolaInsiemi& tavola, const std::vector<LineaPesi>& pesi) {
    somma_insiemi(tavola, pesi);
}

/// What a set of n numbers adds to the count of rows that share exactly `quanti`: with C(s, j) for the sets
/// of size j within s shared numbers, the sum of (-1)^(j - quanti) C(j, quanti) C(s, j) is 1 for s = quanti
/// and 0 for every other s.
std::array<std::uint32_t, kNumeriWinForLife + 1> pesi(unsigned quanti) {
    std::array<std::uint32_t, kNumeriWinForLife + 1> p{};
    std::uint32_t binomiale = 1;  // C(quanti, quanti)
    for (unsigned n = quanti; n < p.size(); ++n) {
        p[n] = (n - quanti) % 2 == 0 ? binomiale : 0U - binomiale;
        binomiale = static_cast<std::uint32_t>(std::uint64_t{binomiale} * (n + 1) / (n + 1 - quanti));
    }
    return p;
}

/// The same for whole lines, by the upper numbers that a line's sets have: 0 to 10.
std::vector<LineaPesi> linee_di_pesi(unsigned quanti) {
    const auto p = pesi(quanti);
    std::vector<LineaPesi> linee(kBitBassi + 1);
    for (std::size_t alti = 0; alti <= kBitBassi; ++alti)
        for (std::size_t i = 0; i < kBassi; ++i)
            linee[alti][i] = p[alti + static_cast<std::size_t>(std::popcount(i))];
    return linee;
}

/// The bit of each number of a game of twenty; what is no number has none.
constexpr auto kBitDi = [] {
    std::array<std::uint32_t, kIndiciCella> bit{};
    for (std::size_t n = 1; n <= kNumeriWinForLife; ++n) bit[n] = 1U << (n - 1);
    return bit;
}();

std::uint32_t insieme_di(std::span<const Numero> celle) {
    std::uint32_t insieme = 0;
    for (const Numero n : celle) insieme |= kBitDi[n];
    return insieme;
}

}  // namespace

std::vector<std::int32_t> condivisi_per_colonne(const RigheGioco& righe, int quanti,
                                                Avanzamento& avanzamento) {
    const std::size_t n = righe.righe();
    const std::size_t parole = (n + kBitParola * kBlocco - 1) / (kBitParola * kBlocco) * kBlocco;
    std::vector<Parola> bit(kIndiciCella * parole);
    for (std::size_t r = 0; r < n; ++r)
        for (const Numero cella : righe.riga(r))
            bit[cella * parole + r / kBitParola] |= Parola{1} << (r % kBitParola);
    // The column of what is no number fills up the rows that have fewer.
    std::fill_n(bit.begin() + static_cast<std::ptrdiff_t>(kNessunNumero * parole), parole, Parola{0});

    const auto conta = di_questa_macchina(quante_avx2, quante_comune);
    std::vector<std::int32_t> condivisi;
    condivisi.reserve(n);
    std::array<const Parola*, kColonneRiga> colonne{};
    std::array<Numero, kColonneRiga> numeri{};
    for (std::size_t r = 0; r < n; ++r) {
        const std::size_t diversi = numeri_diversi(righe.riga(r), numeri);
        for (std::size_t i = 0; i < kColonneRiga; ++i)
            colonne[i] = bit.data() + (i < diversi ? numeri[i] : kNessunNumero) * parole;
        const std::int32_t righe_uguali =
            conta(colonne, parole, (diversi + 3) / 4 * 4, static_cast<unsigned>(quanti));
        // A row of just so many numbers shares them with itself.
        condivisi.push_back(righe_uguali - (static_cast<int>(diversi) == quanti ? 1 : 0));
        if (!avanzamento.procedi(r + 1, n)) break;
    }
    return condivisi;
}

std::vector<std::int32_t> condivisi_per_sottoinsiemi(const RigheGioco& righe, int quanti,
                                                     Avanzamento& avanzamento) {
    constexpr std::size_t kPassi = 3;
    const std::size_t n = righe.righe();
    TavolaInsiemi tavola;
    std::vector<std::uint32_t> insiemi(n);
    for (std::size_t r = 0; r < n; ++r) ++tavola.di(insiemi[r] = insieme_di(righe.riga(r)));
    if (!avanzamento.procedi(1, kPassi)) return {};
    di_questa_macchina(somma_insiemi_avx2, somma_insiemi_comune)(
        tavola, linee_di_pesi(static_cast<unsigned>(quanti)));
    if (!avanzamento.procedi(2, kPassi)) return {};

    std::vector<std::int32_t> condivisi(n);
    for (std::size_t r = 0; r < n; ++r)
        condivisi[r] =
            static_cast<std::int32_t>(tavola.di(insiemi[r])) - (std::popcount(insiemi[r]) == quanti ? 1 : 0);
    avanzamento.procedi(kPassi, kPassi);
    return condivisi;
}

std::optional<std::size_t> piu_condivisa(const RigheGioco& righe, int quanti, Avanzamento& avanzamento) {
    // From here on the sums over all sets of twenty numbers take less time than the columns.
    constexpr std::size_t kDaRighe = 6000;
    const bool insiemi = righe.massimo <= kNumeriWinForLife && righe.righe() >= kDaRighe;
    const auto condivisi = insiemi ? condivisi_per_sottoinsiemi(righe, quanti, avanzamento)
                                   : condivisi_per_colonne(righe, quanti, avanzamento);
    const auto migliore = std::max_element(condivisi.begin(), condivisi.end());
    if (migliore == condivisi.end() || *migliore <= 0) return std::nullopt;
    return static_cast<std::size_t>(migliore - condivisi.begin());
}

}  // namespace sortimetra
