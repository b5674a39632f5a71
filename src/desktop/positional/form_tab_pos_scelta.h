#pragma once

#include "positional/tabellone.h"
#include "screens/area_parametri.h"

#include <QFrame>
#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace sortimetra {

/// The concorso box of a board: the text field `txtconc` and its stepper `UpDown1`. Digits alone get into it.
///
/// Stepper and text begin apart: the text shows the last concorso, while the stepper of some boards stands
/// 401 below it and goes on from there. A text typed within the limits takes the stepper along.
class CasellaTabellone final : public CasellaConcorso {
    Q_OBJECT
  public:
    explicit CasellaTabellone(QWidget* padre = nullptr);

    /// New limits, the stepper's place and the text on show; the box counts as untouched again.
    void apri(LimitiConcorso limiti, Concorso passo, Concorso mostrato);
    /// The concorso in the box if the user put it there, nothing while it stands as it was opened.
    [[nodiscard]] std::optional<Concorso> scritto() const;
    /// Puts a concorso in the box as the user would.
    void scrivi(Concorso concorso);
    /// What leaving the box does to a concorso that the user put there: into the limits.
    void riporta() override;
    [[nodiscard]] Concorso passo() const { return passo_; }

    void stepBy(int passi) override;

  signals:
    /// The box brought `da` back to `a`.
    void riportato(int da, int a);

  protected:
    [[nodiscard]] bool ammette(QChar c) const override;
    [[nodiscard]] StepEnabled stepEnabled() const override;

  private:
    LimitiConcorso limiti_;
    Concorso passo_ = 0;
    bool toccato_ = false;
};

/// The chooser `Frame1` that the screens of the boards begin with: which draw the delays are counted at.
class SceltaConcorso final : public QFrame {
    Q_OBJECT
  public:
    explicit SceltaConcorso(QWidget* padre = nullptr);

    void apri(const ArchivioEstrazioni& archivio, TipoTabellone tipo, const QString& frase);
    [[nodiscard]] CasellaTabellone* casella() const { return casella_; }
    /// Shows "Attendere Prego" while the board is built.
    void attesa(bool si);
    void fuoco_su_conferma();
    /// Puts a command of the screen under the box.
    void aggiungi_comando(QWidget* comando);

  signals:
    /// `cmdopzioni` 1. Enter in the box is the window's, as everywhere.
    void confermato();
    /// `cmdopzioni` 0.
    void chiuso();

  private:
    void componi();
    QBoxLayout* componi_comandi();
    void aggiorna_data();

    CasellaTabellone* casella_;
    QLabel* data_;
    QLabel* frase_;
    QLabel* limiti_;
    QLabel* messaggio_;
    QPushButton* conferma_;
    const ArchivioEstrazioni* archivio_ = nullptr;
    TipoTabellone tipo_ = TipoTabellone::lotto;
};

}  // namespace sortimetra
