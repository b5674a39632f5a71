#include "statistics/terni_per_ambi.h"

#include "results/risultato.h"
#include "statistics/combinatoria.h"
#include "statistics/misure.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Cells of a strip: 90 numbers from index 1, rounded up to whole vectors.
constexpr std::size_t kStriscia = 96;

/// One hit at draw `c`: raises the cells of the ambo's strip and returns the least of them. `primo_vuoto` is
/// what the first hit of a terno closes.
template <class Cella>
[[gnu::always_inline]] inline Cella aggiorna_striscia(Cella* __restrict vuoto, const Cella* __restrict ua,
                                                      const Cella* __restrict ub, Cella uab, Cella c,
                                                      Cella primo_vuoto) {
    Cella minimo = std::numeric_limits<Cella>::max();
    for (std::size_t x = 0; x < kStriscia; ++x) {
        const Cella ultimo = std::max(uab, std::max(ua[x], ub[x]));
        const auto gap = static_cast<Cella>(ultimo == 0 ? primo_vuoto : c - ultimo - 1);
        const Cella nuovo = std::max(vuoto[x], gap);
        vuoto[x] = nuovo;
        minimo = std::min(minimo, nuovo);
    }
    return minimo;
}

[[gnu::target("avx2")]] std::int32_t aggiorna_avx2(std::int32_t* vuoto, const std::int32_t* ua,
                                                   const std::int32_t* ub, std::int32_t uab, std::int32_t c,
                                                   std::int32_t primo_vuoto) {
    return aggiorna_striscia(vuoto, ua, ub, uab, c, primo_vuoto);
}
std::int32_t aggiorna_comune(std::int32_t* vuoto, const std::int32_t* ua, const std::int32_t* ub,
                             std::int32_t uab, std::int32_t c, std::int32_t primo_vuoto) {
    return aggiorna_striscia(vuoto, ua, ub, uab, c, primo_vuoto);
}

/// Whichever this machine has; both do the same.
auto aggiorna_di_questa_macchina() {
    static const auto scelta = __builtin_cpu_supports("avx2") != 0 ? aggiorna_avx2 : aggiorna_comune;
    return scelta;
}

}  // namespace

struct TerniPerAmbi::Stato {
    Estrazioni t;
    /// Draw of the last hit of each ambo, in both orders of its numbers, 0 before the first. Rows are strips.
    std::vector<std::int32_t> ultimo = std::vector<std::int32_t>(std::size_t{kNumeri + 1} * kStriscia);
    /// Per ambo, the longest gap that its hits closed, by third number.
    std::vector<std::int32_t> vuoto = std::vector<std::int32_t>(kAmbi * kStriscia);
    std::vector<std::int32_t> minimo = std::vector<std::int32_t>(kAmbi);  ///< the least cell of each strip
    std::vector<std::int32_t> frequenza = std::vector<std::int32_t>(kAmbi);
    decltype(aggiorna_di_questa_macchina()) aggiorna = aggiorna_di_questa_macchina();
};

TerniPerAmbi::TerniPerAmbi(Estrazioni t) : stato_{std::make_unique<Stato>()} {
    stato_->t = t;
    // Cells that stand for no terno must never be the least of their strip.
    constexpr auto kMai = std::numeric_limits<std::int32_t>::max();
    for (std::size_t a = 1; a < kNumeri; ++a)
        for (std::size_t b = a + 1; b <= kNumeri; ++b) {
            std::int32_t* v = stato_->vuoto.data() + indice_ambo(a, b) * kStriscia;
            v[0] = v[a] = v[b] = kMai;
            std::fill(v + kNumeri + 1, v + kStriscia, kMai);
        }
}

TerniPerAmbi::TerniPerAmbi(TerniPerAmbi&&) noexcept = default;
TerniPerAmbi& TerniPerAmbi::operator=(TerniPerAmbi&&) noexcept = default;
TerniPerAmbi::~TerniPerAmbi() = default;

void TerniPerAmbi::esce(std::size_t a, std::size_t b, std::int32_t c) {
    Stato& s = *stato_;
    const std::size_t ab = indice_ambo(a, b);
    ++s.frequenza[ab];
    std::int32_t* ua = s.ultimo.data() + a * kStriscia;
    std::int32_t* ub = s.ultimo.data() + b * kStriscia;
    const std::int32_t uab = ua[b];
    // No gap of this hit is longer than the ambo's own.
    if (uab == 0 || c - uab - 1 > s.minimo[ab])
        s.minimo[ab] = s.aggiorna(s.vuoto.data() + ab * kStriscia, ua, ub, uab, c, c - s.t);
    ua[b] = c;
    ub[a] = c;
}

Risultato TerniPerAmbi::risultato(Colonna nomi) && {
    const Stato& s = *stato_;
    ScrittoreMisure scrittore{kTerni};
    for (std::size_t a = 1; a + 2 <= kNumeri; ++a) {
        const std::int32_t* ua = s.ultimo.data() + a * kStriscia;
        for (std::size_t b = a + 1; b + 1 <= kNumeri; ++b) {
            const std::size_t ab = indice_ambo(a, b);
            const std::int32_t* ub = s.ultimo.data() + b * kStriscia;
            const std::int32_t* vab = s.vuoto.data() + ab * kStriscia;
            for (std::size_t x = b + 1; x <= kNumeri; ++x) {
                const std::size_t ax = indice_ambo(a, x);
                const std::size_t bx = indice_ambo(b, x);
                const std::int32_t ultimo = std::max(ua[b], std::max(ua[x], ub[x]));
                const std::int32_t storico =
                    std::max({vab[x], s.vuoto[ax * kStriscia + b], s.vuoto[bx * kStriscia + a]});
                // Before any hit `ultimo` is 0 and the delay is T.
                scrittore.riga(s.frequenza[ab] + s.frequenza[ax] + s.frequenza[bx], s.t - ultimo, storico);
            }
        }
    }
    return std::move(scrittore).risultato(
        std::move(nomi), {.gioco = Gioco::lotto, .presenti = 2, .conteggio = Conteggio::ogni_combinazione});
}

}  // namespace sortimetra
