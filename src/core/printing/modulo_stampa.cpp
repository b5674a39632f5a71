#include "printing/modulo_stampa.h"

#include "files/sessione.h"

#include <dlfcn.h>

#include <array>
#include <system_error>

namespace sortimetra {

namespace {

/// Loads the module at the first call. Qt and its libraries cost a process 6 to 10 ms at start, a quarter of
/// what a whole search takes: only who prints pays for them. The module is never unloaded, as Qt is not made
/// for that.
std::expected<ScriviPdf, ErroreArchivio> carica() {
    const auto vicino = cartella_eseguibile();
    const std::array posti{vicino / kModuloStampa,
                           vicino.parent_path() / "lib" / "sortimetra" / kModuloStampa};
    for (const auto& file : posti) {
        std::error_code errore;
        if (!std::filesystem::exists(file, errore)) continue;
        void* modulo = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (modulo == nullptr)
            return std::unexpected(
                ErroreArchivio{file, "il modulo di stampa non si carica: " + std::string{dlerror()}});
        if (void* porta = dlsym(modulo, kPortaModuloStampa); porta != nullptr)
            return reinterpret_cast<ScriviPdf (*)()>(porta)();
        return std::unexpected(ErroreArchivio{file, "il modulo di stampa è di un'altra versione"});
    }
    return std::unexpected(
        ErroreArchivio{kModuloStampa, "il modulo di stampa non si trova accanto al programma"});
}

}  // namespace

std::expected<void, ErroreArchivio> stampa_pdf(const Rapporto& rapporto,
                                               const std::filesystem::path& percorso,
                                               Avanzamento& avanzamento, PagineScelte pagine) {
    static const auto scrivi = carica();
    if (!scrivi) return std::unexpected(scrivi.error());
    return (*scrivi)(rapporto, percorso, avanzamento, pagine);
}

}  // namespace sortimetra
