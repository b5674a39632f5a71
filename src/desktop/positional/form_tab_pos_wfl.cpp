#include "positional/form_tab_pos_wfl.h"

namespace sortimetra {

form_tab_posWFL::form_tab_posWFL(Sessione& sessione, QWidget* padre)
    : SchermoTabellone{sessione, QStringLiteral("form_tab_posWFL"), padre} {}

QString form_tab_posWFL::etichetta() const {
    return tr("Tabellone posizionale rispetto alla combinazione win for life");
}

}  // namespace sortimetra
