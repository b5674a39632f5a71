#pragma once

#include "positional/tabellone.h"
#include "screens/schermo_ricerca.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace sortimetra {

class PannelloAvanzamento;
class SceltaConcorso;

/// What the screens of the boards share: a window that begins with the chooser of a concorso and then shows
/// one of its pages. A new concorso means opening it again.
///
/// F5 and Enter confirm, Esc closes, Ctrl+P prints, Ctrl+E exports, Ctrl+F finds in the page on show.
class SchermoConcorso : public QWidget {
    Q_OBJECT
  public:
    SchermoConcorso(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);
    ~SchermoConcorso() override;

    /// Sets the screen on a search: caption, `Tag`, then `iniz`. The archive must outlive the opening.
    void apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio);
    /// Reads the archive's last concorso, sets the chooser's box and shows the chooser.
    virtual void iniz();
    /// What `cmdopzioni` 1 does: builds for the concorso in the box, and goes over to the page.
    void conferma();

    /// What the buttons "Stampa" do; they are disabled without it.
    void imposta_stampa(std::function<void(const LavoroStampa&)> stampa);
    /// Prints or exports what the page on show shows.
    virtual void stampa() = 0;
    virtual void esporta() = 0;

    [[nodiscard]] SceltaConcorso* scelta() const { return scelta_; }
    [[nodiscard]] bool in_corsa() const { return corsa_ != nullptr; }
    [[nodiscard]] QWidget* pagina() const;

  signals:
    void chiuso();

  protected:
    /// The board whose limits the chooser has.
    [[nodiscard]] virtual TipoTabellone tipo() const = 0;
    /// Builds and shows; called by `conferma` with the question of the chooser.
    virtual void costruisci(const Domanda& domanda) = 0;
    virtual void trova() {}
    /// What F5 does once a page is on show.
    virtual void ripeti() {}
    /// The hook for printing came or went.
    virtual void aggiorna_comandi() = 0;

    void aggiungi_pagina(QWidget* pagina);
    void mostra_pagina(QWidget* pagina, const QString& titolo);
    /// Runs a search with a panel over the page (the screen's own if none is given); null while another run
    /// is on. A search that did not start has its message shown and gives null.
    [[nodiscard]] std::shared_ptr<const Risultato> corri(const Ricerca& ricerca, Domanda domanda,
                                                         PannelloAvanzamento* pannello = nullptr);
    void stampa_risultato(const Ricerca& ricerca, const std::shared_ptr<const Risultato>& risultato,
                          const Domanda& domanda);
    [[nodiscard]] bool stampabile() const { return stampa_ != nullptr; }
    [[nodiscard]] Domanda domanda(const Ricerca& ricerca) const;
    [[nodiscard]] const Ricerca* ricerca() const { return ricerca_; }
    [[nodiscard]] const ArchivioEstrazioni* archivio() const { return archivio_; }
    [[nodiscard]] Sessione& sessione() const { return sessione_; }

    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    Sessione& sessione_;
    const Ricerca* ricerca_ = nullptr;
    const ArchivioEstrazioni* archivio_ = nullptr;
    std::function<void(const LavoroStampa&)> stampa_;
    CorsaRicerca* corsa_ = nullptr;
    bool posto_letto_ = false;
    QStackedWidget* pagine_;
    QWidget* pagina_scelta_;
    SceltaConcorso* scelta_;
    PannelloAvanzamento* pannello_;
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
                const std::shared_ptr<const Risultato>& risultato, const QString& etichetta);
    void imposta_stampabile(bool si);

    [[nodiscard]] const std::shared_ptr<const Risultato>& risultato() const { return risultato_; }
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
    [[nodiscard]] QString posto(int colonna) const;
    void racconta(const QModelIndex& cella);

    QLabel* titolo_;
    QLabel* etichetta_;
    GrigliaRisultati* griglia_;
    QLabel* stato_;
    QHBoxLayout* comandi_;
    QPushButton* stampa_;
    std::shared_ptr<const Risultato> risultato_;
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
    void stampa() override;
    void esporta() override;

  protected:
    void costruisci(const Domanda& domanda) override;
    void trova() override;
    void aggiorna_comandi() override;
    /// The text of `Label5` over the board.
    [[nodiscard]] virtual QString etichetta() const = 0;

    /// Connects the usual commands of a page of this screen.
    void collega(PaginaTabellone* pagina);
    [[nodiscard]] PaginaTabellone* pagina2() const { return pagina2_; }
    /// The page with a board that is on show; null on another page.
    [[nodiscard]] PaginaTabellone* pagina_tabellone() const;
    /// Runs a board's search and shows the answer on a page. False if there is none.
    bool costruisci_su(PaginaTabellone* pagina, const Ricerca& ricerca, const Domanda& domanda);
    /// The question of the board on show.
    [[nodiscard]] const Domanda& chiesta() const { return chiesta_; }

  private:
    PaginaTabellone* pagina2_;
    Domanda chiesta_;
};

}  // namespace sortimetra
