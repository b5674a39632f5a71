#include "catalogue/form_ricerche_segnalimite.h"

#include "catalogue/segnalimite.h"
#include "results/risultato.h"
#include "screens/tema.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sortimetra {

namespace {

constexpr int kBlocchi = 5;
constexpr int kRighe = 90 / kBlocchi;

QLabel* cella(const QString& testo, int riga, Qt::Alignment lato) {
    auto* l = new QLabel{testo};
    l->setAlignment(lato | Qt::AlignVCenter);
    l->setContentsMargins(kPasso, 0, kPasso, 0);
    // The palette's roles follow the skin by themselves.
    l->setBackgroundRole(riga % 2 == 0 ? QPalette::Base : QPalette::AlternateBase);
    l->setAutoFillBackground(true);
    l->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

QFrame* blocco(int primo) {
    auto* cornice = new QFrame;
    assegna_ruolo(cornice, "scheda");
    auto* piano = new QGridLayout{cornice};
    piano->setContentsMargins(1, kPasso, 1, kPasso);
    piano->setSpacing(0);
    piano->setColumnStretch(1, 1);
    piano->setColumnMinimumWidth(0, 9 * kPasso);
    const auto titolo = [&](const QString& testo, int colonna, Qt::Alignment lato) {
        auto* l = new QLabel{testo};
        assegna_ruolo(l, "sezione");
        l->setAlignment(lato | Qt::AlignVCenter);
        l->setContentsMargins(kPasso, kPasso, kPasso, kPasso);
        piano->addWidget(l, 0, colonna);
    };
    titolo(QStringLiteral("N."), 0, Qt::AlignRight);
    titolo(QStringLiteral("Segnalimiti"), 1, Qt::AlignHCenter);
    const QFont cifre = carattere_tabellare(cornice->font());
    QFont forte = cifre;
    forte.setBold(true);
    for (int i = 0; i < kRighe; ++i) {
        const int n = primo + i;
        auto* numero = cella(QString::number(n), i, Qt::AlignRight);
        numero->setObjectName(QStringLiteral("lblNumero_%1").arg(n));
        numero->setFont(forte);
        auto* terna = cella(QString::fromStdString(testo_segnalimite(n)), i, Qt::AlignHCenter);
        terna->setObjectName(QStringLiteral("lblSegnalimite_%1").arg(n));
        terna->setFont(cifre);
        terna->setAccessibleName(FrameSegnalimite::tr("Segnalimite del %1: %2").arg(n).arg(terna->text()));
        piano->addWidget(numero, i + 1, 0);
        piano->addWidget(terna, i + 1, 1);
        piano->setRowStretch(i + 1, 1);
    }
    return cornice;
}

}  // namespace

FrameSegnalimite::FrameSegnalimite(QWidget* genitore)
    : QFrame{genitore},
      cmdstampa_{new QPushButton{icona(QStringLiteral("stampa")), tr("Stampa")}},
      command3_{new QPushButton{icona(QStringLiteral("sinistra"), TintaIcona::su_accento), tr("Esci")}} {
    setObjectName(QStringLiteral("FrameSegnalimite"));
    auto* titolo = new QLabel{tr("Tabella dei Segnalimite Cabalistici")};
    assegna_ruolo(titolo, "titolo");
    auto* sotto = new QLabel{tr("Per ciascuno dei 90 numeri, i tre segnalimite della tradizione.")};
    assegna_ruolo(sotto, "quieto");

    cmdstampa_->setObjectName(QStringLiteral("cmdstampa"));
    cmdstampa_->setShortcut(QKeySequence{QKeySequence::Print});
    connect(cmdstampa_, &QPushButton::clicked, this, &FrameSegnalimite::stampa);
    command3_->setObjectName(QStringLiteral("Command3"));
    command3_->setToolTip(tr("Torna alle ricerche (Esc)"));
    assegna_ruolo(command3_, "primario");
    connect(command3_, &QPushButton::clicked, this, &FrameSegnalimite::esci);

    auto* blocchi = new QHBoxLayout;
    blocchi->setSpacing(2 * kPasso);
    for (int b = 0; b < kBlocchi; ++b) blocchi->addWidget(blocco(b * kRighe + 1));

    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch();
    piede->addWidget(cmdstampa_);
    piede->addWidget(command3_);

    auto* piano = new QVBoxLayout{this};
    piano->setContentsMargins(4 * kPasso, 3 * kPasso, 4 * kPasso, 3 * kPasso);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(titolo);
    piano->addWidget(sotto);
    piano->addLayout(blocchi, 1);
    piano->addLayout(piede);
    setFocusProxy(command3_);
}

void FrameSegnalimite::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        emit esci();
        return;
    }
    QFrame::keyPressEvent(evento);
}

}  // namespace sortimetra
