#pragma once

#include "results/parole.h"

#include <QFrame>
#include <QString>

class QLabel;

namespace sortimetra {

/// What a title means, as the rich text of its tooltip: name, two sentences, example.
[[nodiscard]] QString testo_spiegazione(const Spiegazione& spiegazione);

/// The same in a small frame under the title that stays until Esc, another key or a click elsewhere, with the
/// way to the manual's chapter. It deletes itself.
class Fumetto final : public QFrame {
    Q_OBJECT
  public:
    /// `capitolo` is the chapter that its link opens.
    Fumetto(QWidget* padre, const Spiegazione& spiegazione, const QString& capitolo);
    /// Shows it with its upper left corner there, moved as far as the screen asks.
    void mostra_a(const QPoint& angolo);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
};

}  // namespace sortimetra
