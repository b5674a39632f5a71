#pragma once

#include "files/errore.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// Small files that belong together: they are written and removed all at once, or not at all. Until then they
/// stand here as they are going to be, and the disk as it was.
class InsiemeFile {
  public:
    /// The last word on a file counts; its place in the order is that of the first.
    void scrivi(const std::filesystem::path& file, std::string byte);
    void togli(const std::filesystem::path& file);
    /// What tells another program that the rest is there: it is gone before the first of the others changes,
    /// and comes after the last, so that it never speaks of half of them.
    void annuncia(const std::filesystem::path& file, std::string byte);

    /// Whether a file will be there.
    [[nodiscard]] bool ci_sara(const std::filesystem::path& file) const;

    [[nodiscard]] std::expected<void, ErroreArchivio> conferma() const;

  private:
    struct Voce {
        std::filesystem::path file;
        std::optional<std::string> byte;  ///< nothing: it goes
    };
    Voce& voce(const std::filesystem::path& file);

    std::vector<Voce> voci_;
    std::optional<Voce> annuncio_;
};

}  // namespace sortimetra
