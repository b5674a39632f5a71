#pragma once

#include "files/errore.h"

#include <expected>
#include <filesystem>

namespace sortimetra {

// A native file can have files beside it: "-journal", "-wal" and "-shm". A program that stopped while it
// wrote leaves them, and what they hold belongs to the store: changes to be undone, changes to be added. A
// new file of the same name must not inherit them.

/// Whether any of them stands beside a native file.
[[nodiscard]] bool ha_laterali(const std::filesystem::path& file);

/// Makes the store whole: what they hold is undone or added, as the store's own rules say. Errors: another
/// program is writing, or what is there cannot be made whole; then nothing may take the store's place.
/// Without a store they belong to nobody, and that is fine.
[[nodiscard]] std::expected<void, ErroreArchivio> concludi_laterali(const std::filesystem::path& file);

/// Removes what is left of them; the errno of what failed, or 0.
[[nodiscard]] int togli_laterali(const std::filesystem::path& file);

/// A copy of a store and its side files in a folder of its own, where they can be made whole by one who may
/// not write beside the store. It goes with the object.
class CopiaPrivata {
  public:
    [[nodiscard]] static std::expected<CopiaPrivata, ErroreArchivio> fai(const std::filesystem::path& file);
    CopiaPrivata(CopiaPrivata&& altro) noexcept;
    CopiaPrivata& operator=(CopiaPrivata&&) = delete;
    CopiaPrivata(const CopiaPrivata&) = delete;
    CopiaPrivata& operator=(const CopiaPrivata&) = delete;
    ~CopiaPrivata();
    [[nodiscard]] std::filesystem::path file() const { return cartella_ / "archivio.db"; }

  private:
    explicit CopiaPrivata(std::filesystem::path cartella) : cartella_{std::move(cartella)} {}
    std::filesystem::path cartella_;
};

}  // namespace sortimetra
