#include "statistics/form_stat2.h"

#include "qt_testi.h"
#include "screens/esporta.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "statistics/pannello_gruppo.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

namespace sortimetra {

Form_stat2::Form_stat2(QWidget* padre)
    : QWidget{padre, Qt::Window},
      titolo_{new QLabel{this}},
      ambito_{new QLabel{this}},
      pannello_{new PannelloGruppo{this}},
      stampa_{new QPushButton{icona(QStringLiteral("stampa")), tr("&Stampa"), this}} {
    setObjectName(QStringLiteral("Form_stat2"));
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    assegna_ruolo(titolo_, "titolo");
    assegna_ruolo(ambito_, "quieto");
    pannello_->imposta_scomponibile(false);
    stampa_->setObjectName(QStringLiteral("cmdStampa"));
    auto* esporta = new QPushButton{icona(QStringLiteral("esporta")), tr("&Esporta…"), this};
    esporta->setObjectName(QStringLiteral("cmdEsporta"));
    auto* chiudi = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Chiudi"), this};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    const auto carta = [this] {
        if (stampatore_) stampatore_({.finestra = this, .risposta = risposta()});
    };
    const auto file = [this] { esporta_risultato(this, risposta()); };
    connect(stampa_, &QPushButton::clicked, this, carta);
    connect(pannello_, &PannelloGruppo::stampa_richiesta, this, carta);
    connect(esporta, &QPushButton::clicked, this, file);
    connect(pannello_, &PannelloGruppo::esporta_richiesta, this, file);
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut{QKeySequence::Print, this}, &QShortcut::activated, this, carta);
    connect(new QShortcut{QKeySequence::Find, this}, &QShortcut::activated, this,
            [this] { pannello_->esiti()->apri_trova(); });

    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(titolo_);
    colonna->addWidget(ambito_);
    colonna->addWidget(pannello_, 1);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    for (QPushButton* b : {stampa_, esporta, chiudi}) piede->addWidget(b);
    colonna->addLayout(piede);
    resize(1120, 600);
}

Risposta Form_stat2::risposta() const {
    Risposta r = risposta_;
    r.ordine = pannello_->ritardi()->modello()->ordine();
    return r;
}

void Form_stat2::mostra(const Risposta& risposta, std::function<void(const LavoroStampa&)> stampa) {
    risposta_ = risposta;
    stampatore_ = std::move(stampa);
    aggiorna_stampa();
    const QString titolo = testo_qt(risposta.titolo());
    setWindowTitle(titolo);
    titolo_->setText(titolo);
    if (risposta.ambito)
        ambito_->setText(tr("%1 · %2 · concorsi %3 - %4")
                             .arg(testo_qt(risposta.ambito->ruote), testo_qt(risposta.ambito->intervallo))
                             .arg(risposta.ambito->tratto.da)
                             .arg(risposta.ambito->tratto.a));
    pannello_->mostra(risposta.risultato);
    show();
    raise();
    activateWindow();
}

void Form_stat2::aggiorna_stampa() {
    const bool si = stampatore_ != nullptr;
    stampa_->setEnabled(si);
    stampa_->setToolTip(si ? tr("Stampa l'analisi (Ctrl+P)") : tr("La stampa non è ancora disponibile."));
    for (GrigliaRisultati* g : {pannello_->ritardi(), pannello_->esiti(), pannello_->lunghette()})
        g->imposta_stampabile(si);
}

void Form_stat2::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(evento);
}

}  // namespace sortimetra
