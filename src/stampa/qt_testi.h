#pragma once

#include <QString>
#include <string_view>

namespace sortimetra {

/// UTF-8 as the rooms without Qt hold it, as Qt's text.
[[nodiscard]] inline QString testo_qt(std::string_view testo) {
    return QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()));
}

}  // namespace sortimetra
