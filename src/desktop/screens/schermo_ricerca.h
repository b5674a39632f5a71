#pragma once

#include "catalogue/ricerche.h"
#include "draws/archivio.h"
#include "files/sessione.h"
#include "results/domanda.h"
#include "results/risultato.h"

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace sortimetra {

class AreaParametri;
class CorsaRicerca;
class FrecciaAnimata;
class GrigliaRisultati;
class PannelloAvanzamento;

/// What a screen hands to the printer: the result on show, in the order on show, and what it was asked.
struct LavoroStampa {
    QWidget* finestra = nullptr;
    const Ricerca* ricerca = nullptr;
    std::shared_ptr<const Risultato> risultato;
    std::vector<std::uint32_t> ordine;  ///< rows of the first table as sorted, empty for the order of writing
    Domanda domanda;
    const ArchivioEstrazioni* archivio = nullptr;
    QString concorsi;  ///< "dal concorso 1 del 22/12/1990 al concorso …"
    QString periodo;   ///< text of `ComboIntervallo`
};

/// The common frame of the search screens. Left the question (the parameter area, what the search adds, the
/// one primary button `Command1`), right the answer, under it one line: rows, draws in scope, time taken, and
/// the buttons `cmdStampa`, `cmdEsporta`, `cmdChiudi`.
///
/// F5 and Enter start the search, Esc closes, Ctrl+P prints, Ctrl+E exports, Ctrl+F finds in the result. The
/// window remembers its place in `schermi.ini` of the program's folder. A change of scope clears the grid.
class SchermoRicerca : public QWidget {
    Q_OBJECT
  public:
    /// `nome` is the screen's class name: its object name, and its section in the memory of places.
    SchermoRicerca(Sessione& sessione, const QString& nome, QWidget* padre = nullptr);
    ~SchermoRicerca() override;

    /// Sets the screen on a search: caption, `Tag`, grid, then the archive's bounds. It is shown by the
    /// caller. `archivio` must outlive the opening; `apritore` is a screen to bring back on closing (the
    /// catalogue comes back by itself).
    void apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio, QWidget* apritore = nullptr);

    /// The steps of `apri` that a game decides: the archive's bounds in the parameter area, the whole range
    /// chosen. `attivaWFL` offers the hours in place of wheels and calendar.
    virtual void attiva();
    virtual void attivaWFL();
    /// Lays the grid out for the key.
    virtual void inizializza_griglia() = 0;

    /// Runs the search of the controls as they stand. Does nothing while one is running.
    void avvia();
    /// Prints or exports the result on show, if there is one.
    void stampa();
    void esporta();

    [[nodiscard]] bool in_corsa() const { return corsa_ != nullptr; }
    [[nodiscard]] const Ricerca* ricerca() const { return ricerca_; }
    [[nodiscard]] const std::shared_ptr<const Risultato>& risultato() const { return risultato_; }
    [[nodiscard]] AreaParametri* area() const { return area_; }
    [[nodiscard]] GrigliaRisultati* griglia() const { return griglia_; }

    /// What "Stampa" does; the button is disabled without it.
    void imposta_stampa(std::function<void(const LavoroStampa&)> stampa);

  signals:
    void chiuso();

  protected:
    /// What the search adds to the question; the base reads the scope alone.
    [[nodiscard]] virtual Parametri parametri() const { return {}; }
    /// Shows a result that was produced.
    virtual void mostra(const std::shared_ptr<const Risultato>& risultato);
    /// Shows one message of a search; the base uses the usual title.
    virtual void mostra_messaggio(const std::string& testo);
    /// A result came, went or another row of it was chosen: buttons follow.
    virtual void aggiorna_comandi();
    /// The grid is cleared, the button left ready.
    virtual void svuota();

    /// The question as the controls stand.
    [[nodiscard]] Domanda domanda() const;
    /// Runs any question of a row of the dispatch table with the panel over the grid; null while another run
    /// is on. `millisecondi` gets the time it took.
    [[nodiscard]] std::shared_ptr<const Risultato> corri(const Ricerca& ricerca, Domanda domanda,
                                                         double* millisecondi = nullptr);
    /// A search that can be stopped by the user shows `cmdAnnulla` in the panel.
    void imposta_annullabile(bool si);

    /// Where a screen puts its own controls: under the parameter area, beside the title, in a row of
    /// commands between the grid and the bottom line.
    [[nodiscard]] QVBoxLayout* colonna_extra() const { return extra_; }
    [[nodiscard]] QHBoxLayout* riga_titolo() const { return riga_titolo_; }
    [[nodiscard]] QHBoxLayout* riga_comandi() const { return riga_comandi_; }
    [[nodiscard]] QPushButton* primario() const { return avvia_; }
    [[nodiscard]] const ArchivioEstrazioni* archivio() const { return archivio_; }
    [[nodiscard]] Sessione& sessione() const { return sessione_; }

    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void componi();
    void scorciatoie();
    void ordina_tabulazione();
    void aggiorna_stato();
    void scrivi_stato(const QString& testo);
    [[nodiscard]] std::size_t concorsi_in_ambito() const;

    Sessione& sessione_;
    const Ricerca* ricerca_ = nullptr;
    const ArchivioEstrazioni* archivio_ = nullptr;
    QPointer<QWidget> apritore_;
    std::shared_ptr<const Risultato> risultato_;
    std::optional<Domanda> domanda_risposta_;  ///< the question that the result on show answers
    double millisecondi_ = 0;
    std::function<void(const LavoroStampa&)> stampa_;
    CorsaRicerca* corsa_ = nullptr;
    bool annullabile_ = false;
    bool posto_letto_ = false;

    QWidget* corpo_;
    QScrollArea* scorri_;
    AreaParametri* area_;
    QVBoxLayout* extra_;
    FrecciaAnimata* freccia_;
    QPushButton* avvia_;
    QHBoxLayout* riga_titolo_;
    QLabel* titolo_;
    QLabel* frase_;
    GrigliaRisultati* griglia_;
    QLabel* stato_;
    QLabel* simulato_;
    QHBoxLayout* riga_comandi_;
    QPushButton* cmd_stampa_;
    QPushButton* cmd_esporta_;
    QPushButton* cmd_chiudi_;
    PannelloAvanzamento* pannello_;
};

}  // namespace sortimetra
