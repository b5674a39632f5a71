#include "lunghette/form_lunghette5.h"

#include "lunghette/parametri.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "statistics/misure.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace sortimetra {

namespace {

/// A heading and two radio buttons of a group under it.
QButtonGroup* due_scelte(QVBoxLayout* colonna, const QString& titolo, const QString& nome,
                         std::array<QRadioButton*, 2>& bottoni, const std::array<QString, 2>& scritte) {
    auto* scritta = new QLabel{titolo};
    assegna_ruolo(scritta, "sezione");
    colonna->addWidget(scritta);
    auto* gruppo = new QButtonGroup{colonna};
    for (std::size_t i = 0; i < bottoni.size(); ++i) {
        bottoni[i] = new QRadioButton{scritte[i]};
        bottoni[i]->setObjectName(nome.arg(i));
        bottoni[i]->setAccessibleName(QStringLiteral("%1: %2").arg(titolo, scritte[i]));
        gruppo->addButton(bottoni[i], static_cast<int>(i));
        colonna->addWidget(bottoni[i]);
    }
    return gruppo;
}

}  // namespace

Form_Lunghette5::Form_Lunghette5(Sessione& sessione, QWidget* padre)
    : SchermoRicerca{sessione, QStringLiteral("Form_Lunghette5"), padre}, manca_{new QLabel} {
    auto* riquadro = new QFrame;
    riquadro->setObjectName(QStringLiteral("FrameMeta"));
    auto* colonna = new QVBoxLayout{riquadro};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    meta_ = due_scelte(colonna, tr("Metà dell'estrazione"), QStringLiteral("Option2_%1"), option2_,
                       {tr("Primi 5"), tr("Ultimi 5")});
    colonna->addSpacing(2 * kPasso);
    ordine_ = due_scelte(colonna, tr("Cinquine"), QStringLiteral("Option1_%1"), option1_,
                         {tr("Più frequenti"), tr("Più in ritardo")});
    manca_->setObjectName(QStringLiteral("lblmanca"));
    manca_->setText(tr("Scegli i primi o gli ultimi 5."));
    assegna_ruolo(manca_, "avviso");
    colonna->insertWidget(3, manca_);
    cornice()->colonna_extra()->addWidget(riquadro);
    imposta_annullabile(true);
    for (QButtonGroup* gruppo : {meta_, ordine_})
        connect(gruppo, &QButtonGroup::idToggled, this, [this] {
            manca_->hide();
            svuota();
        });
}

void Form_Lunghette5::attivaWFL() {
    SchermoRicerca::attivaWFL();
    // The hour has no effect on these searches: it is not asked for.
    auto* ora = area()->findChild<QComboBox*>(QStringLiteral("ComboIntervallo"));
    ora->hide();
    for (QLabel* l : area()->findChildren<QLabel*>())
        if (l->buddy() == ora) l->hide();
}

void Form_Lunghette5::inizializza_griglia() {
    // Nothing is chosen of the halves; the order has its first entry.
    meta_->setExclusive(false);
    for (QRadioButton* b : option2_) b->setChecked(false);
    meta_->setExclusive(true);
    option1_[0]->setChecked(true);
    manca_->hide();
    griglia()->inizializza({kTitoliMisure});
}

void Form_Lunghette5::avvia() {
    if (meta_->checkedId() < 0 || ordine_->checkedId() < 0) {
        manca_->show();
        return;
    }
    SchermoRicerca::avvia();
}

Parametri Form_Lunghette5::parametri() const {
    return ParametriScomposte{.meta = meta_->checkedId(), .ordine = ordine_->checkedId()};
}

void Form_Lunghette5::imposta(const Domanda& domanda) {
    const auto& p = domanda.di<ParametriScomposte>();
    if (QAbstractButton* b = meta_->button(p.meta)) b->setChecked(true);
    if (QAbstractButton* b = ordine_->button(p.ordine)) b->setChecked(true);
    SchermoRicerca::imposta(domanda);
}

}  // namespace sortimetra
