#include "catalogue/form_ricerche_schermi.h"

#include "printing/form_anteprima.h"
#include "statistics/form_stat.h"

namespace sortimetra {

namespace {

/// The row of a screen that is made from the session and has `apri(ricerca, archivio)`, as all that stand on
/// `SchermoRicerca` have.
template <class Form>
constexpr RigaSchermo riga(Schermo schermo) {
    return {schermo,
            [](Sessione& sessione) -> QWidget* {
                auto* form = new Form{sessione};
                form->imposta_stampa(stampa_lavoro);
                return form;
            },
            [](QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
                static_cast<Form&>(finestra).apri(ricerca, archivio);
            }};
}

constexpr RigaSchermo kSchermi[] = {
    riga<Form_stat>(Schermo::stat),
};

}  // namespace

std::span<const RigaSchermo> schermi_del_programma() {
    return kSchermi;
}

}  // namespace sortimetra
