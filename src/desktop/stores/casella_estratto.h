#pragma once

#include "draws/archivio.h"

#include <QLineEdit>
#include <QList>

namespace sortimetra {

/// The box of one drawn number. Digits only; a number that no further digit can continue is complete, and so
/// is any at a blank, a point, a comma or a dash: the keyboard belongs to the next box then. Several numbers
/// pasted at once are handed on.
class CasellaEstratto final : public QLineEdit {
    Q_OBJECT
  public:
    /// Numbers from 1 to `massimo`.
    explicit CasellaEstratto(int massimo, QWidget* padre = nullptr);

    /// The number in the box; 0 when it is empty or beyond the game's numbers.
    [[nodiscard]] Numero numero() const;
    [[nodiscard]] int massimo() const { return massimo_; }
    /// Marks a number that cannot stand here; `perche` is told by the tooltip.
    void segna(const QString& perche);

  signals:
    /// The number is typed to its end.
    void completa();
    /// Backspace in an empty box: the one before is meant.
    void indietro();
    /// Two or more numbers came by the clipboard.
    void incollati(const QList<int>& numeri);

  protected:
    void focusInEvent(QFocusEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void scritta(const QString& testo);

    int massimo_;
};

/// The whole numbers of a text, whatever stands between them.
[[nodiscard]] QList<int> numeri_nel_testo(const QString& testo);

}  // namespace sortimetra
