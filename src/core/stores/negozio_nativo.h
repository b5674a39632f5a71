#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "files/errore.h"
#include "files/file_sicuro.h"

#include <expected>
#include <filesystem>
#include <optional>

namespace sortimetra {

/// Rows of a native (SQLite) file and whether it is the simulated archive. `tabelle` as in apertura.h; for
/// `drawit2.db` only `kTabellaWinForLife` has a meaning. Where `kConfiniLotto` is wanted without the Lotto's
/// rows they are still read, and are among `tabelle`, unless the file says where they end (`confini`) and
/// what it says goes with their digest.
///
/// Each wanted table is held to the number of rows and to the digest (impronta.h) that were written with it:
/// a table in which anything has changed since is an error that names it. A file from before there were
/// digests, or made by hand, is taken as it is.
struct LettiNativo {
    RigheArchivio righe;
    bool simulato = false;
    unsigned tabelle = 0;
    std::optional<ConfiniLotto> confini{};
};
[[nodiscard]] std::expected<LettiNativo, ErroreArchivio> leggi_nativo(const std::filesystem::path& file,
                                                                      unsigned tabelle);

/// Writes `drawit.db` (the three tables of Lotto and SuperEnalotto) or `drawit2.db` (Win for Life), whole: to
/// a temporary file beside it, then renamed. Tables and column order are those of the Jet files; the table
/// `impronte` says what is in each.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_drawit(const std::filesystem::path& file,
                                                                const RigheArchivio& righe, bool simulato);
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_drawit2(const std::filesystem::path& file,
                                                                 const RigheArchivio& righe, bool simulato);

/// The same up to the rename: the written temporary, for a caller that confirms several files together.
/// `avanzamento` counts rows; when it cancels, that is the error.
[[nodiscard]] std::expected<FileSicuro, ErroreArchivio> prepara_drawit(const std::filesystem::path& file,
                                                                       const RigheArchivio& righe,
                                                                       bool simulato,
                                                                       Avanzamento& avanzamento);
[[nodiscard]] std::expected<FileSicuro, ErroreArchivio> prepara_drawit2(const std::filesystem::path& file,
                                                                        const RigheArchivio& righe,
                                                                        bool simulato,
                                                                        Avanzamento& avanzamento);

}  // namespace sortimetra
