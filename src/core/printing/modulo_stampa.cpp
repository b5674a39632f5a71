#include "printing/modulo_stampa.h"

#include "files/modulo.h"

namespace sortimetra {

std::expected<void, ErroreArchivio> stampa_pdf(const Rapporto& rapporto,
                                               const std::filesystem::path& percorso,
                                               Avanzamento& avanzamento, PagineScelte pagine) {
    static const auto porta = porta_modulo(kModuloStampa, kPortaModuloStampa);
    if (!porta) return std::unexpected(porta.error());
    return reinterpret_cast<ScriviPdf (*)()>(*porta)()(rapporto, percorso, avanzamento, pagine);
}

}  // namespace sortimetra
