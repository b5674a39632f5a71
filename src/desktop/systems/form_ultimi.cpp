#include "systems/form_ultimi.h"

#include "results/risultato.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "systems/ultimi.h"

#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <array>
#include <memory>

namespace sortimetra {

namespace {

constexpr std::array<std::string_view, 4> kTitoli{"Sistemi Lotto", "Sistemi SuperEnalotto",
                                                  "Sistemi 10 e Lotto", "Sistemi Win for Life"};

/// The measures with each draw's concorso over its column: on the screen a column must say whose it is.
std::shared_ptr<const Tabella> con_concorsi(const Risultato& risultato) {
    auto t = std::make_shared<Tabella>(risultato.tabelle[0]);
    for (std::size_t c = 0; c < kUltimi; ++c) t->titoli[0][c + 1] = risultato.tabelle[1].testo(c, 0);
    return t;
}

}  // namespace

Form_Ultimi::Form_Ultimi(Sessione& sessione)
    : SchermoSistemi{sessione, QStringLiteral("Form_Ultimi"), kTitoli},
      pagina_{new QWidget},
      tabella_{new GrigliaRisultati},
      lista_{new GrigliaRisultati} {
    cornice()->primario()->setObjectName(QStringLiteral("cmdavviaRicerca"));
    cornice()->primario()->setText(tr("&Avvia Ricerca"));
    cornice()->cmd_stampa()->setObjectName(QStringLiteral("Command2"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("cmdesci"));

    tabella_->imposta_tabellone(true);
    tabella_->blocca_prima_colonna(true);
    tabella_->vista()->setAccessibleName(tr("Misure degli ultimi 20 concorsi"));
    tabella_->imposta_frase_vuota(
        tr("Scegli il gioco e l'ambito a sinistra, poi premi «Avvia Ricerca»\n(oppure Invio, o F5)."));
    lista_->vista()->setObjectName(QStringLiteral("MSHFlexGrid2"));
    lista_->vista()->setAccessibleName(tr("Combinazioni degli ultimi 20 concorsi"));
    lista_->imposta_pulsanti(QStringLiteral("cmdcolLista_%1"), 0);
    auto* divisore = new QSplitter{Qt::Vertical, pagina_};
    divisore->setChildrenCollapsible(false);
    divisore->setFocusPolicy(Qt::NoFocus);
    divisore->addWidget(tabella_);
    divisore->addWidget(lista_);
    divisore->setStretchFactor(0, 3);
    divisore->setStretchFactor(1, 1);
    auto* tutto = new QVBoxLayout{pagina_};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(divisore);
    aggiungi_pagina(pagina_);
    mostra_pagina(pagina_);
    for (GrigliaRisultati* g : {tabella_, lista_}) {
        connect(g, &GrigliaRisultati::esporta_richiesta, this, &Form_Ultimi::esporta);
        connect(g, &GrigliaRisultati::stampa_richiesta, this, &Form_Ultimi::stampa);
    }
}

void Form_Ultimi::sistema_cambiato() {
    tabella_->inizializza({std::vector<std::string>(1 + kUltimi)});
    lista_->inizializza({{"Conc.", "Combinazione"}});
}

void Form_Ultimi::esegui() {
    const EsitoRicerca esito = corri(*ricerca(), domanda(*ricerca()));
    if (esito.risultato == nullptr) return;
    svuota();
    if (esito.prodotto()) {
        tabella_->mostra(con_concorsi(*esito.risultato));
        lista_->mostra(std::shared_ptr<const Tabella>{esito.risultato, &esito.risultato->tabelle[1]});
        riprendi(esito);
    }
    di_messaggi(esito);
}

void Form_Ultimi::svuota() {
    tabella_->svuota();
    lista_->svuota();
    SchermoSistemi::svuota();
}

void Form_Ultimi::trova() {
    (lista_->isAncestorOf(focusWidget()) ? lista_ : tabella_)->apri_trova();
}

}  // namespace sortimetra
