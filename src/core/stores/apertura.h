#pragma once

#include "draws/archivio.h"
#include "files/errore.h"
#include "stores/copia_compatta.h"

#include <expected>
#include <filesystem>
#include <optional>

namespace sortimetra {

/// Which tables a reader wants; a search names the ones it walks, so that no other is read.
enum Tabelle : unsigned {
    kTabellaLotto = 1U,          ///< `archivio` of drawit
    kTabellaNazionale = 2U,      ///< `archivion` of drawit
    kTabellaSuperEnalotto = 4U,  ///< `archivios` of drawit
    kTabellaWinForLife = 8U,     ///< `archivio` of drawit2
    kTutteLeTabelle = 15U,
    /// No table, but what others want of the Lotto's (`ConfiniLotto`). A store that cannot tell it, or not
    /// for certain, is read for it row by row.
    kConfiniLotto = 16U,
};
/// The tables of drawit.
inline constexpr unsigned kTabelleDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;
/// Whether it is asked where the Lotto ends, and not for its rows, which tell it too.
[[nodiscard]] constexpr bool solo_confini(unsigned chieste) {
    return (chieste & (kConfiniLotto | kTabellaLotto)) == kConfiniLotto;
}
/// Those of `chieste` that `lette` lacks.
[[nodiscard]] constexpr unsigned tabelle_mancanti(unsigned chieste, unsigned lette) {
    if ((lette & kTabellaLotto) != 0) lette |= kConfiniLotto;
    return chieste & ~lette;
}
/// The tables to be read row by row for those that are asked for, in a store that can only be read so.
[[nodiscard]] constexpr unsigned tabelle_intere(unsigned chieste) {
    if ((chieste & kConfiniLotto) != 0) chieste |= kTabellaLotto;
    return chieste & ~unsigned{kConfiniLotto};
}

/// How an archive is opened.
struct ModoApertura {
    /// Take a table from the packed copy of its store where that fits, and make the copy where it does not
    /// (copia_compatta.h). The answers are the same either way.
    bool copia = false;
    /// Draws that cannot be true are damage (draws/esame.h). Off for who examines them by himself.
    bool esamina = true;
    Tenuta tenuta = Tenuta::mappata;
};

/// Opens the archive in `percorso_archivio`: the native files `drawit.db` and `drawit2.db`, or the Jet files
/// `drawit.mdb` and `drawit2.mdb`; where both are there the newer one is read. Only the files that hold a
/// wanted table are opened, and never written. Names are matched without regard to case. A change of the
/// archive that was left half way is finished first (intento.h), and one that is made meanwhile is seen whole
/// or not at all.
///
/// A wanted file that is missing is an error, unless the other one is wanted too and is there: then its
/// tables are empty.
///
/// Errors name the file and the reason: missing, unreadable, locked, empty, truncated, foreign, damaged; also
/// what the draws themselves say to be damage (`primo_danno` of draws/esame.h).
[[nodiscard]] std::expected<ArchivioEstrazioni, ErroreArchivio> apri_archivio(
    const std::filesystem::path& percorso_archivio, unsigned tabelle = kTutteLeTabelle,
    ModoApertura modo = {});

/// Rows of one of the two database files as its store has them, not yet checked against each other, and where
/// they came from.
struct RigheConFonte {
    RigheArchivio righe;
    Fonte fonte;
    unsigned tabelle = 0;  ///< what was read: of the wanted, and perhaps the Lotto in the place of its ends
    std::optional<ConfiniLotto> confini{};
};
/// The wanted tables of `drawit` or `drawit2` (the newer of native and Jet file); nothing if neither is
/// there.
[[nodiscard]] std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit(
    const std::filesystem::path& percorso_archivio, unsigned tabelle);
[[nodiscard]] std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit2(
    const std::filesystem::path& percorso_archivio, unsigned tabelle);

/// The two files that `apri_archivio` would read, where they are there.
struct FileLetti {
    std::optional<std::filesystem::path> drawit;
    std::optional<std::filesystem::path> drawit2;
};
[[nodiscard]] FileLetti file_letti(const std::filesystem::path& percorso_archivio);

/// The tables whose file is in the folder, sound or not: what can be asked of `apri_archivio` there.
[[nodiscard]] unsigned tabelle_presenti(const std::filesystem::path& percorso_archivio);

/// Why it cannot even be said what the folder holds: it, or a folder above it, lets nobody look. Nothing
/// where the folder can be listed or is not there.
[[nodiscard]] std::optional<ErroreArchivio> cartella_negata(const std::filesystem::path& percorso_archivio);

/// Whether the folder holds any of the four files.
[[nodiscard]] bool contiene_archivio(const std::filesystem::path& percorso_archivio);

}  // namespace sortimetra
