#include "positional/form_tab_pos.h"

#include "catalogue/nomi.h"
#include "positional/form_tab_pos_dieci.h"
#include "qt_testi.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <string>
#include <vector>

namespace sortimetra {

namespace {

/// Keys of the two searches of the Lotto that this screen runs one after the other.
constexpr const char* kTagDieci = "10num";

}  // namespace

form_tab_pos::form_tab_pos(Sessione& sessione, QWidget* padre)
    : SchermoTabellone{sessione, QStringLiteral("form_tab_pos"), padre},
      pagina_lotto_{new PaginaTabellone{QStringLiteral("FrameTabellone"), QStringLiteral("MSFlexGrid1"),
                                        QStringLiteral("Command1"), QStringLiteral("Command2")}} {
    collega(pagina_lotto_);
    auto* dieci = pagina_lotto_->aggiungi_comando(
        QStringLiteral("Command7"), tr("&Visualizzazione dei 10 numeri più in ritardo per ogni ruota"),
        QStringLiteral("tabella"));
    connect(dieci, &QPushButton::clicked, this, &form_tab_pos::mostra_dieci);
    // It fills members that are declared after it.
    pagina_dieci_ = componi_pagina_dieci();  // NOLINT(cppcoreguidelines-prefer-member-initializer)
    aggiungi_pagina(pagina_dieci_);
    aggiungi_pagina(componi_terza());
}

/// The frame of a third grid, which no board fills and no road shows; its print does nothing.
QWidget* form_tab_pos::componi_terza() {
    auto* pagina = new QWidget;
    pagina->setObjectName(QStringLiteral("FrameTerza"));
    auto* griglia = new QTableWidget{pagina};
    griglia->setObjectName(QStringLiteral("MSFlexGrid3"));
    griglia->setAccessibleName(tr("Terza griglia"));
    auto* stampa_bottone = new QPushButton{icona(QStringLiteral("stampa")), tr("&Stampa"), pagina};
    stampa_bottone->setObjectName(QStringLiteral("Command6"));
    auto* esci = new QPushButton{icona(QStringLiteral("sinistra")), tr("&Esci"), pagina};
    esci->setObjectName(QStringLiteral("Command5"));
    connect(esci, &QPushButton::clicked, this, &QWidget::close);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addWidget(stampa_bottone);
    piede->addWidget(esci);
    auto* colonna = new QVBoxLayout{pagina};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(griglia, 1);
    colonna->addLayout(piede);
    return pagina;
}

QWidget* form_tab_pos::componi_pagina_dieci() {
    auto* pagina = new QWidget;
    pagina->setObjectName(QStringLiteral("FrameDieci"));
    titolo_dieci_ = new QLabel{pagina};
    titolo_dieci_->setObjectName(QStringLiteral("lbltitolo10"));
    assegna_ruolo(titolo_dieci_, "titolo");
    auto* frase = new QLabel{
        tr("«Tutte» guarda tutte le ruote insieme, fino all'ultima estrazione dell'archivio."), pagina};
    frase->setWordWrap(true);
    assegna_ruolo(frase, "quieto");
    griglia_dieci_ = new GrigliaDieci{pagina};

    auto* tabellone = new QPushButton{icona(QStringLiteral("tabella")), tr("&Tabellone Posizionale"), pagina};
    tabellone->setObjectName(QStringLiteral("Command9"));
    stampa_dieci_ = new QPushButton{icona(QStringLiteral("stampa")), tr("&Stampa"), pagina};
    stampa_dieci_->setObjectName(QStringLiteral("Command10"));
    auto* esporta_bottone = new QPushButton{icona(QStringLiteral("esporta")), tr("Es&porta…"), pagina};
    auto* esci = new QPushButton{icona(QStringLiteral("sinistra")), tr("&Esci"), pagina};
    esci->setObjectName(QStringLiteral("Command8"));
    esci->setToolTip(tr("Torna al catalogo (Esc)"));
    connect(tabellone, &QPushButton::clicked, this, &form_tab_pos::mostra_tabellone);
    connect(stampa_dieci_, &QPushButton::clicked, this, [this] { stampa(); });
    connect(esporta_bottone, &QPushButton::clicked, this, [this] { esporta(); });
    connect(esci, &QPushButton::clicked, this, &QWidget::close);

    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addWidget(tabellone);
    piede->addWidget(stampa_dieci_);
    piede->addWidget(esporta_bottone);
    piede->addWidget(esci);
    auto* testata = new QVBoxLayout;
    testata->setSpacing(0);
    testata->addWidget(titolo_dieci_);
    testata->addWidget(frase);
    auto* colonna = new QVBoxLayout{pagina};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addLayout(testata);
    colonna->addWidget(griglia_dieci_, 1);
    colonna->addLayout(piede);
    return pagina;
}

TipoTabellone form_tab_pos::tipo() const {
    const QString tag = property("Tag").toString();
    if (tag == QLatin1String("tabpos_s")) return TipoTabellone::primi_estratti;
    if (tag == QLatin1String("tabpos_s6")) return TipoTabellone::sestina;
    if (tag == QLatin1String("tabpos_10")) return TipoTabellone::dieci_e_lotto;
    return TipoTabellone::lotto;
}

QString form_tab_pos::etichetta() const {
    switch (tipo()) {
        case TipoTabellone::dieci_e_lotto:
            return tr("Tabellone posizionale rispetto alla combinazione 10 e lotto");
        case TipoTabellone::sestina:
            return tr("Tabellone posizionale rispetto alla sestina SuperEnalotto");
        case TipoTabellone::primi_estratti:
            return tr("Tabellone posizionale rispetto ai primi estratti");
        default:
            return {};
    }
}

void form_tab_pos::costruisci(const Domanda& domanda) {
    if (tipo() != TipoTabellone::lotto) {
        SchermoTabellone::costruisci(domanda);
        return;
    }
    if (!costruisci_su(pagina_lotto_, *trova_ricerca(nomi::kTabellone.chiave), domanda)) return;
    dieci_ = {};
    if (property("Tag").toString() == QLatin1String(kTagDieci)) mostra_dieci();
}

void form_tab_pos::mostra_tabellone() {
    if (!pagina_lotto_->esito().prodotto()) return;
    mostra_pagina(pagina_lotto_, testo_qt(pagina_lotto_->esito().titolo()));
    pagina_lotto_->griglia()->setFocus();
}

void form_tab_pos::mostra_dieci() {
    if (!dieci_.prodotto()) {
        dieci_ = chiedi(*trova_ricerca(nomi::kDieciNumeri.chiave), pagina_lotto_->esito().domanda);
        if (!dieci_.prodotto()) return;
        griglia_dieci_->mostra(*dieci_.risultato);
        titolo_dieci_->setText(testo_qt(dieci_.titolo()));
    }
    mostra_pagina(pagina_dieci_, testo_qt(dieci_.titolo()));
    griglia_dieci_->setFocus();
}

const EsitoRicerca* form_tab_pos::in_mostra() const {
    if (pagina() == pagina_dieci_) return dieci_.prodotto() ? &dieci_ : nullptr;
    return SchermoTabellone::in_mostra();
}

void form_tab_pos::aggiorna_comandi() {
    SchermoTabellone::aggiorna_comandi();
    pagina_lotto_->imposta_stampabile(stampabile());
    stampa_dieci_->setEnabled(stampabile());
    stampa_dieci_->setToolTip(stampabile() ? tr("Stampa l'elenco (Ctrl+P)")
                                           : tr("La stampa non è ancora disponibile."));
}

}  // namespace sortimetra
