#pragma once

#include "screens/schermo_ricerca.h"

namespace sortimetra {

/// Frequency and delay of each number in each place of the draw, for the four games. The screen's `Tag` is
/// the game: "lotto", "superenalotto", "10 e lotto", "Win for Life".
///
/// Three title rows; the column of the numbers stays in sight. A button over a column sorts by it, and so
/// does a click on its letter: ascending, and descending when the last click was ascending on the same one.
/// `Command2` prints, `cmdesci` closes.
class Form_posizione final : public SchermoRicerca {
    Q_OBJECT
  public:
    explicit Form_posizione(Sessione& sessione, QWidget* padre = nullptr);

    /// Lays the grid out for SuperEnalotto; for another game, by the `Tag`, goes over to its own routine.
    void inizializza_griglia() override;
    void inizializza_griglia_estratto();
    void inizializza_griglia10();
    void inizializza_grigliaWFL();
};

}  // namespace sortimetra
