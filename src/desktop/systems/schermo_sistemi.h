#pragma once

#include "screens/finestra_ricerca.h"
#include "systems/parametri.h"

#include <span>
#include <string_view>
#include <vector>

class QCheckBox;
class QStackedWidget;
class QVBoxLayout;

namespace sortimetra {

class CorniceScelta;
class ScegliNumeri;
class ScegliPosizioni;

/// What the screens on conditioned systems share: the boxes `CheckSistema`, one of which is ticked, with what
/// a game does to the parameter area; and the frames that ask for positions or numbers before a search of
/// 10eLotto or Win for Life starts.
class SchermoSistemi : public FinestraRicerca {
    Q_OBJECT
  public:
    /// Asks what the game needs to know first, then runs the search. While it asks, goes on.
    void avvia() override;
    void attiva() override;

    /// Index of the ticked box.
    [[nodiscard]] int sistema() const { return sistema_; }

  protected:
    /// One box for each of `titoli`.
    SchermoSistemi(Sessione& sessione, const QString& nome, std::span<const std::string_view> titoli);

    /// Runs the search of the controls as they stand and shows what it gives.
    virtual void esegui() = 0;
    /// Another box was ticked: what is on show is gone, grids are laid out for the new one.
    virtual void sistema_cambiato() = 0;
    /// Whether the search asks for positions or numbers: not for a saved system.
    [[nodiscard]] virtual bool chiede_scelte() const { return true; }

    void svuota() override;
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    void mostra_messaggio(const Messaggio& messaggio) override;
    void keyPressEvent(QKeyEvent* evento) override;

    /// The answer's room: the screen puts its pages there and says which is on show.
    void aggiungi_pagina(QWidget* pagina);
    void mostra_pagina(QWidget* pagina);
    [[nodiscard]] QVBoxLayout* domande() const;
    /// The game of the ticked box.
    [[nodiscard]] Gioco gioco() const;
    /// Says what a run without a result had to remark.
    void di_note(const EsitoRicerca& esito);
    void inizia_da(int sistema);

  private:
    void componi_scelta(CorniceScelta* scelta);
    void sistema_premuto(int indice, bool si);
    /// The parameter area for the game of the ticked box.
    void prepara_area();
    [[nodiscard]] CorniceScelta* scelta_del_gioco() const;
    [[nodiscard]] CorniceScelta* scelta_in_mostra() const;
    void in_vista(QWidget* pagina);
    void torna_alla_pagina();
    void scelta_fatta();

    std::vector<QCheckBox*> caselle_;
    QStackedWidget* pagine_;
    QWidget* pagina_ = nullptr;  ///< of the answer, also while a choice stands over it
    ScegliPosizioni* posizioni_;
    ScegliNumeri* numeri_;
    ParametriSistemi scelte_;  ///< positions and numbers of the answers on show
    int sistema_ = 0;
    bool con_ore_ = false;  ///< the area has Win for Life's hours and bounds
    bool fermo_ = false;
};

}  // namespace sortimetra
