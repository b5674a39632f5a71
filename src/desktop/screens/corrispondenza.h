#pragma once

#include "results/risultato_fwd.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What a user typed to find something in a result. "53" is a number before it is a part of other numbers;
/// "7 22", "22-07" and "7.22" are two numbers in any order.
class Cercato {
  public:
    explicit Cercato(std::string_view scritto);

    /// How well a cell answers, the best first; `no` if it does not.
    enum class Grado : std::uint8_t { numeri, intero, parte, no };
    [[nodiscard]] Grado grado(const Tabella& tabella, std::size_t riga, std::size_t colonna) const;
    /// Whether a cell is the number or the text, and not only contains it: what a board asks.
    [[nodiscard]] bool uguale(const Tabella& tabella, std::size_t riga, std::size_t colonna) const;
    [[nodiscard]] bool vuoto() const { return testo_.empty(); }

  private:
    std::string testo_;        ///< as typed, blanks at the ends removed, small letters
    std::vector<int> numeri_;  ///< the numbers, if it is made of nothing else
};

}  // namespace sortimetra
