#pragma once

#include "qt_caratteri.h"

#include <optional>
#include <string>

namespace sortimetra {

/// The TrueType file that a font's letters come from; nothing where they come from elsewhere: a file of
/// another kind or of several fonts, letters slanted or thickened by Qt.
[[nodiscard]] std::optional<std::string> file_carattere(const CaratteriQt::Stile& stile);

}  // namespace sortimetra
