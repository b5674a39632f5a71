#pragma once

#include "draws/archivio.h"
#include "draws/gioco.h"
#include "draws/percorso.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sortimetra {

/// Most numbers that one row of a result is about: a lunghetta of twenty.
inline constexpr std::size_t kNumeriEvento = 20;

/// How often one row of the archive can add to the frequency.
enum class Conteggio : std::uint8_t {
    una_volta,         ///< once, as soon as enough numbers are there
    ogni_combinazione  ///< once for each choice of `presenti` of the numbers that came
};

/// What one row of a result measures: so many of these numbers in one row of a game's table, in these places.
struct Evento {
    Gioco gioco = Gioco::lotto;
    std::uint8_t presenti = 1;  ///< how many of the numbers must come
    Conteggio conteggio = Conteggio::una_volta;
    std::uint8_t quanti = 0;  ///< numbers in use
    Posti posti = kOgniPosto;
    std::array<Numero, kNumeriEvento> caselle{};

    /// The numbers, in the order in which the row tells them.
    [[nodiscard]] std::span<const Numero> numeri() const { return std::span{caselle}.first(quanti); }
    friend bool operator==(const Evento&, const Evento&) = default;
};

/// The events of a table's rows: what they have in common, and where each row's numbers stand. Made once per
/// table, so that 117,480 rows do not carry their numbers twice.
struct Eventi {
    Gioco gioco = Gioco::lotto;
    /// How many numbers must come; 0 for a table whose rows measure no single event.
    std::uint8_t presenti = 0;
    Conteggio conteggio = Conteggio::una_volta;
    Posti posti = kOgniPosto;
    /// Numbers per row in `numeri`; 0 where the first column holds them.
    std::uint8_t quanti = 0;
    std::vector<Numero> numeri{};  ///< row r has `numeri[r * quanti]` onward
    /// Rows that measure nothing although the others do; empty where there are none.
    std::vector<bool> senza{};

    friend bool operator==(const Eventi&, const Eventi&) = default;
};

}  // namespace sortimetra
