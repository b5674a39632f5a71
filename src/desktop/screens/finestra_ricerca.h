#pragma once

#include "catalogue/ricerche.h"
#include "draws/archivio.h"
#include "files/sessione.h"
#include "results/risposta.h"
#include "screens/cornice_ricerca.h"
#include "screens/ultima_volta.h"

#include <QImage>
#include <QPointer>
#include <QWidget>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

class ComandoUltima;
class CorsaRicerca;
class LatoRisposta;
class GrigliaRisultati;
class PannelloAvanzamento;

/// What a run gave: the answer with its row and its question, and the time it took.
struct EsitoRicerca : Risposta {
    double millisecondi = 0;

    /// Whether there is something to show: a search that was refused has only messages.
    [[nodiscard]] bool prodotto() const { return prodotta(); }
    /// The rows of the first table.
    [[nodiscard]] std::size_t righe() const;
};

/// What a screen hands to the printer, and to whatever else works on what it shows: the answer on show, in
/// the order on show.
struct LavoroStampa {
    QWidget* finestra = nullptr;
    Risposta risposta;
};

/// The window under every search screen. It is opened on a search and an archive, makes the question, runs it
/// under the progress panel, says what a search has to say, prints and exports the answer on show, remembers
/// its place in `schermi.ini` of the program's folder and brings its opener back.
///
/// F5 and Enter start (`avvia`), but on a button Enter presses that button; Esc closes, Ctrl+P prints, Ctrl+E
/// exports, Ctrl+F finds, Ctrl+Shift+F filters, Ctrl+L brings the last question back. What stands beside the
/// answer of any screen (the story of a row, what chance makes of it, wheels side by side) is `LatoRisposta`.
///
/// Every question that gave an answer is remembered in `schermi.ini`, search by search: wheels, calendar,
/// range, order, and the text of each option of the row. A screen that has controls for options of its own
/// fills them in `imposta`.
///
/// A screen puts its widgets into the frame that `incornicia` gives and says what is asked (`parametri`), how
/// the answer is shown (`mostra`) and taken away (`svuota`). One with pages of its own lays them out in
/// `corpo`, and says besides what F5 does (`avvia`) and what is on show (`in_mostra`).
class FinestraRicerca : public QWidget {
    Q_OBJECT
  public:
    /// `nome` is the screen's class name: its object name, and its section in the memory of places.
    FinestraRicerca(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);
    ~FinestraRicerca() override;

    /// Sets the screen on a search: caption, `Tag`, what the screen prepares, then the archive's bounds. It
    /// is shown by the caller. `archivio` must outlive the opening; `apritore` is a screen to bring back on
    /// closing (the catalogue comes back by itself).
    void apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio, QWidget* apritore = nullptr);

    /// The steps of `apri` that a game decides: the archive's bounds in the parameter area, the whole range
    /// chosen. `attivaWFL` offers the hours in place of wheels and calendar.
    virtual void attiva();
    virtual void attivaWFL();

    /// What F5, Enter and the primary button do: runs the search of the controls as they stand, and shows the
    /// answer in place of the one before. Does nothing while one is running.
    virtual void avvia();
    /// Prints or exports the answer on show, if there is one.
    virtual void stampa();
    virtual void esporta();

    /// Fills the controls as they stood when this search was run last (Ctrl+L); nothing runs, and nothing
    /// happens where it never was.
    void come_l_ultima_volta();

    /// What "Stampa" does; the button is disabled without it.
    void imposta_stampa(std::function<void(const LavoroStampa&)> stampa);

    /// What "Stampa" of a story does with its picture.
    void imposta_stampa_storia(std::function<void(QWidget*, const QImage&)> stampa);

    [[nodiscard]] bool in_corsa() const { return corsa_ != nullptr; }
    [[nodiscard]] const Ricerca* ricerca() const { return ricerca_; }
    /// The answer of `avvia` on show; null without one.
    [[nodiscard]] const std::shared_ptr<const Risultato>& risultato() const { return esito_.risultato; }
    /// The parameter area of the frame; null where there is none.
    [[nodiscard]] AreaParametri* area() const;

  signals:
    void chiuso();

  protected:
    /// Called by `apri` once row and archive are known.
    virtual void prepara() = 0;
    /// Shows an answer that was produced.
    virtual void mostra(const EsitoRicerca& /*esito*/) {}
    /// Takes the answer away: another comes, or the scope has changed and it is no longer of this scope. A
    /// screen empties its grids, then leaves the rest to this.
    virtual void svuota();
    /// The answer on show, null where nothing can be printed; and the order of the first table's rows, empty
    /// for that of writing.
    [[nodiscard]] virtual const EsitoRicerca* in_mostra() const;
    [[nodiscard]] virtual std::vector<std::uint32_t> ordine_in_mostra() const { return {}; }
    /// What the search adds to the question; the window puts the scope of its parameter area.
    [[nodiscard]] virtual Parametri parametri() const { return {}; }
    /// Fills the controls from a question, the other way round of `parametri`; the window fills its parameter
    /// area. A screen with controls of its own fills them, then leaves the rest to this.
    virtual void imposta(const Domanda& domanda);
    /// The grid that the user works on: the one with the keyboard, else the first on show; null where there
    /// is none.
    [[nodiscard]] GrigliaRisultati* griglia_in_uso() const;
    /// The grid that fills the answer's room alone: a wide window has the story beside it. Null where there
    /// is none such.
    [[nodiscard]] virtual GrigliaRisultati* griglia_accanto() const { return nullptr; }
    /// What Ctrl+F does.
    virtual void trova() {}
    /// What Ctrl+Shift+F and `cmdFiltra` do: open the filter line of the grid in use.
    virtual void filtra();
    /// An answer or the printer came or went: buttons follow. Those of the frame do so by themselves.
    virtual void aggiorna_comandi();
    /// Shows one message of a search, under the usual title.
    virtual void mostra_messaggio(const Messaggio& messaggio);

    /// Mounts the usual frame, with its buttons connected; once, in the constructor.
    CorniceRicerca* incornicia(CorniceRicerca::Domande domande);
    [[nodiscard]] CorniceRicerca* cornice() const { return cornice_; }
    /// "Come l'ultima volta" for a screen without the frame to put in its place; the frame's stands over the
    /// start button.
    [[nodiscard]] ComandoUltima* comando_ultima() const { return comando_ultima_; }
    /// Where a screen without the frame lays out its own.
    [[nodiscard]] QWidget* corpo() const { return corpo_; }

    /// The question of a row, as the controls stand.
    [[nodiscard]] Domanda domanda(const Ricerca& ricerca) const;
    /// Runs a question of any row under a panel (the window's own if none is given). Empty while another run
    /// is on, or where the row has no search yet.
    [[nodiscard]] EsitoRicerca corri(const Ricerca& ricerca, Domanda domanda,
                                     PannelloAvanzamento* pannello = nullptr);
    /// Puts an answer on show in place of the one before: what `avvia` does once it has one.
    void presenta(const EsitoRicerca& esito);
    /// Tells buttons and bottom line of an answer that a page of the screen has kept; none for an empty one.
    void riprendi(const EsitoRicerca& esito);
    /// Shows what a search had to say.
    void di_messaggi(const EsitoRicerca& esito);
    /// A search that can be stopped by the user shows `cmdAnnulla` in the panel.
    void imposta_annullabile(bool si);
    /// What a run disables, where that is neither the whole window nor, with a cancel button, all but the
    /// panel.
    void imposta_spento(QWidget* parte) { spento_ = parte; }
    /// Tells the run in progress, if there is one, to stop.
    void ferma_corsa();
    /// A cancel stops only what the search is doing at the moment; it is told once, then forgotten.
    void imposta_annullo_a_passi(bool si) { annullo_a_passi_ = si; }

    [[nodiscard]] bool stampabile() const { return stampa_ != nullptr; }
    /// What "Stampa" does, for a window that this one opens beside itself.
    [[nodiscard]] const std::function<void(const LavoroStampa&)>& stampatore() const { return stampa_; }
    /// The answer on show as the printer, and whatever else works on it, is handed it.
    [[nodiscard]] virtual LavoroStampa lavoro();
    [[nodiscard]] bool archivio_simulato() const;
    [[nodiscard]] const ArchivioEstrazioni* archivio() const { return archivio_; }
    [[nodiscard]] Sessione& sessione() const { return sessione_; }

    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    friend class LatoRisposta;

    void scorciatoie();
    void segui_controlli();
    void aggiorna_ultima();
    [[nodiscard]] Concorso ultimo_concorso() const;
    void riordina();
    /// The bottom line: rows of the answer if there is one, draws in scope, time taken, notes.
    void aggiorna_stato();
    [[nodiscard]] std::size_t concorsi_in_ambito() const;

    Sessione& sessione_;
    const Ricerca* ricerca_ = nullptr;
    const ArchivioEstrazioni* archivio_ = nullptr;
    QPointer<QWidget> apritore_;
    EsitoRicerca esito_;  ///< the answer that `avvia` showed last, until it is taken away
    std::function<void(const LavoroStampa&)> stampa_;
    CorsaRicerca* corsa_ = nullptr;
    bool annullabile_ = false;
    QWidget* spento_ = nullptr;
    bool annullo_a_passi_ = false;
    bool posto_letto_ = false;
    /// The order that the next answers are shown in, once the last question has been brought back.
    std::optional<OrdineGriglia> ordine_richiesto_;

    QWidget* corpo_;
    ComandoUltima* comando_ultima_;
    CorniceRicerca* cornice_ = nullptr;
    PannelloAvanzamento* pannello_;
    LatoRisposta* lato_;
};

}  // namespace sortimetra
