#include "catalogue/rapporti.h"
#include "cli/avanzamento_riga.h"
#include "cli/comandi.h"
#include "cli/fai_ricerca.h"
#include "cli/richiesta.h"

#include <fmt/core.h>

namespace sortimetra {

int comando_stampa(Richiesta& richiesta, const Canali& canali) {
    if (!richiesta.file)
        return uso_errato(canali, "stampa: manca il file da scrivere, con -o FILE.pdf.", "stampa");
    const auto eseguita = fai_ricerca(richiesta, canali);
    if (!eseguita) return eseguita.error();
    if (!eseguita->risultato.prodotto) return kSenzaDati;
    const auto ordine = ordine_richiesto(richiesta, eseguita->risultato, canali);
    if (!ordine) return ordine.error();
    AvanzamentoRiga avanzamento{canali, "stampa in corso"};
    const auto scritto =
        stampa_pdf(prepara_rapporto(eseguita->risultato, richiesta.domanda, eseguita->archivio, *ordine),
                   *richiesta.file, avanzamento);
    avanzamento.finito();
    if (!scritto) {
        lamenta(canali, fmt::format("-o: {}", scritto.error().testo()));
        return kSenzaDati;
    }
    return kRiuscito;
}

}  // namespace sortimetra
