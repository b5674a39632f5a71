#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace sortimetra {

/// The file of a folder with that name (lower case), written in whatever case.
[[nodiscard]] std::optional<std::filesystem::path> trova_file(const std::filesystem::path& cartella,
                                                              std::string_view nome);

/// Where a Jet file and a native one stand side by side the newer is read. After a change that made the
/// native one of the Jet file's draws that has to be the native one, also if the clock of who wrote the Jet
/// file was ahead: then it takes that file's date.
void preferisci_nativi(const std::filesystem::path& percorso_archivio);

}  // namespace sortimetra
