#include "archive/crea_dimostrazione.h"

#include "archive/apertura.h"
#include "archive/dimostrazione.h"
#include "archive/negozio_nativo.h"

namespace sortimetra {

std::expected<void, ErroreArchivio> crea_dimostrazione(const std::filesystem::path& percorso_archivio) {
    std::error_code errore;
    std::filesystem::create_directories(percorso_archivio, errore);
    if (!std::filesystem::is_directory(percorso_archivio, errore))
        return std::unexpected(ErroreArchivio{percorso_archivio, "la cartella non si può creare"});
    if (contiene_archivio(percorso_archivio))
        return std::unexpected(ErroreArchivio{percorso_archivio, "contiene già un archivio"});
    const RigheArchivio righe = archivio_dimostrativo();
    // Win for Life first: a folder with that file alone still lacks the archive of the Lotto, and says so.
    if (auto esito = scrivi_drawit2(percorso_archivio / "drawit2.db", righe, true); !esito) return esito;
    return scrivi_drawit(percorso_archivio / "drawit.db", righe, true);
}

}  // namespace sortimetra
