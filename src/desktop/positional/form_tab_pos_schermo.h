#pragma once

#include "positional/tabellone.h"
#include "screens/finestra_ricerca.h"

#include <QWidget>
#include <optional>
#include <vector>

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace sortimetra {

class GrigliaRisultati;
class PannelloAvanzamento;
class SceltaConcorso;

/// What the screens of the boards share: a window that begins with the chooser of a concorso and then shows
/// one of its pages. A new concorso means opening it again.
///
/// On the chooser F5 and Enter confirm, on a page they do what the page has to repeat.
class SchermoConcorso : public FinestraRicerca {
    Q_OBJECT
  public:
    SchermoConcorso(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);

    /// Reads the archive's last concorso, sets the chooser's box and shows the chooser.
    virtual void iniz();
    /// What `cmdopzioni` 1 does: builds for the concorso in the box, and goes over to the page.
    void conferma();
    void avvia() override;

    [[nodiscard]] SceltaConcorso* scelta() const { return scelta_; }
    [[nodiscard]] QWidget* pagina() const;

  protected:
    /// The board whose limits the chooser has.
    [[nodiscard]] virtual TipoTabellone tipo() const = 0;
    /// Builds and shows; called by `conferma` with the question of the chooser.
    virtual void costruisci(const Domanda& domanda) = 0;
    /// What F5 does once a page is on show.
    virtual void ripeti() {}
    void aggiorna_comandi() override = 0;

    void prepara() override { iniz(); }
    [[nodiscard]] Parametri parametri() const override;
    /// A board is of one concorso: back to the chooser, with that of the question in its box.
    void imposta(const Domanda& domanda) override;
    /// Runs a search and shows its messages; empty where there is nothing to show.
    [[nodiscard]] EsitoRicerca chiedi(const Ricerca& ricerca, const Domanda& domanda,
                                      PannelloAvanzamento* pannello = nullptr);
    void aggiungi_pagina(QWidget* pagina);
    void mostra_pagina(QWidget* pagina, const QString& titolo);

  private:
    QStackedWidget* pagine_;
    QWidget* pagina_scelta_;
    SceltaConcorso* scelta_;
};

/// A page with a board: its caption, the grid, a line that tells what stands under the pointer, and the
/// commands.
class PaginaTabellone final : public QWidget {
    Q_OBJECT
  public:
    /// `griglia`, `esci` and `stampa` name the grid and the two commands that every board has.
    PaginaTabellone(const QString& nome, const QString& griglia, const QString& esci, const QString& stampa);

    /// Puts a button in the row of the commands, left of the usual ones.
    QPushButton* aggiungi_comando(const QString& nome, const QString& scritta, const QString& figura);
    /// Shows a board built at `concorso`; `etichetta` is the line under the title.
    void mostra(const ArchivioEstrazioni& archivio, TipoTabellone tipo, Concorso concorso,
                const EsitoRicerca& esito, const QString& etichetta);
    void imposta_stampabile(bool si);

    /// What the board shows; without a result before the first one.
    [[nodiscard]] const EsitoRicerca& esito() const { return esito_; }
    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }
    [[nodiscard]] QLabel* etichetta() const { return etichetta_; }
    /// What a cell of the board says, number, wheel, place, delay and day: the line under the grid and the
    /// tooltip.
    [[nodiscard]] QString spiegazione(int riga, int colonna) const;

  signals:
    void esci();
    void stampa();
    void esporta();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    [[nodiscard]] QBoxLayout* componi_piede(const QString& nome_esci);
    [[nodiscard]] QString posto(int colonna) const;
    void racconta(const QModelIndex& cella);

    QLabel* titolo_;
    QLabel* etichetta_;
    GrigliaRisultati* griglia_;
    QLabel* stato_;
    QHBoxLayout* comandi_;
    QPushButton* stampa_;
    EsitoRicerca esito_;
    TipoTabellone tipo_ = TipoTabellone::lotto;
    QString riassunto_;
    std::vector<std::optional<EstrazioneTabellone>> estrazioni_;
    std::vector<std::optional<EstrazioneTabellone>> estrazioni_nazionale_;
};

/// The board of a game with one group of columns, on the page of `MSFlexGrid2`; `Command4` closes, `Command3`
/// prints. The base of both screens with boards.
class SchermoTabellone : public SchermoConcorso {
    Q_OBJECT
  public:
    SchermoTabellone(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);

  protected:
    void costruisci(const Domanda& domanda) override;
    void trova() override;
    void aggiorna_comandi() override;
    [[nodiscard]] const EsitoRicerca* in_mostra() const override;
    /// The text of `Label5` over the board.
    [[nodiscard]] virtual QString etichetta() const = 0;

    /// Connects the usual commands of a page of this screen.
    void collega(PaginaTabellone* pagina);
    [[nodiscard]] PaginaTabellone* pagina2() const { return pagina2_; }
    /// The page with a board that is on show; null on another page.
    [[nodiscard]] PaginaTabellone* pagina_tabellone() const;
    /// Runs a board's search and shows the answer on a page. False if there is none.
    bool costruisci_su(PaginaTabellone* pagina, const Ricerca& ricerca, const Domanda& domanda);

  private:
    PaginaTabellone* pagina2_;
};

}  // namespace sortimetra
