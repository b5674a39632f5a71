#include "stores/file_jet.h"

#include "text/testi.h"

#include <string>
#include <system_error>

namespace sortimetra {

std::optional<std::filesystem::path> trova_file(const std::filesystem::path& cartella,
                                                std::string_view nome) {
    std::error_code errore;
    std::filesystem::directory_iterator it{cartella, errore};
    for (; !errore && it != std::filesystem::directory_iterator{}; it.increment(errore))
        if (minuscolo(it->path().filename().string()) == nome) return it->path();
    return std::nullopt;
}

void preferisci_nativi(const std::filesystem::path& percorso_archivio) {
    for (const std::string nome : {"drawit", "drawit2"}) {
        const auto jet = trova_file(percorso_archivio, nome + ".mdb");
        const auto nativo = trova_file(percorso_archivio, nome + ".db");
        if (!jet || !nativo) continue;
        std::error_code errore;
        const auto suo = std::filesystem::last_write_time(*jet, errore);
        if (!errore && std::filesystem::last_write_time(*nativo, errore) < suo)
            std::filesystem::last_write_time(*nativo, suo, errore);
    }
}

}  // namespace sortimetra
