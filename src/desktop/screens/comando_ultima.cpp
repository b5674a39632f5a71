#include "screens/comando_ultima.h"

#include "screens/tema.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace sortimetra {

ComandoUltima::ComandoUltima(QWidget* padre)
    : QWidget{padre},
      ultima_{new QPushButton{icona(QStringLiteral("storia")), tr("Come l'&ultima volta"), this}} {
    ultima_->setObjectName(QStringLiteral("cmdUltima"));
    assegna_ruolo(ultima_, "piatto");
    connect(ultima_, &QPushButton::clicked, this, &ComandoUltima::premuto);

    auto* bottone = new QToolButton{this};
    bottone->setObjectName(QStringLiteral("cmdRiapri"));
    bottone->setIcon(icona(QStringLiteral("giu"), TintaIcona::quieto));
    bottone->setAccessibleName(tr("Impostazioni di «Come l'ultima volta»"));
    bottone->setToolTip(tr("Come si apre la ricerca"));
    bottone->setPopupMode(QToolButton::InstantPopup);
    bottone->setFocusPolicy(Qt::StrongFocus);
    bottone->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    auto* menu = new QMenu{bottone};
    riapri_ = menu->addAction(tr("&Riapri come l'ultima volta"));
    riapri_->setObjectName(QStringLiteral("mnuRiapri"));
    riapri_->setCheckable(true);
    connect(riapri_, &QAction::toggled, this, &ComandoUltima::riapri_scelto);
    bottone->setMenu(menu);
    menu_ = bottone;

    auto* riga = new QHBoxLayout{this};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(kPasso);
    riga->addWidget(ultima_, 1);
    riga->addWidget(menu_);
}

void ComandoUltima::mostra(bool ricordata, bool riapre) {
    ultima_->setEnabled(ricordata);
    ultima_->setToolTip(
        ricordata ? tr("Rimette ruote, intervallo, concorsi, ordine e parametri dell'ultima ricerca (Ctrl+L)")
                  : tr("Qui non hai ancora avviato una ricerca."));
    const QSignalBlocker zitto{riapri_};
    riapri_->setChecked(riapre);
}

QList<QWidget*> ComandoUltima::tasti() const {
    return {ultima_, menu_};
}

}  // namespace sortimetra
