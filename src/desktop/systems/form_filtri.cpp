#include "systems/form_filtri.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "results/selezione.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "systems/quadro_griglie.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

constexpr auto kTitoliSistemi = [] {
    std::array<std::string_view, kGeneri.size()> titoli;
    std::transform(kGeneri.begin(), kGeneri.end(), titoli.begin(),
                   [](const GenereSistema& g) { return g.titolo; });
    return titoli;
}();

/// The frames of the statistics, in the order of `Combo1`.
constexpr std::array<const char*, kStatistiche.size()> kFrame{
    "FramePosizioni", "Framedistanza",      "FrameCondizioni", "FrameSomme1",
    "FrameSomme2",    "FrameConsecutività", "FrameGruppi"};

}  // namespace

Form_filtri::Form_filtri(Sessione& sessione)
    : SchermoSistemi{sessione, QStringLiteral("Form_filtri"), kTitoliSistemi},
      combo_{new QComboBox},
      frame_sistemi_{new QFrame},
      elenco_{new QTreeWidget} {
    cornice()->primario()->setObjectName(QStringLiteral("cmdAvvia"));
    cornice()->primario()->setText(tr("&Avvia Ricerca"));
    cornice()->cmd_chiudi()->setObjectName(QStringLiteral("cmdEsci"));

    auto* titolo = new QLabel{tr("S&tatistica")};
    assegna_ruolo(titolo, "sezione");
    titolo->setBuddy(combo_);
    combo_->setObjectName(QStringLiteral("Combo1"));
    combo_->setAccessibleName(tr("Statistica"));
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo_->setMinimumContentsLength(12);
    for (const std::string_view s : kStatistiche) {
        combo_->addItem(testo_qt(s));
        combo_->setItemData(combo_->count() - 1, testo_qt(s), Qt::ToolTipRole);
    }
    // Over the answer: it turns from one frame to the other, and the question's column is full.
    auto* scelta = new QHBoxLayout;
    scelta->setSpacing(2 * kPasso);
    scelta->addWidget(titolo);
    scelta->addWidget(combo_, 1);
    cornice()->risposta()->insertLayout(0, scelta);
    // Tab goes by the order of the children, where the pages stand already.
    combo_->lower();
    componi_sistemi();
    for (std::size_t s = 0; s < kQuadri; ++s) {
        quadri_[s] = new QuadroGriglie{static_cast<Statistica>(s), QString::fromUtf8(kFrame[s])};
        aggiungi_pagina(quadri_[s]);
        connect(quadri_[s], &QuadroGriglie::esporta_richiesta, this, &Form_filtri::esporta);
        connect(quadri_[s], &QuadroGriglie::stampa_richiesta, this, &Form_filtri::stampa);
    }
    mostra_pagina(quadri_[0]);
    connect(combo_, &QComboBox::currentIndexChanged, this, [this] {
        if (!fermo_) statistica_cambiata();
    });
}

void Form_filtri::componi_sistemi() {
    frame_sistemi_->setObjectName(QStringLiteral("FrameSistemi"));
    auto* colonna = new QVBoxLayout{frame_sistemi_};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    auto* titolo = new QLabel{tr("Elenco dei sistemi Salvati"), frame_sistemi_};
    assegna_ruolo(titolo, "sezione");
    colonna->addWidget(titolo);
    elenco_->setObjectName(QStringLiteral("ListView1"));
    elenco_->setAccessibleName(titolo->text());
    elenco_->setHeaderLabels({tr("Nome Sistema"), tr("Data"), tr("Numero Combinazioni")});
    elenco_->setRootIsDecorated(false);
    elenco_->setUniformRowHeights(true);
    elenco_->setAlternatingRowColors(true);
    elenco_->setMinimumHeight(50 * kPasso);
    // Three columns in the narrow one of the questions: long titles take two lines, long names are cut.
    QHeaderView* testata = elenco_->header();
    testata->setStretchLastSection(false);
    testata->setDefaultAlignment(Qt::AlignCenter | Qt::Alignment{Qt::TextWordWrap});
    testata->setMinimumHeight(2 * fontMetrics().height() + 2 * kPasso);
    testata->setSectionsMovable(false);
    elenco_->setFont(carattere_tabellare(elenco_->font()));
    colonna->addWidget(elenco_, 1);
    domande()->addWidget(frame_sistemi_, 1);
    // Another system is another question.
    connect(elenco_, &QTreeWidget::currentItemChanged, this, [this] {
        if (!fermo_) svuota();
    });
    connect(elenco_, &QTreeWidget::itemDoubleClicked, this, [this] { avvia(); });
}

bool Form_filtri::sui_sistemi() const {
    return ricerca() != nullptr && ricerca()->tabelle == 0;
}

Statistica Form_filtri::statistica() const {
    return static_cast<Statistica>(std::max(0, combo_->currentIndex()));
}

QuadroGriglie* Form_filtri::quadro(Statistica statistica) const {
    return quadri_[static_cast<std::size_t>(statistica)];
}

void Form_filtri::prepara() {
    fermo_ = true;
    combo_->setCurrentIndex(0);
    fermo_ = false;
    frame_sistemi_->setVisible(sui_sistemi());
    setWindowTitle(tr("Filtri di Condizionamento"));
    mostra_pagina(quadri_[0]);
}

void Form_filtri::sistema_cambiato() {
    for (QuadroGriglie* q : quadri_) q->inizializza(kGeneri[static_cast<std::size_t>(sistema())].k);
    if (sui_sistemi()) elenca_sistemi();
}

void Form_filtri::elenca_sistemi() {
    fermo_ = true;
    elenco_->clear();
    for (const VoceSistema& v : trova_sistemi(sessione().percorso_programma, sistema())) {
        auto* voce = new QTreeWidgetItem{
            elenco_,
            {QString::fromStdString(v.nome), v.data ? testo_qt(testo_data(*v.data)) : QString{},
             testo_qt(v.testo_combinazioni())}};
        voce->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        voce->setToolTip(0, voce->text(0));
    }
    QHeaderView* testata = elenco_->header();
    testata->setSectionResizeMode(0, QHeaderView::Stretch);
    const QFontMetrics misure{elenco_->font()};
    elenco_->setColumnWidth(1, misure.horizontalAdvance(QStringLiteral("00/00/0000")) + 3 * kPasso);
    elenco_->setColumnWidth(2, misure.horizontalAdvance(QStringLiteral("Combinazioni")) + 8 * kPasso);
    elenco_->setCurrentItem(nullptr);
    fermo_ = false;
}

Parametri Form_filtri::parametri() const {
    auto p = SchermoSistemi::parametri().come<ParametriSistemi>();
    p.statistica = static_cast<int>(statistica());
    if (sui_sistemi() && elenco_->currentItem() != nullptr)
        p.nome = elenco_->currentItem()->text(0).toStdString();
    return p;
}

void Form_filtri::imposta(const Domanda& domanda) {
    SchermoSistemi::imposta(domanda);
    const int statistica = domanda.di<ParametriSistemi>().statistica;
    if (statistica < 0 || statistica >= combo_->count()) return;
    // Chosen by hand it would start.
    fermo_ = true;
    combo_->setCurrentIndex(statistica);
    fermo_ = false;
    mostra_pagina(quadri_[static_cast<std::size_t>(statistica)]);
}

void Form_filtri::esegui() {
    const auto s = static_cast<std::size_t>(statistica());
    const EsitoRicerca esito = corri(*ricerca(), domanda(*ricerca()));
    if (esito.risultato == nullptr) return;
    esiti_[s] = esito.prodotto() ? esito : EsitoRicerca{};
    quadri_[s]->svuota();
    if (esito.prodotto()) quadri_[s]->mostra(esito.risultato);
    riprendi(esiti_[s]);
    di_messaggi(esito);
    di_note(esito);
}

void Form_filtri::statistica_cambiata() {
    const auto s = static_cast<std::size_t>(statistica());
    mostra_pagina(quadri_[s]);
    riprendi(esiti_[s]);
    if (!esiti_[s].prodotto() && isVisible()) avvia();
}

void Form_filtri::svuota() {
    esiti_ = {};
    for (QuadroGriglie* q : quadri_)
        if (q != nullptr) q->svuota();
    SchermoSistemi::svuota();
}

std::vector<std::uint32_t> Form_filtri::ordine_in_mostra() const {
    return quadro(statistica())->griglie().front()->modello()->ordine();
}

LavoroStampa Form_filtri::lavoro() {
    LavoroStampa lavoro = FinestraRicerca::lavoro();
    if (lavoro.risposta.risultato == nullptr) return lavoro;
    // The grids beyond the first go out in the order that each of them shows.
    auto disposto = std::make_shared<Risultato>(*lavoro.risposta.risultato);
    const auto& griglie = quadro(statistica())->griglie();
    for (std::size_t g = 1; g < std::min(griglie.size(), disposto->tabelle.size()); ++g) {
        const auto& ordine = griglie[g]->modello()->ordine();
        if (ordine.empty()) continue;
        std::vector<std::size_t> colonne(disposto->tabelle[g].n_colonne());
        std::iota(colonne.begin(), colonne.end(), std::size_t{0});
        disposto->tabelle[g] = seleziona(disposto->tabelle[g], ordine, colonne);
    }
    lavoro.risposta.risultato = std::move(disposto);
    return lavoro;
}

void Form_filtri::trova() {
    quadro(statistica())->in_uso()->apri_trova();
}

}  // namespace sortimetra
