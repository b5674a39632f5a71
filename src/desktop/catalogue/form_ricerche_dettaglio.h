#pragma once

#include "catalogue/cerca.h"
#include "draws/archivio.h"

#include <QFrame>

class QLabel;
class QPushButton;

namespace sortimetra {

class UltimaEstrazione;

/// The card `FrameDettaglio`: where the highlighted search stands, its name, what it counts, the last draw of
/// its game, why it cannot be opened, and `cmdConferma`.
class FrameDettaglio final : public QFrame {
    Q_OBJECT
  public:
    explicit FrameDettaglio(QWidget* genitore = nullptr);

    /// `dove` is where it stands; `impedisce` why it cannot be opened, empty if it can.
    void mostra(const VoceElenco& voce, const QString& dove, const QString& impedisce,
                const ArchivioEstrazioni* archivio);
    void svuota();
    [[nodiscard]] QPushButton* conferma() const { return cmd_conferma_; }

  private:
    QLabel* lbl_dove_;
    QLabel* lbl_nome_;
    QLabel* lbl_frase_;
    UltimaEstrazione* ultima_;
    QLabel* lbl_impedimento_;
    QPushButton* cmd_conferma_;
};

}  // namespace sortimetra
