#pragma once

#include <QFrame>
#include <QPixmap>
#include <QTimer>
#include <array>
#include <cstddef>

class QLabel;

namespace sortimetra {

/// The frame `FrameFreccia`: five arrows, `Image1_0` to `Image1_4`, that point at the start button. Every
/// tick of `Timer1` lights the next one and turns the others off; after five passes the timer stops and the
/// arrows stay as they are.
class FrecciaAnimata final : public QFrame {
    Q_OBJECT
  public:
    explicit FrecciaAnimata(QWidget* padre = nullptr);

    /// Starts the animation from the first arrow; without animations all arrows stand quiet.
    void avvia();
    /// Off where the user or the desktop wants no animations.
    void imposta_animata(bool si) { animata_ = si; }
    /// Index of the lit arrow, -1 for none.
    [[nodiscard]] int accesa() const { return accesa_; }
    [[nodiscard]] bool in_moto() const { return orologio_->isActive(); }

  private:
    void scatto();
    void accendi(int quale);
    void ridisegna();
    void mostra(std::size_t quale);

    std::array<QLabel*, 5> immagini_{};
    QTimer* orologio_;
    QPixmap spenta_;
    QPixmap accesa_figura_;
    int accesa_ = -1;
    int scatti_ = 0;
    bool animata_ = true;
};

}  // namespace sortimetra
