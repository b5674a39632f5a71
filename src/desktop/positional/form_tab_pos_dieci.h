#pragma once

#include "results/risultato_fwd.h"
#include "screens/modello_risultato.h"

#include <QTableView>
#include <memory>

namespace sortimetra {

/// The grid `MSFlexGrid4`: the ten most delayed numbers of each wheel, of Nazionale and of all wheels
/// together, in two bands of six groups.
class GrigliaDieci final : public QTableView {
    Q_OBJECT
  public:
    explicit GrigliaDieci(QWidget* padre = nullptr);

    /// Shows the answer of `dieci_piu_in_ritardo`.
    void mostra(const Risultato& dieci);
    void svuota();
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void disponi();

    ModelloRisultato* modello_;
};

}  // namespace sortimetra
