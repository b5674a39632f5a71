#pragma once

#include "printing/superficie.h"

#include <optional>
#include <string_view>

namespace sortimetra {

/// The standard paper code of A4.
inline constexpr int kFoglioA4 = 9;

/// English name of a standard paper code, as printers' dialogs have it: "A4", "Letter Extra". "User" from 256
/// on, where drivers keep sizes of their own, "Unknown" for a code that was never given.
[[nodiscard]] std::string_view nome_foglio(int codice);

/// Millimetres of the sheet held upright as its code defines it (some, such as "Ledger", are wider than
/// high).
[[nodiscard]] std::optional<Dimensioni> misure_foglio(int codice);

/// The code of a sheet by its size, half a millimetre near, whichever way it lies; "User" if none fits.
[[nodiscard]] int codice_foglio(Dimensioni misure);
inline constexpr int kFoglioUtente = 256;

}  // namespace sortimetra
