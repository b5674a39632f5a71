#pragma once

#include <QScrollArea>

namespace sortimetra {

/// Scrolls what it holds where the window has no room for it, on the window's own ground. Whatever in it gets
/// the focus by keyboard comes into sight, also where the focus comes from outside, which Qt leaves as it is.
class AreaScorrevole final : public QScrollArea {
  public:
    explicit AreaScorrevole(QWidget* dentro, QWidget* padre = nullptr);
    AreaScorrevole(const AreaScorrevole&) = delete;
    AreaScorrevole& operator=(const AreaScorrevole&) = delete;
    ~AreaScorrevole() override;
};

}  // namespace sortimetra
