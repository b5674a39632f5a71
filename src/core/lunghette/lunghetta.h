#pragma once

#include "draws/gioco.h"
#include "results/risultato_fwd.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace sortimetra {

/// Slots `lblnum` of a lunghetta.
inline constexpr std::size_t kCaselle = 20;
/// A slot without a number. A slot that shows 0 counts as filled: a seed that found nothing leaves it behind.
inline constexpr int kCasellaVuota = -1;

/// A lunghetta while it grows: what its screen shows, and nothing else.
struct Lunghetta {
    std::array<int, kCaselle> caselle = tutte_vuote();
    int lunghezza = 0;               ///< the current length; an empty slot before it reads 0
    std::optional<int> punteggio{};  ///< `lblRit_freq`: delay or frequency so far; nothing shows nothing
    /// `lbloption`: the ambata, the ambo and the terno that it began with.
    std::array<std::string, 3> semi{};

    /// The number in a slot, 0 where it is empty.
    [[nodiscard]] int numero(std::size_t casella) const {
        return caselle[casella] == kCasellaVuota ? 0 : caselle[casella];
    }
    [[nodiscard]] std::size_t piene() const;

    friend bool operator==(const Lunghetta&, const Lunghetta&) = default;

  private:
    static constexpr std::array<int, kCaselle> tutte_vuote() {
        std::array<int, kCaselle> vuote{};
        vuote.fill(kCasellaVuota);
        return vuote;
    }
};

/// One step as it is done: the number that came in (0 where the step set several), and what stands now.
struct PassoLunghetta {
    int entrato = 0;
    Lunghetta lunghetta{};
};
/// Told of every step; may be empty.
using OsservaPasso = std::function<void(const PassoLunghetta&)>;

/// What one lunghetta counts as a hit, for those who read the answer further.
struct ColpoLunghetta {
    Gioco gioco = Gioco::lotto;
    int presenti = 2;  ///< how many of its numbers must come
};

/// The answer: one row with the filled slots, and the labels of the screen.
[[nodiscard]] Risultato risultato_lunghetta(const Lunghetta& lunghetta, ColpoLunghetta colpo);

/// The answer where there is nothing to do: no table and no message box; `perche` is a remark.
[[nodiscard]] Risultato nessuna_lunghetta(std::string perche);

}  // namespace sortimetra
