#pragma once

#include <QFrame>
#include <QPushButton>

namespace sortimetra {

/// A group button of the catalogue: caption, one quiet line under it, and at the left the digit key that
/// presses it. Its ground is that of the frame in which it stands.
class PulsanteGruppo final : public QPushButton {
    Q_OBJECT
  public:
    /// `tasto` is the digit shown, empty for a button without one.
    PulsanteGruppo(const QString& didascalia, const QString& sotto, const QString& tasto,
                   QWidget* genitore = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    QString sotto_;
    QString tasto_;
};

/// The tinted frame of one group button: the two tints in turn, and a third one for the button that is
/// pressed.
class CorniceGruppo final : public QFrame {
    Q_OBJECT
  public:
    CorniceGruppo(PulsanteGruppo* pulsante, bool dispari, QWidget* genitore = nullptr);

    [[nodiscard]] bool premuta() const { return premuta_; }
    void premi(bool premuta);
    /// The tint as it is painted now.
    [[nodiscard]] QColor tinta() const;

  protected:
    void paintEvent(QPaintEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    PulsanteGruppo* pulsante_;
    bool dispari_;
    bool premuta_ = false;
};

}  // namespace sortimetra
