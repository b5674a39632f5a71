#pragma once

#include "draws/archivio.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

// What a conditioned system measures on a combination: small pure functions of a list of numbers. Order
// matters; a list that holds zeros (a missing number) is measured as it stands. Kept in the header so that a
// search over a list of known length has them unrolled.

/// A number of a combination. Draws have 0 to 90; a system file may hold any 16-bit number.
using Valore = std::int16_t;
using Lista = std::span<const Valore>;
/// Longest list that is measured: two lines of ten of a saved system.
inline constexpr std::size_t kListaMassima = 20;

/// What makes two numbers symmetrical (their sum) or parallel (their difference).
struct Specchi {
    int simmetria = 91;
    int parallelo = 45;
};
inline constexpr Specchi kSpecchiLotto{};
inline constexpr Specchi kSpecchiWinForLife{.simmetria = 21, .parallelo = 10};

/// Pairs of positions for which `vale(a, b)` holds.
template <class Vale>
[[nodiscard]] constexpr int conta_coppie(Lista c, Vale&& vale) {
    int n = 0;
    for (std::size_t i = 0; i + 1 < c.size(); ++i)
        for (std::size_t j = i + 1; j < c.size(); ++j) n += vale(c[i], c[j]) ? 1 : 0;
    return n;
}

[[nodiscard]] constexpr int calcola_simmetrie(Lista c, Specchi specchi = kSpecchiLotto) {
    return conta_coppie(c, [=](int a, int b) { return a + b == specchi.simmetria; });
}
[[nodiscard]] constexpr int calcola_paralleli(Lista c, Specchi specchi = kSpecchiLotto) {
    return conta_coppie(
        c, [=](int a, int b) { return a - b == specchi.parallelo || b - a == specchi.parallelo; });
}
[[nodiscard]] constexpr int calcola_simmetrieWFL(Lista c) {
    return calcola_simmetrie(c, kSpecchiWinForLife);
}
[[nodiscard]] constexpr int calcola_paralleliWFL(Lista c) {
    return calcola_paralleli(c, kSpecchiWinForLife);
}

/// Both counts of a list of known length at once, some lanes of a register a step: the measures that cost
/// most. Numbers far from those of any game take the plain way, since their sums could wrap.
struct Coppie {
    int simmetrie = 0;
    int paralleli = 0;
};
template <std::size_t K>
[[nodiscard]] constexpr Coppie calcola_coppie(std::span<const Valore, K> c, Specchi specchi) {
    // Six pairs are counted sooner than lanes are filled.
    if constexpr (K <= 4) return {calcola_simmetrie(c, specchi), calcola_paralleli(c, specchi)};
    constexpr std::size_t kCorsie = (K + 7) / 8 * 8;
    constexpr int kVicino = 4096;
    constexpr Valore kNessuno = 20000;
    std::array<Valore, kCorsie> v{};
    bool lontano = false;
    for (std::size_t i = 0; i < kCorsie; ++i) {
        v[i] = i < K ? c[i] : kNessuno;
        lontano |= i < K && (v[i] > kVicino || v[i] < -kVicino);
    }
    if (lontano) return {calcola_simmetrie(c, specchi), calcola_paralleli(c, specchi)};
    std::array<Valore, kCorsie> simmetrie{};
    std::array<Valore, kCorsie> paralleli{};
    for (std::size_t i = 0; i < K; ++i) {
        const auto simmetrico = static_cast<Valore>(specchi.simmetria - v[i]);
        const auto parallelo = static_cast<Valore>(v[i] + specchi.parallelo);
        for (std::size_t j = 0; j < kCorsie; ++j) {
            simmetrie[j] = static_cast<Valore>(simmetrie[j] + (v[j] == simmetrico ? 1 : 0));
            paralleli[j] = static_cast<Valore>(paralleli[j] + (v[j] == parallelo ? 1 : 0));
        }
    }
    Coppie totali;
    for (std::size_t j = 0; j < kCorsie; ++j) {
        totali.simmetrie += simmetrie[j];
        totali.paralleli += paralleli[j];
    }
    // Each symmetrical pair was met from both ends; no number is its own, since the sums are odd.
    totali.simmetrie /= 2;
    return totali;
}

/// The characters of a number written without leading zeros, as bits 0 to 9, the sign at bit 10. 0 has none.
[[nodiscard]] constexpr unsigned cifre_di(int n) {
    unsigned bit = n < 0 ? 1U << 10U : 0;
    for (n = n < 0 ? -n : n; n > 0; n /= 10) bit |= 1U << static_cast<unsigned>(n % 10);
    return bit;
}

/// First digit of a number written with two digits at least; a sign counts nothing.
[[nodiscard]] constexpr int cifra_decine(int n) {
    if (n < 10) return 0;
    while (n >= 10) n /= 10;
    return n;
}
[[nodiscard]] constexpr int cifra_unita(int n) {
    return (n < 0 ? -n : n) % 10;
}

/// How a number is written, looked up for those of two digits.
struct Scrittura {
    std::uint16_t cifre = 0;
    std::uint8_t decine = 0;
    std::uint8_t unita = 0;
};
[[nodiscard]] constexpr Scrittura scrittura_di(int n) {
    return {static_cast<std::uint16_t>(cifre_di(n)), static_cast<std::uint8_t>(cifra_decine(n)),
            static_cast<std::uint8_t>(cifra_unita(n))};
}
inline constexpr auto kScritture = [] {
    std::array<Scrittura, 100> scritture{};
    for (std::size_t n = 0; n < scritture.size(); ++n) scritture[n] = scrittura_di(static_cast<int>(n));
    return scritture;
}();
[[nodiscard]] constexpr Scrittura scrittura(int n) {
    return n >= 0 && n < 100 ? kScritture[static_cast<std::size_t>(n)] : scrittura_di(n);
}

namespace dettaglio {

/// Where each number of a list stands among the others in ascending order; equal ones by their place.
template <std::size_t Corsie>
[[nodiscard]] constexpr std::array<std::int32_t, Corsie> posti_crescenti(Lista c) {
    // No two keys are equal, and what fills the lanes comes last: no branch that could be guessed wrong.
    std::array<std::int32_t, Corsie> chiavi{};
    for (std::size_t i = 0; i < Corsie; ++i)
        chiavi[i] =
            (i < c.size() ? std::int32_t{c[i]} : std::int32_t{1} << 20) * 32 + static_cast<std::int32_t>(i);
    std::array<std::int32_t, Corsie> posti{};
    for (std::size_t j = 0; j < c.size(); ++j)
        for (std::size_t i = 0; i < Corsie; ++i) posti[i] += chiavi[j] < chiavi[i] ? 1 : 0;
    return posti;
}

template <std::size_t Corsie>
[[nodiscard]] constexpr int interruzioni(Lista c) {
    std::array<unsigned, Corsie> cifre{};
    bool in_ordine = true;
    for (std::size_t i = 0; i + 1 < c.size(); ++i) in_ordine &= c[i] <= c[i + 1];
    if (in_ordine) {
        for (std::size_t i = 0; i < c.size(); ++i) cifre[i] = scrittura(c[i]).cifre;
    } else {
        const auto posti = posti_crescenti<Corsie>(c);
        for (std::size_t i = 0; i < c.size(); ++i)
            cifre[static_cast<std::size_t>(posti[i])] = scrittura(c[i]).cifre;
    }
    int n = 0;
    for (std::size_t i = 0; i + 1 < c.size(); ++i) n += (cifre[i] & cifre[i + 1]) == 0 ? 1 : 0;
    return n;
}

}  // namespace dettaglio

/// Neighbours, in ascending order whatever order the list has, whose written forms share no character: 12
/// and 25 are joined by their 2, 19 and 23 are an interruption.
[[nodiscard]] constexpr int calcola_interruzioni(Lista c) {
    if (c.size() <= 4) return dettaglio::interruzioni<4>(c);
    if (c.size() <= 8) return dettaglio::interruzioni<8>(c);
    if (c.size() <= 12) return dettaglio::interruzioni<12>(c);
    return dettaglio::interruzioni<kListaMassima>(c);
}

[[nodiscard]] constexpr int calcola_pari(Lista c) {
    int n = 0;
    for (const Valore v : c) n += v % 2 == 0 ? 1 : 0;
    return n;
}

/// Distanza j, from 1: two neighbouring numbers are at distance 0.
[[nodiscard]] constexpr int distanza(Lista c, std::size_t j) {
    const int d = int{c[j]} - int{c[j - 1]};
    return (d < 0 ? -d : d) - 1;
}
[[nodiscard]] constexpr int somma_distanze(Lista c) {
    int s = 0;
    for (std::size_t j = 1; j < c.size(); ++j) s += distanza(c, j);
    return s;
}

[[nodiscard]] constexpr int somma(Lista c) {
    int s = 0;
    for (const Valore v : c) s += v;
    return s;
}
[[nodiscard]] constexpr int somma_generale(Lista c) {
    return somma(c);
}
/// The longer half; of three numbers the middle one stands in both halves.
[[nodiscard]] constexpr int somma_s1(Lista c) {
    return somma(c.first((c.size() + 1) / 2));
}
[[nodiscard]] constexpr int somma_s2(Lista c) {
    return somma(c.last(c.size() == 3 ? 2 : c.size() / 2));
}
[[nodiscard]] constexpr int codomino(Lista c) {
    return int{c.front()} + int{c.back()};
}
[[nodiscard]] constexpr int resto(Lista c) {
    return somma(c) % static_cast<int>(c.size());
}

[[nodiscard]] constexpr int somma_decine(Lista c) {
    int s = 0;
    for (const Valore v : c) s += scrittura(v).decine;
    return s;
}
[[nodiscard]] constexpr int somma_cadenze(Lista c) {
    int s = 0;
    for (const Valore v : c) s += scrittura(v).unita;
    return s;
}

// ---- consecutivity ----

inline constexpr int kPassi = 9;

/// The counts of the nine steps, seven bits each: a list of ten has 45 pairs at most.
class Consecutivita {
  public:
    constexpr explicit Consecutivita(Lista c) {
        for (std::size_t i = 0; i + 1 < c.size(); ++i)
            for (std::size_t j = i + 1; j < c.size(); ++j) {
                const int d = int{c[i]} - int{c[j]};
                conteggi_ += kUno[static_cast<std::size_t>(std::min(d < 0 ? -d : d, kPassi + 1))];
            }
    }
    /// Pairs whose numbers differ by `s`, 1 to 9.
    [[nodiscard]] constexpr int passo(int s) const {
        return static_cast<int>(conteggi_ >> static_cast<unsigned>(kBit * (s - 1)) & kMaschera);
    }
    [[nodiscard]] constexpr int somma() const {
        int n = 0;
        for (int s = 1; s <= kPassi; ++s) n += passo(s);
        return n;
    }

  private:
    static constexpr int kBit = 7;
    static constexpr std::uint64_t kMaschera = (1U << kBit) - 1;
    /// What a pair adds, by its difference: equal numbers and those ten or more apart nothing.
    static constexpr auto kUno = [] {
        std::array<std::uint64_t, kPassi + 2> uno{};
        for (unsigned s = 1; s <= kPassi; ++s) uno[s] = std::uint64_t{1} << (kBit * (s - 1));
        return uno;
    }();
    std::uint64_t conteggi_ = 0;
};

// ---- groups of numbers ----

struct GruppoNumeri {
    std::string_view titolo;         ///< in the table of the groups' delays
    std::string_view titolo_ultimi;  ///< in the table of the last draws
};

inline constexpr std::size_t kDecine = 9;
inline constexpr std::size_t kCadenze = 10;
/// The nine Decine, then the ten Cadenze.
inline constexpr std::array<GruppoNumeri, kDecine + kCadenze> kGruppiNumeri{{
    {"1-9 & (90)", "Decina 1-9 e 90"},
    {"10-19", "Decina 10-19"},
    {"20-29", "Decina 20-29"},
    {"30-39", "Decina 30-39"},
    {"40-49", "Decina 40-49"},
    {"50-59", "Decina 50-59"},
    {"60-69", "Decina 60-69"},
    {"70-79", "Decina 70-79"},
    {"80-89", "Decina 80-89"},
    {"1-81", "Cadenza 1"},
    {"2-82", "Cadenza 2"},
    {"3-83", "Cadenza 3"},
    {"4-84", "Cadenza 4"},
    {"5-85", "Cadenza 5"},
    {"6-86", "Cadenza 6"},
    {"7-87", "Cadenza 7"},
    {"8-88", "Cadenza 8"},
    {"9-89", "Cadenza 9"},
    {"10-90", "Cadenza 10"},
}};

/// Index of the Decina and of the Cadenza of each number 1 to 90 in `kGruppiNumeri`.
[[nodiscard]] constexpr std::size_t decina_di(int n) {
    return n == 90 ? 0 : static_cast<std::size_t>(n / 10);
}
[[nodiscard]] constexpr std::size_t cadenza_di(int n) {
    return kDecine + static_cast<std::size_t>((n + 9) % 10);
}
[[nodiscard]] constexpr bool e_numero(int n) {
    return n >= 1 && n <= kNumeri;
}
/// The one number that the delays of the groups leave out: the list of the Cadenza of 2 has 22 twice and no
/// 12. Users know these tables so; the table of the last draws does count it.
inline constexpr int kSenzaCadenza = 12;

// ---- combinations of a draw ----

/// How a wheel's five numbers become combinations of k: which of the five stand in each, from 0.
template <std::size_t K>
struct Scomposizione {
    static constexpr std::size_t kQuante = K == 5 ? 1 : K == 4 ? 5 : 10;
    std::array<std::array<std::uint8_t, K>, kQuante> posti{};
};
template <std::size_t K>
inline constexpr Scomposizione<K> kScomposizione = [] {
    Scomposizione<K> s;
    std::size_t riga = 0;
    // The subsets of five in the order of their places, the last place quickest.
    std::array<std::uint8_t, K> p{};
    for (std::size_t i = 0; i < K; ++i) p[i] = static_cast<std::uint8_t>(i);
    while (true) {
        s.posti[riga++] = p;
        std::size_t i = K;
        while (i > 0 && p[i - 1] == 5 - K + i - 1) --i;
        if (i == 0) return s;
        ++p[i - 1];
        for (; i < K; ++i) p[i] = static_cast<std::uint8_t>(p[i - 1] + 1);
    }
}();

/// The combinations of k numbers of one wheel's draw, one after the other at `dove` (room for 50 numbers):
/// all choices of k from the five in ascending order; for k = 5 the five as drawn. Returns how many; none for
/// any other k.
std::size_t scomponi(std::size_t k, std::span<const Numero, kEstratti> estratti, Valore* dove);

/// Combinations per row of the archive: 10, 10, 5, 1 for k = 2 to 5, else 1.
[[nodiscard]] constexpr int combinazioni_per_riga(std::size_t k) {
    return k == 2 || k == 3 ? 10 : k == 4 ? 5 : 1;
}

// ---- the statistics: which measures stand together, and how they are called ----

/// The entries of `Combo1`, in its order.
enum class Statistica : std::uint8_t {
    posizione,
    distanza,
    condizioni,
    somme1,
    somme2,
    consecutivita,
    gruppi
};
inline constexpr std::array<std::string_view, 7> kStatistiche{
    "Posizione",
    "Distanza",
    "Simm. - Parall. - Simm.+Parall. - Interr. - Pari - Dettaglio Pari",
    "Somma Generale - Somma S1 - Somma S2",
    "Codomino - Resto - SiS 1 - SiS 2",
    "Consecutività",
    "Gruppi Numerici"};

/// One result grid of a statistic: a measure, its values from 0 to `massimo`.
struct GrigliaMisura {
    std::string_view griglia;        ///< name of the grid, a member of a control array by its index
    std::string_view titolo;         ///< above the grid; "Resto a " is followed by k
    std::string_view titolo_ultimi;  ///< as a row of the last draws
    int massimo = 0;                 ///< largest value with a counter, Lotto and SuperEnalotto
    int massimo_lungo = 0;           ///< the same for lists of ten and saved systems
};

inline constexpr std::array<GrigliaMisura, 5> kCondizioni{{
    {"MSH_condizioni(0)", "Simmetrie", "Simmetrie", 6, 10},
    {"MSH_condizioni(1)", "Paralleli", "Paralleli", 6, 10},
    {"MSH_condizioni(2)", "Simmetrie + Paralleli", "Simmetrie+Paralleli", 6, 10},
    {"MSH_condizioni(3)", "Interruzioni", "Interruzioni", 6, 10},
    {"MSH_condizioni(4)", "Pari", "Pari", 6, 10},
}};
inline constexpr std::array<GrigliaMisura, 3> kSomme1{{
    {"MSH_Somme1(0)", "Somma Generale", "Somma Generale", 540, 855},
    {"MSH_Somme1(1)", "Somma S1", "Somma S1", 540, 855},
    {"MSH_Somme1(2)", "Somma S2", "Somma S2", 540, 855},
}};
inline constexpr std::array<GrigliaMisura, 4> kSomme2{{
    {"MSH_Somme1(3)", "Codomino", "Codomino", 200, 500},
    {"MSH_Somme1(4)", "Resto a ", "Resto", 200, 500},
    {"MSH_Somme1(5)", "SiS 1", "SiS1 (S.Decine)", 200, 500},
    {"MSH_Somme1(6)", "SiS 2", "SiS2 (S.Cadenze)", 200, 500},
}};
inline constexpr std::array<GrigliaMisura, 10> kDistanze{{
    {"MSH_Distanza(0)", "Distanza 1", "Distanza 1", 90, 90},
    {"MSH_Distanza(1)", "Distanza 2", "Distanza 2", 90, 90},
    {"MSH_Distanza(2)", "Distanza 3", "Distanza 3", 90, 90},
    {"MSH_Distanza(3)", "Distanza 4", "Distanza 4", 90, 90},
    {"MSH_Distanza(4)", "Distanza 5", "Distanza 5", 90, 90},
    {"MSH_Distanza(5)", "Distanza 6", "Distanza 6", 90, 90},
    {"MSH_Distanza(6)", "Distanza 7", "Distanza 7", 90, 90},
    {"MSH_Distanza(7)", "Distanza 8", "Distanza 8", 90, 90},
    {"MSH_Distanza(8)", "Distanza 9", "Distanza 9", 90, 90},
    {"MSH_Distanza(9)", "Somma Distanze", "Somma Distanze", 346, 346},
}};
/// The largest value of a step is k - 1, below what is told here for every k but ten.
inline constexpr std::array<GrigliaMisura, 10> kConsecutivita{{
    {"MSH_Consec(0)", "Cons. Passo 1", "Cons. Passo 1", 9, 9},
    {"MSH_Consec(1)", "Cons. Passo 2", "Cons. Passo 2", 9, 9},
    {"MSH_Consec(2)", "Cons. Passo 3", "Cons. Passo 3", 9, 9},
    {"MSH_Consec(3)", "Cons. Passo 4", "Cons. Passo 4", 9, 9},
    {"MSH_Consec(4)", "Cons. Passo 5", "Cons. Passo 5", 9, 9},
    {"MSH_Consec(5)", "Cons. Passo 6", "Cons. Passo 6", 9, 9},
    {"MSH_Consec(6)", "Cons. Passo 7", "Cons. Passo 7", 9, 9},
    {"MSH_Consec(7)", "Cons. Passo 8", "Cons. Passo 8", 9, 9},
    {"MSH_Consec(8)", "Cons. Passo 9", "Cons. Passo 9", 9, 9},
    {"MSH_Consec(9)", "Somma Consecutività", "Somma Cons.", 15, 45},
}};

}  // namespace sortimetra
