#include "archive/negozio_jet.h"

namespace sortimetra {

std::expected<RigheArchivio, ErroreArchivio> leggi_jet(const std::filesystem::path& file, unsigned) {
    return std::unexpected(ErroreArchivio{file, "i file .mdb non si leggono ancora"});
}

}  // namespace sortimetra
