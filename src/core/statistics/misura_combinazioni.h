#pragma once

#include "draws/ambito.h"
#include "draws/avanzamento.h"
#include "statistics/misure.h"
#include "statistics/serie_corrente.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sortimetra {

/// Measures all combinations of `k` out of a list of numbers, in the order of `scomposizione_gruppo`: a row
/// hits those of which it holds `soglia` numbers or more.
///
/// Only the combinations that a row hits are walked. They are ranked by their places, ascending: whatever is
/// left to choose once `soglia` numbers are there stands in one run of cells, and so do all combinations that
/// begin alike. Such a run is counted over all rows before the next one is touched, so that its cells stay in
/// the nearest cache; the rows that cannot hit it any more are left out on the way.
class Combinazioni {
  public:
    static constexpr std::size_t kMassimo = 5;  ///< numbers per combination

    /// Nothing where a number is 0, above 90 or stands twice, for `k` outside 1 to 5, and for a `soglia`
    /// below 1: those are counted member by member.
    [[nodiscard]] static std::optional<Combinazioni> di(std::span<const Numero> numeri, int k, int soglia);

    /// Takes a row of the draw `c`, not less than the one before. Its cells of no number may hold 0 or 91.
    void riga(std::int32_t c, std::span<const Numero> numeri);

    /// How many combinations there are.
    [[nodiscard]] std::size_t quante() const { return resto_[k_][0]; }
    /// How many hits the rows taken so far make, counted without walking them.
    [[nodiscard]] std::size_t colpi() const { return colpi_; }

    /// The measures over the rows taken. If the user cancels, the last combinations are left without a hit.
    [[nodiscard]] std::vector<Misura> misura(Avanzamento& avanzamento) const;

  private:
    /// What a row can still give to the combinations that begin in some way.
    struct Uscita {
        const std::uint8_t* posti;  ///< its places behind the beginning, ascending
        std::uint8_t quanti;        ///< how many
        std::uint8_t mancano;       ///< of these so many more make a hit
        std::int32_t c;
    };
    struct Riga {
        std::size_t posti;  ///< index of the first
        std::uint8_t quanti;
        std::int32_t c;
    };
    /// The combinations that begin in some way: the next place that may be chosen, the cell behind their
    /// last.
    struct Ramo {
        std::size_t da;
        std::size_t fine;
    };
    class Conto;

    [[nodiscard]] std::size_t colpite(std::size_t uscite) const;

    std::size_t k_ = 0;
    std::size_t soglia_ = 0;
    std::size_t n_ = 0;
    /// Place of each number in the list, from 1; 0 for none.
    std::array<std::uint8_t, 256> posto_{};
    /// How many ways there are to choose r of the places from i on.
    std::array<std::array<std::uint32_t, kNumeri + 2>, kMassimo + 1> resto_{};
    std::vector<std::uint8_t> posti_{};
    std::vector<Riga> righe_{};
    std::size_t colpi_ = 0;
};

/// `misura_serie` for the combinations of a list of numbers, which `serie` holds as `scomposizione_gruppo`
/// gives them; by the quicker of the two ways.
[[nodiscard]] std::vector<Misura> misura_combinazioni(const VistaEstrazioni& vista,
                                                      std::span<const Numero> numeri,
                                                      const SerieCorrente& serie, int soglia,
                                                      Avanzamento& avanzamento);

}  // namespace sortimetra
