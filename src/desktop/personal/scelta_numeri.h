#pragma once

#include <QPoint>
#include <QTableWidget>
#include <vector>

namespace sortimetra {

/// The grid `MSHFlexGrid1` on which numbers are marked: one cell per number of the game, ten a row, a marked
/// one in the yellow of a hit. A click, or a rectangle drawn with the mouse or with Shift and the arrows,
/// turns each of its cells over; the space bar does the same where the keyboard stands.
class SceltaNumeri final : public QTableWidget {
    Q_OBJECT
  public:
    explicit SceltaNumeri(QWidget* padre = nullptr);

    /// Lays out the numbers 1 to `quanti`, none marked.
    void disponi(int quanti);
    /// The marked numbers, ascending.
    [[nodiscard]] std::vector<int> numeri() const;
    void imposta(const std::vector<int>& numeri);
    void svuota();
    /// The cell of a number, for whoever points at it.
    [[nodiscard]] QTableWidgetItem* cella(int numero) const;

  signals:
    /// The marks have changed.
    void cambiati();

  protected:
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void keyReleaseEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    /// Turns over the cells of the rectangle between two corners, whichever is drawn first.
    void rovescia(const QPoint& da, const QPoint& a);
    void segna(QTableWidgetItem* cella, bool si);
    void colora();
    void mostra_rettangolo(const QPoint& a);

    int quanti_ = 0;
    std::vector<bool> scelti_;
    QPoint inizio_{-1, -1};  ///< column and row where the rectangle began; -1 while none is drawn
    QPoint fine_{-1, -1};
};

}  // namespace sortimetra
