#include "lunghette/form_lunghette5.h"

#include "catalogue/nomi.h"
#include "lunghette/parametri.h"
#include "personal/parametri.h"
#include "qt_testi.h"
#include "screens/area_parametri.h"
#include "screens/casella_cifre.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_stat2.h"
#include "statistics/misure.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

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
    : SchermoRicerca{sessione, QStringLiteral("Form_Lunghette5"), padre},
      manca_{new QLabel},
      capogioco_{new CasellaCifre},
      combo_rit_{new QComboBox} {
    cornice()->colonna_extra()->addWidget(componi_meta());
    cornice()->colonna_extra()->addWidget(componi_capogioco());
    imposta_annullabile(true);
    for (QButtonGroup* gruppo : {meta_, ordine_})
        connect(gruppo, &QButtonGroup::idToggled, this, [this] {
            manca_->hide();
            svuota();
        });
}

QFrame* Form_Lunghette5::componi_meta() {
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
    return riquadro;
}

QFrame* Form_Lunghette5::componi_capogioco() {
    auto* riquadro = new QFrame;
    riquadro->setObjectName(QStringLiteral("FrameCapogioco"));
    auto* colonna = new QVBoxLayout{riquadro};
    colonna->setContentsMargins(0, 2 * kPasso, 0, 0);
    colonna->setSpacing(kPasso);
    auto* scritta = new QLabel{tr("Ambi del capogioco")};
    scritta->setBuddy(capogioco_);
    assegna_ruolo(scritta, "sezione");
    colonna->addWidget(scritta);
    capogioco_->setObjectName(QStringLiteral("txtcapogioco"));
    capogioco_->setAccessibleName(tr("Capogioco, da 1 a 20"));
    capogioco_->setPlaceholderText(tr("1 - 20"));
    combo_rit_->setObjectName(QStringLiteral("ComboRit"));
    combo_rit_->setAccessibleName(tr("Che cosa conta come esito"));
    combo_rit_->addItems({tr("all'Ambata"), tr("all'Ambo")});
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(capogioco_);
    riga->addWidget(combo_rit_);
    colonna->addLayout(riga);
    auto* analisi = new QPushButton{icona(QStringLiteral("analisi")), tr("Analisi Gruppo")};
    analisi->setObjectName(QStringLiteral("Command3"));
    analisi->setToolTip(tr("Analizza come un gruppo i 19 ambi del capogioco, nei concorsi scelti."));
    colonna->addWidget(analisi);
    connect(analisi, &QPushButton::clicked, this, &Form_Lunghette5::analizza_gruppo);
    // Enter in the box asks what stands beside it, not for the cinquine.
    connect(capogioco_, &QLineEdit::returnPressed, this, &Form_Lunghette5::analizza_gruppo);
    return riquadro;
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
    capogioco_->clear();
    combo_rit_->setCurrentIndex(ParametriAmbiWinForLife{}.tipo);
    if (stat2_ != nullptr) stat2_->close();
    griglia()->inizializza({kTitoliMisure});
}

void Form_Lunghette5::avvia() {
    if (meta_->checkedId() < 0 || ordine_->checkedId() < 0) {
        manca_->show();
        return;
    }
    SchermoRicerca::avvia();
}

void Form_Lunghette5::analizza_gruppo() {
    if (in_corsa()) return;
    area()->riporta_tratto();
    const Ricerca& ambi = *trova_ricerca(nomi::kAmbiCapogiocoWinForLife.chiave);
    Domanda d = domanda(ambi);
    d.parametri =
        ParametriAmbiWinForLife{.capogioco = {capogioco_->numero()}, .tipo = combo_rit_->currentIndex()};
    const EsitoRicerca analizzato = corri(ambi, std::move(d));
    if (analizzato.prodotto()) {
        if (stat2_ == nullptr) stat2_ = new Form_stat2{this};
        stat2_->mostra(analizzato, stampatore());
    }
    di_messaggi(analizzato);
}

void Form_Lunghette5::mostra_messaggio(const Messaggio& messaggio) {
    if (messaggio.avviso != Avviso::capogioco) {
        SchermoRicerca::mostra_messaggio(messaggio);
        return;
    }
    // As on the statistics screen, this message has no title.
    messaggi().informa(this, {}, testo_qt(messaggio.testo));
    capogioco_->setFocus();
}

void Form_Lunghette5::closeEvent(QCloseEvent* evento) {
    SchermoRicerca::closeEvent(evento);
    if (evento->isAccepted() && stat2_ != nullptr) stat2_->close();
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
