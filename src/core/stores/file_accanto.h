#pragma once

#include "files/errore.h"

#include <filesystem>
#include <optional>

namespace sortimetra {

/// The engine of the native store opens what stands beside a file under certain names: `drawit.db-journal`,
/// `drawit.db-wal`, `drawit.db-shm`. Says which of them is no file; a pipe there would be waited for until
/// somebody writes into it.
[[nodiscard]] std::optional<ErroreArchivio> file_accanto_impossibile(const std::filesystem::path& file);

}  // namespace sortimetra
