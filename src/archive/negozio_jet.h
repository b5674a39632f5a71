#pragma once

#include "archive/archivio.h"
#include "archive/errore.h"

#include <expected>
#include <filesystem>

namespace sortimetra {

/// Reads the wanted tables (`Tabelle`) of one Jet file: `drawit.mdb`, or `drawit2.mdb` for
/// `kTabellaWinForLife`. The file is read by a program of its own with limits on memory and time, and nothing
/// that it sends back is believed unchecked: a damaged or hostile file ends in an error, never in a crash, a
/// hang or wrong draws.
[[nodiscard]] std::expected<RigheArchivio, ErroreArchivio> leggi_jet(const std::filesystem::path& file,
                                                                     unsigned tabelle);

}  // namespace sortimetra
