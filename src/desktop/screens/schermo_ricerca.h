#pragma once

#include "screens/finestra_ricerca.h"

#include <cstdint>
#include <vector>

namespace sortimetra {

class GrigliaRisultati;

/// The screen of a search that has one grid: left the parameter area and what the search adds, right the
/// result. A change of scope clears the grid.
class SchermoRicerca : public FinestraRicerca {
    Q_OBJECT
  public:
    SchermoRicerca(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);

    /// Lays the grid out for the key.
    virtual void inizializza_griglia() = 0;

    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    [[nodiscard]] const EsitoRicerca* in_mostra() const override;
    [[nodiscard]] std::vector<std::uint32_t> ordine_in_mostra() const override;
    void trova() override;
    [[nodiscard]] GrigliaRisultati* griglia_accanto() const override { return griglia_; }
    void aggiorna_comandi() override;

  private:
    GrigliaRisultati* griglia_;
};

}  // namespace sortimetra
