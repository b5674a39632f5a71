#include "screens/schermo_ricerca.h"

#include "results/risultato.h"
#include "screens/griglia_risultati.h"
#include "screens/schermi.h"

#include <QVBoxLayout>
#include <memory>

namespace sortimetra {

SchermoRicerca::SchermoRicerca(Sessione& sessione, const QString& nome, QWidget* padre)
    : FinestraRicerca{sessione, nome, padre}, griglia_{new GrigliaRisultati} {
    incornicia(CorniceRicerca::Domande::con_parametri)->risposta()->addWidget(griglia_);
    griglia_->imposta_frase_vuota(
        tr("Scegli l'ambito a sinistra, poi premi «Avvia Ricerca»\n(oppure Invio, o F5)."));
    connect(griglia_, &GrigliaRisultati::riga_cambiata, this, [this] { aggiorna_comandi(); });
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, &SchermoRicerca::esporta);
    connect(griglia_, &GrigliaRisultati::stampa_richiesta, this, &SchermoRicerca::stampa);
}

void SchermoRicerca::prepara() {
    griglia_->imposta_pulsante_1(colonna_del_pulsante_1(*ricerca()));
    inizializza_griglia();
}

void SchermoRicerca::mostra(const EsitoRicerca& esito) {
    const auto& risultato = esito.risultato;
    if (!risultato->tabelle.empty())
        griglia_->mostra(std::shared_ptr<const Tabella>{risultato, &risultato->tabelle.front()});
}

void SchermoRicerca::svuota() {
    griglia_->svuota();
    FinestraRicerca::svuota();
}

const EsitoRicerca* SchermoRicerca::in_mostra() const {
    return griglia_->vuota() ? nullptr : FinestraRicerca::in_mostra();
}

std::vector<std::uint32_t> SchermoRicerca::ordine_in_mostra() const {
    return griglia_->modello()->ordine();
}

void SchermoRicerca::trova() {
    griglia_->apri_trova();
}

void SchermoRicerca::aggiorna_comandi() {
    FinestraRicerca::aggiorna_comandi();
    griglia_->imposta_stampabile(stampabile());
}

}  // namespace sortimetra
