#pragma once

#include "files/errore.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// Whether the folder has an entry of this name, be it a link that leads nowhere.
[[nodiscard]] bool esiste_voce(const std::filesystem::path& file);

/// A file that is replaced whole or not at all: it is written to a temporary of a unique name in the same
/// folder, and takes its own name only with `conferma`. Until then, and after any error, the file that was
/// there stands as it was. An object that goes without `conferma` removes its temporary.
///
/// Two programs that write the same file at once do not mix: the last to confirm wins, with a whole file.
class FileSicuro {
  public:
    /// Makes the empty temporary. A destination that is a symbolic link is written where the link points.
    /// Fails if the folder is missing or cannot be written, or if the destination is a folder,
    /// a device or a pipe.
    [[nodiscard]] static std::expected<FileSicuro, ErroreArchivio> apri(
        const std::filesystem::path& destinazione);

    FileSicuro(FileSicuro&& altro) noexcept;
    FileSicuro& operator=(FileSicuro&& altro) noexcept;
    FileSicuro(const FileSicuro&) = delete;
    FileSicuro& operator=(const FileSicuro&) = delete;
    ~FileSicuro();

    /// Appends bytes to the temporary.
    [[nodiscard]] std::expected<void, ErroreArchivio> scrivi(std::string_view byte);

    /// Where the bytes stand until `conferma`, for a library that writes a file by its path.
    [[nodiscard]] const std::filesystem::path& temporaneo() const { return temporaneo_; }

    /// Waits until the bytes are on the disk, then renames. To be called once.
    [[nodiscard]] std::expected<void, ErroreArchivio> conferma();

    /// Renames without waiting for the disk: for a small memory that is written at every key. A power cut may
    /// then cost that file.
    [[nodiscard]] std::expected<void, ErroreArchivio> conferma_subito();

    /// The same as `conferma` for several files that belong together: first the others are removed, then
    /// these take their places in this order, all of it or nothing. (Only a machine that stops between two
    /// renames can leave a new file beside an old one; each of them is whole.)
    [[nodiscard]] static std::expected<void, ErroreArchivio> conferma_tutti(
        std::span<FileSicuro> file, std::span<const std::filesystem::path> da_togliere = {});

    /// Waits until the bytes are on the disk, and takes no more of them; the file keeps its temporary name.
    [[nodiscard]] std::expected<void, ErroreArchivio> fissa();

    /// Hands the temporary over to somebody who will rename it; it is not removed from here any more.
    [[nodiscard]] std::filesystem::path lascia();

    /// Where `conferma` will put the bytes; links are followed.
    [[nodiscard]] const std::filesystem::path& destinazione() const { return destinazione_; }

  private:
    FileSicuro() = default;
    [[nodiscard]] ErroreArchivio errore(std::string_view cosa, int codice) const;
    [[nodiscard]] std::expected<void, ErroreArchivio> chiudi();
    [[nodiscard]] std::expected<void, ErroreArchivio> rinomina();
    void abbandona() noexcept;

    std::filesystem::path destinazione_;
    std::filesystem::path temporaneo_;  ///< empty once renamed or given up
    int descrittore_ = -1;
};

/// A name beside a file that no other file has, and that tells which process gave it.
[[nodiscard]] std::filesystem::path nome_temporaneo(const std::filesystem::path& destinazione);

/// Follows links to the file that is really to be replaced, so that a link stays a link.
[[nodiscard]] std::filesystem::path segui_collegamenti(std::filesystem::path file);

/// A folder with a file of this name has a change that was begun and waits to be finished.
inline constexpr std::string_view kFileCambio = ".cambio";

/// Removes the temporaries that programs which are gone have left in a folder, unless a change waits there:
/// it needs them. Done by itself before the first file that this process writes in a folder.
void spazza_temporanei(const std::filesystem::path& cartella);

/// Writes a whole file at once, as `FileSicuro` does.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_file(const std::filesystem::path& destinazione,
                                                              std::string_view byte);

/// Reads a whole file. Errors: missing, no permission, a folder, larger than `massimo` bytes.
[[nodiscard]] std::expected<std::string, ErroreArchivio> leggi_file(const std::filesystem::path& file,
                                                                    std::size_t massimo = std::size_t{1}
                                                                                          << 30);

/// Size and first bytes of a file: enough to say whether it is what its name claims.
/// Bytes of a file; `ultimo` where nothing follows them.
struct PezzoFile {
    std::string_view byte{};
    bool ultimo = false;
};
/// A file that is read from front to back through one small buffer, for who needs each byte but once. A whole
/// large file in memory costs ten times as much time as its reading: for the pages that it takes.
class FileAPezzi {
  public:
    /// Errors as of `leggi_file`.
    [[nodiscard]] static std::expected<FileAPezzi, ErroreArchivio> apri(const std::filesystem::path& file,
                                                                        std::size_t massimo);
    FileAPezzi(FileAPezzi&& altro) noexcept;
    FileAPezzi& operator=(FileAPezzi&& altro) noexcept;
    ~FileAPezzi();

    [[nodiscard]] std::size_t grandezza() const;
    /// What follows the first `usati` bytes of the piece before, which is gone: longer than what was left of
    /// it, or the last one.
    [[nodiscard]] PezzoFile avanti(std::size_t usati);
    /// Why the last piece came too early; nothing if it did not.
    [[nodiscard]] const std::optional<ErroreArchivio>& errore() const;

  private:
    struct Stato;
    explicit FileAPezzi(std::unique_ptr<Stato> stato);
    std::unique_ptr<Stato> stato_;
};

struct InizioFile {
    std::uint64_t grandezza = 0;
    std::string byte;  ///< up to as many as asked for
};
/// Opens a file only to look at it. Errors: missing, no permission, a folder, no file at all, empty.
[[nodiscard]] std::expected<InizioFile, ErroreArchivio> leggi_inizio(const std::filesystem::path& file,
                                                                     std::size_t quanti);

/// What a failed call of the system means to a user, in Italian: "permesso negato", "il disco è pieno".
[[nodiscard]] std::string_view motivo_sistema(int codice);

/// The bytes of a file that only a whole file's writer can make: it writes a passing one, which is read and
/// removed.
[[nodiscard]] std::expected<std::string, ErroreArchivio> byte_scritti(
    const std::function<std::expected<void, ErroreArchivio>(const std::filesystem::path&)>& scrivi);

}  // namespace sortimetra
