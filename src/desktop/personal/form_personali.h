#pragma once

#include "screens/finestra_ricerca.h"

#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;

namespace sortimetra {

class Form_stat;
class GrigliaRisultati;
class SceltaNumeri;
class frmNumeriPersonali;

/// "Ricerche su numeri personali" of four games: numbers are marked on a grid at the left; at the right stand
/// every draw that holds one of them, the measures of each number, and the summary of the whole selection.
/// The game is the row's own.
class Form_Personali final : public FinestraRicerca {
    Q_OBJECT
  public:
    explicit Form_Personali(Sessione& sessione, QWidget* padre = nullptr);
    ~Form_Personali() override;

    /// The decomposition's screen prints as this one does.
    void imposta_stampa(const std::function<void(const LavoroStampa&)>& stampa);

    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }
    [[nodiscard]] GrigliaRisultati* numeri() const { return numeri_; }
    [[nodiscard]] GrigliaRisultati* riepilogo() const { return riepilogo_; }
    /// The summary window of a series; null before the first one.
    [[nodiscard]] frmNumeriPersonali* serie() const { return serie_; }
    /// The screen of the decompositions; null before the first one.
    [[nodiscard]] Form_stat* scomposizione() const { return scomposizione_.get(); }

    /// Takes every mark away, and the grids with them.
    void annulla_ricerche();

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    [[nodiscard]] std::vector<std::uint32_t> ordine_in_mostra() const override;
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    void trova() override;
    void aggiorna_comandi() override;

  private:
    void componi_domande();
    void componi_risposta();
    void selezione_cambiata();
    /// Hands the marked numbers to the statistics screen as all combinations of `sorte` of them.
    void scomponi(int sorte);

    SceltaNumeri* scelta_;
    QLabel* lblnumeri_;
    QWidget* solo_lotto_;  ///< what only the Lotto asks
    QComboBox* estratto_;
    QCheckBox* chiusura_;
    QWidget* riga_scomposizione_;
    std::array<QPushButton*, 5> scomposizioni_{};
    GrigliaRisultati* griglia_;
    GrigliaRisultati* numeri_;
    GrigliaRisultati* riepilogo_;
    frmNumeriPersonali* serie_ = nullptr;
    std::function<void(const LavoroStampa&)> stampa_;
    std::unique_ptr<Form_stat> scomposizione_;
};

}  // namespace sortimetra
