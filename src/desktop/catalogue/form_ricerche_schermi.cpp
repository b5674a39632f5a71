#include "catalogue/form_ricerche_schermi.h"

#include "bets/form_scommesse.h"
#include "lunghette/form_lunghette.h"
#include "lunghette/form_lunghette5.h"
#include "personal/form_gruppi2.h"
#include "personal/form_personali.h"
#include "personal/form_piramide.h"
#include "positional/form_posizione.h"
#include "positional/form_tab_pos.h"
#include "positional/form_tab_pos2.h"
#include "positional/form_tab_pos_wfl.h"
#include "printing/form_anteprima.h"
#include "printing/frm_stampa_fcpb.h"
#include "screens/stampanti.h"
#include "statistics/form_stat.h"
#include "systems/form_filtri.h"
#include "systems/form_ultimi.h"
#include "tools/form_som_dis_ciclo.h"
#include "tools/form_spia.h"

#include <QImage>

namespace sortimetra {

namespace {

/// A page of the screen as a picture, as large as an upright sheet lets it be between margins of 10 mm. False
/// where there is no printer to measure the sheet by: then the report is what can be kept.
bool stampa_immagine(QWidget* finestra, const QImage& immagine) {
    if (immagine.isNull() || stampanti().predefinita().isEmpty()) return false;
    constexpr QSizeF kSpazio{190, 277};
    const QSizeF misura = QSizeF{immagine.size()}.scaled(kSpazio, Qt::KeepAspectRatio);
    frmStampaFCPB stampa{finestra};
    stampa.StampaFCPB(immagine, 10, 10, misura.width(), misura.height(), finestra->windowTitle());
    return true;
}

/// The row of a screen that is made from the session and has `apri(ricerca, archivio)`, as all that stand on
/// `FinestraRicerca` have.
template <class Form>
constexpr RigaSchermo riga(Schermo schermo) {
    return {schermo,
            [](Sessione& sessione) -> QWidget* {
                auto* form = new Form{sessione};
                form->imposta_stampa(stampa_lavoro);
                if constexpr (requires { form->imposta_stampa_immagine(stampa_immagine); })
                    form->imposta_stampa_immagine(stampa_immagine);
                if constexpr (requires { form->imposta_stampa_rapporto(stampa_rapporto); })
                    form->imposta_stampa_rapporto(stampa_rapporto);
                return form;
            },
            [](QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
                static_cast<Form&>(finestra).apri(ricerca, archivio);
            }};
}

constexpr RigaSchermo kSchermi[] = {
    riga<Form_stat>(Schermo::stat),
    riga<Form_posizione>(Schermo::posizione),
    riga<form_tab_pos>(Schermo::tab_pos),
    riga<form_tab_posWFL>(Schermo::tab_pos_wfl),
    riga<form_tab_pos2>(Schermo::tab_pos2),
    riga<form_spia>(Schermo::spia),
    riga<Form_som_dis_ciclo>(Schermo::som_dis_ciclo),
    riga<Form_scommesse>(Schermo::scommesse),
    riga<Form_lunghette>(Schermo::lunghette),
    riga<Form_lunghette10Lotto>(Schermo::lunghette10),
    riga<Form_lunghetteWFL>(Schermo::lunghette_wfl),
    riga<Form_Lunghette5>(Schermo::lunghette5),
    riga<Form_Personali>(Schermo::personali),
    riga<Form_Gruppi2>(Schermo::gruppi2),
    riga<Form_Piramide>(Schermo::piramide),
    riga<Form_filtri>(Schermo::filtri),
    riga<Form_Ultimi>(Schermo::ultimi),
};

}  // namespace

std::span<const RigaSchermo> schermi_del_programma() {
    return kSchermi;
}

}  // namespace sortimetra
