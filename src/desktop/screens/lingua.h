#pragma once

class QCoreApplication;

namespace sortimetra {

/// Makes the toolkit's own words (buttons of boxes, menus of fields, dialogs of files and printers) Italian,
/// with Qt's translation; where the system lacks it they stay English. Numbers and dates follow Italian use,
/// whatever the machine's locale.
void parla_italiano(QCoreApplication& applicazione);

}  // namespace sortimetra
