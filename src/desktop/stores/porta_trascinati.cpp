#include "stores/porta_trascinati.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <algorithm>

namespace sortimetra {

namespace {

/// Files of this machine, or a text.
bool interessa(const QMimeData& dati) {
    const auto indirizzi = dati.urls();
    return dati.hasText() ||
           std::any_of(indirizzi.begin(), indirizzi.end(), [](const QUrl& u) { return u.isLocalFile(); });
}

}  // namespace

bool PortaTrascinati::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* finestra = qobject_cast<QWidget*>(oggetto);
    if (finestra == nullptr || !finestra->isWindow()) return false;
    switch (evento->type()) {
        case QEvent::Show:
            if (finestra->windowType() == Qt::Window || finestra->windowType() == Qt::Dialog)
                finestra->setAcceptDrops(true);
            return false;
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* arrivo = dynamic_cast<QDragMoveEvent*>(evento);
            if (arrivo == nullptr || !interessa(*arrivo->mimeData())) return false;
            arrivo->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* lasciato = dynamic_cast<QDropEvent*>(evento);
            if (lasciato == nullptr || !interessa(*lasciato->mimeData())) return false;
            lasciato->acceptProposedAction();
            emit portato(*lasciato->mimeData());
            return true;
        }
        default:
            return false;
    }
}

}  // namespace sortimetra
