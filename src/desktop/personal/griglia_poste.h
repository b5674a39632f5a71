#pragma once

#include "personal/poste.h"

#include <QTableWidget>
#include <array>

class QCheckBox;

namespace sortimetra {

/// The stake grid `MSHFlexGrid1`: a row per row of the pyramid, a column per bet, the row's total, and the
/// box `Checksch` that says whether its slip is printed. A cell is edited in the box `txtimporto`, which
/// takes digits and the comma; leaving it brings the stake to a multiple of 0,05.
class GrigliaPoste final : public QTableWidget {
    Q_OBJECT
  public:
    explicit GrigliaPoste(QWidget* padre = nullptr);

    /// Shows stakes; what is shown counts as saved.
    void mostra(const Poste& poste);
    [[nodiscard]] Poste poste() const;
    /// A cell or a box has been changed since `mostra` or `segna_salvate`.
    [[nodiscard]] bool modificate() const { return modificate_; }
    void segna_salvate() { modificate_ = false; }

  private:
    void calcolo_importo(int riga);
    [[nodiscard]] QCheckBox* casella(int riga) const { return caselle_[static_cast<std::size_t>(riga)]; }

    std::array<QCheckBox*, kRighePiramide> caselle_{};
    bool modificate_ = false;
    bool fermo_ = false;  ///< set while the grid itself writes cells
};

}  // namespace sortimetra
