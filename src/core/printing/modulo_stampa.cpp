#include "printing/modulo_stampa.h"

#include "files/modulo.h"

namespace sortimetra {

std::expected<void, ErroreArchivio> stampa_pdf(const Rapporto& rapporto,
                                               const std::filesystem::path& percorso,
                                               Avanzamento& avanzamento, PagineScelte pagine) {
    // Qt and its libraries cost a process 6 to 10 ms at start, several times what a whole search takes: only
    // who prints pays for them.
    static const auto porta = porta_modulo(kModuloStampa, kPortaModuloStampa, "di stampa");
    if (!porta) return std::unexpected(porta.error());
    return reinterpret_cast<ScriviPdf (*)()>(*porta)()(rapporto, percorso, avanzamento, pagine);
}

}  // namespace sortimetra
