#include "statistics/form_spec.h"

#include "qt_testi.h"
#include "screens/esporta.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <variant>

namespace sortimetra {

Form_spec::Form_spec(QWidget* padre)
    : QWidget{padre, Qt::Window},
      titolo_{new QLabel{this}},
      griglia_{new GrigliaRisultati{this}},
      descrizione_{new QLabel{this}} {
    setObjectName(QStringLiteral("Form_spec"));
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    assegna_ruolo(titolo_, "titolo");
    descrizione_->setObjectName(QStringLiteral("descrizione"));
    descrizione_->setWordWrap(true);
    descrizione_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* esporta = new QPushButton{icona(QStringLiteral("esporta")), tr("&Esporta…"), this};
    esporta->setObjectName(QStringLiteral("cmdEsporta"));
    auto* chiudi = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Chiudi"), this};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);
    const auto scrivi = [this] {
        if (!risposta_) return;
        risposta_->ordine = griglia_->modello()->ordine();
        esporta_risultato(this, *risposta_);
    };
    connect(esporta, &QPushButton::clicked, this, scrivi);
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, scrivi);
    auto* cerca = new QShortcut{QKeySequence::Find, this};
    connect(cerca, &QShortcut::activated, griglia_, &GrigliaRisultati::apri_trova);

    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(3 * kPasso);
    colonna->addWidget(titolo_);
    colonna->addWidget(griglia_, 1);
    colonna->addWidget(descrizione_);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addWidget(esporta);
    piede->addWidget(chiudi);
    colonna->addLayout(piede);
    resize(1000, 520);
}

void Form_spec::mostra(const Risposta& risposta) {
    risposta_ = risposta;
    const auto& risultato = risposta.risultato;
    const QString titolo = testo_qt(risposta.titolo());
    setWindowTitle(titolo);
    titolo_->setText(titolo);
    if (!risultato->tabelle.empty())
        griglia_->mostra(std::shared_ptr<const Tabella>{risultato, &risultato->tabelle.front()});
    descrizione(*risultato);
    show();
    raise();
    activateWindow();
}

void Form_spec::descrizione(const Risultato& risultato) {
    descrizione_->clear();
    for (const Etichetta& e : risultato.etichette)
        if (const auto* testo = std::get_if<std::string>(&e.testo);
            testo != nullptr && e.nome == "descrizione")
            descrizione_->setText(QString::fromStdString(*testo).simplified());
}

void Form_spec::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(evento);
}

}  // namespace sortimetra
