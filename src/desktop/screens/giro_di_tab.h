#pragma once

#include <QWidget>
#include <initializer_list>

namespace sortimetra {

/// Lets Tab go through these controls in their order, whatever was made first.
template <class Controlli>
void giro_di_tab(const Controlli& controlli) {
    QWidget* prima = nullptr;
    for (QWidget* w : controlli) {
        if (prima != nullptr) QWidget::setTabOrder(prima, w);
        prima = w;
    }
}
inline void giro_di_tab(std::initializer_list<QWidget*> controlli) {
    giro_di_tab<std::initializer_list<QWidget*>>(controlli);
}

}  // namespace sortimetra
