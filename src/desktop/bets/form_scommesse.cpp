#include "bets/form_scommesse.h"

#include "bets/casella_limite.h"
#include "bets/limite.h"
#include "bets/parametri.h"
#include "bets/scommesse.h"
#include "qt_testi.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sortimetra {

Form_scommesse::Form_scommesse(Sessione& sessione, QWidget* padre)
    : SchermoRicerca{sessione, QStringLiteral("Form_scommesse"), padre},
      giochi_online{sessione},
      combo1_{new QComboBox},
      etichetta_limite_{new QLabel{tr("&Limite Under/Over")}},
      limite_{new CasellaLimite},
      in_vigore_{new QLabel} {
    componi_domanda();
    area()->findChild<QCheckBox*>(QStringLiteral("CheckRuota_%1").arg(kTutte))->setText(tr("TUTTE LE RUOTE"));
    // The names that these commands have on this screen.
    cornice()->primario()->setObjectName(QStringLiteral("cmdAvvia"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("cmdesci"));
    auto* online = new QPushButton{tr("&Giochi Online"), this};
    online->setObjectName(QStringLiteral("Command1"));
    online->setToolTip(tr("Apre il programma delle scommesse, se è installato"));
    cornice()->riga_comandi()->addWidget(online);
    connect(online, &QPushButton::clicked, this, [this] { giochi_online.apri(this); });
    griglia()->blocca_prima_colonna(true);
}

void Form_scommesse::componi_domanda() {
    QVBoxLayout* colonna = cornice()->colonna_extra();
    auto* nota = new QLabel{tr("La tabella mostra sempre le dieci ruote e la Nazionale.")};
    nota->setWordWrap(true);
    assegna_ruolo(nota, "quieto");
    auto* titolo = new QLabel{tr("&Tipo Ricerca")};
    assegna_ruolo(titolo, "sezione");
    combo1_->setObjectName(QStringLiteral("Combo1"));
    combo1_->setAccessibleName(tr("Tipo Ricerca"));
    for (const Scommessa& s : scommesse()) combo1_->addItem(testo_qt(s.voce));
    titolo->setBuddy(combo1_);
    etichetta_limite_->setObjectName(QStringLiteral("Label3"));
    etichetta_limite_->setBuddy(limite_);
    assegna_ruolo(etichetta_limite_, "sezione");
    limite_->setAccessibleName(tr("Limite Under/Over"));
    limite_->setToolTip(tr("Seleziona e riscrivi: cifre e virgola"));
    in_vigore_->setObjectName(QStringLiteral("lblinvigore"));
    in_vigore_->setWordWrap(true);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(2 * kPasso);
    riga->addWidget(limite_);
    riga->addWidget(in_vigore_, 1);

    auto* gruppo = new QVBoxLayout;
    gruppo->setSpacing(kPasso);
    gruppo->addWidget(nota);
    gruppo->addWidget(titolo);
    gruppo->addWidget(combo1_);
    gruppo->addWidget(etichetta_limite_);
    gruppo->addLayout(riga);
    colonna->addLayout(gruppo);

    connect(combo1_, &QComboBox::currentIndexChanged, this, [this](int quale) {
        limite_->setEnabled(quale == 0);
        etichetta_limite_->setEnabled(quale == 0);
        in_vigore_->setEnabled(quale == 0);
        svuota();
        inizializza_griglia();
    });
    connect(limite_, &CasellaLimite::lasciata, this, &Form_scommesse::lascia_limite);
}

void Form_scommesse::prepara() {
    const QSignalBlocker fermo{combo1_};
    combo1_->setCurrentIndex(0);
    limite_->setEnabled(true);
    etichetta_limite_->setEnabled(true);
    in_vigore_->setEnabled(true);
    SchermoRicerca::prepara();
}

void Form_scommesse::attiva() {
    SchermoRicerca::attiva();
    carica_limite();
}

void Form_scommesse::inizializza_griglia() {
    const auto quale = static_cast<std::size_t>(combo1_->currentIndex());
    griglia()->inizializza(titoli_scommessa(scommesse()[quale], kUltimiConcorsi));
}

Parametri Form_scommesse::parametri() const {
    ParametriScommesse p;
    p.analisi = combo1_->currentIndex();
    p.limite = valore_;
    return p;
}

void Form_scommesse::imposta(const Domanda& domanda) {
    combo1_->setCurrentIndex(domanda.di<ParametriScommesse>().analisi);
    SchermoRicerca::imposta(domanda);
}

void Form_scommesse::avvia() {
    // Started from inside the box, the search runs with what stands there.
    if (limite_->hasFocus()) lascia_limite();
    SchermoRicerca::avvia();
}

// ---- the limit ----

void Form_scommesse::di_limite(const QString& testo, bool avviso) {
    in_vigore_->setText(testo);
    assegna_ruolo(in_vigore_, avviso ? "avviso" : "quieto");
}

void Form_scommesse::metti_in_vigore(float limite) {
    const bool cambiato = limite != valore_;
    valore_ = limite;
    tenuto_ = limite_->text();
    di_limite(tr("in vigore: %1").arg(testo_qt(testo_limite(limite))), false);
    if (cambiato && combo1_->currentIndex() == 0) svuota();
}

void Form_scommesse::carica_limite() {
    const auto& cartella = sessione().percorso_programma;
    const auto letto = leggi_limite(cartella);
    const LimiteArchiviato limite = letto ? letto->value_or(LimiteArchiviato{}) : LimiteArchiviato{};
    limite_->setText(testo_qt(limite.testo));
    metti_in_vigore(limite.valore);
    if (!letto) {
        di_limite(testo_qt(letto.error().testo()), true);
        return;
    }
    if (*letto) return;
    if (const auto scritto = scrivi_limite(cartella, kTestoLimiteIniziale); !scritto)
        di_limite(testo_qt(scritto.error().testo()), true);
}

void Form_scommesse::lascia_limite() {
    const auto decimi = leggi_decimi(limite_->text().toStdString());
    if (!decimi) {
        limite_->setText(tenuto_);
        return;
    }
    const std::string testo = testo_decimi(*decimi);
    limite_->setText(testo_qt(testo));
    metti_in_vigore(valore_decimi(*decimi));
    if (const auto scritto = scrivi_limite(sessione().percorso_programma, testo); !scritto)
        di_limite(testo_qt(scritto.error().testo()), true);
}

}  // namespace sortimetra
