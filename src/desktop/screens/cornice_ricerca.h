#pragma once

#include <QWidget>

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace sortimetra {

class AreaParametri;
class AreaScorrevole;
class FrecciaAnimata;

/// The frame that most screens stand in. Left the question (the parameter area where there is one, what the
/// screen adds, the one primary button `Command1`), right title, sentence and answer, under it one line: the
/// simulated archive's badge, what the result is, and the buttons `cmdStampa`, `cmdEsporta`, `cmdChiudi`.
///
/// It knows nothing of searches: the window connects its buttons and says what its labels show.
class CorniceRicerca final : public QWidget {
    Q_OBJECT
  public:
    /// What stands at the top of the left column.
    enum class Domande { con_parametri, proprie };

    explicit CorniceRicerca(Domande domande, QWidget* padre = nullptr);

    /// The parameter area; null with questions of the screen's own.
    [[nodiscard]] AreaParametri* area() const { return area_; }
    /// Where a screen puts its own controls: under the parameter area, beside the title, in the answer's
    /// room, in a row of commands between the answer and the bottom line.
    [[nodiscard]] QVBoxLayout* colonna_extra() const { return extra_; }
    [[nodiscard]] QHBoxLayout* riga_titolo() const { return riga_titolo_; }
    [[nodiscard]] QVBoxLayout* risposta() const { return risposta_; }
    [[nodiscard]] QHBoxLayout* riga_comandi() const { return riga_comandi_; }
    /// The row that holds the answer's room, and what may stand beside it; its width.
    [[nodiscard]] QHBoxLayout* riga_risposta() const { return riga_risposta_; }
    [[nodiscard]] int larghezza_risposta() const;

    /// Puts a command of the question over the start button.
    void aggiungi_sopra_avvio(QWidget* comando);

    [[nodiscard]] QPushButton* primario() const { return avvia_; }
    /// Opens the filter line of the grid (`cmdFiltra`).
    [[nodiscard]] QPushButton* cmd_filtra() const { return cmd_filtra_; }
    [[nodiscard]] QPushButton* cmd_stampa() const { return cmd_stampa_; }
    [[nodiscard]] QPushButton* cmd_esporta() const { return cmd_esporta_; }
    [[nodiscard]] QPushButton* cmd_chiudi() const { return cmd_chiudi_; }

    void intitola(const QString& titolo, const QString& frase);
    void segna_simulato(bool si);
    /// The sentence under the answer that says what chance makes of it; "" for none.
    void di_del_caso(const QString& frase);
    /// The bottom line's text, cut where it is too long; the tooltip has the whole.
    void scrivi_stato(const QString& testo);
    /// Printing is not there at all, or waits for a result, as exporting does.
    void abilita_stampa(bool collegata, bool qualcosa);
    void abilita_esporta(bool qualcosa);
    /// Tab in the order of reading: the question, the start button, the answer, what to do with it.
    void ordina_tabulazione();
    /// Before the window is shown: the left column as wide as planned, or as its widest content where the
    /// font is larger.
    void adatta_colonna();
    [[nodiscard]] FrecciaAnimata* freccia() const { return freccia_; }

  protected:
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void adatta_titolo();
    [[nodiscard]] QBoxLayout* componi_domande();
    [[nodiscard]] QBoxLayout* componi_risposta();
    [[nodiscard]] QBoxLayout* componi_piede();

    AreaParametri* area_;
    AreaScorrevole* scorri_;
    QVBoxLayout* extra_;
    QVBoxLayout* sopra_avvio_;
    FrecciaAnimata* freccia_;
    QPushButton* avvia_;
    QHBoxLayout* riga_titolo_;
    QLabel* titolo_;
    QPushButton* cmd_filtra_;
    QLabel* frase_;
    QWidget* campo_;
    QVBoxLayout* risposta_;
    QHBoxLayout* riga_risposta_;
    QLabel* caso_;
    QHBoxLayout* riga_comandi_;
    QLabel* simulato_;
    QLabel* stato_;
    QPushButton* cmd_stampa_;
    QPushButton* cmd_esporta_;
    QPushButton* cmd_chiudi_;
};

}  // namespace sortimetra
