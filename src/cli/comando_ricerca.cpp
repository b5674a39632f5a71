#include "cli/comandi.h"
#include "cli/fai_ricerca.h"
#include "cli/richiesta.h"
#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "results/scrittori.h"
#include "systems/ric_stat.h"
#include "text/data.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <expected>
#include <fstream>
#include <memory>
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
std::optional<int> consegna_schedina(const Richiesta& richiesta, Risposta& risposta, const Canali& canali) {
    const auto errato = [&](const std::string& perche) {
        return uso_errato(canali, fmt::format("--schedina: {}", perche), richiesta.aiuto_di);
    };
    const std::size_t righe = risposta.risultato->tabelle.front().righe();
    if (!ammette_schedina(risposta)) return errato("questa griglia non ha schedine.");
    if (static_cast<std::size_t>(*richiesta.schedina) > righe)
        return errato(fmt::format("trovato \"{}\", attesa una riga da 1 a {}.", *richiesta.schedina, righe));
    auto scritta = scrivi_schedina(cartella_programma(richiesta.cartella), risposta, oggi());
    if (!scritta) {
        lamenta(canali, scritta.error().testo());
        return kSenzaDati;
    }
    auto con_file = std::make_shared<Risultato>(*risposta.risultato);
    con_file->etichette.push_back({"file", std::move(scritta->file)});
    risposta.risultato = std::move(con_file);
    return std::nullopt;
}

/// Every format by the endings of file names.
std::optional<Formato> formato_di(const std::filesystem::path& file) {
    const std::string fine = minuscolo(file.extension().string());
    if (fine == ".csv") return Formato::Csv;
    if (fine == ".json") return Formato::Json;
    if (fine == ".xlsx") return Formato::Xlsx;
    if (fine == ".txt") return Formato::Tabella;
    return std::nullopt;
}

/// The format that was asked for, by `--formato` or by the file's name; where the two differ, or the name is
/// another command's, the sentence of what is wrong.
std::expected<Formato, std::string> formato_voluto(const Richiesta& richiesta) {
    if (!richiesta.file) return richiesta.formato.value_or(Formato::Tabella);
    const auto del_nome = formato_di(*richiesta.file);
    if (minuscolo(richiesta.file->extension().string()) == ".pdf")
        return std::unexpected(fmt::format(
            "-o: trovato \"{}\", un PDF si scrive con \"sortimetra-cli stampa\".", richiesta.file->string()));
    if (del_nome && richiesta.formato && *del_nome != *richiesta.formato)
        return std::unexpected(fmt::format("--formato e -o non vanno d'accordo: il file si chiama \"{}\".",
                                           richiesta.file->string()));
    return richiesta.formato.value_or(del_nome.value_or(Formato::Tabella));
}

/// The answer as it leaves: for a workbook its bytes too, since only whole files are written.
std::expected<std::string, ErroreArchivio> scritta(Formato formato, const Richiesta& richiesta,
                                                   const Risposta& risposta) {
    const auto& tabelle = risposta.risultato->tabelle;
    const std::size_t massimo = richiesta.prime.value_or(kOgniRiga);
    std::string testo;
    switch (formato) {
        case Formato::Json:
            scrivi_json(testo, risposta, massimo);
            break;
        case Formato::Csv:
            if (tabelle.empty()) break;
            if (richiesta.intestazione) scrivi_intestazione_csv(testo, risposta);
            scrivi_csv(testo, tabelle.front(), {.ordine = risposta.ordine, .massimo = massimo});
            break;
        case Formato::Tabella:
            if (!tabelle.empty()) scrivi_terminale(testo, risposta, massimo, richiesta.intestazione);
            break;
        case Formato::Xlsx:
            if (!tabelle.empty()) return byte_xlsx(risposta, massimo);
            break;
    }
    return testo;
}

}  // namespace

int comando_ricerca(Richiesta& richiesta, const Canali& canali) {
    const auto formato = formato_voluto(richiesta);
    if (!formato) return uso_errato(canali, formato.error(), richiesta.aiuto_di);
    auto risposta = fai_ricerca(richiesta, canali, *formato == Formato::Json);
    if (!risposta) return risposta.error();
    if (richiesta.schedina && risposta->prodotta())
        if (const auto codice = consegna_schedina(richiesta, *risposta, canali)) return *codice;
    if (const auto codice = disponi_risposta(richiesta, *risposta, canali)) return *codice;

    const int codice = risposta->prodotta() ? kRiuscito : kSenzaDati;
    const auto testo = scritta(*formato, richiesta, *risposta);
    if (!testo) {
        lamenta(canali, testo.error().testo());
        return kSenzaDati;
    }
    // Without anything to say the file of -o is left alone.
    if (testo->empty()) return codice;
    if (!richiesta.file || *richiesta.file == "-") return consegna(canali, *testo, codice);
    if (const auto fatto = scrivi_uscita(*richiesta.file, *testo); !fatto) {
        lamenta(canali, fmt::format("-o: {}", fatto.error().testo()));
        return kSenzaDati;
    }
    return codice;
}

}  // namespace sortimetra
