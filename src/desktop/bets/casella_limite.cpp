#include "bets/casella_limite.h"

#include "screens/tema.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace sortimetra {

namespace {

/// The key code that passes beside the digits and the two signs.
constexpr char16_t kCodiceAmmesso = 28;

bool entra(QChar c) {
    return (c >= QLatin1Char{'0'} && c <= QLatin1Char{'9'}) || c == QLatin1Char{':'} ||
           c == QLatin1Char{','} || c.unicode() == kCodiceAmmesso;
}

/// Keys that move, select or copy: they leave the text as it is.
bool non_scrive(const QKeyEvent& tasto) {
    static constexpr QKeySequence::StandardKey kAzioni[] = {
        QKeySequence::SelectAll,          QKeySequence::Copy,
        QKeySequence::MoveToPreviousChar, QKeySequence::MoveToNextChar,
        QKeySequence::MoveToPreviousWord, QKeySequence::MoveToNextWord,
        QKeySequence::MoveToStartOfLine,  QKeySequence::MoveToEndOfLine,
        QKeySequence::SelectPreviousChar, QKeySequence::SelectNextChar,
        QKeySequence::SelectPreviousWord, QKeySequence::SelectNextWord,
        QKeySequence::SelectStartOfLine,  QKeySequence::SelectEndOfLine,
    };
    return std::any_of(std::begin(kAzioni), std::end(kAzioni),
                       [&](QKeySequence::StandardKey k) { return tasto.matches(k); });
}

/// Keys that are the window's: they go on to it.
bool della_finestra(int tasto) {
    return tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Escape ||
           tasto == Qt::Key_Tab || tasto == Qt::Key_Backtab || (tasto >= Qt::Key_F1 && tasto <= Qt::Key_F35);
}

}  // namespace

CasellaLimite::CasellaLimite(QWidget* padre) : QLineEdit{padre} {
    setObjectName(QStringLiteral("txtLimite"));
    setFont(carattere_tabellare(font()));
    setAlignment(Qt::AlignRight);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    setDragEnabled(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

bool CasellaLimite::event(QEvent* evento) {
    // Editing shortcuts are claimed here before they become keys; those that would change the text are not.
    if (evento->type() == QEvent::ShortcutOverride) {
        const auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        if (tasto != nullptr && !non_scrive(*tasto) && tasto->modifiers() != Qt::NoModifier) {
            evento->ignore();
            return false;
        }
    }
    return QLineEdit::event(evento);
}

void CasellaLimite::keyPressEvent(QKeyEvent* evento) {
    if (non_scrive(*evento)) return QLineEdit::keyPressEvent(evento);
    if (della_finestra(evento->key())) return evento->ignore();
    const auto altri = evento->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const QString testo = evento->text();
    if (testo.size() != 1 || altri != Qt::NoModifier) return;
    const QChar c = testo[0] == QLatin1Char{'.'} ? QLatin1Char{','} : testo[0];
    // Code 28 passes the filter, and is no character to show.
    if (entra(c) && c.isPrint()) insert(QString{c});
}

void CasellaLimite::focusInEvent(QFocusEvent* evento) {
    QLineEdit::focusInEvent(evento);
    selectAll();
}

void CasellaLimite::focusOutEvent(QFocusEvent* evento) {
    QLineEdit::focusOutEvent(evento);
    // Another window on top is no leaving.
    if (evento->reason() != Qt::ActiveWindowFocusReason && evento->reason() != Qt::PopupFocusReason)
        emit lasciata();
}

void CasellaLimite::mousePressEvent(QMouseEvent* evento) {
    // The press that brings the keyboard here must not undo the selection; the next one places the cursor.
    const bool arrivo = selectedText() == text() && !text().isEmpty() && cursorPosition() == text().size();
    QLineEdit::mousePressEvent(evento);
    if (arrivo && evento->button() == Qt::LeftButton) selectAll();
}

void CasellaLimite::mouseReleaseEvent(QMouseEvent* evento) {
    // The middle button would paste.
    if (evento->button() == Qt::MiddleButton) return evento->accept();
    QLineEdit::mouseReleaseEvent(evento);
}

}  // namespace sortimetra
