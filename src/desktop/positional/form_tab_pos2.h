#pragma once

#include "positional/form_tab_pos_etichette.h"
#include "positional/form_tab_pos_schermo.h"

#include <QImage>
#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

class QScrollArea;

namespace sortimetra {

class AreaParametri;
class GrigliaDieci;

/// One page of the best delays: a card per family, its groups and their delays in the labels `lblDatiTab`.
class PaginaMigliori final : public QWidget {
    Q_OBJECT
  public:
    /// Which page, and how its commands are named.
    struct Nomi {
        int pagina;
        const char* cornice;
        const char* stampa;
        const char* immagine;
        const char* esci;
        const char* freccia;
        const char* intestazione;
    };

    PaginaMigliori(const Nomi& nomi, std::span<QLabel* const> etichette);

    [[nodiscard]] int numero() const { return nomi_.pagina; }
    [[nodiscard]] const EsitoRicerca& esito() const { return esito_; }
    /// Puts a widget under the cards, with a heading.
    void aggiungi_sotto(QWidget* widget, const QString& titolo);
    /// Fills the labels; `ambito` says what the figures are about.
    void mostra(const EsitoRicerca& esito, const QString& ambito);
    void svuota();
    void imposta_stampabile(bool si, bool come_immagine);
    /// A page of the scroll bar down or up.
    void scorri(bool avanti);
    /// The cards, and what stands under them, below the line that a printed page begins with: 300 dots to the
    /// inch of `kLarghezzaCarta` on white, of the same shape however wide the window is, nothing cut and
    /// nothing to scroll.
    [[nodiscard]] QImage immagine();
    /// How wide that picture is on paper, in mm.
    static constexpr double kLarghezzaCarta = 190;

  signals:
    void stampa();
    void stampa_immagine();
    void esporta();
    void esci();
    void volta();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    [[nodiscard]] QBoxLayout* componi_testata();
    void componi_contenuto(std::span<QLabel* const> etichette);
    [[nodiscard]] QBoxLayout* componi_piede();
    QWidget* componi_scheda(std::size_t prima, std::size_t dopo, std::span<QLabel* const> etichette);
    /// As many cards side by side as a width leaves room for.
    void disponi_schede(int larghezza);
    void aggiorna_comandi();

    Nomi nomi_;
    QLabel* ambito_;
    QLabel* intestazione_;
    QPushButton* freccia_;
    QPushButton* stampa_;
    QPushButton* immagine_;
    QPushButton* esporta_;
    QScrollArea* scorri_;
    QWidget* contenuto_;
    QWidget* campo_;
    std::vector<QWidget*> schede_;
    std::vector<QLabel*> gruppi_;   ///< in the order of the search's rows
    std::vector<QLabel*> ritardi_;  ///< the same
    int colonne_ = 0;
    bool stampabile_ = false;
    bool come_immagine_ = false;
    EsitoRicerca esito_;
};

/// "I Migliori Ritardi Statistici": the survey of 31 families of groups, those with the greatest delays of
/// each, on two pages. The first also has the list of the ten most delayed numbers.
///
/// The figures of a page stay until its next run; a line over them says which wheels and which concorso they
/// belong to.
class form_tab_pos2 final : public SchermoConcorso {
    Q_OBJECT
  public:
    explicit form_tab_pos2(Sessione& sessione, QWidget* padre = nullptr);

    void iniz() override;
    /// Runs the first page, and the second.
    void CalcolaTabellone();
    void CalcolaTabellone2();

    /// Prints a picture: what "Come immagine…" does with the page in sight.
    void imposta_stampa_immagine(std::function<void(QWidget* finestra, const QImage&)> stampa);
    void stampa_immagine();

  protected:
    [[nodiscard]] TipoTabellone tipo() const override { return TipoTabellone::lotto; }
    void costruisci(const Domanda& domanda) override;
    void aggiorna_comandi() override;
    [[nodiscard]] const EsitoRicerca* in_mostra() const override;
    void ripeti() override;
    void imposta(const Domanda& domanda) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    QWidget* componi_colonna();
    [[nodiscard]] PaginaMigliori* in_vista() const;
    void volta(int pagina);
    void calcola(PaginaMigliori* pagina);

    std::array<QLabel*, kEtichetteMigliori> lblDatiTab_{};
    std::array<PaginaMigliori*, 2> pagine_{};
    std::array<QPushButton*, 2> avvia_{};
    std::array<PannelloAvanzamento*, 2> pannelli_{};
    QWidget* cornice_;
    QStackedWidget* pila_;
    AreaParametri* area_;
    QLabel* concorso_;
    GrigliaDieci* dieci_;
    std::function<void(QWidget*, const QImage&)> stampa_immagine_;
    Domanda chiesta_;
};

}  // namespace sortimetra
