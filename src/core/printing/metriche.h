#pragma once

#include "printing/superficie.h"

#include <string_view>

namespace sortimetra {

// How wide the reports' fonts are, known without a font at hand: "Arial" and "Courier New" have the same
// widths as the metric-compatible families that stand in for them. Layouts that must be settled before there
// is a surface (how many pages?) ask here, and so does the recording surface of the tests.

/// Width of one line in millimetres.
[[nodiscard]] double larghezza_testo(const Carattere& carattere, std::string_view testo);
/// From the top of the capitals with accents to the foot of the descenders, in millimetres; the same for
/// every text.
[[nodiscard]] double altezza_testo(const Carattere& carattere);

}  // namespace sortimetra
