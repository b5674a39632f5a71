#pragma once

#include <QList>
#include <QWidget>
#include <initializer_list>
#include <utility>

namespace sortimetra {

/// Lets Tab go through these controls in their order, whatever was made first.
template <class Controlli>
void giro_di_tab(const Controlli& controlli) {
    // A widget that hands its focus to an inner one counts as one with it, and several such widgets side by
    // side tie the ring into a knot: while the order is made they stand apart.
    QList<std::pair<QWidget*, QWidget*>> deleghe;
    for (QWidget* w : controlli)
        for (QWidget* p = w->parentWidget(); p != nullptr; p = p->parentWidget())
            if (p->focusProxy() == w) {
                deleghe.push_back(std::pair{p, w});
                p->setFocusProxy(nullptr);
            }
    QWidget* prima = nullptr;
    for (QWidget* w : controlli) {
        if (prima != nullptr) QWidget::setTabOrder(prima, w);
        prima = w;
    }
    for (const auto& [chi, a] : deleghe) chi->setFocusProxy(a);
}
inline void giro_di_tab(std::initializer_list<QWidget*> controlli) {
    giro_di_tab<std::initializer_list<QWidget*>>(controlli);
}

}  // namespace sortimetra
