#include "catalogue/rapporti.h"
#include "cli/avanzamento_riga.h"
#include "cli/comandi.h"
#include "cli/fai_ricerca.h"
#include "cli/richiesta.h"
#include "files/file_sicuro.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <expected>
#include <string>
#include <utility>

namespace sortimetra {

int comando_stampa(Richiesta& richiesta, const Canali& canali) {
    if (!richiesta.file)
        return uso_errato(canali, "stampa: manca il file da scrivere, con -o FILE.pdf.", "stampa");
    const std::string fine = minuscolo(richiesta.file->extension().string());
    if (*richiesta.file != "-" && !fine.empty() && fine != ".pdf")
        return uso_errato(
            canali,
            fmt::format("-o: trovato \"{}\", atteso il nome di un file PDF; un altro formato si "
                        "scrive con \"sortimetra-cli ricerca\".",
                        richiesta.file->string()),
            "stampa");
    richiesta.su_carta = true;
    auto risposta = fai_ricerca(richiesta, canali);
    if (!risposta) return risposta.error();
    if (!risposta->prodotta()) return kSenzaDati;
    if (const auto codice = disponi_risposta(richiesta, *risposta, canali)) return *codice;
    AvanzamentoRiga avanzamento{canali, "stampa in corso"};
    const Rapporto rapporto = prepara_rapporto(*risposta);
    std::string byte;
    std::expected<void, ErroreArchivio> scritto;
    if (*richiesta.file == "-") {
        auto pdf = byte_scritti(
            [&](const std::filesystem::path& file) { return stampa_pdf(rapporto, file, avanzamento); });
        if (pdf)
            byte = std::move(*pdf);
        else
            scritto = std::unexpected(pdf.error());
    } else {
        scritto = stampa_pdf(rapporto, *richiesta.file, avanzamento);
    }
    avanzamento.finito();
    if (!scritto) {
        lamenta(canali, fmt::format("-o: {}", scritto.error().testo()));
        return kSenzaDati;
    }
    return byte.empty() ? kRiuscito : consegna(canali, byte);
}

}  // namespace sortimetra
