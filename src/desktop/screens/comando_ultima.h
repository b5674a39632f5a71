#pragma once

#include <QWidget>

class QAction;
class QPushButton;

namespace sortimetra {

/// "Come l'ultima volta" (`cmdUltima`) and beside it the menu with the setting that does it by itself
/// (`cmdRiapri`, `mnuRiapri`).
class ComandoUltima final : public QWidget {
    Q_OBJECT
  public:
    explicit ComandoUltima(QWidget* padre = nullptr);

    /// Whether there is a last time, and whether the setting is on.
    void mostra(bool ricordata, bool riapre);
    [[nodiscard]] QList<QWidget*> tasti() const;

  signals:
    void premuto();
    void riapri_scelto(bool si);

  private:
    QPushButton* ultima_;
    QAction* riapri_;
    QWidget* menu_;
};

}  // namespace sortimetra
