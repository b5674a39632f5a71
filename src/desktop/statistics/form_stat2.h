#pragma once

#include "screens/finestra_ricerca.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace sortimetra {

class PannelloGruppo;

/// The group analysis of what the statistics screen shows, in a window beside it.
class Form_stat2 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form_stat2(QWidget* padre);

    void mostra(const EsitoRicerca& esito);
    void imposta_stampabile(bool si);
    [[nodiscard]] PannelloGruppo* pannello() const { return pannello_; }

  signals:
    void stampa_richiesta(const LavoroStampa& lavoro);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    [[nodiscard]] Risposta risposta() const;

    EsitoRicerca esito_;
    QLabel* titolo_;
    QLabel* ambito_;
    PannelloGruppo* pannello_;
    QPushButton* stampa_;
};

}  // namespace sortimetra
