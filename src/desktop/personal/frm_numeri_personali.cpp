#include "personal/frm_numeri_personali.h"

#include "results/risultato.h"
#include "screens/esporta.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace sortimetra {

frmNumeriPersonali::frmNumeriPersonali(QWidget* padre)
    : QWidget{padre, Qt::Window}, griglia_{new GrigliaRisultati{this}} {
    setObjectName(QStringLiteral("frmNumeriPersonali"));
    setWindowTitle(tr("Riepilogo Numeri Personali"));
    auto* titolo = new QLabel{windowTitle()};
    assegna_ruolo(titolo, "titolo");
    auto* frase = new QLabel{tr("Le estrazioni fino alla chiusura della serie.")};
    assegna_ruolo(frase, "quieto");
    const auto bottone = [this](const char* nome, const QString& testo, const char* figura) {
        auto* b = new QPushButton{icona(QString::fromLatin1(figura)), testo, this};
        b->setObjectName(QString::fromLatin1(nome));
        return b;
    };
    auto* stampa = bottone("Command1", tr("&Stampa"), "stampa");
    auto* esporta = bottone("cmdEsporta", tr("&Esporta…"), "esporta");
    auto* chiudi = bottone("cmdChiudi", tr("&Chiudi"), "chiudi");
    const auto carta = [this] { emit stampa_richiesta({.finestra = this, .risposta = sola_serie()}); };
    const auto file = [this] { esporta_risultato(this, sola_serie()); };
    connect(stampa, &QPushButton::clicked, this, carta);
    connect(esporta, &QPushButton::clicked, this, file);
    connect(chiudi, &QPushButton::clicked, this, &QWidget::close);
    connect(griglia_, &GrigliaRisultati::stampa_richiesta, this, carta);
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, file);
    griglia_->imposta_stampabile(true);
    connect(new QShortcut{QKeySequence::Find, this}, &QShortcut::activated, griglia_,
            &GrigliaRisultati::apri_trova);
    connect(new QShortcut{QKeySequence::Print, this}, &QShortcut::activated, this, carta);

    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(titolo);
    colonna->addWidget(frase);
    colonna->addWidget(griglia_, 1);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    for (QPushButton* b : {stampa, esporta, chiudi}) piede->addWidget(b);
    colonna->addLayout(piede);
    resize(820, 480);
}

Risposta frmNumeriPersonali::sola_serie() const {
    Risposta risposta = risposta_;
    auto risultato = std::make_shared<Risultato>(*risposta_.risultato);
    auto& tabelle = risultato->tabelle;
    // The series first: it is what is exported; the numbers stay for the head on paper.
    std::stable_partition(tabelle.begin(), tabelle.end(), [](const Tabella& t) { return t.nome == "serie"; });
    std::erase_if(tabelle, [](const Tabella& t) { return t.nome != "serie" && t.nome != "numeri"; });
    risultato->titolo = windowTitle().toStdString();
    risposta.risultato = std::move(risultato);
    risposta.ordine = griglia_->modello()->ordine();
    return risposta;
}

void frmNumeriPersonali::mostra(const Risposta& risposta) {
    risposta_ = risposta;
    for (const Tabella& t : risposta.risultato->tabelle)
        if (t.nome == "serie") griglia_->mostra(std::shared_ptr<const Tabella>{risposta.risultato, &t});
    show();
    raise();
}

void frmNumeriPersonali::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(evento);
}

}  // namespace sortimetra
