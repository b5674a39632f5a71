#pragma once

#include <QWidget>
#include <vector>

namespace sortimetra {

class CasellaCifre;

/// The boxes `txtnumpers` for the numbers that a lunghetta begins with. A number in one opens the next, and
/// two digits go on to it; a box that is left with a number that is none of the game, or stands in another
/// box, empties, and those after it close.
class CasellePersonali final : public QWidget {
    Q_OBJECT
  public:
    explicit CasellePersonali(QWidget* padre = nullptr);

    /// Empty boxes for a game with numbers 1 to `massimo`.
    void disponi(std::size_t quante, int massimo);
    /// The first box can be typed into; else all are closed and keep their text.
    void apri(bool si);
    /// Puts the keyboard into the first box.
    void prendi_fuoco();
    /// What leaving does, for a search that is started from inside a box.
    void lascia();
    /// The numbers from the first box to the first empty one.
    [[nodiscard]] std::vector<int> numeri() const;
    /// Writes numbers into the boxes, from the first; what finds no open box is left out.
    void imposta(const std::vector<int>& numeri);

  signals:
    void cambiate();

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void scritta(std::size_t quale);
    void lasciata(std::size_t quale);
    /// Each box is open as long as the one before it holds a number.
    void aggiorna();

    std::vector<CasellaCifre*> caselle_;
    int massimo_ = 90;
    bool aperte_ = false;
};

}  // namespace sortimetra
