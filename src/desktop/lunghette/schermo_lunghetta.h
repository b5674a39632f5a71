#pragma once

#include "lunghette/lunghetta.h"
#include "screens/finestra_ricerca.h"

#include <array>
#include <functional>
#include <memory>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QRadioButton;
class QVBoxLayout;

namespace sortimetra {

class CasellePersonali;
class Form_stat;
class TavolaLunghetta;

/// The screen of the lunghette, one for three games: what is searched for, what the lunghetta begins with and
/// how long it is to be at the left, its slots and its score at the right. What differs by game follows from
/// the game of the row on which it is opened.
class SchermoLunghetta : public FinestraRicerca {
    Q_OBJECT
  public:
    SchermoLunghetta(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);
    ~SchermoLunghetta() override;

    /// The public entry of old: opening the screen does all that there is to do.
    void inizializza() {}
    void attiva() override;
    void avvia() override;
    /// What prints here prints the decomposition, too.
    void imposta_stampa(const std::function<void(const LavoroStampa&)>& stampa);

    [[nodiscard]] TavolaLunghetta* tavola() const { return tavola_; }
    /// The screen of `cmdscomposizione` once it has been asked for.
    [[nodiscard]] Form_stat* scomposizione() const { return scomposizione_.get(); }

  protected:
    void prepara() override;
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    void aggiorna_comandi() override;
    void mostra_messaggio(const Messaggio& messaggio) override;

  private:
    void componi_domande();
    void componi_opzioni(QVBoxLayout* colonna);
    void componi_comandi();
    void svuota_label();
    /// The click on `Combo1`: captions, which options there are, the first one chosen.
    void ricerca_scelta();
    /// The captions that follow from `Combo1` and `Check2`.
    void scrivi_didascalie();
    void layout(int ricerca);
    void opzione_scelta(int opzione);
    void lunghezza_scelta();
    void posizione_cambiata(bool si);
    void frequente_cambiata(bool si);
    /// Goes on growing what stands, to the length of `ComboLunga`.
    void allunga();
    void scomponi();
    void passo(const PassoLunghetta& passo);

    [[nodiscard]] bool a_punti() const;
    [[nodiscard]] int lunghezza() const;
    void scegli_lunghezza(int lunghezza);

    QComboBox* combo1_;
    QComboBox* combo_lunga_;
    std::array<QRadioButton*, 5> option1_{};
    QButtonGroup* opzioni_;
    std::array<QLabel*, 3> lbloption_{};
    QLabel* lbldesc_;
    CasellePersonali* personali_;
    QCheckBox* check1_;
    QCheckBox* check2_;
    TavolaLunghetta* tavola_;
    QPushButton* cmdscomposizione_;

    /// What stands on the board, as the growth reads it back; null on an empty one.
    std::shared_ptr<const Lunghetta> stato_;
    std::vector<PassoLunghetta> passi_;
    OsservaPasso osserva_;
    std::shared_ptr<const Lunghetta> partenza_;  ///< set while a lunghetta is made longer
    std::function<void(const LavoroStampa&)> stampa_;
    std::unique_ptr<Form_stat> scomposizione_;
};

}  // namespace sortimetra
