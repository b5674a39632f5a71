#include "printing/vista_fogli.h"

#include "qt_superficie.h"
#include "screens/tema.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace sortimetra {

namespace {

/// A4, upright: what every report is laid out for.
constexpr Dimensioni kA4{210, 297};
/// Between two sheets side by side, in pixels.
constexpr int kTraFogli = 2 * kPasso;
/// One notch of a wheel.
constexpr int kScatto = 120;

}  // namespace

// ---- the sheet ----

FoglioAnteprima::FoglioAnteprima(QWidget* padre) : QWidget{padre} {
    setObjectName(QStringLiteral("foglio"));
    setAccessibleName(tr("Anteprima della pagina"));
}

void FoglioAnteprima::imposta(const Rapporto* rapporto) {
    rapporto_ = rapporto;
    immagine_ = {};
    update();
}

QSizeF FoglioAnteprima::misure_mm() const {
    const QSizeF verticale{kA4.larghezza, kA4.altezza};
    return rapporto_ != nullptr && rapporto_->orientamento == Orientamento::orizzontale
               ? verticale.transposed()
               : verticale;
}

void FoglioAnteprima::mostra(int pagina) {
    if (pagina == pagina_) return;
    pagina_ = pagina;
    immagine_ = {};
    update();
}

void FoglioAnteprima::imposta_scala(double pixel_per_mm) {
    scala_ = pixel_per_mm;
    const QSize misura = (misure_mm() * scala_).toSize();
    if (misura == size() && misura == minimumSize()) return;
    immagine_ = {};
    setFixedSize(misura);
    update();
}

void FoglioAnteprima::paintEvent(QPaintEvent*) {
    if (rapporto_ == nullptr || pagina_ < 1) return;
    const double punti = devicePixelRatioF();
    if (immagine_.size() != size() * punti) {
        immagine_ = QImage{size() * punti, QImage::Format_RGB32};
        immagine_.fill(Qt::white);  // paper, whatever the skin
        QPainter pittore{&immagine_};
        pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                               QPainter::SmoothPixmapTransform);
        pittore.scale(scala_ * punti, scala_ * punti);
        const QSizeF misure = misure_mm();
        SuperficieQt superficie{pittore, {misure.width(), misure.height()}, rapporto_->orientamento};
        EasyPrint stampante{superficie, {}};
        rapporto_->disegna(stampante, pagina_);
    }
    immagine_.setDevicePixelRatio(punti);
    QPainter{this}.drawImage(0, 0, immagine_);
}

// ---- the reader ----

VistaFogli::VistaFogli(QWidget* padre)
    : QScrollArea{padre},
      tavolo_{new QWidget},
      fogli_{new FoglioAnteprima{tavolo_}, new FoglioAnteprima{tavolo_}} {
    auto* riga = new QHBoxLayout{tavolo_};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(kTraFogli);
    riga->setSizeConstraint(QLayout::SetFixedSize);
    for (FoglioAnteprima* f : fogli_) riga->addWidget(f);
    fogli_[1]->setObjectName(QStringLiteral("foglio_2"));
    fogli_[1]->hide();
    setWidget(tavolo_);
    setAlignment(Qt::AlignCenter);
}

void VistaFogli::imposta(const Rapporto* rapporto) {
    rapporto_ = rapporto;
    for (FoglioAnteprima* f : fogli_) f->imposta(rapporto);
    adatta();
    vai(1);
}

int VistaFogli::pagine() const {
    return rapporto_ == nullptr ? 1 : std::max(rapporto_->pagine, 1);
}

int VistaFogli::prima_in_vista() const {
    return affiancati_ ? pagina_ - (pagina_ - 1) % 2 : pagina_;
}

int VistaFogli::ultima_in_vista() const {
    return affiancati_ ? std::min(prima_in_vista() + 1, pagine()) : pagina_;
}

void VistaFogli::vai(int pagina) {
    pagina_ = std::clamp(pagina, 1, pagine());
    verticalScrollBar()->setValue(0);
    resto_ = 0;
    mostra_pagine();
}

void VistaFogli::mostra_pagine() {
    const int prima = prima_in_vista();
    fogli_[0]->mostra(prima);
    // Behind an odd last page the second sheet's place stays empty, so that the first does not move.
    fogli_[1]->mostra(affiancati_ && prima < pagine() ? prima + 1 : 0);
    fogli_[1]->setVisible(affiancati_);
    emit pagina_cambiata();
}

double VistaFogli::scala_vera() const {
    return logicalDpiX() / kPollice;
}

void VistaFogli::adatta() {
    const QSizeF mm = fogli_[0]->misure_mm();
    const QSize posto = maximumViewportSize() - QSize{4 * kPasso, 4 * kPasso};
    const int barra = verticalScrollBar()->sizeHint().width();
    switch (misura_) {
        case kPaginaIntera:
            scala_ = std::min(posto.width() / mm.width(), posto.height() / mm.height());
            break;
        case kLarghezzaPagina:
            scala_ = (posto.width() - barra) / mm.width();
            break;
        default:
            scala_ = scala_vera() * misura_ / 100.0;
    }
    scala_ = std::max(scala_, 0.5);
    const bool entrano = 2 * std::ceil(mm.width() * scala_) + kTraFogli + barra <= posto.width();
    const bool affiancati = pagine() > 1 && misura_ != kLarghezzaPagina && entrano;
    for (FoglioAnteprima* f : fogli_) f->imposta_scala(scala_);
    if (affiancati != affiancati_) {
        affiancati_ = affiancati;
        mostra_pagine();
    }
    tavolo_->layout()->activate();
}

void VistaFogli::imposta_misura(int misura) {
    if (misura == misura_) return;
    misura_ = misura;
    adatta();
    emit misura_cambiata(misura_);
}

void VistaFogli::ingrandisci(bool di_piu, QPoint attorno) {
    const double ora = 100 * scala_ / scala_vera();
    // A size that is shown already, but for a rounding, is no step.
    constexpr double kUguali = 0.5;
    int nuova = 0;
    if (di_piu) {
        const auto it =
            std::find_if(kPercentuali.begin(), kPercentuali.end(), [&](int p) { return p > ora + kUguali; });
        if (it == kPercentuali.end()) return;
        nuova = *it;
    } else {
        const auto it = std::find_if(kPercentuali.rbegin(), kPercentuali.rend(),
                                     [&](int p) { return p < ora - kUguali; });
        if (it == kPercentuali.rend()) return;
        nuova = *it;
    }
    const QPointF punto = tavolo_->mapFrom(viewport(), attorno);
    const QPointF parte{punto.x() / std::max(tavolo_->width(), 1),
                        punto.y() / std::max(tavolo_->height(), 1)};
    imposta_misura(nuova);
    const auto porta = [](QScrollBar* barra, double dove) { barra->setValue(static_cast<int>(dove)); };
    porta(horizontalScrollBar(), parte.x() * tavolo_->width() - attorno.x());
    porta(verticalScrollBar(), parte.y() * tavolo_->height() - attorno.y());
}

void VistaFogli::ingrandisci(bool di_piu) {
    ingrandisci(di_piu, viewport()->rect().center());
}

bool VistaFogli::volta(bool avanti) {
    QScrollBar* barra = verticalScrollBar();
    if (barra->value() != (avanti ? barra->maximum() : barra->minimum())) return false;
    if (avanti ? ultima_in_vista() >= pagine() : prima_in_vista() <= 1) return true;
    if (avanti) {
        this->avanti();
    } else {
        indietro();
        barra->setValue(barra->maximum());  // reading backwards goes on from the foot
    }
    return true;
}

void VistaFogli::scorri(bool avanti) {
    if (!volta(avanti))
        verticalScrollBar()->triggerAction(avanti ? QAbstractSlider::SliderPageStepAdd
                                                  : QAbstractSlider::SliderPageStepSub);
}

int VistaFogli::scatti(int delta) {
    if ((delta < 0) != (resto_ < 0)) resto_ = 0;
    resto_ += delta;
    const int interi = resto_ / kScatto;
    resto_ -= interi * kScatto;
    return interi;
}

void VistaFogli::wheelEvent(QWheelEvent* evento) {
    const int delta = evento->angleDelta().y();
    if (delta == 0) {
        QScrollArea::wheelEvent(evento);
        return;
    }
    const QScrollBar* barra = verticalScrollBar();
    if (evento->modifiers().testFlag(Qt::ControlModifier)) {
        for (int n = scatti(delta); n != 0; n += n > 0 ? -1 : 1)
            ingrandisci(n > 0, evento->position().toPoint());
        evento->accept();
    } else if (barra->value() == (delta < 0 ? barra->maximum() : barra->minimum())) {
        for (int n = scatti(delta); n != 0; n += n > 0 ? -1 : 1) volta(n < 0);
        evento->accept();
    } else {
        resto_ = 0;
        QScrollArea::wheelEvent(evento);
    }
}

void VistaFogli::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_PageDown || evento->key() == Qt::Key_PageUp)
        scorri(evento->key() == Qt::Key_PageDown);
    else if (evento->key() == Qt::Key_Home || evento->key() == Qt::Key_End)
        evento->ignore();  // the window's: first and last page
    else
        QScrollArea::keyPressEvent(evento);
}

void VistaFogli::resizeEvent(QResizeEvent* evento) {
    QScrollArea::resizeEvent(evento);
    adatta();
}

void VistaFogli::showEvent(QShowEvent* evento) {
    QScrollArea::showEvent(evento);
    adatta();
}

}  // namespace sortimetra
