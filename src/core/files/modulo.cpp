#include "files/modulo.h"

#include "files/sessione.h"

#include <dlfcn.h>
#include <fmt/core.h>

#include <array>
#include <filesystem>
#include <system_error>

namespace sortimetra {

std::expected<void*, ErroreArchivio> porta_modulo(const char* file, const char* porta,
                                                  std::string_view nome) {
    const auto vicino = cartella_eseguibile();
    for (const auto& posto : std::array{vicino / file, vicino.parent_path() / "lib" / "sortimetra" / file}) {
        std::error_code errore;
        if (!std::filesystem::exists(posto, errore)) continue;
        void* modulo = dlopen(posto.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (modulo == nullptr)
            return std::unexpected(
                ErroreArchivio{posto, fmt::format("il modulo {} non si carica: {}", nome, dlerror())});
        if (void* trovata = dlsym(modulo, porta); trovata != nullptr) return trovata;
        return std::unexpected(
            ErroreArchivio{posto, fmt::format("il modulo {} è di un'altra versione", nome)});
    }
    return std::unexpected(
        ErroreArchivio{file, fmt::format("il modulo {} non si trova accanto al programma", nome)});
}

}  // namespace sortimetra
