#include "cli/apri.h"

#include "draws/esame.h"
#include "stores/apertura.h"

#include <fmt/core.h>

namespace sortimetra {

std::optional<ArchivioEstrazioni> apri_per_leggere(const Sessione& sessione, unsigned tabelle,
                                                   const Canali& canali) {
    auto archivio = apri_archivio(sessione.percorso_archivio(), tabelle, {.copia = sessione.copia});
    if (!archivio) {
        lamenta(canali, archivio.error().testo());
        if (!contiene_archivio(sessione.percorso_archivio()))
            canali.errori << "\"sortimetra-cli importa\" crea un archivio dai risultati pubblicati, "
                             "\"sortimetra-cli dimostrazione\" uno simulato; --cartella dice dove sta.\n";
        return std::nullopt;
    }
    if (archivio->drawit().simulato || archivio->drawit2().simulato) lamenta(canali, kAvvisoSimulato);
    if (const auto oltre = oltre_oggi(*archivio, oggi()); !oltre.empty())
        lamenta(canali, "avviso: " + oltre.front().frase());
    return std::move(*archivio);
}

}  // namespace sortimetra
