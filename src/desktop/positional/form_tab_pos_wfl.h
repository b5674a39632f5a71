#pragma once

#include "positional/form_tab_pos_schermo.h"

namespace sortimetra {

/// The board of Win for Life: twenty numbers, ten columns. It has the `Tag` of the 10eLotto board and a
/// database of its own; everything else is that of the other boards.
class form_tab_posWFL final : public SchermoTabellone {
    Q_OBJECT
  public:
    explicit form_tab_posWFL(Sessione& sessione, QWidget* padre = nullptr);

  protected:
    [[nodiscard]] TipoTabellone tipo() const override { return TipoTabellone::win_for_life; }
    [[nodiscard]] QString etichetta() const override;
};

}  // namespace sortimetra
