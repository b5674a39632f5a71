#include "cli/comandi.h"
#include "cli/fai_ricerca.h"
#include "cli/richiesta.h"
#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "results/scrittori.h"
#include "systems/ric_stat.h"
#include "text/data.h"

#include <fmt/core.h>

#include <fstream>
#include <optional>
#include <utility>

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

/// Hands the grid to the slip program: writes its system and adds the label `file`. Returns the exit code of
/// what went wrong.
std::optional<int> consegna_schedina(const Richiesta& richiesta, Risultato& risultato, const Canali& canali) {
    const auto errato = [&](const std::string& perche) {
        return uso_errato(canali, fmt::format("--schedina: {}", perche),
                          fmt::format("ricerca '{}'", risultato.chiave));
    };
    const Tabella& griglia = risultato.tabelle.front();
    if (richiesta.domanda.parametri.tutte_le_ruote || !ammette_schedina(risultato.chiave, griglia))
        return errato("questa griglia non ha schedine.");
    if (static_cast<std::size_t>(*richiesta.domanda.parametri.schedina) > griglia.righe())
        return errato(fmt::format("trovato \"{}\", attesa una riga da 1 a {}.",
                                  *richiesta.domanda.parametri.schedina, griglia.righe()));
    auto scritta = scrivi_schedina(cartella_programma(richiesta.cartella), risultato.chiave, griglia, oggi());
    if (!scritta) {
        lamenta(canali, scritta.error().testo());
        return kSenzaDati;
    }
    risultato.etichette.push_back({"file", std::move(scritta->file)});
    return std::nullopt;
}

}  // namespace

int comando_ricerca(Richiesta& richiesta, const Canali& canali) {
    auto eseguita = fai_ricerca(richiesta, canali);
    if (!eseguita) return eseguita.error();
    Risultato& risultato = eseguita->risultato;

    const auto ordine = ordine_richiesto(richiesta, risultato, canali);
    if (!ordine) return ordine.error();
    if (richiesta.domanda.parametri.schedina && risultato.prodotto)
        if (const auto codice = consegna_schedina(richiesta, risultato, canali)) return *codice;
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
