#pragma once

#include "screens/finestra_ricerca.h"
#include "statistics/serie_corrente.h"

#include <array>

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QTableWidget;

namespace sortimetra {

class GrigliaRisultati;
class PannelloGruppo;
class SceltaNumeri;

/// "Ricerche per Gruppi": a table of lunghette is typed by marking numbers, or opened; it is saved under a
/// name, and analysed. One page for the group, one for the answer, one for the list of the saved groups.
class Form_Gruppi2 final : public FinestraRicerca {
    Q_OBJECT
  public:
    explicit Form_Gruppi2(Sessione& sessione, QWidget* padre = nullptr);

    void avvia() override;

    [[nodiscard]] PannelloGruppo* pannello() const { return pannello_; }
    [[nodiscard]] SceltaNumeri* scelta() const { return scelta_; }
    [[nodiscard]] GrigliaRisultati* salvati() const { return salvati_; }
    /// The lunghette that have been put in.
    [[nodiscard]] const SerieCorrente& gruppo() const { return gruppo_; }

  protected:
    void prepara() override;
    void mostra(const EsitoRicerca& esito) override;
    void svuota() override;
    [[nodiscard]] std::vector<std::uint32_t> ordine_in_mostra() const override;
    [[nodiscard]] Parametri parametri() const override;
    void trova() override;
    void aggiorna_comandi() override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void componi_domande();
    QWidget* componi_gruppo();
    QWidget* componi_nome();
    QWidget* componi_salvati();
    QPushButton* comando(const char* nome, const QString& testo, void (Form_Gruppi2::*azione)());

    void nuovo();                ///< `cmdnuovo`, `cmdannullagruppo`
    void dimensioni_cambiate();  ///< `Cmblunghe`, `cmblunghe2`
    void conferma_lunghetta();   ///< `cmdconferma`
    void elimina_lunghetta();    ///< `Command1`
    void salva();                ///< `cmdsalvagruppo`: asks for the name
    void salva_con_nome();       ///< `cmdoksalva`
    void chiudi_nome();
    void apri_elenco();      ///< `cmdaprigruppo`
    void apri_salvato();     ///< `cmdapri`
    void elimina_salvato();  ///< `cmdelimina`
    void chiudi_elenco();
    void scomponi();

    /// False, with the list closed, where there is none to show.
    bool riempi_elenco();
    void mostra_gruppo();
    void di(const QString& testo);
    void di(const Messaggio& messaggio);
    [[nodiscard]] std::size_t lunghette() const;
    [[nodiscard]] std::size_t numeri() const;
    [[nodiscard]] bool completo() const { return gruppo_.righe() == lunghette(); }
    [[nodiscard]] bool in_nome() const;

    SerieCorrente gruppo_;
    QComboBox* lunghette_;
    QComboBox* numeri_;
    QComboBox* sorte_;
    SceltaNumeri* scelta_;
    QLabel* lblnumeri_;
    QLabel* inserite_;
    QLabel* nome_;
    QTableWidget* tavola_;
    QFrame* riquadro_nome_;
    QLineEdit* txtnome_;
    QPushButton* ok_nome_;
    QPushButton* annulla_nome_;
    QStackedWidget* pagine_;
    QWidget* pagina_gruppo_;
    QWidget* pagina_salvati_;
    GrigliaRisultati* salvati_;
    PannelloGruppo* pannello_;
    QPushButton* torna_;
    std::vector<QPushButton*> comandi_;
};

}  // namespace sortimetra
