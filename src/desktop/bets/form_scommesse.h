#pragma once

#include "bets/giochi_online.h"
#include "screens/schermo_ricerca.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace sortimetra {

class CasellaLimite;

/// "Scommesse Lotto": one of nine bets over the eleven wheels, and the way to the betting client.
class Form_scommesse final : public SchermoRicerca {
    Q_OBJECT
  public:
    explicit Form_scommesse(Sessione& sessione, QWidget* padre = nullptr);

    void attiva() override;
    /// The titles of the chosen bet.
    void inizializza_griglia() override;
    /// Takes the rows away.
    void svuota_griglia() { svuota(); }
    void avvia() override;

    GiochiOnline giochi_online;

  protected:
    void prepara() override;
    [[nodiscard]] Parametri parametri() const override;
    /// The analysis; the limit is the file's.
    void imposta(const Domanda& domanda) override;

  private:
    void componi_domanda();
    void carica_limite();
    /// What leaving the limit's box does: the text in its form, the file, the limit in force.
    void lascia_limite();
    void metti_in_vigore(float limite);
    void di_limite(const QString& testo, bool avviso);

    QComboBox* combo1_;
    QLabel* etichetta_limite_;
    CasellaLimite* limite_;
    QLabel* in_vigore_;
    float valore_ = 0;
    QString tenuto_;  ///< the text of the limit in force
};

}  // namespace sortimetra
