#include "screens/area_scorrevole.h"

#include <QApplication>

namespace sortimetra {

AreaScorrevole::AreaScorrevole(QWidget* dentro, QWidget* padre) : QScrollArea{padre} {
    setWidget(dentro);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    dentro->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* ora) {
        // What is clicked stays under the pointer.
        if (ora != nullptr && QGuiApplication::mouseButtons() == Qt::NoButton && widget()->isAncestorOf(ora))
            ensureWidgetVisible(ora);
    });
}

AreaScorrevole::~AreaScorrevole() {
    // What it holds goes after it, and the focus with it.
    disconnect(qApp, nullptr, this, nullptr);
}

}  // namespace sortimetra
