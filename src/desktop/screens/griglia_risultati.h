#pragma once

#include "results/parole.h"
#include "screens/manuale.h"
#include "screens/modello_risultato.h"

#include <QKeySequence>
#include <QString>
#include <QTableView>
#include <QWidget>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QHelpEvent;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTimer;

namespace sortimetra {

/// The key of the filter line.
inline const QKeySequence kTastoFiltro{Qt::CTRL | Qt::SHIFT | Qt::Key_F};

/// The table view of a grid. The bands of its rows fill what a rounding leaves beside the last column.
class VistaGriglia final : public QTableView {
    Q_OBJECT
  public:
    using QTableView::QTableView;

  signals:
    void copia_richiesta();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
};

/// A result grid: the sort buttons `cmdcol_0`, `cmdcol_1`, … over the view `MSHFlexGrid1`.
///
/// A column has two controls for sorting: its title, which sorts that very column, and beside it (over it,
/// where there are several rows of titles) its small button. A title followed by empty ones spans them. The
/// arrow of a button says by its shape which column is sorted, and which way.
///
/// Ctrl+C copies what is selected as tab-separated text (with one cell, its row), Ctrl+F opens a line that
/// finds in the result, Ctrl+Shift+F one that leaves in sight the rows for which an expression holds. On wide
/// windows the columns stay together.
class GrigliaRisultati final : public QWidget, public Spiegabile {
    Q_OBJECT
  public:
    explicit GrigliaRisultati(QWidget* padre = nullptr);

    /// Titles without rows: what a screen shows before the first search.
    void inizializza(const std::vector<std::vector<std::string>>& titoli);
    /// Shows a table in the order of writing, its first row on top. The tags of the buttons stay.
    void mostra(std::shared_ptr<const Tabella> tabella);
    /// Takes the rows away; titles, the tags of the buttons and the filter line stay.
    void svuota();
    [[nodiscard]] bool vuota() const { return modello_->rowCount() == 0; }

    /// The column that the button of index 1 sorts (see `premi`); its tooltip says so where it is another.
    void imposta_pulsante_1(int colonna);
    /// Other names for the sort buttons, where a screen has several lists: "%1" stands for `primo` and up.
    void imposta_pulsanti(const QString& nomi, int primo) {
        nomi_pulsanti_ = nomi;
        primo_pulsante_ = primo;
    }
    /// What an empty grid says.
    void imposta_frase_vuota(const QString& frase);
    /// Keeps the first column in sight when the table is wider than the window.
    void blocca_prima_colonna(bool si);
    /// A board in place of a list: nothing is sorted, so there are no buttons and every title row is painted
    /// (a title spans the empty ones after it); columns are as narrow as their numbers, which stand in the
    /// middle, and follow the window's width; the row under the pointer is tinted; finding means the whole
    /// cell.
    void imposta_tabellone(bool si);
    /// One of many small lists on a board: columns with less air.
    void imposta_compatta(bool si) { compatta_ = si; }
    /// No sort buttons beside the titles: a click on a title sorts all the same.
    void imposta_senza_pulsanti(bool si) { senza_pulsanti_ = si; }
    /// At most so many pixels are given to columns beyond what they need, -1 for no limit: a wide window
    /// keeps the rest for what stands beside the grid.
    void imposta_spazio(int pixel) { spazio_ = pixel; }
    /// What the table takes, its columns kept together.
    [[nodiscard]] int larghezza_tabella() const;
    /// Columns from `prima_aggiunta` on are no measures of the search and stand in quiet ink (-1 for none);
    /// with `calore` those behind the first have a ground the stronger the greater their value.
    void imposta_aspetto(int prima_aggiunta, bool calore);
    /// Shows "Stampa" in the context menu as working.
    void imposta_stampabile(bool si) { stampabile_ = si; }

    /// The click on `cmdcol` i. With an empty tag it sorts descending and sets the tag "0"; else ascending
    /// and clears it. It sorts column i; button 1 that of `imposta_pulsante_1`. The first row comes to the
    /// top.
    void premi(int pulsante);
    /// Sorts one column, whatever the buttons' tags say.
    void ordina_colonna(int colonna, Verso verso);
    /// Column and direction of the last sort since the table was shown.
    [[nodiscard]] std::optional<std::pair<int, Verso>> ordinamento() const { return ordinamento_; }

    [[nodiscard]] ModelloRisultato* modello() const { return modello_; }
    [[nodiscard]] QTableView* vista() const { return vista_; }
    /// Row of the table (not of the sorted grid) that is current.
    [[nodiscard]] std::optional<std::size_t> riga_scelta() const;

    /// The rows of the table that are selected, the current one first, so many at most.
    [[nodiscard]] std::vector<std::size_t> righe_scelte(std::size_t massimo) const;
    /// Makes a row of the table the current one, where it is on show.
    void scegli_riga(std::size_t riga);

    /// The selection as tab-separated lines, what Ctrl+C puts on the clipboard.
    [[nodiscard]] QString testo_selezione() const;
    void copia() const;
    /// Opens the line that finds in the result.
    void apri_trova();
    /// Opens the line that filters its rows; closing it brings all of them back.
    void apri_filtro();
    void chiudi_filtro();

    /// What a column's title means, with an example from the rows on show; nothing where it is no measure.
    [[nodiscard]] std::optional<Spiegazione> spiegazione(int colonna) const;
    /// F1 on a sort button explains its column, Shift+F1 on a cell that of the cell.
    bool spiega_parte(QWidget* parte, bool maiuscole) override;

  signals:
    void riga_cambiata();
    /// Rows are chosen, or no longer.
    void scelta_cambiata();
    /// The context menu is about to open: others may add to it.
    void menu_aperto(QMenu* menu);
    /// The rows were put in the order of a column.
    void ordinata(int colonna, Verso verso);
    void esporta_richiesta();
    void stampa_richiesta();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    class Testata;
    friend class Testata;

    void componi_viste();
    void componi_trova();
    void componi_filtro();
    void crea_pulsanti();
    void battezza_pulsante(int i);
    void adatta_colonne();
    [[nodiscard]] QString titolo_piu_largo(int colonna) const;
    void disponi();
    void segna_ordinamento();
    void aggiorna_frase();
    void prendi_caratteri();
    void titolo_premuto(int colonna);
    void segna_riga_sotto(int riga);
    void mostra_menu(const QPoint& dove);
    void trova(int passo);
    void cerca_corrispondenze();
    void vai_a(std::size_t corrispondenza);
    void filtra(bool di_errore);
    [[nodiscard]] bool titoli_sotto() const;
    [[nodiscard]] int spazio_colonne() const;
    [[nodiscard]] QString suggerimento(int colonna) const;
    [[nodiscard]] bool suggerisci(const QObject* oggetto, const QHelpEvent& evento);
    [[nodiscard]] int titolo_sotto() const;
    [[nodiscard]] bool tasto_in_riga(QKeyEvent& tasto, const QObject* casella);

    ModelloRisultato* modello_;
    QWidget* campo_;
    VistaGriglia* vista_;
    VistaGriglia* bloccata_;
    Testata* testata_;
    QLabel* frase_;
    QWidget* barra_trova_;
    QLineEdit* testo_trova_;
    QLabel* esito_trova_;
    std::vector<QPushButton*> pulsanti_;
    std::vector<std::pair<int, int>> corrispondenze_;  ///< row and column of the grid as it is sorted now
    std::optional<std::size_t> corrente_;              ///< the one gone to; none before the first
    QWidget* barra_filtro_;
    QLineEdit* testo_filtro_;
    QLabel* conto_filtro_;
    QLabel* errore_filtro_;
    QTimer* pausa_filtro_;
    QString frase_vuota_;
    int pulsante_1_ = 1;
    QString nomi_pulsanti_ = QStringLiteral("cmdcol_%1");
    int primo_pulsante_ = 0;
    std::optional<std::pair<int, Verso>> ordinamento_;
    std::optional<std::pair<int, Verso>> ultimo_titolo_;  ///< last click on a title, kept between searches
    int margine_ = 0;                                     ///< blank on each side of a cell's text
    int riga_sotto_ = -1;
    int spazio_ = -1;
    bool blocca_ = false;
    bool tabellone_ = false;
    bool compatta_ = false;
    bool senza_pulsanti_ = false;
    bool stampabile_ = false;
};

}  // namespace sortimetra
