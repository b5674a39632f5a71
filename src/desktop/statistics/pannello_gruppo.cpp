#include "statistics/pannello_gruppo.h"

#include "personal/gruppi.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

namespace {

GrigliaRisultati* lista(const QString& nome, const QString& per_chi_ascolta) {
    auto* griglia = new GrigliaRisultati;
    griglia->vista()->setObjectName(nome);
    griglia->vista()->setAccessibleName(per_chi_ascolta);
    griglia->imposta_frase_vuota({});
    return griglia;
}

/// A grid with a heading, and what stands under it.
QWidget* con_titolo(const QString& titolo, GrigliaRisultati* griglia, QWidget* sotto = nullptr) {
    auto* insieme = new QWidget;
    auto* colonna = new QVBoxLayout{insieme};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    auto* scritta = new QLabel{titolo};
    assegna_ruolo(scritta, "sezione");
    colonna->addWidget(scritta);
    colonna->addWidget(griglia, 1);
    if (sotto != nullptr) colonna->addWidget(sotto);
    return insieme;
}

std::shared_ptr<const Tabella> tabella(const std::shared_ptr<const Risultato>& risultato,
                                       std::string_view nome) {
    for (const Tabella& t : risultato->tabelle)
        if (t.nome == nome) return {risultato, &t};
    return nullptr;
}

QPushButton* comando(const QString& nome, const QString& testo) {
    auto* b = new QPushButton{testo};
    b->setObjectName(nome);
    return b;
}

}  // namespace

PannelloGruppo::PannelloGruppo(QWidget* padre)
    : QWidget{padre},
      sintesi_{lista(QStringLiteral("MSHFlexGrid2"), tr("Misure del gruppo"))},
      frame7_{new QFrame},
      entro_{new QComboBox},
      probabilita_{new QLabel},
      ritardi_{lista(QStringLiteral("ListView1"), tr("Ritardi fra gli esiti"))},
      esiti_{lista(QStringLiteral("ListView2"), tr("Esiti positivi"))},
      lunghette_{lista(QStringLiteral("ListView4"), tr("Lunghette analizzate"))},
      scomponi_{comando(QStringLiteral("SkinLabel5"), tr("Scomponi la lunghetta scelta"))},
      frame9_{new QFrame},
      combinazioni_{lista(QStringLiteral("ListView5"), tr("Combinazioni della lunghetta"))},
      dettaglio_{comando(QStringLiteral("cmddettaglio"), tr("Visualizza Dettaglio Lunghette Analizzate"))} {
    ritardi_->imposta_pulsanti(QStringLiteral("cmdstat_%1"), 0);
    esiti_->imposta_pulsanti(QStringLiteral("cmdstat_%1"), 3);
    auto* liste = new QSplitter{Qt::Horizontal};
    liste->addWidget(riquadro_ritardi_ = con_titolo(tr("Ritardi"), ritardi_));
    liste->addWidget(con_titolo(tr("Esiti positivi"), esiti_));
    liste->addWidget(riquadro_lunghette_ = componi_lunghette());
    liste->addWidget(frame9_);
    liste->setChildrenCollapsible(false);
    // A splitter puts what it is given behind what it has; Tab and screen readers follow the order of
    // reading.
    for (int i = 0; i < liste->count(); ++i) liste->widget(i)->raise();
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addWidget(componi_sintesi());
    colonna->addWidget(liste, 1);
    auto* riga = new QHBoxLayout;
    riga->addWidget(dettaglio_);
    riga->addStretch(1);
    colonna->addLayout(riga);
    connect(dettaglio_, &QPushButton::clicked, this, [this] { mostra_lunghette(true); });
    connect(scomponi_, &QPushButton::clicked, this, &PannelloGruppo::scomposta_richiesta);
    connect(lunghette_->vista(), &QAbstractItemView::doubleClicked, this, [this] {
        if (scomponi_->isEnabled()) emit scomposta_richiesta();
    });
    for (GrigliaRisultati* g : {sintesi_, ritardi_, esiti_, lunghette_, combinazioni_}) {
        connect(g, &GrigliaRisultati::stampa_richiesta, this, &PannelloGruppo::stampa_richiesta);
        connect(g, &GrigliaRisultati::esporta_richiesta, this, &PannelloGruppo::esporta_richiesta);
    }
    svuota();
}

QWidget* PannelloGruppo::componi_sintesi() {
    auto* insieme = new QWidget;
    auto* colonna = new QVBoxLayout{insieme};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    sintesi_->setFixedHeight(15 * kPasso);
    colonna->addWidget(sintesi_);

    auto* bande = new QHBoxLayout;
    bande->setSpacing(4 * kPasso);
    auto* titolo = new QLabel{tr("Fasce del ritardo storico")};
    assegna_ruolo(titolo, "sezione");
    bande->addWidget(titolo);
    for (std::size_t i = 0; i < fasce_.size(); ++i) {
        fasce_[i] = new QLabel;
        fasce_[i]->setObjectName(QStringLiteral("lblfasce_%1").arg(i));
        fasce_[i]->setAccessibleName(tr("Fascia %1 del ritardo storico").arg(i + 1));
        fasce_[i]->setFont(carattere_tabellare(font()));
        bande->addWidget(fasce_[i]);
    }
    bande->addStretch(1);
    colonna->addLayout(bande);

    frame7_->setObjectName(QStringLiteral("Frame7"));
    auto* domanda = new QHBoxLayout{frame7_};
    domanda->setContentsMargins(0, 0, 0, 0);
    domanda->setSpacing(2 * kPasso);
    auto* prima = new QLabel{tr("Probabilità Statistica Esito positivo entro  i prossimi")};
    prima->setBuddy(entro_);
    assegna_ruolo(prima, "sezione");
    entro_->setObjectName(QStringLiteral("Combo1"));
    entro_->setAccessibleName(tr("Entro quanti concorsi"));
    probabilita_->setObjectName(QStringLiteral("lblprob"));
    probabilita_->setAccessibleName(tr("Probabilità statistica"));
    assegna_ruolo(probabilita_, "titolo");
    domanda->addWidget(prima);
    domanda->addWidget(entro_);
    domanda->addWidget(new QLabel{tr("concorsi")});
    domanda->addWidget(probabilita_);
    domanda->addStretch(1);
    colonna->addWidget(frame7_);
    connect(entro_, &QComboBox::currentIndexChanged, this, &PannelloGruppo::aggiorna_probabilita);
    return insieme;
}

QWidget* PannelloGruppo::componi_lunghette() {
    auto* chiudi = comando(QStringLiteral("Command11"), tr("Chiudi Dettaglio Lunghette Analizzate"));
    connect(chiudi, &QPushButton::clicked, this, [this] { mostra_lunghette(false); });
    auto* sotto = new QWidget;
    auto* colonna = new QVBoxLayout{sotto};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(kPasso);
    colonna->addWidget(scomponi_);
    colonna->addWidget(chiudi);

    auto* fine = comando(QStringLiteral("Command12"), tr("Chiudi Finestra Scomposizione"));
    connect(fine, &QPushButton::clicked, this, [this] { mostra_scomposta(nullptr); });
    frame9_->setObjectName(QStringLiteral("Frame9"));
    auto* nove = new QVBoxLayout{frame9_};
    nove->setContentsMargins(0, 0, 0, 0);
    nove->addWidget(con_titolo(tr("Combinazioni della lunghetta"), combinazioni_, fine));

    QWidget* insieme = con_titolo(tr("Lunghette"), lunghette_, sotto);
    connect(lunghette_, &GrigliaRisultati::riga_cambiata, this,
            [this] { scomponi_->setEnabled(scomponibile_ && lunghetta_scelta().has_value()); });
    return insieme;
}

void PannelloGruppo::mostra(const std::shared_ptr<const Risultato>& risultato) {
    const auto sintesi = tabella(risultato, "sintesi");
    sintesi_->mostra(sintesi);
    ritardi_->mostra(tabella(risultato, "risultati"));
    esiti_->mostra(tabella(risultato, "esiti"));
    lunghette_->mostra(tabella(risultato, "lunghette"));
    for (const Etichetta& e : risultato->etichette)
        if (const auto* testi = std::get_if<std::vector<std::string>>(&e.testo); testi != nullptr)
            for (std::size_t i = 0; i < std::min(testi->size(), fasce_.size()); ++i)
                fasce_[i]->setText(testo_qt((*testi)[i]));
    ritardo_ = std::get<ColonnaInteri>(sintesi->colonne[1]).valori.front();
    storico_ = std::get<ColonnaInteri>(sintesi->colonne[2]).valori.front();
    riempi_probabilita();
    if (const auto riga = ritardo_piu_frequente(*tabella(risultato, "risultati")))
        ritardi_->vista()->selectRow(static_cast<int>(*riga));
    if (lunghette_->modello()->rowCount() > 0) lunghette_->vista()->selectRow(0);
    dettaglio_->setEnabled(true);
}

void PannelloGruppo::svuota() {
    for (GrigliaRisultati* g : {sintesi_, ritardi_, esiti_, lunghette_}) g->svuota();
    for (QLabel* l : fasce_) l->clear();
    frame7_->hide();
    dettaglio_->setEnabled(false);
    mostra_lunghette(false);
}

void PannelloGruppo::imposta_scomponibile(bool si) {
    scomponibile_ = si;
    scomponi_->setVisible(si);
    scomponi_->setEnabled(si && lunghetta_scelta().has_value());
    if (!si) mostra_scomposta(nullptr);
}

void PannelloGruppo::mostra_lunghette(bool si) {
    riquadro_lunghette_->setVisible(si);
    if (!si) mostra_scomposta(nullptr);
}

void PannelloGruppo::mostra_scomposta(std::shared_ptr<const Tabella> dettaglio) {
    frame9_->setVisible(dettaglio != nullptr);
    // The combinations take the room of the delays: four lists side by side would show none whole.
    riquadro_ritardi_->setVisible(dettaglio == nullptr);
    if (dettaglio == nullptr) {
        combinazioni_->svuota();
        return;
    }
    riquadro_lunghette_->show();
    combinazioni_->mostra(std::move(dettaglio));
}

bool PannelloGruppo::scomposta() const {
    return !frame9_->isHidden();
}

std::optional<std::size_t> PannelloGruppo::lunghetta_scelta() const {
    return lunghette_->vuota() ? std::nullopt : lunghette_->riga_scelta();
}

void PannelloGruppo::riempi_probabilita() {
    const QSignalBlocker zitto{entro_};
    entro_->clear();
    for (int n = 1; n <= storico_ - ritardo_; ++n) entro_->addItem(QString::number(n));
    // At or beyond the longest delay there is nothing left to wait for.
    frame7_->setVisible(ritardo_ < storico_);
    entro_->setCurrentIndex(0);
    aggiorna_probabilita();
}

void PannelloGruppo::aggiorna_probabilita() {
    probabilita_->setText(testo_qt(probabilita_gruppo(entro_->currentIndex() + 1, ritardo_, storico_)));
}

}  // namespace sortimetra
