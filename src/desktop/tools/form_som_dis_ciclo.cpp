#include "tools/form_som_dis_ciclo.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_scorrevole.h"
#include "screens/freccia.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "tools/ciclometria.h"
#include "tools/parametri.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace sortimetra {

namespace {

/// The note of the screen, its blanks as they flow in a window of any width.
constexpr std::string_view kNota =
    "Per ogni estrazione vengono visualizzate le somme e le distanze ciclometriche. Sono evidenziate le "
    "somme e le distanze isotope orizzontali, cioè quei casi in cui la somma o la distanza tra due numeri "
    "nelle medesime posizioni è uguale in due o più ruote.";

QDate in_qt(Data data) {
    const std::chrono::year_month_day g{data};
    return {static_cast<int>(g.year()), static_cast<int>(static_cast<unsigned>(g.month())),
            static_cast<int>(static_cast<unsigned>(g.day()))};
}

Data da_qt(const QDate& giorno) {
    return Data{std::chrono::days{QDate{1970, 1, 1}.daysTo(giorno)}};
}

QLabel* sezione(const QString& testo, QWidget* compagno) {
    auto* l = new QLabel{testo};
    l->setBuddy(compagno);
    assegna_ruolo(l, "sezione");
    return l;
}

/// Room for a board as a whole: its heads and ten wheels, its columns at their narrowest.
void riserva_posto(GrigliaRisultati& griglia, bool numeri) {
    constexpr int kAria = 3 * kPasso;
    QFont grassetto = griglia.vista()->font();
    grassetto.setBold(true);
    const QFontMetrics misure{grassetto};
    const int ruota = misure.horizontalAdvance(QStringLiteral("Cagliari")) + kAria;
    const int valore =
        misure.horizontalAdvance(numeri ? QStringLiteral("000") : QStringLiteral("0°- 0°")) + kAria;
    griglia.setMinimumWidth(ruota + (numeri ? kEstratti : kEstratti - 1) * valore);
    griglia.setFixedHeight((kRuote + 1) * (misure.height() + 2 * kPasso) + 2 * kPasso);
}

}  // namespace

CasellaEstrazione::CasellaEstrazione(QWidget* padre) : CasellaConcorso{padre} {
    setObjectName(QStringLiteral("UpDown1"));
    testo()->setObjectName(QStringLiteral("txtConc"));
    setAccessibleName(tr("Concorso"));
    testo()->setAccessibleName(tr("Concorso"));
}

void CasellaEstrazione::mostra(Concorso concorso) {
    mostrato_ = concorso;
    // Writing what stands there already would move the cursor under the user's fingers.
    if (this->concorso() == concorso) return;
    setValue(concorso);
    if (this->concorso() != concorso) testo()->setText(QString::number(concorso));
}

void CasellaEstrazione::riporta() {
    if (mostrato_ > 0) mostra(mostrato_);
}

bool CasellaEstrazione::ammette(QChar c) const {
    return c >= QLatin1Char{'0'} && c <= QLatin1Char{'9'};
}

Form_som_dis_ciclo::Form_som_dis_ciclo(Sessione& sessione, QWidget* padre)
    : FinestraRicerca{sessione, QStringLiteral("Form_som_dis_ciclo"), padre},
      concorso_{new CasellaEstrazione},
      data_{new QDateEdit},
      isotopi_{new QLabel} {
    incornicia(CorniceRicerca::Domande::proprie);
    componi_domanda();
    componi_risposta();
    // Nothing is to be started: each change of the question is answered at once.
    QPushButton* primario = cornice()->primario();
    primario->setObjectName(QStringLiteral("cmdMostra"));
    primario->hide();
    primario->setFocusPolicy(Qt::NoFocus);
    cornice()->freccia()->hide();
    cornice()->cmd_stampa()->setObjectName(QStringLiteral("Command1"));
}

void Form_som_dis_ciclo::componi_domanda() {
    QVBoxLayout* colonna = cornice()->colonna_extra();
    auto* riga = new QGridLayout;
    riga->setHorizontalSpacing(2 * kPasso);
    riga->setVerticalSpacing(kPasso);
    data_->setObjectName(QStringLiteral("DTPicker1"));
    data_->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    data_->setCalendarPopup(true);
    // A day half typed is no question yet.
    data_->setKeyboardTracking(false);
    data_->setFont(carattere_tabellare(font()));
    data_->setAccessibleName(tr("Data dell'estrazione"));
    riga->addWidget(sezione(tr("C&oncorso"), concorso_), 0, 0);
    riga->addWidget(sezione(tr("&Data"), data_), 0, 1);
    riga->addWidget(concorso_, 1, 0);
    riga->addWidget(data_, 1, 1);
    riga->setColumnStretch(0, 1);
    riga->setColumnStretch(1, 1);
    colonna->addLayout(riga);
    auto* nota = new QLabel{testo_qt(kNota)};
    nota->setObjectName(QStringLiteral("lblnota"));
    nota->setWordWrap(true);
    assegna_ruolo(nota, "quieto");
    colonna->addWidget(nota);

    connect(concorso_, &CasellaConcorso::testo_cambiato, this, [this] {
        if (!fermo_) carica_estrazione(concorso_->concorso());
    });
    connect(data_, &QDateEdit::dateChanged, this, [this](const QDate& giorno) {
        if (!fermo_) alla_data(giorno);
    });
}

void Form_som_dis_ciclo::componi_risposta() {
    // A run stops the boards, never the box in which someone is typing.
    auto* campo = new QWidget;
    imposta_spento(campo);
    auto* fila = new QGridLayout{campo};
    fila->setContentsMargins(0, 2 * kPasso, 0, 0);
    fila->setHorizontalSpacing(4 * kPasso);
    fila->setVerticalSpacing(kPasso);
    constexpr std::array kColonne{6, 5, 5};
    for (std::size_t i = 0; i < griglie_.size(); ++i) {
        titoli_[i] = new QLabel;
        titoli_[i]->setObjectName(QStringLiteral("lbltabella_%1").arg(i));
        titoli_[i]->setAlignment(Qt::AlignCenter);
        assegna_ruolo(titoli_[i], "sezione");
        auto* g = new GrigliaRisultati;
        g->imposta_tabellone(true);
        g->vista()->setObjectName(QStringLiteral("MSHFlexGrid1_%1").arg(i));
        riserva_posto(*g, i == 0);
        connect(g, &GrigliaRisultati::esporta_richiesta, this, &Form_som_dis_ciclo::esporta);
        connect(g, &GrigliaRisultati::stampa_richiesta, this, &Form_som_dis_ciclo::stampa);
        const int colonna = static_cast<int>(i);
        fila->addWidget(titoli_[i], 0, colonna);
        fila->addWidget(g, 1, colonna);
        fila->setColumnStretch(colonna, kColonne[i]);
        griglie_[i] = g;
    }
    // In a narrow window the three scroll as one, their rows side by side.
    auto* tavole = new AreaScorrevole{campo};
    tavole->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    const int intere = campo->sizeHint().height() + tavole->horizontalScrollBar()->sizeHint().height();
    tavole->setMaximumHeight(intere);
    // In a low one they scroll, too.
    tavole->setMinimumHeight(intere / 2);
    auto* titolo = new QLabel{tr("Isotopi")};
    assegna_ruolo(titolo, "sezione");
    isotopi_->setObjectName(QStringLiteral("lblisotopi"));
    isotopi_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    isotopi_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cornice()->risposta()->addWidget(tavole, 10);
    cornice()->risposta()->addSpacing(2 * kPasso);
    cornice()->risposta()->addWidget(titolo);
    // As many lines as a draw may have: they scroll where the window is low.
    cornice()->risposta()->addWidget(new AreaScorrevole{isotopi_}, 1);
}

void Form_som_dis_ciclo::prepara() {
    setWindowTitle(tr("Somme e Distanze Ciclometriche"));
    for (GrigliaRisultati* g : griglie_) g->imposta_stampabile(stampabile());
}

void Form_som_dis_ciclo::attiva() {
    inizializza();
}

void Form_som_dis_ciclo::inizializza() {
    const Concorso ultimo = archivio()->ultimo_concorso();
    fermo_ = true;
    concorso_->setRange(1, std::max(1, ultimo));
    fermo_ = false;
    svuota();
    carica_estrazione(ultimo);
}

Parametri Form_som_dis_ciclo::parametri() const {
    ParametriCiclometria p;
    p.concorso = concorso_->concorso();
    return p;
}

void Form_som_dis_ciclo::carica_estrazione(Concorso concorso) {
    if (in_corsa() || archivio() == nullptr) return;
    Domanda d = domanda(*ricerca());
    d.parametri.per<ParametriCiclometria>().concorso = concorso;
    const EsitoRicerca esito = corri(*ricerca(), std::move(d));
    if (esito.prodotto()) presenta(esito);
}

void Form_som_dis_ciclo::alla_data(const QDate& giorno) {
    if (archivio() == nullptr) return;
    if (const auto concorso = concorso_alla_data(*archivio(), da_qt(giorno))) carica_estrazione(*concorso);
}

void Form_som_dis_ciclo::mostra(const EsitoRicerca& esito) {
    const auto& r = esito.risultato;
    for (std::size_t i = 0; i < griglie_.size(); ++i) {
        // The title over all columns stands over the board.
        auto tabella = std::make_shared<Tabella>(r->tabelle[i]);
        titoli_[i]->setText(testo_qt(tabella->titoli.front().front()));
        tabella->titoli.erase(tabella->titoli.begin());
        // The rows have the bands of the skin; the isotopes keep their shades.
        std::replace_if(
            tabella->sfondi.begin(), tabella->sfondi.end(),
            [](Colore c) { return std::find(kPaletta.begin(), kPaletta.end(), c) == kPaletta.end(); },
            kNessunColore);
        griglie_[i]->mostra(std::move(tabella));
    }
    QStringList righe;
    for (const std::string& testo : testi_isotopi(*r)) righe << testo_qt(testo);
    isotopi_->setText(righe.isEmpty() ? tr("Nessuno in questa estrazione.") : righe.join(QLatin1Char{'\n'}));

    const Concorso concorso = esito.domanda.di<ParametriCiclometria>().concorso.value_or(0);
    const auto record = cerca_concorso(archivio()->lotto().concorso, concorso);
    fermo_ = true;
    concorso_->mostra(concorso);
    if (record) data_->setDate(in_qt(archivio()->lotto().data[*record]));
    fermo_ = false;
}

void Form_som_dis_ciclo::svuota() {
    for (GrigliaRisultati* g : griglie_) g->svuota();
    for (QLabel* t : titoli_) t->clear();
    isotopi_->clear();
    FinestraRicerca::svuota();
}

void Form_som_dis_ciclo::showEvent(QShowEvent* evento) {
    FinestraRicerca::showEvent(evento);
    if (!evento->spontaneous()) concorso_->setFocus();
}

}  // namespace sortimetra
