#pragma once

#include "screens/finestra_ricerca.h"

#include <QWidget>

class QPushButton;

namespace sortimetra {

class GrigliaRisultati;

/// "Riepilogo Numeri Personali": the draws up to the closing of a series, beside the screen that asked for
/// them.
class frmNumeriPersonali final : public QWidget {
    Q_OBJECT
  public:
    explicit frmNumeriPersonali(QWidget* padre);

    /// Shows the table "serie" of an answer.
    void mostra(const EsitoRicerca& esito);
    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }

  signals:
    void stampa_richiesta(const LavoroStampa& lavoro);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    /// The answer with nothing but the series, as it is printed and exported.
    [[nodiscard]] Risposta sola_serie() const;

    EsitoRicerca esito_;
    GrigliaRisultati* griglia_;
};

}  // namespace sortimetra
