#pragma once

#include "screens/schermo_ricerca.h"

#include <array>

class QButtonGroup;
class QComboBox;
class QFrame;
class QLabel;
class QRadioButton;

namespace sortimetra {

class CasellaCifre;
class Form_stat2;

/// The scattered cinquine of Win for Life: which half of the draw, and from which end the delay is counted.
/// Beside them the ambi of one number, analysed as a group in a window of its own.
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
    void mostra_messaggio(const Messaggio& messaggio) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    [[nodiscard]] QFrame* componi_meta();
    [[nodiscard]] QFrame* componi_capogioco();
    void analizza_gruppo();

    std::array<QRadioButton*, 2> option2_{};
    std::array<QRadioButton*, 2> option1_{};
    QButtonGroup* meta_;
    QButtonGroup* ordine_;
    QLabel* manca_;
    CasellaCifre* capogioco_;
    QComboBox* combo_rit_;
    Form_stat2* stat2_ = nullptr;
};

}  // namespace sortimetra
