#pragma once

#include "draws/combinazioni.h"
#include "results/messaggio.h"
#include "systems/misure_combinazione.h"
#include "systems/parametri.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

// Which part of a draw of twenty is measured, and which draws of ten.

/// Shown when a choice of numbers is asked for and none is given.
inline constexpr std::string_view kInserireUnNumero = "inserire almeno un numero";

/// Ten numbers of a draw.
using Dieci = std::array<Valore, kDieci>;

/// The numbers of a 10eLotto combination at ten chosen places; zeros while the choice is not complete.
[[nodiscard]] Dieci alle_posizioni(const Combinazione& combinazione, std::span<const int> posizioni);
/// The first ten of a combination.
[[nodiscard]] Dieci primi_dieci(const Combinazione& combinazione);

/// Whether a draw of Win for Life passes the choice of numbers.
[[nodiscard]] bool passa(const Combinazione& combinazione, const ParametriSistemi& parametri);
/// The message with which a search does not start whose choice has no number in it.
[[nodiscard]] std::optional<Messaggio> scelta_senza_numeri(const ParametriSistemi& parametri);

/// Why a question cannot be asked: the choice of its game is missing or contradicts itself. `dieci` is
/// the box of `CheckSistema` that stands for 10eLotto.
[[nodiscard]] std::optional<std::string> controlla_scelte(const ParametriSistemi& parametri, int dieci);

}  // namespace sortimetra
