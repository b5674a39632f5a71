#pragma once

#include "results/risultato_fwd.h"
#include "systems/misure_combinazione.h"

#include <QFrame>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class QGridLayout;
class QLabel;

namespace sortimetra {

class GrigliaRisultati;

/// The frame of one statistic: its grids side by side, each under its title, as many in a row as there is
/// room for. Grids that the size of the combinations does not fill are put away.
class QuadroGriglie final : public QFrame {
    Q_OBJECT
  public:
    QuadroGriglie(Statistica statistica, const QString& nome, QWidget* padre = nullptr);

    /// Titles for combinations of k numbers, no rows.
    void inizializza(std::size_t k);
    void mostra(const std::shared_ptr<const Risultato>& risultato);
    void svuota();

    [[nodiscard]] const std::vector<GrigliaRisultati*>& griglie() const { return griglie_; }
    /// The grid that the keyboard is in, else the first.
    [[nodiscard]] GrigliaRisultati* in_uso() const;

  signals:
    void esporta_richiesta();
    void stampa_richiesta();

  protected:
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void crea_griglia(const QString& nome, const QString& pulsanti, int primo);
    void disponi();
    [[nodiscard]] int per_riga(int quante) const;

    Statistica statistica_;
    std::size_t k_ = 0;
    int in_riga_ = 0;  ///< what the layout was made for
    QGridLayout* disposizione_;
    std::vector<QWidget*> pannelli_;
    std::vector<QLabel*> titoli_;
    std::vector<GrigliaRisultati*> griglie_;
};

}  // namespace sortimetra
