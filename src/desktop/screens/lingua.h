#pragma once

class QCoreApplication;

namespace sortimetra {

/// Makes the toolkit's own words (buttons of boxes, menus of fields, dialogs of files and printers) Italian,
/// whatever is installed. Numbers and dates follow Italian use, whatever the machine's locale.
void parla_italiano(QCoreApplication& applicazione);

/// The program's own dictionary of those words; `parla_italiano` installs it, too.
void installa_dizionario(QCoreApplication& applicazione);

}  // namespace sortimetra
