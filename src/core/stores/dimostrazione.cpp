#include "stores/dimostrazione.h"

#include "draws/calendario.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <numeric>
#include <span>

namespace sortimetra {

namespace {

using std::chrono::days;
using std::chrono::July;
using std::chrono::March;
using std::chrono::year;

constexpr Data kUltimaEstrazione{year{2026} / 8 / 21};

// ---- chance ----

/// SplitMix64: short, and the same on every machine, which the standard library's distributions are not.
class Caso {
  public:
    explicit Caso(std::uint64_t seme) : stato_{seme} {}

    /// Even over 0 to `n` - 1.
    std::uint32_t sotto(std::uint32_t n) {
        // The lowest values are drawn again, so that each remainder has the same number of ways.
        const std::uint32_t scarto = (0U - n) % n;
        for (;;) {
            const auto x = static_cast<std::uint32_t>(prossimo() >> 32U);
            if (x >= scarto) return x % n;
        }
    }

    /// Fills `numeri` with distinct numbers 1 to `massimo`, in drawing order.
    void estrai(std::span<Numero> numeri, int massimo) {
        std::array<Numero, kNumeri> urna;
        std::iota(urna.begin(), urna.end(), Numero{1});
        for (std::size_t i = 0; i < numeri.size(); ++i) {
            const std::size_t rimasti = static_cast<std::size_t>(massimo) - i;
            std::swap(urna[i], urna[i + sotto(static_cast<std::uint32_t>(rimasti))]);
            numeri[i] = urna[i];
        }
    }

  private:
    std::uint64_t prossimo() {
        stato_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = stato_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }
    std::uint64_t stato_;
};

constexpr std::uint64_t kSeme = 0x536F7274696D6574U;

// ---- the games ----

constexpr Concorso kPrimoNazionale = 1182;
constexpr Concorso kPrimoSuperEnalotto = 402;
/// Until this day the SuperEnalotto was read off the wheels of the Lotto; since then it has an urn of its
/// own.
constexpr Data kUrnaPropria{year{2009} / July / 1};
constexpr Data kPrimoSuperstar{year{2006} / March / 28};

constexpr Data kUltimaWinForLife = kUltimaEstrazione;
constexpr int kGiorniWinForLife = 1180;
constexpr int kPrimaOra = 7;
constexpr int kUltimaOra = 23;

using Quintina = std::array<Numero, kEstratti>;

/// The first number of a wheel that is not among the first `n` of `presi`; 0 if all five are.
Numero primo_libero(const Quintina& ruota, std::span<const Numero> presi) {
    for (const Numero x : ruota)
        if (std::find(presi.begin(), presi.end(), x) == presi.end()) return x;
    return 0;
}

RigaSuperEnalotto superenalotto(Concorso concorso, Data data, const std::array<Quintina, kRuote>& ruote,
                                Caso& caso) {
    RigaSuperEnalotto r{.concorso = concorso, .data = data};
    if (data < kUrnaPropria) {
        // Bari, Firenze, Milano, Napoli, Palermo, Roma; the Jolly from Venezia.
        static constexpr std::array<std::size_t, 6> kFonti{0, 2, 4, 5, 6, 7};
        for (std::size_t i = 0; i < kFonti.size(); ++i)
            r.numeri[i] = primo_libero(ruote[kFonti[i]], std::span{r.numeri}.first(i));
        r.jolly = primo_libero(ruote[9], r.numeri);
    } else {
        std::array<Numero, 7> sette{};
        caso.estrai(sette, kNumeri);
        std::copy_n(sette.begin(), r.numeri.size(), r.numeri.begin());
        r.jolly = sette.back();
    }
    std::sort(r.numeri.begin(), r.numeri.end());
    if (data >= kPrimoSuperstar) r.superstar = static_cast<Numero>(caso.sotto(kNumeri) + 1);
    return r;
}

}  // namespace

RigheArchivio archivio_dimostrativo() {
    RigheArchivio righe;
    Caso caso{kSeme};
    const std::vector<Data> date = calendario_lotto(kUltimaEstrazione);
    righe.lotto.reserve(date.size() * kRuote);
    righe.nazionale.reserve(date.size());
    righe.superenalotto.reserve(date.size());
    Concorso concorso = 0;
    for (const Data data : date) {
        ++concorso;
        std::array<Quintina, kRuote> ruote{};
        for (int w = 0; w < kRuote; ++w) {
            auto& quintina = ruote[static_cast<std::size_t>(w)];
            caso.estrai(quintina, kNumeri);
            righe.lotto.push_back({concorso, data, w, quintina});
        }
        if (concorso >= kPrimoNazionale) {
            RigaLotto r{concorso, data, kNazionale, {}};
            caso.estrai(r.numeri, kNumeri);
            righe.nazionale.push_back(r);
        }
        if (concorso >= kPrimoSuperEnalotto)
            righe.superenalotto.push_back(superenalotto(concorso, data, ruote, caso));
    }
    righe.winforlife.reserve(static_cast<std::size_t>(kGiorniWinForLife) * (kUltimaOra - kPrimaOra + 1));
    Concorso ora_corrente = 0;
    for (int g = kGiorniWinForLife - 1; g >= 0; --g) {
        for (int ora = kPrimaOra; ora <= kUltimaOra; ++ora) {
            RigaWinForLife r{.concorso = ++ora_corrente, .data = kUltimaWinForLife - days{g}};
            r.ora = fmt::format("{:02}:00", ora);
            caso.estrai(r.numeri, kNumeriWinForLife);
            std::sort(r.numeri.begin(), r.numeri.end());
            righe.winforlife.push_back(std::move(r));
        }
    }
    return righe;
}

}  // namespace sortimetra
