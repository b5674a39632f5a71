#include "cli/fai_ricerca.h"

#include "catalogue/ricerche.h"
#include "cli/apri.h"
#include "cli/avanzamento_riga.h"
#include "files/sessione.h"

#include <fmt/core.h>

#include <utility>

namespace sortimetra {

std::expected<RicercaEseguita, int> fai_ricerca(Richiesta& richiesta, const Canali& canali) {
    const Ricerca& ricerca = *richiesta.ricerca;
    RicercaEseguita eseguita;
    if (!ricerca.pronta()) {
        lamenta(canali, fmt::format("la ricerca \"{}\" non è ancora disponibile.", ricerca.chiave));
        eseguita.risultato = non_avviata({});
        eseguita.risultato.chiave = ricerca.chiave;
        eseguita.risultato.titolo = ricerca.titolo;
        return eseguita;
    }
    const Sessione sessione{.percorso_programma = cartella_programma(richiesta.cartella)};
    richiesta.domanda.chiave = ricerca.chiave;
    richiesta.domanda.cartella = sessione.percorso_programma;
    if (ricerca.tabelle != 0) {
        auto aperto = apri_per_leggere(sessione, ricerca.tabelle, canali);
        if (!aperto) return std::unexpected(kArchivioChiuso);
        eseguita.archivio = std::move(*aperto);
    }
    AvanzamentoRiga avanzamento{canali, "ricerca in corso"};
    eseguita.risultato = esegui(ricerca, eseguita.archivio, richiesta.domanda, avanzamento);
    avanzamento.finito();

    const Risultato& r = eseguita.risultato;
    for (const std::string& nota : r.note) canali.errori << nota << '\n';
    if (!r.prodotto && r.messaggi.empty()) lamenta(canali, "la ricerca non ha dati.");
    // A message of a search that went well is part of the JSON object; who reads a table must see it too.
    if (!r.prodotto || richiesta.formato != Formato::Json)
        for (const std::string& m : r.messaggi) lamenta(canali, m);
    return eseguita;
}

std::expected<std::vector<std::uint32_t>, int> ordine_richiesto(const Richiesta& richiesta,
                                                                const Risultato& risultato,
                                                                const Canali& canali) {
    const auto& o = richiesta.ordina;
    if (!o || risultato.tabelle.empty() || risultato.tabelle.front().n_colonne() == 0)
        return std::vector<std::uint32_t>{};
    const Tabella& prima = risultato.tabelle.front();
    if (o->colonna >= prima.n_colonne())
        return std::unexpected(
            uso_errato(canali,
                       fmt::format("--ordina: trovato \"{}\", atteso il numero di una colonna da 0 a {}.",
                                   o->colonna, prima.n_colonne() - 1),
                       fmt::format("ricerca '{}'", risultato.chiave)));
    return ordina(prima, o->colonna, o->verso);
}

}  // namespace sortimetra
