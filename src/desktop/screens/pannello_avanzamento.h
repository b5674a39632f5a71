#pragma once

#include "draws/avanzamento.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QPointer>
#include <utility>

class QLabel;
class QPushButton;

namespace sortimetra {

/// The frame `FramePro` over the middle of a grid: the bar `PicEst` with its inner bar `PicINT`, the label
/// `lblprogress`, and for searches that can be stopped the button `cmdAnnulla`.
class PannelloAvanzamento final : public QFrame {
    Q_OBJECT
  public:
    explicit PannelloAvanzamento(QWidget* padre);

    /// What it says over the bar; at first "Analisi archivio in corso".
    void imposta_scritta(const QString& testo);
    /// Part done, 0 to 1.
    void imposta(double parte);
    [[nodiscard]] double parte() const { return parte_; }
    /// Shows the panel over the middle of `sopra`, a widget inside the panel's parent.
    void mostra_su(const QWidget* sopra);
    void imposta_annullabile(bool si);
    /// A run shows the panel at once and lets the windows live at each of its reports, not only once it has
    /// taken long: for who wants to see every step.
    void imposta_sempre(bool si) { sempre_ = si; }
    [[nodiscard]] bool sempre() const { return sempre_; }
    /// What `cmdAnnulla` says; at first "Annulla Ricerca".
    void imposta_annulla(const QString& testo);

  signals:
    void annulla();

  protected:
    void resizeEvent(QResizeEvent* evento) override;

  private:
    QLabel* scritta_;
    QFrame* esterna_;
    QFrame* interna_;
    QPushButton* annulla_;
    double parte_ = 0;
    bool sempre_ = false;
};

/// One run of a search on a screen, from construction to destruction: the screen is disabled, the pointer
/// waits, and the search's reports move the panel and keep the windows alive.
///
/// The panel appears only once the search has taken 150 ms; after that the bar moves and the event loop runs
/// sixty times a second at most, however often the search reports.
class CorsaRicerca final : public Avanzamento {
  public:
    /// `disabilitato` is disabled for the run, the panel (which must not lie inside it if the search is to be
    /// cancelled) appears over `sopra`.
    CorsaRicerca(QWidget* disabilitato, PannelloAvanzamento* pannello, const QWidget* sopra);
    ~CorsaRicerca() override;

    bool procedi(std::size_t fatto, std::size_t totale) override;
    /// The search is told to stop at its next report.
    void annulla() { annullata_ = true; }
    /// For a search that stops piece by piece: it is told once for each cancel, then goes on.
    void imposta_annullo_a_passi(bool si) { a_passi_ = si; }
    [[nodiscard]] bool annullata() const { return annullata_; }
    /// Milliseconds since the run began.
    [[nodiscard]] double trascorsi() const { return static_cast<double>(orologio_.nsecsElapsed()) / 1e6; }

  private:
    QPointer<QWidget> disabilitato_;
    QPointer<PannelloAvanzamento> pannello_;
    QPointer<const QWidget> sopra_;
    QPointer<QWidget> fuoco_;
    QMetaObject::Connection legame_;
    QElapsedTimer orologio_;
    qint64 ultimo_giro_ = 0;
    bool visto_ = false;
    bool annullata_ = false;
    bool a_passi_ = false;

    [[nodiscard]] bool va_avanti() { return a_passi_ ? !std::exchange(annullata_, false) : !annullata_; }
};

}  // namespace sortimetra
