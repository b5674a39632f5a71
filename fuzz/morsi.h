#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sortimetra::fuzz {

/// The bytes of an input, taken off its front; zeroes behind its end.
class Morsi {
  public:
    Morsi(const std::uint8_t* dati, std::size_t n) : dati_{dati, n} {}

    [[nodiscard]] bool finiti() const { return dati_.empty(); }
    std::uint8_t byte() {
        if (dati_.empty()) return 0;
        const std::uint8_t b = dati_.front();
        dati_ = dati_.subspan(1);
        return b;
    }
    /// A number below `quanti`; 0 where there is none.
    std::size_t sotto(std::size_t quanti) {
        const std::size_t n = byte() + std::size_t{byte()} * 256;
        return quanti == 0 ? 0 : n % quanti;
    }

  private:
    std::span<const std::uint8_t> dati_;
};

}  // namespace sortimetra::fuzz
