#pragma once

#include "results/risposta.h"

#include <QWidget>
#include <optional>

class QLabel;
class QPushButton;

namespace sortimetra {

class GrigliaRisultati;

/// The table of one family over all wheels: a row per member, a column per wheel, and the fixed text on the
/// family under it.
class Form_spec final : public QWidget {
    Q_OBJECT
  public:
    explicit Form_spec(QWidget* padre = nullptr);

    /// Shows an answer made with the option of all wheels; the title is its key and " - Ritardo per ogni
    /// ruota", the window's caption tells its scope besides. The window opens over the middle of its screen
    /// and is closed with it.
    void mostra(const Risposta& risposta);
    /// The scope of the screen has changed: the table is of another one.
    void svuota();
    /// The text of the family, from the label `descrizione` of the result.
    void descrizione(const Risultato& risultato);
    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void centra();

    QLabel* titolo_;
    QLabel* ambito_;
    QPushButton* esporta_;
    GrigliaRisultati* griglia_;
    QLabel* descrizione_;
    std::optional<Risposta> risposta_;
};

}  // namespace sortimetra
