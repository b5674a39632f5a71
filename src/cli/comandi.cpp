#include "cli/comandi.h"

#include "catalogue/nomi.h"
#include "cli/aiuto.h"
#include "cli/richiesta.h"
#include "cli/simili.h"
#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "results/risultato.h"
#include "text/senza_controlli.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace sortimetra {

namespace {

constexpr auto kComandi = std::to_array<Comando>({
    {.nome = "elenco",
     .argomenti = "[PAROLE] [--json]",
     .frase = "Elenca le ricerche del catalogo: scheda, gruppo, nome, chiave, e se qui si possono eseguire.",
     .dettaglio =
         "Con alcune parole elenca soltanto le ricerche che le hanno nel nome, nel gioco, nel gruppo o "
         "nella loro frase: elenco ambi ritardo.",
     .bit = kComElenco,
     .parole = true,
     .esegui = comando_elenco},
    {.nome = "ricerca",
     .argomenti = "CHIAVE [opzioni]",
     .frase = "Esegue una ricerca e ne stampa le tabelle.",
     .dettaglio =
         "CHIAVE è il nome della ricerca come sta nel catalogo, fra virgolette; maiuscole e minuscole "
         "sono uguali. \"sortimetra-cli elenco\" le elenca tutte.",
     .bit = kComRicerca,
     .esegui = comando_ricerca},
    {.nome = "archivio",
     .argomenti = "[--esame] [--json]",
     .frase =
         "Dice che cosa contiene l'archivio: per ogni tabella quante righe, il primo e l'ultimo concorso "
         "con la data, e il file da cui è letta.",
     .dettaglio = "Un archivio danneggiato non si apre; --esame ne elenca i danni, e degli archivi sani "
                  "gli avvisi, che altrimenti sono soltanto contati.",
     .bit = kComArchivio,
     .esegui = comando_archivio},
    {.nome = "importa",
     .argomenti =
         "[--lotto FILE] [--superenalotto FILE] [--winforlife FILE] [--sostituisci] | --jet DIR | --annulla",
     .frase = "Costruisce l'archivio dai file dei risultati pubblicati.",
     .dettaglio =
         "Serve almeno un file. Una riga che non si può leggere ferma tutto e l'archivio di prima "
         "resta com'era: o entra tutto o non entra niente. Lo stesso se estrazioni che l'archivio ha "
         "andrebbero perse. L'archivio di prima resta accanto, con il nome che finisce per .prec.",
     .bit = kComImporta,
     .esegui = comando_importa},
    {.nome = "aggiorna",
     .argomenti = "[FILE…] [--indirizzo URL] [--prova] [--sostituisci]",
     .frase = "Aggiunge all'archivio le estrazioni che i file hanno in più.",
     .dettaglio =
         "I file sono di risultati pubblicati, storie intere o soltanto le righe più nuove, anche una "
         "estrazione sola; il gioco si conosce dal contenuto. Possono essere gzip o zip, che espansi non "
         "passino 50 MB; - è l'ingresso. Senza FILE e senza --indirizzo si scaricano gli indirizzi scelti "
         "nella finestra.\n"
         "Le estrazioni diverse da quelle dell'archivio si elencano e non lo cambiano, se non con "
         "--sostituisci. O entra tutto o non entra niente; \"importa --annulla\" riporta l'archivio di "
         "prima.\n"
         "Se l'archivio sta in drawit.mdb e drawit2.mdb, il primo aggiornamento ne porta tutte le estrazioni "
         "in drawit.db e drawit2.db, e da allora si leggono questi.",
     .bit = kComAggiorna,
     .parole = true,
     .esegui = comando_aggiorna},
    {.nome = "dimostrazione",
     .frase = "Crea nella cartella del programma un archivio simulato, se non ce n'è già uno, o lo completa.",
     .dettaglio = "Le estrazioni di quell'archivio non sono vere: servono a provare il programma, che lo "
                  "ricorda ovunque le mostri.",
     .bit = kComDimostrazione,
     .esegui = comando_dimostrazione},
    {.nome = "gruppi",
     .argomenti = "[--json]",
     .frase = "Elenca i gruppi salvati.",
     .bit = kComGruppi,
     .esegui = comando_gruppi},
    {.nome = "sistemi",
     .argomenti = "--sistema I [--json]",
     .frase = "Elenca i sistemi salvati di un gioco: nome, data e numero di combinazioni.",
     .bit = kComSistemi,
     .esegui = comando_sistemi},
    {.nome = "stampa",
     .argomenti = "CHIAVE [opzioni] -o FILE.pdf",
     .frase = "Esegue una ricerca e ne scrive il rapporto in un file PDF.",
     .dettaglio = "Sono le stesse pagine che stampa la finestra.",
     .bit = kComStampa,
     .esegui = comando_stampa},
    {.nome = "storia",
     .argomenti = "--numeri ELENCO [--presenti K] [opzioni]",
     .frase = "Racconta ogni uscita di alcuni numeri, una per una, e che cosa ne fa il caso.",
     .dettaglio =
         "Due tabelle: le uscite, dalla più vecchia, con i concorsi passati dall'uscita prima; e una "
         "sintesi con frequenza, ritardo, ritardo storico e ciò che darebbe il caso da solo. --grafico le "
         "disegna.",
     .bit = kComStoria,
     .chiave = nomi::kStoria.chiave,
     .esegui = comando_ricerca},
});

std::vector<std::string_view> nomi_comandi() {
    std::vector<std::string_view> nomi;
    for (const Comando& c : kComandi)
        if (c.esegui != nullptr) nomi.push_back(c.nome);
    return nomi;
}

/// An option given at all, whatever else stands on the line: help and version are answered before anything
/// else is judged.
bool data(const Parole& parole, std::string_view nome) {
    return std::any_of(parole.date.begin(), parole.date.end(),
                       [&](const OpzioneData& o) { return o.nome == nome; });
}

/// Finds the search of `ricerca` and `stampa` and takes its key from the arguments. The error is a sentence.
std::expected<void, std::string> trova_chiave(std::string_view comando, Richiesta& richiesta) {
    if (richiesta.argomenti.empty())
        return std::unexpected(
            fmt::format("{}: manca la CHIAVE della ricerca. \"sortimetra-cli elenco\" le elenca.", comando));
    const std::string& chiave = richiesta.argomenti.front();
    richiesta.ricerca = trova_ricerca(rifila(chiave));
    if (richiesta.ricerca != nullptr) {
        richiesta.argomenti.erase(richiesta.argomenti.begin());
        return {};
    }
    // A key typed without its quotes comes as several words.
    std::string unita;
    for (const std::string& a : richiesta.argomenti) {
        if (!unita.empty()) unita += ' ';
        unita += a;
    }
    if (richiesta.argomenti.size() > 1 && trova_ricerca(rifila(unita)) != nullptr)
        return std::unexpected(fmt::format("la CHIAVE va scritta fra virgolette: \"{}\".", unita));
    std::vector<std::string_view> chiavi;
    for (const Ricerca& r : ricerche()) chiavi.push_back(r.chiave());
    return std::unexpected(
        fmt::format("nessuna ricerca ha la chiave \"{}\".{}", unita, volevi_dire(unita, chiavi, 3)));
}

}  // namespace

const Ricerca* ricerca_propria(const Comando& comando) {
    return comando.chiave.empty() ? nullptr : trova_ricerca(comando.chiave);
}

std::span<const Comando> comandi() {
    return kComandi;
}

void lamenta(const Canali& canali, std::string_view frase) {
    canali.errori << "sortimetra-cli: " << frase << '\n';
}

int uso_errato(const Canali& canali, std::string_view frase, std::string_view aiuto_di) {
    lamenta(canali, frase);
    canali.errori << "\"sortimetra-cli " << aiuto_di << (aiuto_di.empty() ? "" : " ")
                  << "--aiuto\" spiega come si usa.\n";
    return kUsoErrato;
}

int consegna(const Canali& canali, std::string_view testo, int codice) {
    errno = 0;
    canali.uscita.write(testo.data(), static_cast<std::streamsize>(testo.size()));
    canali.uscita.flush();
    if (canali.uscita.good()) return codice;
    const int motivo = errno;
    // Who closed the pipe has read enough, and got what was wanted.
    if (motivo == EPIPE) return codice;
    lamenta(canali, fmt::format("l'uscita non si può scrivere{}{}.", motivo != 0 ? ": " : "",
                                motivo != 0 ? motivo_sistema(motivo) : ""));
    return kSenzaDati;
}

namespace {

int esegui_comando(const std::vector<std::string>& argomenti, const Canali& canali) {
    auto parole = separa(argomenti);
    if (!parole) return uso_errato(canali, parole.error());
    // "aiuto ricerca" asks what "ricerca --aiuto" does.
    if (!parole->argomenti.empty() && parole->argomenti.front() == "aiuto") {
        parole->argomenti.erase(parole->argomenti.begin());
        if (!data(*parole, "--aiuto")) parole->date.push_back({.nome = "--aiuto", .valore = std::nullopt});
    }

    Richiesta richiesta;
    richiesta.argomenti = parole->argomenti;
    if (richiesta.argomenti.empty()) {
        if (data(*parole, "--versione")) return consegna(canali, "sortimetra-cli " SORTIMETRA_VERSIONE "\n");
        if (data(*parole, "--aiuto")) return consegna(canali, aiuto_generale());
        // Whatever else stands there is an option: is it one at all?
        if (const auto letto = leggi_opzioni(*parole, 0, "sortimetra-cli", richiesta);
            !letto && !data(*parole, "--cartella"))
            return uso_errato(canali, letto.error());
        std::string nomi;
        for (const std::string_view n : nomi_comandi()) {
            if (!nomi.empty()) nomi += ", ";
            nomi += n;
        }
        return uso_errato(canali, fmt::format("manca il comando, uno fra {}.", nomi));
    }

    const std::string nome = std::move(richiesta.argomenti.front());
    richiesta.argomenti.erase(richiesta.argomenti.begin());
    const auto comando =
        std::find_if(kComandi.begin(), kComandi.end(), [&](const Comando& c) { return c.nome == nome; });
    if (comando == kComandi.end())
        return uso_errato(
            canali, fmt::format("il comando \"{}\" non esiste.{}", nome, volevi_dire(nome, nomi_comandi())));
    if (comando->esegui == nullptr) {
        lamenta(canali, fmt::format("il comando {} non è ancora disponibile.", nome));
        return kSenzaDati;
    }
    if (data(*parole, "--versione")) return consegna(canali, "sortimetra-cli " SORTIMETRA_VERSIONE "\n");

    const bool cerca = (comando->bit & (kComRicerca | kComStampa)) != 0;
    if (data(*parole, "--aiuto") && (!cerca || richiesta.argomenti.empty()))
        return consegna(canali, aiuto_comando(*comando));
    if (const Ricerca* sua = ricerca_propria(*comando)) {
        richiesta.ricerca = sua;
        richiesta.domanda = domanda_intatta(*sua);
    }
    if (cerca) {
        if (const auto trovata = trova_chiave(nome, richiesta); !trovata)
            return uso_errato(canali, trovata.error(), nome);
        if (data(*parole, "--aiuto")) return consegna(canali, aiuto_comando(*comando, richiesta.ricerca));
        richiesta.domanda = domanda_intatta(*richiesta.ricerca);
    }
    richiesta.aiuto_di = cerca ? fmt::format("{} '{}'", nome, richiesta.ricerca->chiave()) : nome;
    if (const auto lette = leggi_opzioni(*parole, comando->bit, nome, richiesta); !lette)
        return uso_errato(canali, lette.error(), richiesta.aiuto_di);
    if (!richiesta.argomenti.empty() && !comando->parole)
        return uso_errato(canali, fmt::format("\"{}\" è di troppo.", richiesta.argomenti.front()),
                          richiesta.aiuto_di);
    if (const auto perche = senza_cartella_programma(richiesta.cartella);
        perche && (comando->bit & kComElenco) == 0) {
        lamenta(canali, *perche);
        return kArchivioChiuso;
    }
    return comando->esegui(richiesta, canali);
}

}  // namespace

int esegui_comando(const std::vector<std::string>& argomenti, std::ostream& uscita, std::ostream& errori,
                   const Terminale& terminale) {
    // What is said to people comes with names and arguments of anybody's; what is kept keeps its bytes.
    BufferSenzaControlli filtro_uscita{uscita.rdbuf()};
    BufferSenzaControlli filtro_errori{errori.rdbuf()};
    std::ostream mostrata{&filtro_uscita};
    std::ostream detti{&filtro_errori};
    detti.setf(std::ios_base::unitbuf);
    return esegui_comando(argomenti, Canali{.uscita = terminale.uscita ? mostrata : uscita,
                                            .errori = detti,
                                            .terminale = terminale.errori,
                                            .larghezza = terminale.larghezza,
                                            .disegno = &errori});
}

}  // namespace sortimetra
