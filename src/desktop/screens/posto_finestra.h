#pragma once

#include "files/sessione.h"

#include <QSize>
#include <QString>

class QWidget;

namespace sortimetra {

/// Room for the title bar, which a window has only once the desktop has dressed it.
inline constexpr int kBarraTitolo = 40;

/// The file in which the windows keep their places: `schermi.ini` of the program's folder, one section a
/// window, by its object name.
[[nodiscard]] QString file_posti(const Sessione& sessione);

/// Nine tenths of a window's screen: the size of a window that has a sheet of paper to show.
[[nodiscard]] QSize grandezza_sullo_schermo(const QWidget& finestra);

/// Puts a window where it was left; in the middle of the screen and in the usual size (as far as it fits)
/// where nothing is remembered or that screen is gone.
void leggi_posto(QWidget& finestra, const Sessione& sessione, QSize usuale);
void scrivi_posto(const QWidget& finestra, const Sessione& sessione);

}  // namespace sortimetra
