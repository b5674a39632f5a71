#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "files/blocco_cartella.h"
#include "files/errore.h"

#include <chrono>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

/// What becomes of one of the two database files.
enum class Destino : std::uint8_t {
    Resta,  ///< as it is, untouched
    Nuovo,  ///< written anew, whole
    Tolto   ///< not part of the archive any more
};

/// What an archive is to hold after a change.
struct NuovoArchivio {
    RigheArchivio righe{};
    Destino drawit = Destino::Resta;   ///< the tables of Lotto and SuperEnalotto
    Destino drawit2 = Destino::Resta;  ///< the table of Win for Life
    bool simulato = false;
};

/// What an archive holds before a change. A file that is not there has an empty `Fonte::file` and no rows.
struct ArchivioAttuale {
    RigheArchivio righe{};
    Fonte drawit{};
    Fonte drawit2{};
    /// The file that is there and cannot be read, and why: nobody can say what its replacement would lose.
    std::optional<ErroreArchivio> illeggibile{};
};

/// A change of the archive in a folder, from reading what is there to the new files in their places: whoever
/// changes an archive makes one of these first, and reads what it builds upon through it.
///
/// One at a time, over all programs: a second one waits for the first. Both files change together or not at
/// all, also when the machine stops between them: what a change is about to do stands in a small file of the
/// folder until it is done, and whoever opens the archive next finishes it. The archive before the change is
/// kept (`drawit.db.prec`, `drawit2.db.prec`; an empty one says that there was no such file).
class CambioArchivio {
  public:
    /// Makes the folder if it is missing, waits for another program that changes the same archive (an import
    /// takes a second or two; after `attesa` it is an error that says so), finishes what a stopped one had
    /// begun, and sweeps up behind it. A folder that this made and that nothing was put into goes again with
    /// the object.
    [[nodiscard]] static std::expected<CambioArchivio, ErroreArchivio> apri(
        const std::filesystem::path& percorso_archivio, Avanzamento& avanzamento,
        std::chrono::milliseconds attesa = std::chrono::seconds{15});

    CambioArchivio(CambioArchivio&& altro) noexcept;
    CambioArchivio& operator=(CambioArchivio&&) = delete;
    CambioArchivio(const CambioArchivio&) = delete;
    CambioArchivio& operator=(const CambioArchivio&) = delete;
    ~CambioArchivio();

    /// What stands, of the wanted tables (`Tabelle`, apertura.h): of native and Jet file the one that a
    /// search would read. Nobody changes it until this object goes.
    [[nodiscard]] ArchivioAttuale leggi(unsigned tabelle) const;

    /// Writes the new files beside the old ones, reads them back, compares every row, and takes them into
    /// the archive together. On an error, or when `avanzamento` cancels, what was there stands as it was.
    /// `avanzamento` counts rows.
    [[nodiscard]] std::expected<void, ErroreArchivio> scrivi(const NuovoArchivio& nuovo,
                                                             Avanzamento& avanzamento);

    /// Changes the archive with the one that was kept before the last change, so that a second time brings
    /// the change back: nothing is lost. The error says that none was kept.
    [[nodiscard]] std::expected<void, ErroreArchivio> annulla();

  private:
    CambioArchivio(std::filesystem::path cartella, BloccoCartella blocco, bool creata)
        : cartella_{std::move(cartella)}, blocco_{std::move(blocco)}, creata_{creata} {}

    std::filesystem::path cartella_;
    BloccoCartella blocco_;
    bool creata_;  ///< the folder was made here, and nothing was put into it yet
};

/// For a change that was just made: the sentences that a user must read because an older program's file still
/// hides it (a `drawit.mdb` dated newer than the new `drawit.db` goes on being read).
[[nodiscard]] std::vector<std::string> nascosti_da_jet(const std::filesystem::path& percorso_archivio,
                                                       const NuovoArchivio& nuovo);

}  // namespace sortimetra
