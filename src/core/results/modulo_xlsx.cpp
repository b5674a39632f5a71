#include "results/modulo_xlsx.h"

#include "files/file_sicuro.h"
#include "files/modulo.h"

namespace sortimetra {

std::expected<void, ErroreArchivio> scrivi_xlsx(const std::filesystem::path& file, const Risposta& risposta,
                                                std::size_t massimo) {
    // The library of workbooks brings one of cryptography along: half a millisecond of every start.
    static const auto porta = apri_modulo(kModuloXlsx);
    if (!porta) return std::unexpected(porta.error());
    return reinterpret_cast<ScriviXlsx (*)()>(*porta)()(file, risposta, massimo);
}

std::expected<std::string, ErroreArchivio> byte_xlsx(const Risposta& risposta, std::size_t massimo) {
    return byte_scritti(
        [&](const std::filesystem::path& file) { return scrivi_xlsx(file, risposta, massimo); });
}

}  // namespace sortimetra
