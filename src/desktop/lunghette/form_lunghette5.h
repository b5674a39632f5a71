#pragma once

#include "screens/schermo_ricerca.h"

#include <array>

class QButtonGroup;
class QLabel;
class QRadioButton;

namespace sortimetra {

/// The scattered cinquine of Win for Life: which half of the draw, and from which end the delay is counted.
class Form_Lunghette5 final : public SchermoRicerca {
    Q_OBJECT
  public:
    explicit Form_Lunghette5(Sessione& sessione, QWidget* padre = nullptr);

    void attivaWFL() override;
    void inizializza() { inizializza_griglia(); }
    void inizializza_griglia() override;
    /// Does nothing as long as no half, or no order, is chosen.
    void avvia() override;

  protected:
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;

  private:
    std::array<QRadioButton*, 2> option2_{};
    std::array<QRadioButton*, 2> option1_{};
    QButtonGroup* meta_;
    QButtonGroup* ordine_;
    QLabel* manca_;
};

}  // namespace sortimetra
