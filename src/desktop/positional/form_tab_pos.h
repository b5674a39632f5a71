#pragma once

#include "positional/form_tab_pos_schermo.h"

namespace sortimetra {

class GrigliaDieci;

/// "Tabellone Posizionale": each number once, in the row of its delay and the column where it last came out.
/// The `Tag` says which board: "tabpos" and "10num" the Lotto, "tabpos_s" the first drawn numbers,
/// "tabpos_s6" the sestina, "tabpos_10" the combination of 10eLotto. "10num" goes on from the board to the
/// list of the ten most delayed numbers.
class form_tab_pos final : public SchermoTabellone {
    Q_OBJECT
  public:
    explicit form_tab_pos(Sessione& sessione, QWidget* padre = nullptr);

  protected:
    [[nodiscard]] TipoTabellone tipo() const override;
    [[nodiscard]] QString etichetta() const override;
    void costruisci(const Domanda& domanda) override;
    void aggiorna_comandi() override;
    [[nodiscard]] const EsitoRicerca* in_mostra() const override;

  private:
    QWidget* componi_pagina_dieci();
    QWidget* componi_terza();
    /// The list of the ten most delayed, at the board's concorso.
    void mostra_dieci();
    void mostra_tabellone();

    PaginaTabellone* pagina_lotto_;
    QWidget* pagina_dieci_ = nullptr;
    QLabel* titolo_dieci_ = nullptr;
    GrigliaDieci* griglia_dieci_ = nullptr;
    QPushButton* stampa_dieci_ = nullptr;
    EsitoRicerca dieci_;  ///< of the board on show; empty until it is asked for
};

}  // namespace sortimetra
