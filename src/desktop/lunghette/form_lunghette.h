#pragma once

#include "lunghette/schermo_lunghetta.h"

namespace sortimetra {

/// The lunghette of the Lotto.
class Form_lunghette final : public SchermoLunghetta {
    Q_OBJECT
  public:
    explicit Form_lunghette(Sessione& sessione, QWidget* padre = nullptr);
};

/// The lunghette by points of 10eLotto.
class Form_lunghette10Lotto final : public SchermoLunghetta {
    Q_OBJECT
  public:
    explicit Form_lunghette10Lotto(Sessione& sessione, QWidget* padre = nullptr);
};

/// The lunghette by points of Win for Life.
class Form_lunghetteWFL final : public SchermoLunghetta {
    Q_OBJECT
  public:
    explicit Form_lunghetteWFL(Sessione& sessione, QWidget* padre = nullptr);
};

}  // namespace sortimetra
