#pragma once

#include <QToolButton>

class QMenu;

namespace sortimetra {

/// The button `cmdSkin`: its text is the skin in use, its menu has all of them.
class PulsanteSkin final : public QToolButton {
    Q_OBJECT
  public:
    explicit PulsanteSkin(QWidget* genitore = nullptr);

    /// Marks a skin as the one in use; outside 1 to 9 none is.
    void segna(int indice);

  signals:
    void scelta(int indice);

  private:
    QMenu* menu_;
};

}  // namespace sortimetra
