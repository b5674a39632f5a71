#include "screens/posto_finestra.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

namespace sortimetra {

namespace {

/// Where the inside of a window may stand on a screen without its title bar or its foot leaving it.
QRect interno(const QScreen& schermo) {
    return schermo.availableGeometry().adjusted(0, kBarraTitolo, 0, 0);
}

}  // namespace

QString file_posti(const Sessione& sessione) {
    return QString::fromStdU16String((sessione.percorso_programma / "schermi.ini").u16string());
}

QSize grandezza_sullo_schermo(const QWidget& finestra) {
    return interno(*finestra.screen()).size() * 9 / 10;
}

void leggi_posto(QWidget& finestra, const Sessione& sessione, QSize usuale) {
    QSettings memoria{file_posti(sessione), QSettings::IniFormat};
    memoria.beginGroup(finestra.objectName());
    const QRect posto = memoria.value(QStringLiteral("posto")).toRect();
    const QScreen* schermo = posto.isValid() ? QGuiApplication::screenAt(posto.center()) : nullptr;
    if (schermo == nullptr) {
        const QRect libero = interno(*finestra.screen());
        finestra.resize(usuale.boundedTo(libero.size()));
        finestra.move(libero.center() - finestra.rect().center());
    } else {
        // A window that was moved half off the screen comes back whole, one from a larger screen smaller.
        const QRect libero = interno(*schermo);
        QRect dentro{posto.topLeft(), posto.size().boundedTo(libero.size())};
        dentro.moveLeft(std::clamp(dentro.left(), libero.left(), libero.right() + 1 - dentro.width()));
        dentro.moveTop(std::clamp(dentro.top(), libero.top(), libero.bottom() + 1 - dentro.height()));
        finestra.setGeometry(dentro);
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
