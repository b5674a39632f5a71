#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <utility>

namespace sortimetra {

/// Why a file could not be used: the file, and one Italian sentence that a user can act on.
struct ErroreArchivio {
    std::filesystem::path file;
    std::string motivo;

    /// "drawit.mdb: il file è troncato …", with the file's name as the user knows it.
    [[nodiscard]] std::string testo() const { return file.empty() ? motivo : file.string() + ": " + motivo; }
};

/// For the functions that refuse a file: the error as they give it back.
[[nodiscard]] inline std::unexpected<ErroreArchivio> rifiuta(std::filesystem::path file, std::string motivo) {
    return std::unexpected{ErroreArchivio{std::move(file), std::move(motivo)}};
}

}  // namespace sortimetra
