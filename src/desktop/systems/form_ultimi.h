#pragma once

#include "systems/schermo_sistemi.h"

namespace sortimetra {

class GrigliaRisultati;

/// Every measure of the last twenty draws, a column each, the newest first; under it the draws themselves.
class Form_Ultimi final : public SchermoSistemi {
    Q_OBJECT
  public:
    explicit Form_Ultimi(Sessione& sessione);

    [[nodiscard]] GrigliaRisultati* tabella() const { return tabella_; }
    [[nodiscard]] GrigliaRisultati* lista() const { return lista_; }

  protected:
    void prepara() override {}
    void esegui() override;
    void sistema_cambiato() override;
    void svuota() override;
    void trova() override;

  private:
    QWidget* pagina_;
    GrigliaRisultati* tabella_;
    GrigliaRisultati* lista_;
};

}  // namespace sortimetra
