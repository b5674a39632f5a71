#pragma once

#include <QRgb>

namespace sortimetra {

/// The ground of a cell whose value is that part (0 to 1) of the greatest: from the skin's surface towards
/// its accent, never so far that the skin's text could not be read on it.
[[nodiscard]] QRgb calore(double parte);

}  // namespace sortimetra
