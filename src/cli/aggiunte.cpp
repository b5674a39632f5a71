#include "cli/aggiunte.h"

#include "chance/caso.h"
#include "chance/grafico.h"
#include "chance/per_ruota.h"
#include "chance/ricerca_storia.h"
#include "chance/risposta_estesa.h"
#include "chance/storia.h"
#include "cli/avanzamento_riga.h"
#include "results/risultato.h"

#include <fmt/core.h>

#include <memory>
#include <span>
#include <utility>

namespace sortimetra {

namespace {

/// The columns of chance, and the sentences that a screen has under its grid.
void aggiungi_caso(Risultato& risultato, const Risposta& risposta) {
    const Tabella& prima = risposta.risultato->tabelle.front();
    risultato.tabelle.push_back(tabella_caso(prima, *risposta.percorso));
    if (auto frase = frase_insolita(prima, *risposta.percorso); !frase.empty())
        risultato.etichette.push_back({"lblCaso", std::move(frase)});
    if (auto frase = frase_chi_quadro(prima); !frase.empty())
        risultato.etichette.push_back({"lblChiQuadro", std::move(frase)});
}

Tabella ruote(const Richiesta& richiesta, const Risposta& risposta, const ArchivioEstrazioni& archivio,
              const Canali& canali) {
    AvanzamentoRiga avanzamento{canali, "confronto delle ruote in corso"};
    Tabella tabella =
        tabella_ruote(risposta, archivio, richiesta.misura.value_or(MisuraRuote::ritardo), avanzamento);
    avanzamento.finito();
    return tabella;
}

std::optional<int> disegna(const Richiesta& richiesta, const Risposta& risposta,
                           const ArchivioEstrazioni& archivio, const Canali& canali) {
    AvanzamentoRiga avanzamento{canali, "grafico in corso"};
    const Storia s = storia(archivio, risposta.domanda.ambito, evento_storia(risposta.domanda), avanzamento);
    avanzamento.finito();
    const AmbitoDetto ambito = risposta.ambito.value_or(AmbitoDetto{});
    const Grafico g = grafico(std::span{&s, 1}, sottotitolo_grafico(ambito), ambito.simulato);
    const auto scritto = scrivi_grafico(g, *richiesta.grafico, *formato_grafico(*richiesta.grafico));
    if (scritto) return std::nullopt;
    lamenta(canali, fmt::format("--grafico: {}", scritto.error().testo()));
    return kSenzaDati;
}

}  // namespace

bool segue_la_prima(const Tabella& tabella) {
    return tabella.nome == "caso" || tabella.nome == "ruote";
}

std::optional<std::string> aggiunte_sbagliate(const Richiesta& richiesta) {
    if (richiesta.misura && !richiesta.per_ruota)
        return "--misura dice che cosa confrontare con --per-ruota, che manca.";
    if (richiesta.su_carta && richiesta.caso && richiesta.per_ruota)
        return "--caso, --per-ruota: un foglio mostra le colonne dell'uno o dell'altro, trovati tutti e due.";
    return std::nullopt;
}

std::optional<int> aggiungi(const Richiesta& richiesta, Risposta& risposta,
                            const ArchivioEstrazioni& archivio, const Canali& canali) {
    if (!risposta.prodotta()) return std::nullopt;
    if (richiesta.grafico)
        if (const auto codice = disegna(richiesta, risposta, archivio, canali)) return codice;
    if (!richiesta.caso && !richiesta.per_ruota) return std::nullopt;
    if (!misura_eventi(risposta))
        return uso_errato(canali,
                          fmt::format("{}: qui le righe non misurano un evento ciascuna.",
                                      richiesta.caso ? "--caso" : "--per-ruota"),
                          richiesta.aiuto_di);
    if (richiesta.su_carta) {
        risposta.risultato = richiesta.caso
                                 ? con_caso(risposta)
                                 : con_ruote(risposta, ruote(richiesta, risposta, archivio, canali));
        return std::nullopt;
    }
    auto completo = std::make_shared<Risultato>(*risposta.risultato);
    if (richiesta.caso) aggiungi_caso(*completo, risposta);
    if (richiesta.per_ruota) completo->tabelle.push_back(ruote(richiesta, risposta, archivio, canali));
    risposta.risultato = std::move(completo);
    return std::nullopt;
}

}  // namespace sortimetra
