#pragma once

#include "results/risultato_fwd.h"

#include <QWidget>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>

class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QSplitter;

namespace sortimetra {

class GrigliaRisultati;

/// The answer of a group analysis as two windows show it: the measures of the group (`MSHFlexGrid2`) with its
/// bands
/// (`lblfasce`), the question of the probability (`Frame7`), the delays (`ListView1`) and the outcomes
/// (`ListView2`) with the sort buttons `cmdstat`, and on demand the lunghette (`ListView4`) and the
/// combinations of one of them
/// (`ListView5` in `Frame9`).
class PannelloGruppo final : public QWidget {
    Q_OBJECT
  public:
    explicit PannelloGruppo(QWidget* padre = nullptr);

    /// Shows an answer of `analisi_gruppo`. The most frequent delay's row is selected.
    void mostra(const std::shared_ptr<const Risultato>& risultato);
    void svuota();
    /// Whether the combinations of one lunghetta can be asked for (`SkinLabel5`).
    void imposta_scomponibile(bool si);
    /// Shows the combinations of one lunghetta; null closes them.
    void mostra_scomposta(std::shared_ptr<const Tabella> dettaglio);
    /// The combinations are on show.
    [[nodiscard]] bool scomposta() const;
    /// Row of the lunghette's table that is chosen, from 0.
    [[nodiscard]] std::optional<std::size_t> lunghetta_scelta() const;

    [[nodiscard]] GrigliaRisultati* ritardi() const { return ritardi_; }
    [[nodiscard]] GrigliaRisultati* esiti() const { return esiti_; }
    [[nodiscard]] GrigliaRisultati* lunghette() const { return lunghette_; }
    [[nodiscard]] GrigliaRisultati* combinazioni() const { return combinazioni_; }

  signals:
    /// The combinations of the chosen lunghetta are asked for.
    void scomposta_richiesta();
    void stampa_richiesta();
    void esporta_richiesta();

  private:
    QWidget* componi_sintesi();
    QWidget* componi_lunghette();
    void mostra_lunghette(bool si);
    void riempi_probabilita();
    void aggiorna_probabilita();

    GrigliaRisultati* sintesi_;
    std::array<QLabel*, 3> fasce_{};
    QFrame* frame7_;
    QComboBox* entro_;
    QLabel* probabilita_;
    GrigliaRisultati* ritardi_;
    GrigliaRisultati* esiti_;
    QWidget* riquadro_ritardi_;
    QWidget* riquadro_lunghette_;
    GrigliaRisultati* lunghette_;
    QPushButton* scomponi_;
    QFrame* frame9_;
    GrigliaRisultati* combinazioni_;
    QPushButton* dettaglio_;
    int ritardo_ = 0;
    int storico_ = 0;
    bool scomponibile_ = false;
};

}  // namespace sortimetra
