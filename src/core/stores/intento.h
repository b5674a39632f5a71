#pragma once

#include "files/errore.h"

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// What a change of an archive's folder is about to do, as a small file of that folder (`kFileCambio`). It is
// written when all that is new stands complete beside the old, and removed when all has its place. Whoever
// finds it takes the same steps again: each of them can be taken twice.

struct PassoCambio {
    enum class Che : std::uint8_t {
        Metti,  ///< `temporaneo` becomes `nome`, and the side files of what was there go
        Togli   ///< `nome` goes, with its side files
    };
    Che che{};
    std::string nome;          ///< "drawit.db", "drawit2.db", or one of these with ".prec"
    std::string temporaneo{};  ///< beside it
    bool operator==(const PassoCambio&) const = default;
};
using Intento = std::vector<PassoCambio>;

inline constexpr std::string_view kFinalePrecedente = ".prec";

/// Where a step's file really stands: a link of that name is followed.
[[nodiscard]] std::filesystem::path posto(const std::filesystem::path& cartella, std::string_view nome);

/// Puts the intent into the folder, on the disk, in the place of one that is there.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_intento(const std::filesystem::path& cartella,
                                                                 const Intento& intento);
/// Nothing if there is none. One that cannot be understood is an error: it could be half of anything.
[[nodiscard]] std::expected<std::optional<Intento>, ErroreArchivio> leggi_intento(
    const std::filesystem::path& cartella);

/// How far the steps were taken.
struct Avanzata {
    std::size_t fatti = 0;                   ///< steps taken
    std::optional<ErroreArchivio> errore{};  ///< why the next one was not
};
/// Takes the steps; when all are taken, the intent goes. To be called by who holds the folder.
[[nodiscard]] Avanzata applica_intento(const std::filesystem::path& cartella, const Intento& intento);

/// Whether a change of the folder waits to be finished.
[[nodiscard]] bool cambio_sospeso(const std::filesystem::path& cartella);

/// For a reader, before it looks for the archive: finishes a change that was left half way. Where that is
/// not possible (a disk that may only be read, a writer that takes long), the steps that are still to be
/// taken, to be read as if they had been (`come_se`). Costs one look for a file where nothing waits.
[[nodiscard]] std::expected<Intento, ErroreArchivio> concludi_sospeso(const std::filesystem::path& cartella);

/// What stands at a name of the folder as if the steps had been taken: the name itself, the temporary that is
/// to have it, or nothing where it is to go.
[[nodiscard]] std::optional<std::filesystem::path> come_se(const std::filesystem::path& cartella,
                                                           const Intento& intento, std::string_view nome);

}  // namespace sortimetra
