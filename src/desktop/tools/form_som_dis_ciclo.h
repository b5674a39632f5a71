#pragma once

#include "screens/area_parametri.h"
#include "screens/finestra_ricerca.h"

#include <array>

class QDateEdit;
class QLabel;

namespace sortimetra {

class GrigliaRisultati;

/// The box of a concorso that has to be in the archive: the text field `txtConc` and its stepper `UpDown1`.
/// One that is not comes back, on leaving the box, to the draw on show.
class CasellaEstrazione final : public CasellaConcorso {
    Q_OBJECT
  public:
    explicit CasellaEstrazione(QWidget* padre = nullptr);

    /// The draw on show, in the box too.
    void mostra(Concorso concorso);
    void riporta() override;

  protected:
    [[nodiscard]] bool ammette(QChar c) const override;

  private:
    Concorso mostrato_ = 0;
};

/// "Somme e Distanze Ciclometriche" of one draw, told by its concorso or by its day: box and date picker
/// follow each other, and three boards follow them.
class Form_som_dis_ciclo final : public FinestraRicerca {
    Q_OBJECT
  public:
    explicit Form_som_dis_ciclo(Sessione& sessione, QWidget* padre = nullptr);

    /// Opens on the last draw.
    void inizializza();
    void attiva() override;

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    [[nodiscard]] Parametri parametri() const override;
    void showEvent(QShowEvent* evento) override;

  private:
    void componi_domanda();
    void componi_risposta();
    /// Shows a draw; one that is not in the archive leaves all as it is.
    void carica_estrazione(Concorso concorso);
    void alla_data(const QDate& giorno);

    CasellaEstrazione* concorso_;
    QDateEdit* data_;
    std::array<GrigliaRisultati*, 3> griglie_{};
    std::array<QLabel*, 3> titoli_{};
    QLabel* isotopi_;
    bool fermo_ = false;  ///< box and picker are written by the screen: no search follows
};

}  // namespace sortimetra
