#pragma once

#include <QLineEdit>

namespace sortimetra {

/// The box of the Under/Over limit: digits, ":" and "," get into it, a point becomes a comma, and nothing is
/// erased, neither by Backspace nor by cutting or pasting: what is selected is typed over. The text is
/// selected when the keyboard comes to it.
class CasellaLimite final : public QLineEdit {
    Q_OBJECT
  public:
    explicit CasellaLimite(QWidget* padre = nullptr);

  signals:
    /// The keyboard has gone to another control.
    void lasciata();

  protected:
    bool event(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
};

}  // namespace sortimetra
