#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "files/errore.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// The published result files that an archive is built from; at least one of them.
struct FilePubblicati {
    std::optional<std::filesystem::path> lotto{};
    std::optional<std::filesystem::path> superenalotto{};
    std::optional<std::filesystem::path> winforlife{};
    /// Keep all Lotto draws and count from the first. Otherwise the numbering starts so that the draw of
    /// 3 December 1997 has concorso 402, and earlier draws than number 1 are left out.
    bool tutto = false;
    /// Import also what makes a table smaller or changes draws that stand.
    bool sostituisci = false;
};

struct LettiPubblicati {
    RigheArchivio righe;
    /// Draws that found no concorso and were left out, one Italian sentence each.
    std::vector<std::string> avvisi;
};

/// Reads and numbers the draws of published files (their forms: pubblicati.h). The first line that cannot be
/// read ends it, with file, line number and reason in the error. `avanzamento` counts bytes.
///
/// A SuperEnalotto draw takes the concorso of the Lotto draw of its date. One with no Lotto draw that day
/// takes, in file order, the nearest concorso within five days that has none, the earlier one on a tie.
/// Without a Lotto file there is nothing to number SuperEnalotto by, and that is an error here.
[[nodiscard]] std::expected<LettiPubblicati, ErroreArchivio> leggi_pubblicati(const FilePubblicati& file,
                                                                              Avanzamento& avanzamento);

/// What an import put into the archive, in rows.
struct Importati {
    std::size_t lotto = 0;
    std::size_t nazionale = 0;
    std::size_t superenalotto = 0;
    std::size_t winforlife = 0;
    std::vector<std::string> avvisi;
};

/// Builds the native archive in `percorso_archivio` (made if missing) from published files, all or nothing:
/// on any error, or when `avanzamento` cancels, what was there stands as it was.
///
/// Only the tables of the given files are replaced. Without a Lotto file, SuperEnalotto is numbered by the
/// Lotto draws of the archive that is there; with a Lotto file alone, the SuperEnalotto draws that are there
/// are kept and numbered anew by it. Simulated draws are never mixed with real ones: a Lotto file throws the
/// simulated SuperEnalotto and Win for Life out, and SuperEnalotto alone is refused over a simulated Lotto.
///
/// Draws that stand would be lost, or get other numbers: the error says which, and `sostituisci` does it. A
/// draw is its day and wheel; that it is counted as another concorso is no loss, nor is a simulated draw. The
/// archive that was there is kept for `annulla_importazione`.
[[nodiscard]] std::expected<Importati, ErroreArchivio> importa_archivio(
    const std::filesystem::path& percorso_archivio, const FilePubblicati& file, Avanzamento& avanzamento);

/// The native store with all draws of the Jet files `drawit.mdb` and `drawit2.mdb` of `cartella_jet` (or of
/// its folder `archivio`), which stay as they are; one of the two is enough. Draws that stand are asked for
/// as above. From then on the native store is read, also where the Jet files stand beside it.
[[nodiscard]] std::expected<Importati, ErroreArchivio> importa_jet(
    const std::filesystem::path& percorso_archivio, const std::filesystem::path& cartella_jet,
    bool sostituisci, Avanzamento& avanzamento);

/// Brings back the archive before the last change (cambio.h), and keeps the one that it takes away.
[[nodiscard]] std::expected<void, ErroreArchivio> annulla_importazione(
    const std::filesystem::path& percorso_archivio, Avanzamento& avanzamento);

/// Whether `crea_dimostrazione` has something to do: there is no archive, or half of a simulated one.
[[nodiscard]] bool ammette_dimostrazione(const std::filesystem::path& percorso_archivio);

/// Writes the simulated archive into `percorso_archivio`, which must hold none, or only one of its two files:
/// then the other one joins it.
[[nodiscard]] std::expected<Importati, ErroreArchivio> crea_dimostrazione(
    const std::filesystem::path& percorso_archivio, Avanzamento& avanzamento);

}  // namespace sortimetra
