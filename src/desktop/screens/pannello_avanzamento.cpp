#include "screens/pannello_avanzamento.h"

#include "screens/tema.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace sortimetra {

namespace {

/// Milliseconds before a search is worth a panel, and between two turns of the event loop.
constexpr qint64 kAttesa = 150;
constexpr qint64 kGiro = 16;

}  // namespace

PannelloAvanzamento::PannelloAvanzamento(QWidget* padre)
    : QFrame{padre},
      scritta_{new QLabel{tr("Analisi archivio in corso"), this}},
      esterna_{new QFrame{this}},
      interna_{new QFrame{esterna_}},
      annulla_{new QPushButton{tr("Annulla Ricerca"), this}} {
    setObjectName(QStringLiteral("FramePro"));
    scritta_->setObjectName(QStringLiteral("lblprogress"));
    esterna_->setObjectName(QStringLiteral("PicEst"));
    interna_->setObjectName(QStringLiteral("PicINT"));
    annulla_->setObjectName(QStringLiteral("cmdAnnulla"));
    assegna_ruolo(this, "pannello");
    assegna_ruolo(esterna_, "barra_fondo");
    assegna_ruolo(interna_, "barra");
    esterna_->setAccessibleName(tr("Avanzamento"));
    esterna_->setFixedHeight(2 * kPasso);
    annulla_->setVisible(false);
    connect(annulla_, &QPushButton::clicked, this, &PannelloAvanzamento::annulla);

    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(6 * kPasso, 4 * kPasso, 6 * kPasso, 4 * kPasso);
    colonna->setSpacing(3 * kPasso);
    colonna->addWidget(scritta_, 0, Qt::AlignHCenter);
    colonna->addWidget(esterna_);
    colonna->addWidget(annulla_, 0, Qt::AlignHCenter);
    hide();
}

void PannelloAvanzamento::imposta_scritta(const QString& testo) {
    scritta_->setText(testo);
}

void PannelloAvanzamento::imposta(double parte) {
    parte_ = std::clamp(parte, 0.0, 1.0);
    interna_->setGeometry(0, 0, static_cast<int>(std::lround(esterna_->width() * parte_)),
                          esterna_->height());
    esterna_->setAccessibleDescription(tr("%1 per cento").arg(std::lround(parte_ * 100)));
}

void PannelloAvanzamento::mostra_su(const QWidget* sopra) {
    const int larghezza = std::max(sizeHint().width(), 80 * kPasso);
    const QSize misura{larghezza, sizeHint().height()};
    QRect dove{QPoint{}, misura};
    dove.moveCenter(QRect{sopra->mapTo(parentWidget(), QPoint{}), sopra->size()}.center());
    setGeometry(dove);
    raise();
    show();
}

void PannelloAvanzamento::imposta_annullabile(bool si) {
    annulla_->setVisible(si);
}

void PannelloAvanzamento::imposta_annulla(const QString& testo) {
    annulla_->setText(testo);
}

void PannelloAvanzamento::resizeEvent(QResizeEvent* evento) {
    QFrame::resizeEvent(evento);
    imposta(parte_);
}

CorsaRicerca::CorsaRicerca(QWidget* disabilitato, PannelloAvanzamento* pannello, const QWidget* sopra)
    : disabilitato_{disabilitato}, pannello_{pannello}, sopra_{sopra}, fuoco_{QApplication::focusWidget()} {
    orologio_.start();
    pannello_->imposta(0);
    legame_ = QObject::connect(pannello, &PannelloAvanzamento::annulla, pannello, [this] { annulla(); });
    disabilitato_->setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

CorsaRicerca::~CorsaRicerca() {
    QObject::disconnect(legame_);
    QApplication::restoreOverrideCursor();
    if (pannello_) pannello_->hide();
    if (disabilitato_) disabilitato_->setEnabled(true);
    // A disabled screen lost the keyboard: it goes back to where it was.
    if (fuoco_ && disabilitato_ && fuoco_->isVisible() && disabilitato_->isAncestorOf(fuoco_))
        fuoco_->setFocus();
}

bool CorsaRicerca::procedi(std::size_t fatto, std::size_t totale) {
    const qint64 ora = orologio_.elapsed();
    const bool presto = ora < kAttesa || ora - ultimo_giro_ < kGiro;
    if (presto && !(pannello_ && pannello_->sempre())) return va_avanti();
    if (pannello_ && sopra_) {
        if (!visto_) pannello_->mostra_su(sopra_);
        visto_ = true;
        pannello_->imposta(totale == 0 ? 0 : static_cast<double>(fatto) / static_cast<double>(totale));
    }
    QApplication::processEvents();
    // Counted from the end of the turn, so that slow painting cannot fill the whole run.
    ultimo_giro_ = orologio_.elapsed();
    return va_avanti();
}

}  // namespace sortimetra
