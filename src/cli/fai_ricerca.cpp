#include "cli/fai_ricerca.h"

#include "catalogue/ricerche.h"
#include "cli/apri.h"
#include "cli/avanzamento_riga.h"
#include "files/sessione.h"

#include <fmt/core.h>

#include <memory>
#include <utility>

namespace sortimetra {

std::expected<Risposta, int> fai_ricerca(const Richiesta& richiesta, const Canali& canali) {
    const Ricerca& ricerca = *richiesta.ricerca;
    if (!ricerca.pronta()) {
        lamenta(canali, fmt::format("la ricerca \"{}\" non è ancora disponibile.", ricerca.chiave()));
        return Risposta{.domanda = richiesta.domanda,
                        .risultato = std::make_shared<const Risultato>(non_avviata({}))};
    }
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    ArchivioEstrazioni archivio;
    if (ricerca.tabelle != 0) {
        auto aperto = apri_per_leggere(sessione, ricerca.tabelle, canali);
        if (!aperto) return std::unexpected(kArchivioChiuso);
        archivio = std::move(*aperto);
    }
    AvanzamentoRiga avanzamento{canali, "ricerca in corso"};
    Risposta risposta = rispondi(richiesta.domanda, archivio, sessione.percorso_programma, avanzamento);
    avanzamento.finito();

    const Risultato& r = *risposta.risultato;
    // A damaged file of the user's is told where a damaged archive would be.
    for (const Messaggio& m : r.messaggi)
        if (m.avviso == Avviso::sistema_danneggiato) {
            lamenta(canali, m.testo);
            return std::unexpected(kArchivioChiuso);
        }
    for (const std::string& nota : r.note) canali.errori << nota << '\n';
    if (!r.prodotto && r.messaggi.empty()) lamenta(canali, "la ricerca non ha dati.");
    // A message of a search that went well is part of the JSON object; who reads a table must see it too.
    if (!r.prodotto || richiesta.formato != Formato::Json)
        for (const Messaggio& m : r.messaggi) lamenta(canali, m.testo);
    return risposta;
}

std::optional<int> ordina_risposta(const Richiesta& richiesta, Risposta& risposta, const Canali& canali) {
    const auto& o = richiesta.ordina;
    const auto& tabelle = risposta.risultato->tabelle;
    if (!o || tabelle.empty() || tabelle.front().n_colonne() == 0) return std::nullopt;
    const Tabella& prima = tabelle.front();
    if (o->colonna >= prima.n_colonne())
        return uso_errato(canali,
                          fmt::format("--ordina: trovato \"{}\", atteso il numero di una colonna da 0 a {}.",
                                      o->colonna, prima.n_colonne() - 1),
                          fmt::format("ricerca '{}'", risposta.ricerca().chiave()));
    risposta.ordine = ordina(prima, o->colonna, o->verso);
    return std::nullopt;
}

}  // namespace sortimetra
