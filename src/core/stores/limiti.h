#pragma once

#include "draws/archivio.h"

#include <optional>
#include <string>

namespace sortimetra {

/// Why a store with these rows could not be read again, in Italian: more rows than reading accepts, or a
/// draw of a year that it takes for damage. Nothing if it could.
[[nodiscard]] std::optional<std::string> oltre_i_limiti(const RigheArchivio& righe);

}  // namespace sortimetra
