#pragma once

#include <QFrame>

class QPushButton;

namespace sortimetra {

/// `FrameSegnalimite`: the fixed table of the cabalistic segnalimite, in five blocks of eighteen numbers,
/// two labels a number.
class FrameSegnalimite final : public QFrame {
    Q_OBJECT
  public:
    explicit FrameSegnalimite(QWidget* genitore = nullptr);

  signals:
    void esci();
    void stampa();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    QPushButton* cmdstampa_;
    QPushButton* command3_;
};

}  // namespace sortimetra
