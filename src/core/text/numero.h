#pragma once

#include <optional>
#include <string_view>

namespace sortimetra {

/// A number as people write it here, and how they wrote it.
struct NumeroScritto {
    double valore = 0;  ///< of "12,50%": 12.5
    int decimali = 0;
    bool punti = false;         ///< points between groups of three digits
    bool percento = false;      ///< "%" behind it, blanks between allowed
    bool zero_davanti = false;  ///< "07": what a number of the wheel looks like
};

/// Whether a cell is a number, for sorting, aligning and typed cells alike: "12", "-3", "+5", "07", "12,50",
/// "1.443,33", "12,50%". The decimal sign is "," with digits on both sides; points stand before every three
/// digits of the whole part or nowhere. Nothing for any other text: "01.02", "03/12/1997", "8:00", "...".
[[nodiscard]] std::optional<NumeroScritto> leggi_numero(std::string_view testo);

}  // namespace sortimetra
