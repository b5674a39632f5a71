#include "lunghette/form_lunghette.h"

namespace sortimetra {

Form_lunghette::Form_lunghette(Sessione& sessione, QWidget* padre)
    : SchermoLunghetta{sessione, QStringLiteral("Form_lunghette"), padre} {}

Form_lunghette10Lotto::Form_lunghette10Lotto(Sessione& sessione, QWidget* padre)
    : SchermoLunghetta{sessione, QStringLiteral("Form_lunghette10Lotto"), padre} {}

Form_lunghetteWFL::Form_lunghetteWFL(Sessione& sessione, QWidget* padre)
    : SchermoLunghetta{sessione, QStringLiteral("Form_lunghetteWFL"), padre} {}

}  // namespace sortimetra
