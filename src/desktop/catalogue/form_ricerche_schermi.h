#pragma once

#include "catalogue/ricerche.h"
#include "draws/archivio.h"
#include "files/sessione.h"
#include "screens/schermi.h"

#include <QWidget>
#include <span>

namespace sortimetra {

/// How a kind of screen is made, and how it is set on a search. One row per class of screen.
struct RigaSchermo {
    Schermo schermo;
    /// Makes the single instance, not shown yet. The caller owns it.
    QWidget* (*crea)(Sessione& sessione);
    /// Puts the screen into the mode of a search: caption, tag, preparation, then its own `attiva`.
    void (*attiva)(QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio);
};

/// The screens that this program has.
[[nodiscard]] std::span<const RigaSchermo> schermi_del_programma();

}  // namespace sortimetra
