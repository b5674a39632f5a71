#pragma once

#include "screens/finestra_ricerca.h"

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace sortimetra {

class PannelloGruppo;

/// The group analysis of what the statistics screen shows, in a window beside it.
class Form_stat2 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form_stat2(QWidget* padre);

    /// Shows an answer and comes to the front. `stampa` is what "Stampa" does; disabled without it.
    void mostra(const Risposta& risposta, std::function<void(const LavoroStampa&)> stampa);
    [[nodiscard]] PannelloGruppo* pannello() const { return pannello_; }

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    [[nodiscard]] Risposta risposta() const;
    void aggiorna_stampa();

    Risposta risposta_;
    QLabel* titolo_;
    QLabel* ambito_;
    PannelloGruppo* pannello_;
    std::function<void(const LavoroStampa&)> stampatore_;
    QPushButton* stampa_;
};

}  // namespace sortimetra
