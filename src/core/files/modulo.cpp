#include "files/modulo.h"

#include "files/sessione.h"

#include <dlfcn.h>
#include <fmt/core.h>

#include <array>
#include <system_error>

namespace sortimetra {

std::expected<void*, ErroreArchivio> apri_modulo(const Modulo& modulo) {
    const auto vicino = cartella_eseguibile();
    const std::array posti{vicino / modulo.file, vicino.parent_path() / "lib" / "sortimetra" / modulo.file};
    for (const auto& file : posti) {
        std::error_code errore;
        if (!std::filesystem::exists(file, errore)) continue;
        void* caricato = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (caricato == nullptr)
            return std::unexpected(
                ErroreArchivio{file, fmt::format("{} non si carica: {}", modulo.cosa, dlerror())});
        if (void* porta = dlsym(caricato, modulo.porta); porta != nullptr) return porta;
        return std::unexpected(ErroreArchivio{file, fmt::format("{} è di un'altra versione", modulo.cosa)});
    }
    return std::unexpected(
        ErroreArchivio{modulo.file, fmt::format("{} non si trova accanto al programma", modulo.cosa)});
}

}  // namespace sortimetra
