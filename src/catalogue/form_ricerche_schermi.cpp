#include "catalogue/form_ricerche_schermi.h"

#include "printing/form_anteprima.h"
#include "screens/schermo_ricerca.h"
#include "statistics/form_stat.h"

namespace sortimetra {

namespace {

/// Sets a screen on a search, and its button "Stampa" on the preview. The archive outlives both.
void attiva(QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
    auto* schermo = qobject_cast<SchermoRicerca*>(&finestra);
    if (schermo == nullptr) return;
    schermo->imposta_stampa([&archivio](const LavoroStampa& lavoro) {
        stampa_risultato(lavoro.finestra, lavoro.risultato, lavoro.domanda, archivio, lavoro.ordine);
    });
    schermo->apri(ricerca, archivio);
}

/// The row of a screen that stands on `SchermoRicerca`.
template <class Form>
constexpr RigaSchermo riga(Schermo schermo) {
    return {schermo, [](Sessione& sessione) -> QWidget* { return new Form{sessione}; }, attiva};
}

constexpr RigaSchermo kSchermi[] = {
    riga<Form_stat>(Schermo::stat),
};

}  // namespace

std::span<const RigaSchermo> schermi_del_programma() {
    return kSchermi;
}

}  // namespace sortimetra
