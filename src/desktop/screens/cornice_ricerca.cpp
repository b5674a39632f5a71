#include "screens/cornice_ricerca.h"

#include "screens/area_parametri.h"
#include "screens/area_scorrevole.h"
#include "screens/freccia.h"
#include "screens/giro_di_tab.h"
#include "screens/tema.h"

#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kLarghezzaColonna = 70 * kPasso;

/// Tab stops at the chosen button of a group, from the first time on: by itself the toolkit would stop at
/// whichever comes first, and only then leave the others to the arrows.
void ferma_alla_scelta(const QWidget* finestra) {
    for (auto* b : finestra->findChildren<QRadioButton*>())
        if (b->group() != nullptr && b->group()->checkedButton() != nullptr)
            b->setFocusPolicy(b->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

/// The controls inside a widget that take the keyboard, in the order in which they were put there. The inner
/// parts of a combo or a spin box are the box itself.
QList<QWidget*> tasti_di(const QWidget* dentro) {
    QList<QWidget*> trovati;
    for (QWidget* w : dentro->findChildren<QWidget*>()) {
        const QWidget* padre = w->parentWidget();
        const bool interno = qobject_cast<const QComboBox*>(padre) != nullptr ||
                             qobject_cast<const QAbstractSpinBox*>(padre) != nullptr ||
                             qobject_cast<const QLineEdit*>(padre) != nullptr;
        // The list of a combo that has been opened once is a window of its own.
        const bool altrove = w->window() != dentro->window();
        // Of a group of choices only the one chosen takes Tab; which it is changes, its place in the round
        // not.
        const bool prende =
            (w->focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<QRadioButton*>(w) != nullptr;
        if (!interno && !altrove && w->focusProxy() == nullptr && prende) trovati << w;
    }
    return trovati;
}

void battezza(QPushButton* bottone, const char* nome, const char* figura) {
    bottone->setObjectName(QString::fromLatin1(nome));
    bottone->setIcon(icona(QString::fromLatin1(figura)));
}

}  // namespace

CorniceRicerca::CorniceRicerca(Domande domande, QWidget* padre)
    : QWidget{padre},
      area_{domande == Domande::con_parametri ? new AreaParametri : nullptr},
      scorri_{new AreaScorrevole{new QWidget, this}},
      extra_{new QVBoxLayout},
      sopra_avvio_{new QVBoxLayout},
      freccia_{new FrecciaAnimata{this}},
      avvia_{new QPushButton{tr("Avvia &Ricerca"), this}},
      riga_titolo_{new QHBoxLayout},
      titolo_{new QLabel{this}},
      cmd_filtra_{new QPushButton{tr("&Filtra"), this}},
      frase_{new QLabel{this}},
      campo_{new QWidget{this}},
      risposta_{new QVBoxLayout{campo_}},
      riga_risposta_{new QHBoxLayout},
      caso_{new QLabel{this}},
      riga_comandi_{new QHBoxLayout},
      simulato_{new QLabel{tr("Archivio simulato"), this}},
      stato_{new QLabel{this}},
      cmd_stampa_{new QPushButton{tr("&Stampa"), this}},
      cmd_esporta_{new QPushButton{tr("&Esporta…"), this}},
      cmd_chiudi_{new QPushButton{tr("&Chiudi"), this}} {
    auto* riga = new QHBoxLayout{this};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(kMargine);
    riga->addLayout(componi_domande());
    riga->addLayout(componi_risposta(), 1);
}

QBoxLayout* CorniceRicerca::componi_domande() {
    // It scrolls where the window is low; the start button never does.
    auto* domande = new QVBoxLayout{scorri_->widget()};
    domande->setContentsMargins(0, 0, 0, 0);
    domande->setSpacing(3 * kPasso);
    if (area_ != nullptr) domande->addWidget(area_);
    extra_->setSpacing(3 * kPasso);
    domande->addLayout(extra_);
    domande->addStretch(1);
    scorri_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    avvia_->setObjectName(QStringLiteral("Command1"));
    avvia_->setIcon(icona(QStringLiteral("avvia"), TintaIcona::su_accento));
    avvia_->setToolTip(tr("Avvia la ricerca (F5)"));
    avvia_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    assegna_ruolo(avvia_, "primario");
    auto* riga_avvia = new QHBoxLayout;
    riga_avvia->setSpacing(2 * kPasso);
    riga_avvia->addWidget(freccia_);
    riga_avvia->addWidget(avvia_, 1);
    auto* sinistra = new QVBoxLayout;
    sinistra->setSpacing(3 * kPasso);
    sinistra->addWidget(scorri_, 1);
    sinistra->addLayout(sopra_avvio_);
    sinistra->addLayout(riga_avvia);
    return sinistra;
}

QBoxLayout* CorniceRicerca::componi_risposta() {
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    titolo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    assegna_ruolo(titolo_, "titolo");
    frase_->setObjectName(QStringLiteral("lblfrase"));
    frase_->setWordWrap(true);
    assegna_ruolo(frase_, "quieto");
    riga_titolo_->setSpacing(2 * kPasso);
    riga_titolo_->addWidget(titolo_, 1);
    battezza(cmd_filtra_, "cmdFiltra", "filtro");
    cmd_filtra_->setToolTip(tr("Filtra le righe del risultato (Ctrl+Maiusc+F)"));
    assegna_ruolo(cmd_filtra_, "piatto");
    riga_titolo_->addWidget(cmd_filtra_);
    riga_comandi_->setSpacing(2 * kPasso);
    risposta_->setContentsMargins(0, 0, 0, 0);
    risposta_->setSpacing(2 * kPasso);

    auto* destra = new QVBoxLayout;
    destra->setSpacing(2 * kPasso);
    auto* testata = new QVBoxLayout;
    testata->setSpacing(0);
    testata->addLayout(riga_titolo_);
    testata->addWidget(frase_);
    destra->addLayout(testata);
    riga_risposta_->setSpacing(kMargine);
    riga_risposta_->addWidget(campo_, 1);
    destra->addLayout(riga_risposta_, 1);
    caso_->setObjectName(QStringLiteral("lblcaso"));
    caso_->setWordWrap(true);
    caso_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    assegna_ruolo(caso_, "quieto");
    caso_->hide();
    destra->addWidget(caso_);
    auto* comandi = new QHBoxLayout;
    comandi->addLayout(riga_comandi_);
    comandi->addStretch(1);
    destra->addLayout(comandi);
    destra->addLayout(componi_piede());
    return destra;
}

QBoxLayout* CorniceRicerca::componi_piede() {
    stato_->setObjectName(QStringLiteral("lblstato"));
    stato_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    assegna_ruolo(stato_, "quieto");
    simulato_->setObjectName(QStringLiteral("lblsimulato"));
    simulato_->setToolTip(tr("Estrazioni simulate, non reali: servono a provare il programma."));
    simulato_->hide();
    assegna_ruolo(simulato_, "avviso");
    battezza(cmd_stampa_, "cmdStampa", "stampa");
    battezza(cmd_esporta_, "cmdEsporta", "esporta");
    battezza(cmd_chiudi_, "cmdChiudi", "chiudi");
    cmd_chiudi_->setToolTip(tr("Torna al catalogo (Esc)"));
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addWidget(simulato_);
    piede->addWidget(stato_, 1);
    piede->addWidget(cmd_stampa_);
    piede->addWidget(cmd_esporta_);
    piede->addWidget(cmd_chiudi_);
    return piede;
}

void CorniceRicerca::intitola(const QString& titolo, const QString& frase) {
    titolo_->setText(titolo);
    titolo_->setToolTip(titolo);
    adatta_titolo();
    frase_->setText(frase);
}

void CorniceRicerca::segna_simulato(bool si) {
    simulato_->setVisible(si);
}

int CorniceRicerca::larghezza_risposta() const {
    return riga_risposta_->geometry().width();
}

void CorniceRicerca::di_del_caso(const QString& frase) {
    caso_->setText(frase);
    caso_->setVisible(!frase.isEmpty());
}

void CorniceRicerca::scrivi_stato(const QString& testo) {
    stato_->setToolTip(testo);
    stato_->setText(stato_->fontMetrics().elidedText(testo, Qt::ElideRight, stato_->width()));
}

void CorniceRicerca::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    // The line's own width is known only once the layout has run.
    QMetaObject::invokeMethod(
        this,
        [this] {
            adatta_titolo();
            scrivi_stato(stato_->toolTip());
        },
        Qt::QueuedConnection);
}

/// A narrow window cuts the title with its dots, and is not kept wide by it.
void CorniceRicerca::adatta_titolo() {
    if (!isVisible()) return;
    titolo_->setText(titolo_->fontMetrics().elidedText(titolo_->toolTip(), Qt::ElideRight, titolo_->width()));
}

void CorniceRicerca::abilita_stampa(bool collegata, bool qualcosa) {
    cmd_stampa_->setEnabled(collegata && qualcosa);
    cmd_stampa_->setToolTip(!collegata ? tr("La stampa non è ancora disponibile.")
                            : qualcosa ? tr("Stampa il risultato (Ctrl+P)")
                                       : tr("Non c'è ancora un risultato da stampare."));
}

void CorniceRicerca::abilita_esporta(bool qualcosa) {
    cmd_esporta_->setEnabled(qualcosa);
    cmd_esporta_->setToolTip(qualcosa ? tr("Scrive il risultato in un file CSV, XLSX o JSON (Ctrl+E)")
                                      : tr("Non c'è ancora un risultato da esportare."));
}

void CorniceRicerca::aggiungi_sopra_avvio(QWidget* comando) {
    sopra_avvio_->addWidget(comando);
}

void CorniceRicerca::ordina_tabulazione() {
    ferma_alla_scelta(window());
    const auto riga = [](const QLayout* di) {
        QList<QWidget*> tasti;
        for (int i = 0; i < di->count(); ++i) {
            QWidget* w = di->itemAt(i)->widget();
            if (w == nullptr) continue;
            if ((w->focusPolicy() & Qt::TabFocus) != 0) tasti << w;
            tasti << tasti_di(w);
        }
        return tasti;
    };
    QList<QWidget*> giro = tasti_di(scorri_->widget());
    giro << riga(sopra_avvio_) << avvia_ << riga(riga_titolo_) << tasti_di(campo_) << riga(riga_comandi_);
    giro << cmd_stampa_ << cmd_esporta_ << cmd_chiudi_;
    giro_di_tab(giro);
}

void CorniceRicerca::adatta_colonna() {
    const int barra = scorri_->verticalScrollBar()->sizeHint().width();
    const int contenuto = scorri_->widget()->minimumSizeHint().width() + barra;
    scorri_->setFixedWidth(std::max(kLarghezzaColonna, contenuto));
}

}  // namespace sortimetra
