#pragma once

#include <filesystem>
#include <string>

namespace sortimetra {

/// Why a file could not be used: the file, and one Italian sentence that a user can act on.
struct ErroreArchivio {
    std::filesystem::path file;
    std::string motivo;

    /// "drawit.mdb: il file è troncato …", with the file's name as the user knows it.
    [[nodiscard]] std::string testo() const { return file.empty() ? motivo : file.string() + ": " + motivo; }
};

}  // namespace sortimetra
