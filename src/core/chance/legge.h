#pragma once

#include "draws/percorso.h"
#include "results/evento.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sortimetra {

/// A row of a game's table: so many of the numbers 1 to `numeri` come, none of them twice.
struct Urna {
    int numeri = kNumeri;
    int estratti = kEstratti;
    friend bool operator==(const Urna&, const Urna&) = default;
};

/// What an event draws from: 5 of 90 in the Lotto, 6 of 90 in SuperEnalotto, 20 of 90 in 10eLotto, 10 of 20
/// in Win for Life; with places only as many as there are places (1 of 90 for the first number drawn and for
/// the SuperStar).
[[nodiscard]] Urna urna(Gioco gioco, Posti posti = kOgniPosto);

/// What chance makes of an event in one row, from the hypergeometric law.
///
/// Counts of combinations stay whole numbers (C(90, 20) takes 66 bits), so that `p` is right to the last bit
/// and `attesa` is rounded exactly.
class Legge {
  public:
    /// `evento` has numbers of the game; one that stands in it twice counts twice, as the searches count it.
    explicit Legge(const Evento& evento);

    /// Probability that a row holds the event.
    [[nodiscard]] double p() const { return static_cast<double>(p_); }
    /// Mean and variance of what a row adds to the frequency: p and p (1 - p) where it counts once.
    [[nodiscard]] double media() const { return static_cast<double>(media_); }
    [[nodiscard]] double varianza() const { return static_cast<double>(varianza_); }

    /// The frequency to be expected after `righe` rows, with one decimal, half away from zero: "258,6".
    [[nodiscard]] std::string attesa(std::int64_t righe) const;
    /// How many standard deviations a frequency lies above what is expected; nothing where it cannot vary.
    [[nodiscard]] std::optional<double> scarto(std::int64_t righe, std::int64_t frequenza) const;
    /// Probability that the event is away for `ritardo` draws (0 or more) or longer.
    [[nodiscard]] double probabilita(Percorso percorso, std::int32_t ritardo) const;
    /// Probability that it comes in a draw, in one of its rows at least.
    [[nodiscard]] double per_concorso(Percorso percorso) const;
    /// The longest closed delay that the event is expected to reach, the mean greatest of as many geometric
    /// waits as it comes; never below 0.
    [[nodiscard]] double record_atteso(Percorso percorso) const;

  private:
    __extension__ using Conto = unsigned __int128;

    Conto uscite_ = 0;  ///< sum over all draws of what they add to the frequency
    Conto tutte_ = 1;   ///< all draws
    long double p_ = 0;
    long double ln_manca_ = 0;  ///< ln(1 - p)
    long double media_ = 0;
    long double varianza_ = 0;
};

/// The probability that at least one of `m` events, each as probable as `p`, happens, as if none knew of the
/// others.
[[nodiscard]] double almeno_uno(double p, std::int64_t m);

}  // namespace sortimetra
