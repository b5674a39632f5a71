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
    auto risposta = fai_ricerca(richiesta, canali);
    if (!risposta) return risposta.error();
    if (!risposta->prodotta()) return kSenzaDati;
    if (const auto codice = ordina_risposta(richiesta, *risposta, canali)) return *codice;
    AvanzamentoRiga avanzamento{canali, "stampa in corso"};
    const auto scritto = stampa_pdf(prepara_rapporto(*risposta), *richiesta.file, avanzamento);
    avanzamento.finito();
    if (!scritto) {
        lamenta(canali, fmt::format("-o: {}", scritto.error().testo()));
        return kSenzaDati;
    }
    return kRiuscito;
}

}  // namespace sortimetra
