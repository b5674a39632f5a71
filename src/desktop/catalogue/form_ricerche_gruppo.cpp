#include "catalogue/form_ricerche_gruppo.h"

#include "screens/tema.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kMargineCasella = 3 * kPasso;
constexpr int kRaggio = 2 * kPasso;

QFont carattere_didascalia(const QWidget& w) {
    QFont f = w.font();
    f.setPointSizeF(f.pointSizeF() * 1.1);
    f.setWeight(QFont::DemiBold);
    return f;
}

QFont carattere_sotto(const QWidget& w) {
    QFont f = w.font();
    f.setWeight(QFont::Normal);
    f.setPointSizeF(f.pointSizeF() * 0.92);
    return f;
}

}  // namespace

PulsanteGruppo::PulsanteGruppo(const QString& didascalia, const QString& sotto, const QString& tasto,
                               QWidget* genitore)
    : QPushButton{didascalia, genitore}, sotto_{sotto}, tasto_{tasto} {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(didascalia);
    setAccessibleDescription(tasto.isEmpty() ? sotto : tr("%1. Tasto %2.").arg(sotto, tasto));
}

QSize PulsanteGruppo::sizeHint() const {
    const QFontMetrics grande{carattere_didascalia(*this)};
    const QFontMetrics piccolo{carattere_sotto(*this)};
    const int testo = std::max(grande.horizontalAdvance(text()), piccolo.horizontalAdvance(sotto_));
    const int quadro = grande.height() + 2 * kPasso;
    return {3 * kMargineCasella + quadro + testo,
            std::max(15 * kPasso, grande.height() + piccolo.height() + 4 * kPasso)};
}

QSize PulsanteGruppo::minimumSizeHint() const {
    const QFontMetrics grande{carattere_didascalia(*this)};
    const QFontMetrics piccolo{carattere_sotto(*this)};
    return {sizeHint().width(), grande.height() + piccolo.height() + 2 * kPasso};
}

void PulsanteGruppo::paintEvent(QPaintEvent*) {
    const Skin& s = skin_in_uso();
    const auto* cornice = qobject_cast<const CorniceGruppo*>(parentWidget());
    const bool premuto = cornice != nullptr && cornice->premuta();
    const QColor testo = QColor::fromRgb(premuto ? s.testo_trovato : s.testo);
    const QColor quieto = QColor::fromRgb(premuto ? s.testo_trovato : s.testo_quieto);
    QPainter p{this};
    p.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) p.setOpacity(0.5);

    const QFont grande = carattere_didascalia(*this);
    const QFont piccolo = carattere_sotto(*this);
    const QFontMetrics misure{grande};
    const QFontMetrics misure_piccole{piccolo};
    const int quadro = misure.height() + 2 * kPasso;
    const QRect tasto{kMargineCasella, (height() - quadro) / 2, quadro, quadro};
    if (tasto_.isEmpty()) {
        icona(QStringLiteral("tabella"), premuto ? TintaIcona::testo : TintaIcona::quieto)
            .paint(&p, tasto.adjusted(kPasso, kPasso, -kPasso, -kPasso));
    } else {
        // The key, as it looks on the keyboard.
        p.setPen(QPen{premuto ? testo : QColor::fromRgb(s.bordo), 1});
        p.setBrush(premuto ? testo : QColor::fromRgb(s.superficie));
        p.drawRoundedRect(QRectF{tasto}.adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
        p.setFont(grande);
        p.setPen(premuto ? QColor::fromRgb(s.trovato) : quieto);
        p.drawText(tasto, Qt::AlignCenter, tasto_);
    }
    const int sinistra = tasto.right() + 1 + kMargineCasella;
    const int alto = (height() - misure.height() - misure_piccole.height()) / 2;
    p.setFont(grande);
    p.setPen(testo);
    p.drawText(QRect{sinistra, alto, width() - sinistra - kPasso, misure.height()},
               Qt::AlignLeft | Qt::AlignVCenter, text());
    p.setFont(piccolo);
    p.setPen(quieto);
    p.drawText(QRect{sinistra, alto + misure.height(), width() - sinistra - kPasso, misure_piccole.height()},
               Qt::AlignLeft | Qt::AlignVCenter, sotto_);
}

CorniceGruppo::CorniceGruppo(PulsanteGruppo* pulsante, bool dispari, QWidget* genitore)
    : QFrame{genitore}, pulsante_{pulsante}, dispari_{dispari} {
    auto* piano = new QHBoxLayout{this};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->addWidget(pulsante);
    pulsante->installEventFilter(this);
}

void CorniceGruppo::premi(bool premuta) {
    premuta_ = premuta;
    update();
    pulsante_->update();
}

QColor CorniceGruppo::tinta() const {
    const Skin& s = skin_in_uso();
    return QColor::fromRgb(premuta_ ? s.trovato : dispari_ ? s.tinta_b : s.tinta_a);
}

void CorniceGruppo::paintEvent(QPaintEvent*) {
    const Skin& s = skin_in_uso();
    QPainter p{this};
    p.setRenderHint(QPainter::Antialiasing);
    const bool fuoco = pulsante_->hasFocus();
    const bool sopra = pulsante_->isEnabled() && pulsante_->underMouse();
    const double penna = fuoco ? 2 : 1;
    QColor bordo = QColor::fromRgb(fuoco || sopra ? s.accento : s.linea);
    // On the yellow of the pressed one the accent may not stand out; the text's colour does.
    if (fuoco && premuta_)
        bordo = QColor::fromRgb(contrasto(s.accento, s.trovato) >= 3 ? s.accento : s.testo_trovato);
    p.setPen(QPen{bordo, penna});
    p.setBrush(tinta());
    const double m = penna / 2;
    p.drawRoundedRect(QRectF{rect()}.adjusted(m, m, -m, -m), kRaggio, kRaggio);
}

bool CorniceGruppo::eventFilter(QObject* oggetto, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::EnabledChange:
            update();
            break;
        default:
            break;
    }
    return QFrame::eventFilter(oggetto, evento);
}

}  // namespace sortimetra
