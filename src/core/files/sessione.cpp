#include "files/sessione.h"

#include <cstdlib>
#include <system_error>

namespace sortimetra {

namespace {

/// Where this desktop keeps a program's data: $XDG_DATA_HOME, or .local/share in the home folder.
std::filesystem::path dati_utente() {
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg != nullptr && *xdg == '/')
        return std::filesystem::path{xdg} / "sortimetra";
    const char* casa = std::getenv("HOME");
    return std::filesystem::path{casa != nullptr ? casa : "."} / ".local" / "share" / "sortimetra";
}

}  // namespace

std::filesystem::path cartella_eseguibile() {
    std::error_code errore;
    const auto io = std::filesystem::read_symlink("/proc/self/exe", errore);
    return errore ? std::filesystem::current_path(errore) : io.parent_path();
}

std::filesystem::path cartella_programma(const std::optional<std::filesystem::path>& scelta) {
    if (scelta) return *scelta;
    std::error_code errore;
    auto vicina = cartella_eseguibile();
    if (std::filesystem::is_directory(vicina / "archivio", errore)) return vicina;
    return dati_utente();
}

}  // namespace sortimetra
