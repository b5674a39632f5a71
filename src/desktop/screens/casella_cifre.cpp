#include "screens/casella_cifre.h"

#include "screens/tema.h"
#include "text/testi.h"

#include <QMouseEvent>
#include <QRegularExpressionValidator>
#include <algorithm>

namespace sortimetra {

CasellaCifre::CasellaCifre(QWidget* padre) : QLineEdit{padre} {
    static const QRegularExpression cifre{QStringLiteral("[0-9]*")};
    setValidator(new QRegularExpressionValidator{cifre, this});
    setFont(carattere_tabellare(font()));
    setAlignment(Qt::AlignRight);
}

int CasellaCifre::numero() const {
    return static_cast<int>(std::min<std::int64_t>(valore_iniziale(text().toStdString()), 1'000'000'000));
}

void CasellaCifre::focusInEvent(QFocusEvent* evento) {
    QLineEdit::focusInEvent(evento);
    selectAll();
}

void CasellaCifre::mousePressEvent(QMouseEvent* evento) {
    // The press that brings the keyboard here must not undo the selection; the next one places the cursor.
    const bool arrivo = selectedText() == text() && !text().isEmpty() && cursorPosition() == text().size();
    QLineEdit::mousePressEvent(evento);
    if (arrivo && evento->button() == Qt::LeftButton) selectAll();
}

}  // namespace sortimetra
