#include "archive/file_sicuro.h"
#include "cli/comandi.h"
#include "cli/fai_ricerca.h"
#include "cli/richiesta.h"
#include "results/scrittori.h"

#include <fmt/core.h>

#include <fstream>

namespace sortimetra {

namespace {

/// Writes to the file of `-o`. A device or a pipe has nothing to replace: it takes the bytes as they come.
std::expected<void, ErroreArchivio> scrivi_uscita(const std::filesystem::path& file, std::string_view testo) {
    std::error_code errore;
    const auto stato = std::filesystem::status(file, errore);
    if (!errore && std::filesystem::is_other(stato)) {
        std::ofstream flusso{file, std::ios::binary};
        flusso.write(testo.data(), static_cast<std::streamsize>(testo.size()));
        flusso.flush();
        if (!flusso.good()) return std::unexpected(ErroreArchivio{file, "il file non si può scrivere"});
        return {};
    }
    return scrivi_file(file, testo);
}

}  // namespace

int comando_ricerca(Richiesta& richiesta, const Canali& canali) {
    if (richiesta.domanda.parametri.schedina) {
        lamenta(canali, "--schedina non è ancora disponibile.");
        return kSenzaDati;
    }
    const auto eseguita = fai_ricerca(richiesta, canali);
    if (!eseguita) return eseguita.error();
    const Risultato& risultato = eseguita->risultato;

    const auto ordine = ordine_richiesto(richiesta, risultato, canali);
    if (!ordine) return ordine.error();
    RigheScelte scelte{.ordine = *ordine};
    if (richiesta.prime) scelte.massimo = *richiesta.prime;

    std::string testo;
    switch (richiesta.formato) {
        case Formato::Json:
            scrivi_json(testo, risultato, scelte);
            break;
        case Formato::Csv:
            if (!risultato.tabelle.empty()) scrivi_csv(testo, risultato.tabelle.front(), scelte);
            break;
        case Formato::Tabella:
            if (!risultato.tabelle.empty()) scrivi_terminale(testo, risultato, scelte);
            break;
    }
    const int codice = risultato.prodotto ? kRiuscito : kSenzaDati;
    // Without anything to say the file of -o is left alone.
    if (testo.empty()) return codice;
    if (!richiesta.file) return consegna(canali, testo, codice);
    if (const auto scritto = scrivi_uscita(*richiesta.file, testo); !scritto) {
        lamenta(canali, fmt::format("-o: {}", scritto.error().testo()));
        return kSenzaDati;
    }
    return codice;
}

}  // namespace sortimetra
