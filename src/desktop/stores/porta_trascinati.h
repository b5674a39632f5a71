#pragma once

#include <QObject>

class QMimeData;

namespace sortimetra {

/// Lets files and text be dropped on any window of the program. Installed on the application; a field that
/// takes a drop for itself keeps it.
class PortaTrascinati final : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  signals:
    void portato(const QMimeData& dati);
};

}  // namespace sortimetra
