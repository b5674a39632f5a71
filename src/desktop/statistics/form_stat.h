#pragma once

#include "screens/schermo_ricerca.h"

#include <array>
#include <functional>
#include <vector>

class QComboBox;
class QFrame;
class QLabel;

namespace sortimetra {

class CasellaCifre;
class Form_spec;
class Form_stat2;

/// The screen of nearly all statistics: numbers, ambi, terni, capogioco, series, and the same for the other
/// games. One screen, set on a search by its row of the dispatch table: which controls show follows from the
/// row's options, what runs is the row's function.
class Form_stat final : public SchermoRicerca {
    Q_OBJECT
  public:
    explicit Form_stat(Sessione& sessione, QWidget* padre = nullptr);

    /// The user's numbers and the bet of a decomposition, set by the screen that opens it.
    void imposta_serie(std::vector<int> numeri, int sorte);
    /// Calls the opened screen otherwise than its row does.
    void intitola(const QString& titolo);
    /// Leaves of `ComboRit` the first so many entries and chooses one of them.
    void proponi_tipi(int quanti, int scelto);

    /// How a program of the product is started, given its path; false if it cannot be. A test puts its own
    /// here.
    std::function<bool(const QString& programma)> avvia_programma;
    /// The printer of this screen and of its analysis.

    void inizializza_griglia() override;
    [[nodiscard]] Form_spec* tabella_ruote() const { return spec_; }
    /// The window of the group analysis; null before the first one.
    [[nodiscard]] Form_stat2* analisi() const { return stat2_; }

  protected:
    [[nodiscard]] Parametri parametri() const override;
    void imposta(const Domanda& domanda) override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    void closeEvent(QCloseEvent* evento) override;
    void mostra_messaggio(const Messaggio& messaggio) override;
    void aggiorna_comandi() override;

  private:
    void componi_riquadri();
    void componi_comandi();
    void riempi_combo_rit();
    void apri_tabella_ruote();
    /// `Command3`, `Command4`, `Command5`: analyses what is on show as a group.
    void analizza_gruppo();
    /// Hands the whole result to the slip printing program as the system `ric_stat`, and starts it.
    void passa_alle_schedine();
    /// The table of all wheels is of another scope now.
    void svuota_tabella_ruote();

    QFrame* frame_rit_;
    QComboBox* combo_rit_;
    QFrame* frame_capogioco_;
    CasellaCifre* capogioco_;
    QFrame* frame_ambo_capo_;
    std::array<CasellaCifre*, 2> ambo_capo_{};
    QFrame* frame_estratto_;
    QComboBox* estratto_;
    QLabel* etichetta_comb_;
    QComboBox* combo_comb_;
    QPushButton* cmd_spec_;
    QPushButton* schedine_;
    std::array<QPushButton*, 3> analisi_{};
    Form_spec* spec_ = nullptr;

    std::vector<int> numeri_;
    int sorte_ = 2;
    Form_stat2* stat2_ = nullptr;
};

}  // namespace sortimetra
