#include "catalogue/rapporti.h"

#include "bets/parametri.h"
#include "bets/scommesse.h"
#include "results/risultato.h"
#include "statistics/parametri.h"
#include "systems/stampa_sistemi.h"
#include "text/testi.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

/// "12-34" for two capi.
std::string testo_capi(const std::vector<int>& capi) {
    std::string testo;
    for (const int capo : capi) {
        if (!testo.empty()) testo += '-';
        aggiungi_intero(testo, capo);
    }
    return testo;
}

std::string testo_ruote(const Risposta& risposta) {
    std::string testo = risposta.ambito->ruote;
    const auto& tabelle = risposta.risultato->tabelle;
    if (!tabelle.empty() && !tabelle[0].colonne.empty())
        if (const auto* gruppi = std::get_if<ColonnaGruppi>(tabelle[0].colonne.data()))
            if (const auto parola = parola_combinazione(gruppi->quanti); !parola.empty())
                testo.append(" ").append(parola);
    return testo;
}

/// Which hit was counted, for the searches that let one choose.
std::string_view nota(const Ricerca& ricerca, const ParametriStatistica& parametri) {
    if (!ricerca.ammette(kOpzTipo) && !ricerca.ammette(kOpzTipoTerno)) return "";
    switch (parametri.tipo) {
        case 0:
            return "Dati riferiti alla sortita dell'ambata";
        case 1:
            return "Dati riferiti alla sortita dell'ambo";
        default:
            return "Dati riferiti alla sortita del terno";
    }
}

/// The search's name over its sheets. What calls itself by its key (the table of all wheels of a series) has
/// the name's capitals on paper.
std::string nome_sul_foglio(const Risposta& risposta) {
    const Ricerca& ricerca = risposta.ricerca();
    std::string nome{risposta.titolo()};
    if (nome.starts_with(ricerca.chiave())) nome.replace(0, ricerca.chiave().size(), ricerca.titolo());
    return nome;
}

/// "SuperEnalotto: 03/12/1997 - 21/08/2026": the game's own draws in scope, since the dates beside it are
/// those of the Lotto's concorsi, or of a day of which an hour was chosen.
std::string testo_proprio(const AmbitoDetto& ambito) {
    if (!ambito.proprio) return "";
    return ambito.ruote + ": " + testo_data(ambito.proprio->dal) + " - " + testo_data(ambito.proprio->al);
}

}  // namespace

Intestazione intestazione(const Risposta& risposta) {
    const Ricerca& ricerca = risposta.ricerca();
    const auto& parametri = risposta.domanda.di<ParametriStatistica>();
    Intestazione testa{.ricerca = nome_sul_foglio(risposta)};
    if (ricerca.ammette(kOpzCapogioco) || ricerca.ammette(kOpzAmboCapo))
        if (const auto capi = testo_capi(parametri.capogioco); !capi.empty()) testa.ricerca += " " + capi;
    if (ricerca.ammette(kOpzEstratto))
        testa.ricerca += " (" + std::to_string(parametri.estratto) + "° Estratto)";
    if (ricerca.ammette(kOpzAnalisi))
        testa.ricerca.append(" - ").append(scommessa_chiesta(risposta.domanda).titolo);
    const auto finita = [&] {
        if (ricerca.gioco == Gioco::sistemi) completa_intestazione(testa, risposta.domanda);
        return testa;
    };
    if (!risposta.ambito) return finita();

    const AmbitoDetto& ambito = *risposta.ambito;
    testa.ruote = testo_ruote(risposta);
    testa.nota = nota(ricerca, parametri);
    if (const std::string proprio = testo_proprio(ambito); !proprio.empty()) {
        // A line of its own: behind the longest interval there is no room for two more dates.
        testa.nota += (testa.nota.empty() ? "" : ".  ") + ("Estrazioni esaminate del " + proprio);
    }
    testa.concorsi = std::to_string(ambito.tratto.da) + " - " + std::to_string(ambito.tratto.a);
    testa.intervallo = ambito.intervallo;
    testa.periodo = testa.intervallo;
    if (ambito.dal && ambito.al) {
        testa.periodo += ": " + testo_data(*ambito.dal) + " - " + testo_data(*ambito.al);
        testa.date = testo_data(*ambito.dal) + "-" + testo_data(*ambito.al);
        if (const std::string proprio = testo_proprio(ambito); !proprio.empty())
            testa.date += "  (" + proprio + ")";
    }
    return finita();
}

Rapporto prepara_rapporto(const Risposta& risposta) {
    const FunzioneRapporto rapporto =
        risposta.ricerca().rapporto == nullptr ? rapporto_griglia : risposta.ricerca().rapporto;
    Rapporto pronto =
        rapporto({*risposta.risultato, intestazione(risposta), risposta.ordine, &risposta.domanda});
    if (risposta.ambito && risposta.ambito->simulato) pronto = segna_simulato(std::move(pronto));
    pronto.disegna = [disegna = std::move(pronto.disegna), tenuto = risposta.risultato](
                         EasyPrint& stampante, int pagina) { disegna(stampante, pagina); };
    return pronto;
}

}  // namespace sortimetra
