#pragma once

#include <QLabel>
#include <QWidget>
#include <array>
#include <span>

namespace sortimetra {

/// One number of a board, `lblnum_N`.
class CasellaNumero final : public QLabel {
    Q_OBJECT
  public:
    CasellaNumero(int numero, QWidget* padre);

    /// A number that is done is red and has a tick.
    void segna(bool si);
    [[nodiscard]] bool segnato() const { return segnato_; }
    /// The one that the keys act on, while the board has the keyboard.
    void imposta_corrente(bool si);

  signals:
    void premuta();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void enterEvent(QEnterEvent* evento) override;
    void leaveEvent(QEvent* evento) override;

  private:
    void descrivi();

    int numero_;
    bool segnato_ = false;
    bool corrente_ = false;
};

/// The numbers 1 to 90 to choose from, ten a row, those already done marked. One stop of the Tab key: the
/// arrows, Home and End move in it, Enter and Space choose.
class TavolaNumeri final : public QWidget {
    Q_OBJECT
  public:
    explicit TavolaNumeri(QWidget* padre = nullptr);

    /// Marks these numbers and no other.
    void segna(std::span<const int> numeri);
    void svuota() { segna({}); }
    [[nodiscard]] bool segnato(int numero) const;
    [[nodiscard]] int corrente() const { return corrente_; }

  signals:
    void scelto(int numero);

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

  private:
    void sposta(int numero);
    [[nodiscard]] CasellaNumero* casella(int numero) const {
        return caselle_[static_cast<std::size_t>(numero)];
    }

    std::array<CasellaNumero*, 91> caselle_{};  ///< by number; index 0 unused
    int corrente_ = 1;
};

}  // namespace sortimetra
