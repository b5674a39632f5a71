#include "archive/apertura.h"
#include "archive/negozio_nativo.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

/// Any bytes as `drawit.db` and as `drawit2.db`: opening may refuse but may not fall or hang.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    using namespace sortimetra;
    // A file without a disk.
    static const int file = memfd_create("drawit.db", MFD_CLOEXEC);
    static const std::string percorso = "/proc/self/fd/" + std::to_string(file);
    if (file < 0 || ftruncate(file, 0) != 0 || pwrite(file, dati, n, 0) != static_cast<ssize_t>(n)) return 0;
    for (const unsigned tabelle :
         {kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto, 0U + kTabellaWinForLife}) {
        auto letti = leggi_nativo(percorso, tabelle);
        if (!letti && letti.error().motivo.empty()) std::abort();
        if (letti) (void)ArchivioEstrazioni::componi(std::move(letti->righe));
    }
    return 0;
}
