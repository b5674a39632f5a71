#pragma once

#include <QLineEdit>

namespace sortimetra {

/// A box for a whole number: digits and the backspace only, typed or pasted; its text is selected when the
/// keyboard comes to it, so that typing replaces it.
class CasellaCifre final : public QLineEdit {
    Q_OBJECT
  public:
    explicit CasellaCifre(QWidget* padre = nullptr);

    /// The number in the box, 0 when it is empty; a very long one stays above any valid number.
    [[nodiscard]] int numero() const;

  protected:
    void focusInEvent(QFocusEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
};

}  // namespace sortimetra
