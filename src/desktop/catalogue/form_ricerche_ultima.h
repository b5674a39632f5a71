#pragma once

#include "catalogue/ricerche.h"
#include "draws/archivio.h"

#include <QStringList>
#include <QWidget>
#include <utility>
#include <vector>

namespace sortimetra {

/// The last draw of a game, as the player looks it up in the evening. It shows itself whole or, where its
/// place is too low, not at all.
class UltimaEstrazione final : public QWidget {
    Q_OBJECT
  public:
    explicit UltimaEstrazione(QWidget* genitore = nullptr);

    /// Nothing for a game that has no draw of its own, or none in the archive. 10eLotto is drawn by the
    /// wheels of the Lotto.
    void mostra(const ArchivioEstrazioni* archivio, Gioco gioco);
    /// What is shown, one line a row: for those who listen to the screen.
    [[nodiscard]] QString testo() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    [[nodiscard]] int altezza_riga() const;

    QString data_;  ///< "Concorso 4655 del 23/05/2023"
    std::vector<std::pair<QString, QStringList>> righe_;
};

}  // namespace sortimetra
