#pragma once

#include "personal/poste.h"
#include "printing/rapporto.h"
#include "screens/finestra_ricerca.h"

#include <array>
#include <functional>

class QAction;
class QButtonGroup;
class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace sortimetra {

class CasellaCifre;
class GrigliaPoste;

/// "Piramide Statistica": the triangle of ten rows on its panel `FramePiramide`, and on `Frameschedine` the
/// stakes of each row, kept in `impir.dat`. Slips are printed from that file.
class Form_Piramide final : public FinestraRicerca {
    Q_OBJECT
  public:
    explicit Form_Piramide(Sessione& sessione, QWidget* padre = nullptr);

    void avvia() override;

    /// How a report that is no answer is printed: the slips.
    void imposta_stampa_rapporto(std::function<void(QWidget*, Rapporto)> stampa);
    [[nodiscard]] GrigliaPoste* poste() const { return poste_; }
    [[nodiscard]] bool sulle_schedine() const;

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    void aggiorna_comandi() override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void componi_domande();
    QWidget* componi_piramide();
    QWidget* componi_schedine();
    void svuota_piramide();
    void apri_parametri();      ///< `mnuparametri`
    void stampa_le_schedine();  ///< `mnustampa`
    void salva_poste();         ///< `cmdframesch_1`
    bool lascia_poste();        ///< `cmdframesch_0`; false where the user stays
    [[nodiscard]] int opzione() const;
    /// The stakes on disk, made from the defaults where there are none; nothing, told, where they cannot be
    /// read.
    [[nodiscard]] std::optional<Poste> poste_su_disco();

    QButtonGroup* opzioni_;
    std::array<CasellaCifre*, 2> numeri_{};
    std::array<std::array<QLabel*, kRighePiramide>, kRighePiramide> celle_{};
    QLabel* invito_;
    QLabel* piede_;
    QListWidget* testi_;  ///< `List1`: the two digits of every cell, row by row; never on show
    QStackedWidget* pannelli_;
    GrigliaPoste* poste_;
    QPushButton* schedine_;
    QAction* stampa_schedine_;
    std::function<void(QWidget*, Rapporto)> stampa_rapporto_;
};

}  // namespace sortimetra
