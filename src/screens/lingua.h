#pragma once

class QCoreApplication;

namespace sortimetra {

/// Makes the toolkit's own words (buttons of boxes, menus of fields, file dialogs) Italian, with Qt's
/// translation where the system has it and with our own words for what the program shows where it has not.
/// Numbers and dates follow Italian use, whatever the machine's locale.
void parla_italiano(QCoreApplication& applicazione);

}  // namespace sortimetra
