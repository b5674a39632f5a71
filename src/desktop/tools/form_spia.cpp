#include "tools/form_spia.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/freccia.h"
#include "screens/griglia_risultati.h"
#include "screens/pannello_avanzamento.h"
#include "screens/tema.h"
#include "tools/parametri.h"
#include "tools/spia.h"
#include "tools/tavola_numeri.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <memory>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

const QString kTutti = QStringLiteral("Ricerca su tutti e 90 i Numeri");
const QString kAnnulla = QStringLiteral("Annulla ricerca");

/// A sample of a colour of the grid.
QWidget* campione(Colore colore, QWidget* padre) {
    constexpr int kLato = 3 * kPasso;
    auto* w = new QWidget{padre};
    w->setFixedSize(kLato, kLato);
    w->setAutoFillBackground(true);
    QPalette p = w->palette();
    p.setColor(QPalette::Window, QColor::fromRgb(colore_schermo(colore)));
    w->setPalette(p);
    return w;
}

/// What figures and colours mean.
QWidget* componi_legenda() {
    auto* legenda = new QWidget;
    auto* righe = new QGridLayout{legenda};
    righe->setContentsMargins(0, 0, 0, 0);
    righe->setHorizontalSpacing(2 * kPasso);
    righe->setVerticalSpacing(0);
    constexpr std::array<std::pair<Colore, std::string_view>, 4> kVoci{{{kNessunColore, kLegendaPercento1},
                                                                        {kNessunColore, kLegendaPercento2},
                                                                        {kSfondoInAttesa, kLegendaRosso},
                                                                        {kSfondoSeguita, kLegendaVerde}}};
    int riga = 0;
    for (const auto& [colore, testo] : kVoci) {
        auto* scritta = new QLabel{testo_qt(testo), legenda};
        scritta->setObjectName(QStringLiteral("lbllegenda_%1").arg(riga));
        scritta->setWordWrap(true);
        assegna_ruolo(scritta, "quieto");
        if (colore != kNessunColore) righe->addWidget(campione(colore, legenda), riga, 0, Qt::AlignTop);
        righe->addWidget(scritta, riga++, 1);
    }
    righe->setColumnStretch(1, 1);
    return legenda;
}

}  // namespace

form_spia::form_spia(Sessione& sessione, QWidget* padre)
    : SchermoRicerca{sessione, QStringLiteral("form_spia"), padre},
      tavola_{new TavolaNumeri},
      pannello_{new PannelloAvanzamento{this}} {
    componi_risposta();
    battezza();
    area()->imposta_ruota_unica(true);
    imposta_annullabile(true);
    griglia()->imposta_frase_vuota(
        tr("Scegli la ruota a sinistra, poi premi un numero\noppure «%1» (F5).").arg(kTutti));
    connect(tavola_, &TavolaNumeri::scelto, this, &form_spia::inizializza);
    // In a run the same button stops it; F5 does not.
    QPushButton* tutti = cornice()->primario();
    disconnect(tutti, &QPushButton::clicked, this, nullptr);
    connect(tutti, &QPushButton::clicked, this, &form_spia::premi_tutti);
}

void form_spia::componi_risposta() {
    QVBoxLayout* risposta = cornice()->risposta();
    risposta->removeWidget(griglia());
    // Board and grid stand still during a run; wheels, range and the button that stops it do not.
    auto* campo = new QWidget;
    auto* fianco = new QHBoxLayout{campo};
    fianco->setContentsMargins(0, 0, 0, 0);
    fianco->setSpacing(4 * kPasso);
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(tavola_, 1);
    sinistra->addStretch(0);
    fianco->addLayout(sinistra, 2);
    fianco->addWidget(griglia(), 3);
    risposta->addWidget(campo, 1);
    risposta->addWidget(componi_legenda());
    imposta_spento(campo);
}

void form_spia::battezza() {
    griglia()->vista()->setObjectName(QStringLiteral("MSFlexGrid1"));
    QPushButton* tutti = cornice()->primario();
    tutti->setObjectName(QStringLiteral("Command2"));
    tutti->setText(kTutti);
    tutti->setToolTip(tr("Esamina i numeri che mancano (F5)"));
    // Its caption needs the room of the arrows.
    cornice()->freccia()->hide();
    cornice()->cmd_stampa()->setObjectName(QStringLiteral("Command4"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("Command1"));
    cornice()->cmd_chiudi()->setText(tr("&Esci"));
    cornice()->cmd_esporta()->setText(tr("Es&porta…"));

    pannello_->setObjectName(QStringLiteral("Frame5"));
    pannello_->imposta_scritta(tr("Analisi in corso. Attendere Prego"));
    pannello_->imposta_annullabile(true);
    pannello_->findChild<QWidget*>(QStringLiteral("PicEst"))->setObjectName(QStringLiteral("ProgressBar2"));
    auto* annulla = pannello_->findChild<QPushButton*>(QStringLiteral("cmdAnnulla"));
    annulla->setObjectName(QStringLiteral("Command3"));
    annulla->setText(tr("Annulla"));
}

void form_spia::attiva() {
    SchermoRicerca::attiva();
    tavola_->svuota();
}

void form_spia::prepara() {
    SchermoRicerca::prepara();
    setWindowTitle(tr("Numeri Spia"));
}

void form_spia::inizializza_griglia() {
    griglia()->inizializza({{"Num.", "Rit.", "Num. Spia", "%1", "%2", "Rit. Num. Spia"}});
}

void form_spia::inizializza(int numero) {
    esamina({numero});
}

void form_spia::avvia() {
    std::vector<int> tutti(kNumeri);
    std::iota(tutti.begin(), tutti.end(), 1);
    esamina(std::move(tutti));
}

void form_spia::premi_tutti() {
    if (in_corsa())
        ferma_corsa();
    else
        avvia();
}

void form_spia::esamina(std::vector<int> numeri) {
    if (in_corsa() || archivio() == nullptr) return;
    // May bring the range back, and so clear the marks.
    area()->riporta_tratto();
    std::erase_if(numeri, [this](int n) { return tavola_->segnato(n); });
    if (numeri.empty()) return;
    Domanda d = domanda(*ricerca());
    d.parametri.per<ParametriSpia>().numeri = std::move(numeri);
    scartata_ = false;
    cornice()->primario()->setText(kAnnulla);
    EsitoRicerca esito = corri(*ricerca(), std::move(d), pannello_);
    cornice()->primario()->setText(kTutti);
    if (esito.risultato == nullptr || scartata_) return;
    if (esito.prodotto()) {
        if (risultato() != nullptr)
            esito.risultato = std::make_shared<const Risultato>(unisci_spie(*risultato(), *esito.risultato));
        // What was not reached was not asked.
        esito.domanda.parametri.per<ParametriSpia>().numeri = numeri_esaminati(*esito.risultato);
    }
    presenta(esito);
    di_messaggi(esito);
}

void form_spia::mostra(const EsitoRicerca& esito) {
    SchermoRicerca::mostra(esito);
    tavola_->segna(numeri_esaminati(*esito.risultato));
}

void form_spia::svuota() {
    if (in_corsa()) {
        scartata_ = true;
        ferma_corsa();
    }
    tavola_->svuota();
    SchermoRicerca::svuota();
}

}  // namespace sortimetra
