#pragma once

#include "lunghette/lunghetta.h"

#include <QFrame>
#include <QLabel>
#include <array>
#include <vector>

namespace sortimetra {

/// One slot `lblnum` of a lunghetta. Its text is the number; what it looks like tells whether the number is
/// one of those that the lunghetta began with, or the one that came in last.
class CasellaLunghetta final : public QLabel {
    Q_OBJECT
  public:
    enum class Aspetto { vuota, seme, entrata, ultima };

    explicit CasellaLunghetta(QWidget* padre);
    /// `passo` is the ordinal of the step that brought it in, from 1; 0 for none, and for the seed.
    void scrivi(const QString& numero, Aspetto aspetto, int passo);
    [[nodiscard]] Aspetto aspetto() const { return aspetto_; }

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    Aspetto aspetto_ = Aspetto::vuota;
    int passo_ = 0;
};

/// The answer of a search of lunghette as a board: the score under its name, four rows of five slots, and in
/// a quiet line how the lunghetta grew.
class TavolaLunghetta final : public QFrame {
    Q_OBJECT
  public:
    explicit TavolaLunghetta(QWidget* padre = nullptr);

    /// `Label8`, the name of the score.
    void nomina_punteggio(const QString& nome);
    /// Blank slots, no score; the line says `frase`.
    void svuota(const QString& frase);
    /// A lunghetta and the steps that led to it: the first of them is the seed.
    void mostra(const Lunghetta& lunghetta, const std::vector<PassoLunghetta>& passi);
    /// The same without the line, while it grows.
    void mostra_passo(const Lunghetta& lunghetta, const std::vector<PassoLunghetta>& passi);

    [[nodiscard]] CasellaLunghetta* casella(std::size_t i) const { return caselle_[i]; }

  private:
    class Quadro;

    QLabel* nome_punteggio_;
    QLabel* punteggio_;
    std::array<CasellaLunghetta*, kCaselle> caselle_{};
    QLabel* storia_;
};

}  // namespace sortimetra
