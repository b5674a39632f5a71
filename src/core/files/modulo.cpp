#include "files/modulo.h"

#include "files/sessione.h"

#include <dlfcn.h>

#include <array>
#include <filesystem>
#include <string>
#include <system_error>

namespace sortimetra {

std::expected<void*, ErroreArchivio> porta_modulo(const char* modulo, const char* porta) {
    const auto vicino = cartella_eseguibile();
    const std::array posti{vicino / modulo, vicino.parent_path() / "lib" / "sortimetra" / modulo};
    for (const auto& file : posti) {
        std::error_code errore;
        if (!std::filesystem::exists(file, errore)) continue;
        void* aperto = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (aperto == nullptr)
            return std::unexpected(
                ErroreArchivio{file, "il modulo non si carica: " + std::string{dlerror()}});
        if (void* trovata = dlsym(aperto, porta); trovata != nullptr) return trovata;
        return std::unexpected(ErroreArchivio{file, "il modulo è di un'altra versione"});
    }
    return std::unexpected(ErroreArchivio{modulo, "il modulo non si trova accanto al programma"});
}

}  // namespace sortimetra
