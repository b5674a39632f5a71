#pragma once

#include <QCheckBox>

namespace sortimetra {

/// A check box that is dressed as a chip: it takes the mouse all over, not on its mark and its text alone.
class Chip final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    [[nodiscard]] bool hitButton(const QPoint& dove) const override { return rect().contains(dove); }
};

}  // namespace sortimetra
