#include "screens/posto_finestra.h"

#include "screens/memoria_schermi.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace sortimetra {

namespace {

/// Where the inside of a window may stand on a screen without its title bar or its foot leaving it.
QRect interno(const QScreen& schermo) {
    return schermo.availableGeometry().adjusted(0, kBarraTitolo, 0, 0);
}

/// Coordinates beyond these are no screen's, and sums of them no numbers.
constexpr int kLontano = 1'000'000;

/// No window of ours can be made as small as this.
constexpr QSize kMinima{320, 200};

/// Where a window was left; nothing where the file says nothing that could be.
QRect letto(const QVariant& valore) {
    const QRect posto = valore.toRect();
    for (const int c : {posto.left(), posto.top(), posto.right(), posto.bottom()})
        if (c < -kLontano || c > kLontano) return {};
    if (posto.width() < kMinima.width() || posto.height() < kMinima.height()) return {};
    return posto;
}

}  // namespace

QString file_posti(const Sessione& sessione) {
    return QString::fromStdU16String((sessione.percorso_programma / "schermi.ini").u16string());
}

QSize grandezza_sullo_schermo(const QWidget& finestra) {
    return interno(*finestra.screen()).size() * 9 / 10;
}

void leggi_posto(QWidget& finestra, const Sessione& sessione, QSize usuale) {
    MemoriaSchermi memoria{sessione};
    memoria.beginGroup(finestra.objectName());
    const QRect posto = letto(memoria.value(QStringLiteral("posto")));
    const QScreen* schermo = posto.isValid() ? QGuiApplication::screenAt(posto.center()) : nullptr;
    if (schermo == nullptr) {
        const QRect libero = interno(*finestra.screen());
        finestra.resize(usuale.boundedTo(libero.size()));
        // Of one that is larger than the screen the title bar and its left end are to be seen.
        const QPoint angolo = libero.center() - finestra.rect().center();
        finestra.move(std::max(angolo.x(), libero.left()), std::max(angolo.y(), libero.top()));
    } else {
        // A window that was moved half off the screen comes back whole, one from a larger screen smaller.
        const QRect libero = interno(*schermo);
        const QSize grande = posto.size().expandedTo(finestra.minimumSizeHint());
        QRect dentro{posto.topLeft(), grande.boundedTo(libero.size())};
        dentro.moveLeft(std::clamp(dentro.left(), libero.left(), libero.right() + 1 - dentro.width()));
        dentro.moveTop(std::clamp(dentro.top(), libero.top(), libero.bottom() + 1 - dentro.height()));
        finestra.setGeometry(dentro);
    }
    if (memoria.value(QStringLiteral("intero")).toBool())
        finestra.setWindowState(finestra.windowState() | Qt::WindowMaximized);
}

void scrivi_posto(const QWidget& finestra, const Sessione& sessione) {
    MemoriaSchermi memoria{sessione};
    if (!memoria.isWritable()) return;
    memoria.beginGroup(finestra.objectName());
    memoria.setValue(QStringLiteral("posto"),
                     finestra.isMaximized() ? finestra.normalGeometry() : finestra.geometry());
    memoria.setValue(QStringLiteral("intero"), finestra.isMaximized());
}

}  // namespace sortimetra
