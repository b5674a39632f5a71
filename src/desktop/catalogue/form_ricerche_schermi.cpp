#include "catalogue/form_ricerche_schermi.h"

#include "positional/form_posizione.h"
#include "positional/form_tab_pos.h"
#include "positional/form_tab_pos2.h"
#include "positional/form_tab_pos_wfl.h"
#include "printing/form_anteprima.h"
#include "printing/frm_stampa_fcpb.h"
#include "screens/stampanti.h"
#include "statistics/form_stat.h"

#include <QImage>

namespace sortimetra {

namespace {

/// A page of the screen as a picture, as large as the printer's own sheet lets it be between margins of 10
/// mm. Where there is no printer the window itself says so.
void stampa_immagine(QWidget* finestra, const QImage& immagine, const Sessione& sessione) {
    constexpr double kMargine = 10;
    QSizeF foglio{210, 297};
    if (const auto stampante = stampanti().apri(stampanti().predefinita().section(QLatin1Char{','}, 0, 0)))
        foglio = stampante->pageLayout().fullRect(QPageLayout::Millimeter).size();
    const QSizeF spazio = foglio - QSizeF{2 * kMargine, 2 * kMargine};
    const QSizeF misura = QSizeF{immagine.size()}.scaled(spazio, Qt::KeepAspectRatio);
    frmStampaFCPB stampa{finestra};
    stampa.ricorda(sessione);
    stampa.StampaFCPB(immagine, kMargine, kMargine, misura.width(), misura.height(), finestra->windowTitle());
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
                return form;
            },
            [](QWidget& finestra, const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
                static_cast<Form&>(finestra).apri(ricerca, archivio);
            }};
}

constexpr RigaSchermo kSchermi[] = {
    riga<Form_stat>(Schermo::stat),         riga<Form_posizione>(Schermo::posizione),
    riga<form_tab_pos>(Schermo::tab_pos),   riga<form_tab_posWFL>(Schermo::tab_pos_wfl),
    riga<form_tab_pos2>(Schermo::tab_pos2),
};

}  // namespace

std::span<const RigaSchermo> schermi_del_programma() {
    return kSchermi;
}

}  // namespace sortimetra
