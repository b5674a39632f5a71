#pragma once

#include "archive/errore.h"

#include <expected>
#include <filesystem>

namespace sortimetra {

/// Writes the simulated archive into a folder that holds none (making the folder where it is missing). An
/// archive that is there is an error and stays untouched.
[[nodiscard]] std::expected<void, ErroreArchivio> crea_dimostrazione(
    const std::filesystem::path& percorso_archivio);

}  // namespace sortimetra
