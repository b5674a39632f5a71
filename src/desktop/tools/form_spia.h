#pragma once

#include "screens/schermo_ricerca.h"

#include <vector>

namespace sortimetra {

class TavolaNumeri;

/// "Numeri Spia": a board of the 90 numbers beside the grid. Each number that is clicked adds its row, in
/// number order, and stays marked until wheel, interval or range change; `Command2` asks for all that are
/// left, and stops them while they run.
class form_spia final : public SchermoRicerca {
    Q_OBJECT
  public:
    explicit form_spia(Sessione& sessione, QWidget* padre = nullptr);

    void attiva() override;
    void inizializza_griglia() override;
    /// What F5 does: the search on all numbers.
    void avvia() override;
    /// Examines one number and adds its row; nothing for one that has it already.
    void inizializza(int numero);

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;

  private:
    void componi_risposta();
    void battezza();
    void premi_tutti();
    /// Examines those of the numbers that are not marked yet.
    void esamina(std::vector<int> numeri);

    TavolaNumeri* tavola_;
    PannelloAvanzamento* pannello_;
    /// The scope changed under a run: its rows are of another scope and are dropped.
    bool scartata_ = false;
};

}  // namespace sortimetra
