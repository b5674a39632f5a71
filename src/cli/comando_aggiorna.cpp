#include "cli/avanzamento_riga.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "files/indirizzi.h"
#include "files/sessione.h"
#include "stores/aggiorna.h"

#include <fmt/core.h>

#include <algorithm>

namespace sortimetra {

namespace {

using Arrivi = std::expected<std::vector<Arrivo>, ErroreArchivio>;

/// What is to be read: the files of the line and the address, or the addresses that the user keeps.
Arrivi prendi(const Richiesta& richiesta, const std::vector<std::string>& indirizzi, const Canali& canali) {
    std::vector<Arrivo> arrivi;
    for (const std::string& file : richiesta.argomenti) {
        auto letto = leggi_arrivo(file);
        if (!letto) return std::unexpected(std::move(letto.error()));
        arrivi.push_back(std::move(*letto));
    }
    for (const std::string& indirizzo : indirizzi) {
        AvanzamentoRiga avanzamento{canali, "scaricamento in corso"};
        auto scaricato = scarica_arrivo(indirizzo, avanzamento);
        avanzamento.finito();
        if (!scaricato) return std::unexpected(std::move(scaricato.error()));
        arrivi.push_back(std::move(*scaricato));
    }
    return arrivi;
}

/// Whether an error is about the archive itself, and not about what arrived.
bool dell_archivio(const ErroreArchivio& errore, const std::filesystem::path& archivio) {
    const auto& file = errore.file;
    return file == archivio || (!file.empty() && file.parent_path() == archivio);
}

int rimasto_com_era(const ErroreArchivio& errore, const Canali& canali, int codice = kSenzaDati) {
    lamenta(canali, errore.testo());
    lamenta(canali, "l'archivio è rimasto com'era.");
    return codice;
}

/// What the update does, or would do: a line, and the exit code.
int concludi(const Proposta& p, bool prova, std::string testo, const Canali& canali) {
    const bool niente = p.niente_di_nuovo();
    const bool fuori = p.qualcosa_resta_fuori();
    if (niente && !fuori)
        testo += "niente di nuovo\n";
    else if (prova)
        testo += niente ? "Una prova: niente entrerebbe nell'archivio.\n"
                        : "Una prova: l'archivio è rimasto com'era.\n";
    else if (!niente)
        testo += "L'archivio è aggiornato.\n";
    const bool si_puo = std::any_of(p.giochi.begin(), p.giochi.end(), [](const PropostaGioco& g) {
        return !g.diverse.empty() || !g.fuori_posto.empty();
    });
    const int codice = consegna(canali, testo, niente && fuori ? kSenzaDati : kRiuscito);
    if (!fuori) return codice;
    if (niente) lamenta(canali, "l'archivio è rimasto com'era.");
    if (si_puo)
        lamenta(canali,
                "--sostituisci cambia le estrazioni diverse e mette al loro posto quelle che mancano.");
    return codice;
}

}  // namespace

int comando_aggiorna(Richiesta& richiesta, const Canali& canali) {
    std::vector<std::string> indirizzi;
    if (richiesta.indirizzo)
        indirizzi.push_back(*richiesta.indirizzo);
    else if (richiesta.argomenti.empty())
        indirizzi = leggi_indirizzi();
    if (richiesta.argomenti.empty() && indirizzi.empty())
        return uso_errato(canali,
                          "aggiorna: serve almeno un FILE (- è l'ingresso) o --indirizzo; indirizzi scelti "
                          "nella finestra non ce ne sono.",
                          "aggiorna");
    if (std::count(richiesta.argomenti.begin(), richiesta.argomenti.end(), "-") > 1)
        return uso_errato(canali, "aggiorna: l'ingresso (-) si legge una volta sola.", "aggiorna");
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    const auto archivio = sessione.percorso_archivio();
    const auto arrivi = prendi(richiesta, indirizzi, canali);
    if (!arrivi) return rimasto_com_era(arrivi.error(), canali);
    AvanzamentoRiga avanzamento{canali, "aggiornamento in corso"};
    const auto arrivate = leggi_arrivi(*arrivi, avanzamento);
    if (!arrivate) return rimasto_com_era(arrivate.error(), canali);
    const ModoAggiorna modo{
        .oggi = oggi(),
        .differenze = richiesta.pubblicati.sostituisci ? Differenze::sostituisci : Differenze::elenca};
    const auto proposta = proponi(archivio, *arrivate, modo, avanzamento);
    if (!proposta)
        return rimasto_com_era(
            proposta.error(), canali,
            dell_archivio(proposta.error(), archivio) ? int{kArchivioChiuso} : int{kSenzaDati});
    std::string testo;
    for (const std::string& riga : racconta(*proposta)) testo += riga + '\n';
    if (!richiesta.prova) {
        const auto fatto = applica(archivio, *proposta, avanzamento);
        avanzamento.finito();
        if (!fatto) return rimasto_com_era(fatto.error(), canali);
    }
    avanzamento.finito();
    return concludi(*proposta, richiesta.prova, std::move(testo), canali);
}

}  // namespace sortimetra
