#include "statistics/form_spec.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/esporta.h"
#include "screens/griglia_risultati.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <variant>

namespace sortimetra {

namespace {

/// Calendar and range of an answer; the columns tell the wheels.
QString testo_ambito(const Risposta& risposta) {
    if (!risposta.ambito) return {};
    const AmbitoDetto& a = *risposta.ambito;
    const auto giorno = [](const std::optional<Data>& d) {
        return d ? Form_spec::tr(" del %1").arg(testo_qt(testo_data(*d))) : QString{};
    };
    return Form_spec::tr("%1, dal concorso %2%3 al concorso %4%5")
        .arg(testo_qt(a.intervallo))
        .arg(a.tratto.da)
        .arg(giorno(a.dal))
        .arg(a.tratto.a)
        .arg(giorno(a.al));
}

}  // namespace

Form_spec::Form_spec(QWidget* padre)
    : QWidget{padre, Qt::Window},
      titolo_{new QLabel{this}},
      ambito_{new QLabel{this}},
      esporta_{new QPushButton{icona(QStringLiteral("esporta")), tr("&Esporta…"), this}},
      griglia_{new GrigliaRisultati{this}},
      descrizione_{new QLabel{this}} {
    setObjectName(QStringLiteral("Form_spec"));
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    assegna_ruolo(titolo_, "titolo");
    descrizione_->setObjectName(QStringLiteral("descrizione"));
    descrizione_->setWordWrap(true);
    descrizione_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    ambito_->setObjectName(QStringLiteral("lblambito"));
    ambito_->setWordWrap(true);
    assegna_ruolo(ambito_, "quieto");
    griglia_->imposta_frase_vuota(
        tr("L'ambito è cambiato.\nChiedi di nuovo la tabella dalla finestra della ricerca."));
    esporta_->setObjectName(QStringLiteral("cmdEsporta"));
    auto* chiudi = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Chiudi"), this};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);
    const auto scrivi = [this] {
        if (!risposta_) return;
        risposta_->ordine = griglia_->modello()->ordine();
        esporta_risultato(this, *risposta_);
    };
    connect(esporta_, &QPushButton::clicked, this, scrivi);
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, scrivi);
    auto* cerca = new QShortcut{QKeySequence::Find, this};
    connect(cerca, &QShortcut::activated, griglia_, &GrigliaRisultati::apri_trova);
    auto* filtro = new QShortcut{kTastoFiltro, this};
    connect(filtro, &QShortcut::activated, griglia_, &GrigliaRisultati::apri_filtro);
    auto* filtra = new QPushButton{icona(QStringLiteral("filtro")), tr("&Filtra"), this};
    filtra->setObjectName(QStringLiteral("cmdFiltra"));
    filtra->setToolTip(tr("Filtra le righe della tabella (Ctrl+Maiusc+F)"));
    assegna_ruolo(filtra, "piatto");
    connect(filtra, &QPushButton::clicked, griglia_, &GrigliaRisultati::apri_filtro);

    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(3 * kPasso);
    auto* testata = new QHBoxLayout;
    testata->addWidget(titolo_, 1);
    testata->addWidget(filtra);
    colonna->addLayout(testata);
    colonna->addWidget(ambito_);
    colonna->addWidget(griglia_, 1);
    colonna->addWidget(descrizione_);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addWidget(esporta_);
    piede->addWidget(chiudi);
    colonna->addLayout(piede);
    resize(1000, 520);
}

void Form_spec::mostra(const Risposta& risposta) {
    risposta_ = risposta;
    const auto& risultato = risposta.risultato;
    const QString titolo = testo_qt(risposta.titolo());
    titolo_->setText(titolo);
    const QString ambito = testo_ambito(risposta);
    ambito_->setText(ambito);
    setWindowTitle(ambito.isEmpty() ? titolo : titolo + QStringLiteral("  ·  ") + ambito);
    esporta_->setEnabled(true);
    if (!risultato->tabelle.empty())
        griglia_->mostra(std::shared_ptr<const Tabella>{risultato, &risultato->tabelle.front()});
    descrizione(*risultato);
    if (!isVisible()) centra();
    show();
    raise();
    activateWindow();
}

void Form_spec::svuota() {
    griglia_->svuota();
    risposta_.reset();
    ambito_->clear();
    setWindowTitle(titolo_->text());
    esporta_->setEnabled(false);
}

/// Over the middle of its screen, within the display.
void Form_spec::centra() {
    const QWidget* sotto = parentWidget();
    if (sotto == nullptr) return;
    const QRect libero = sotto->screen()->availableGeometry().adjusted(0, kBarraTitolo, 0, 0);
    resize(size().boundedTo(libero.size()));
    QRect posto = rect();
    posto.moveCenter(sotto->geometry().center());
    posto.moveLeft(std::clamp(posto.left(), libero.left(), libero.right() + 1 - posto.width()));
    posto.moveTop(std::clamp(posto.top(), libero.top(), libero.bottom() + 1 - posto.height()));
    move(posto.topLeft());
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
