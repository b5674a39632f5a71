#pragma once

#include "draws/archivio.h"
#include "files/errore.h"

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

namespace sortimetra {

/// Reads the wanted tables (`Tabelle`) of one Jet file: `drawit.mdb`, or `drawit2.mdb` for
/// `kTabellaWinForLife`. The file is read by a program of its own, `sortimetra-lettore-jet`, with limits on
/// memory and time, and nothing that it sends back is believed unchecked: a damaged or hostile file ends in
/// an error, never in a crash or a hang. The program is looked for beside the running executable, then in
/// ../libexec/sortimetra.
[[nodiscard]] std::expected<RigheArchivio, ErroreArchivio> leggi_jet(const std::filesystem::path& file,
                                                                     unsigned tabelle);

/// What the reader program wrote, checked byte by byte (its form is told in jet/protocollo.h). The error is
/// one Italian sentence.
[[nodiscard]] std::expected<RigheArchivio, std::string> interpreta_lettura_jet(std::string_view byte,
                                                                               unsigned tabelle);

}  // namespace sortimetra
