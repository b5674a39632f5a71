#include "tools/tavola_numeri.h"

#include "draws/ruote.h"
#include "screens/tema.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kPerRiga = 10;
constexpr QSize kMinima{6 * kPasso, 5 * kPasso};
constexpr QSize kMassima{11 * kPasso, 12 * kPasso};
constexpr double kRaggio = kPasso;

}  // namespace

CasellaNumero::CasellaNumero(int numero, QWidget* padre)
    : QLabel{QString::number(numero), padre}, numero_{numero} {
    setObjectName(QStringLiteral("lblnum_%1").arg(numero));
    setAlignment(Qt::AlignCenter);
    setFont(carattere_tabellare(font()));
    setMinimumSize(kMinima);
    setMaximumSize(kMassima);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_Hover);
    descrivi();
}

void CasellaNumero::descrivi() {
    setAccessibleName(segnato_ ? tr("Numero %1, esaminato").arg(numero_) : tr("Numero %1").arg(numero_));
    setToolTip(segnato_ ? tr("Il %1 è già nella tabella").arg(numero_)
                        : tr("Cerca la spia del %1").arg(numero_));
}

void CasellaNumero::segna(bool si) {
    if (si == segnato_) return;
    segnato_ = si;
    descrivi();
    update();
}

void CasellaNumero::imposta_corrente(bool si) {
    if (si == corrente_) return;
    corrente_ = si;
    update();
}

void CasellaNumero::enterEvent(QEnterEvent* evento) {
    QLabel::enterEvent(evento);
    update();
}

void CasellaNumero::leaveEvent(QEvent* evento) {
    QLabel::leaveEvent(evento);
    update();
}

void CasellaNumero::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint())) emit premuta();
}

void CasellaNumero::paintEvent(QPaintEvent*) {
    const Skin& s = skin_in_uso();
    QPainter p{this};
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF bordo = QRectF{rect()}.adjusted(1, 1, -1, -1);
    const bool sotto = isEnabled() && underMouse() && !segnato_;
    p.setPen(QPen{QColor::fromRgb(corrente_  ? s.accento
                                  : segnato_ ? s.linea
                                             : s.bordo),
                  corrente_ ? 2.0 : 1.0});
    p.setBrush(QColor::fromRgb(sotto ? s.selezione : segnato_ ? s.rilievo : s.superficie));
    p.drawRoundedRect(bordo, kRaggio, kRaggio);

    QFont carattere = font();
    carattere.setBold(segnato_);
    p.setFont(carattere);
    p.setPen(QColor::fromRgb(sotto ? s.testo_selezione : segnato_ ? s.avviso : s.testo));
    p.drawText(rect(), Qt::AlignCenter, text());
    if (!segnato_) return;
    // The colour is not the only sign.
    const QPointF angolo = bordo.topRight();
    p.setPen(QPen{QColor::fromRgb(s.avviso), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    p.drawPolyline(QPolygonF{{angolo + QPointF{-8, 5}, angolo + QPointF{-6, 7}, angolo + QPointF{-3, 3}}});
}

TavolaNumeri::TavolaNumeri(QWidget* padre) : QWidget{padre} {
    setObjectName(QStringLiteral("lblnum"));
    setAccessibleName(tr("Numeri da 1 a 90"));
    setFocusPolicy(Qt::StrongFocus);
    auto* griglia = new QGridLayout{this};
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setSpacing(kPasso / 2);
    for (int n = 1; n <= kNumeri; ++n) {
        auto* c = new CasellaNumero{n, this};
        caselle_[static_cast<std::size_t>(n)] = c;
        griglia->addWidget(c, (n - 1) / kPerRiga, (n - 1) % kPerRiga);
        connect(c, &CasellaNumero::premuta, this, [this, n] {
            setFocus(Qt::MouseFocusReason);
            sposta(n);
            emit scelto(n);
        });
    }
    setMaximumSize(kPerRiga * (kMassima.width() + kPasso), kNumeri / kPerRiga * (kMassima.height() + kPasso));
}

void TavolaNumeri::segna(std::span<const int> numeri) {
    for (int n = 1; n <= kNumeri; ++n)
        casella(n)->segna(std::find(numeri.begin(), numeri.end(), n) != numeri.end());
    sposta(corrente_);
}

bool TavolaNumeri::segnato(int numero) const {
    return casella(numero)->segnato();
}

void TavolaNumeri::sposta(int numero) {
    casella(corrente_)->imposta_corrente(false);
    corrente_ = std::clamp(numero, 1, kNumeri);
    casella(corrente_)->imposta_corrente(hasFocus());
    setAccessibleDescription(casella(corrente_)->accessibleName());
}

void TavolaNumeri::keyPressEvent(QKeyEvent* evento) {
    const auto entro = [](int n, int altrimenti) { return n >= 1 && n <= kNumeri ? n : altrimenti; };
    switch (evento->key()) {
        case Qt::Key_Left:
            return sposta(corrente_ - 1);
        case Qt::Key_Right:
            return sposta(corrente_ + 1);
        case Qt::Key_Up:
            return sposta(entro(corrente_ - kPerRiga, corrente_));
        case Qt::Key_Down:
            return sposta(entro(corrente_ + kPerRiga, corrente_));
        case Qt::Key_Home:
            return sposta(1);
        case Qt::Key_End:
            return sposta(kNumeri);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit scelto(corrente_);
            return;
        default:
            QWidget::keyPressEvent(evento);
    }
}

void TavolaNumeri::focusInEvent(QFocusEvent* evento) {
    QWidget::focusInEvent(evento);
    sposta(corrente_);
}

void TavolaNumeri::focusOutEvent(QFocusEvent* evento) {
    QWidget::focusOutEvent(evento);
    sposta(corrente_);
}

}  // namespace sortimetra
