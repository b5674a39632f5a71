#include "screens/posto_finestra.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace sortimetra {

QString file_posti(const Sessione& sessione) {
    return QString::fromStdU16String((sessione.percorso_programma / "schermi.ini").u16string());
}

void leggi_posto(QWidget& finestra, const Sessione& sessione, QSize usuale) {
    QSettings memoria{file_posti(sessione), QSettings::IniFormat};
    memoria.beginGroup(finestra.objectName());
    const QRect posto = memoria.value(QStringLiteral("posto")).toRect();
    const QScreen* schermo = posto.isValid() ? QGuiApplication::screenAt(posto.center()) : nullptr;
    if (schermo == nullptr) {
        const QRect libero = finestra.screen()->availableGeometry();
        finestra.resize(usuale.boundedTo(libero.size()));
        finestra.move(libero.center() - finestra.rect().center());
    } else {
        finestra.setGeometry(posto.intersected(schermo->availableGeometry()));
    }
    if (memoria.value(QStringLiteral("intero")).toBool())
        finestra.setWindowState(finestra.windowState() | Qt::WindowMaximized);
}

void scrivi_posto(const QWidget& finestra, const Sessione& sessione) {
    QSettings memoria{file_posti(sessione), QSettings::IniFormat};
    if (!memoria.isWritable()) return;
    memoria.beginGroup(finestra.objectName());
    memoria.setValue(QStringLiteral("posto"),
                     finestra.isMaximized() ? finestra.normalGeometry() : finestra.geometry());
    memoria.setValue(QStringLiteral("intero"), finestra.isMaximized());
}

}  // namespace sortimetra
