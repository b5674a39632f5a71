#include "stores/file_accanto.h"

#include <fmt/core.h>

#include <string_view>
#include <system_error>

namespace sortimetra {

std::optional<ErroreArchivio> file_accanto_impossibile(const std::filesystem::path& file) {
    std::error_code errore;
    // The engine goes where a link points, and looks beside that.
    auto vero = std::filesystem::canonical(file, errore);
    if (errore) vero = file;
    for (const std::string_view coda : {"-journal", "-wal", "-shm"}) {
        const std::filesystem::path accanto = vero.string() + std::string{coda};
        const auto stato = std::filesystem::status(accanto, errore);
        if (std::filesystem::exists(stato) && !std::filesystem::is_regular_file(stato))
            return ErroreArchivio{
                accanto,
                fmt::format("non è un file, e impedisce di leggere {}; va tolto da lì", file.string())};
    }
    return std::nullopt;
}

}  // namespace sortimetra
