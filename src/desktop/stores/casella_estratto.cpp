#include "stores/casella_estratto.h"

#include "screens/tema.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QStyle>

namespace sortimetra {

QList<int> numeri_nel_testo(const QString& testo) {
    static const QRegularExpression cifre{QStringLiteral("[0-9]+")};
    QList<int> numeri;
    for (auto it = cifre.globalMatch(testo); it.hasNext();) {
        bool si = false;
        const int n = it.next().captured().toInt(&si);
        numeri.push_back(si ? n : 0);
    }
    return numeri;
}

CasellaEstratto::CasellaEstratto(int massimo, QWidget* padre) : QLineEdit{padre}, massimo_{massimo} {
    static const QRegularExpression cifre{QStringLiteral("[0-9]{0,2}")};
    setValidator(new QRegularExpressionValidator{cifre, this});
    setFont(carattere_tabellare(font()));
    setAlignment(Qt::AlignCenter);
    setFixedWidth(11 * kPasso);
    connect(this, &QLineEdit::textEdited, this, &CasellaEstratto::scritta);
}

Numero CasellaEstratto::numero() const {
    const int n = text().toInt();
    return n >= 1 && n <= massimo_ ? static_cast<Numero>(n) : Numero{0};
}

void CasellaEstratto::segna(const QString& perche) {
    setToolTip(perche);
    setAccessibleDescription(perche);
    if (property("errato").toBool() == !perche.isEmpty()) return;
    setProperty("errato", !perche.isEmpty());
    style()->unpolish(this);
    style()->polish(this);
}

void CasellaEstratto::scritta(const QString& testo) {
    // After 1 to 9 of the Lotto a second digit may come; after 3 of Win for Life none can.
    const int n = testo.toInt();
    if (testo.size() == 2 || (n > 0 && n * 10 > massimo_)) emit completa();
}

void CasellaEstratto::focusInEvent(QFocusEvent* evento) {
    QLineEdit::focusInEvent(evento);
    selectAll();
}

void CasellaEstratto::keyPressEvent(QKeyEvent* evento) {
    if (evento->matches(QKeySequence::Paste)) {
        const QList<int> numeri = numeri_nel_testo(QApplication::clipboard()->text());
        if (numeri.size() > 1) {
            emit incollati(numeri);
            return;
        }
    }
    switch (evento->key()) {
        case Qt::Key_Space:
        case Qt::Key_Period:
        case Qt::Key_Comma:
        case Qt::Key_Minus:
        case Qt::Key_Slash:
            if (!text().isEmpty()) emit completa();
            return;
        case Qt::Key_Backspace:
            if (text().isEmpty()) {
                emit indietro();
                return;
            }
            break;
        default:
            break;
    }
    QLineEdit::keyPressEvent(evento);
}

}  // namespace sortimetra
