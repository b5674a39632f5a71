#include "screens/accesso.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>
#include <algorithm>
#include <array>
#include <utility>

namespace sortimetra {

namespace {

/// The classes of the program's windows. What is inside of them may be asked for before it has a parent, so
/// being without one is no sign.
constexpr std::array kFinestre{"sortimetra::FinestraRicerca", "sortimetra::form_ricerche",
                               "sortimetra::Form_spec"};

/// Asked for every class of an object, the most derived first; null leaves it to the toolkit.
QAccessibleInterface* voce_finestra(const QString& classe, QObject* oggetto) {
    const bool nostra = std::any_of(kFinestre.begin(), kFinestre.end(),
                                    [&](const char* f) { return classe == QLatin1String{f}; });
    return nostra ? new QAccessibleWidget{qobject_cast<QWidget*>(oggetto), QAccessible::Window} : nullptr;
}

}  // namespace

void annuncia_finestre() {
    static bool fatto = false;
    if (!std::exchange(fatto, true)) QAccessible::installFactory(voce_finestra);
}

}  // namespace sortimetra
