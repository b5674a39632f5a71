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

/// A page of the screen as a picture, as large as the printer's own sheet lets it be between margins of 10
/// mm. Where there is no printer the window itself says so.
void stampa_immagine(QWidget* finestra, const QImage& immagine, const Sessione& sessione) {
    constexpr double kMargineMm = 10;
    QSizeF foglio{210, 297};
    if (const auto stampante = stampanti().apri(stampanti().predefinita().section(QLatin1Char{','}, 0, 0)))
        foglio = stampante->pageLayout().fullRect(QPageLayout::Millimeter).size();
    const QSizeF spazio = foglio - QSizeF{2 * kMargineMm, 2 * kMargineMm};
    const QSizeF misura = QSizeF{immagine.size()}.scaled(spazio, Qt::KeepAspectRatio);
    frmStampaFCPB stampa{finestra};
    stampa.ricorda(sessione);
    stampa.StampaFCPB(immagine, kMargineMm, kMargineMm, misura.width(), misura.height(),
                      finestra->windowTitle());
}

/// The row of a screen that is made from the session and has `apri(ricerca, archivio)`, as all that stand on
/// `FinestraRicerca` have.
template <class Form>
constexpr RigaSchermo riga(Schermo schermo) {
    return {schermo,
            [](Sessione& sessione) -> QWidget* {
                auto* form = new Form{sessione};
                form->imposta_stampa([&sessione](const LavoroStampa& l) { stampa_lavoro(l, sessione); });
                const auto immagine = [&sessione](QWidget* finestra, const QImage& i) {
                    stampa_immagine(finestra, i, sessione);
                };
                if constexpr (requires { form->imposta_stampa_immagine(immagine); })
                    form->imposta_stampa_immagine(immagine);
                form->imposta_stampa_storia(immagine);
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
