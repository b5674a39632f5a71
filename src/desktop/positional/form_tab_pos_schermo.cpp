#include "positional/form_tab_pos_schermo.h"

#include "positional/form_tab_pos_scelta.h"
#include "positional/parametri.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/comando_ultima.h"
#include "screens/giro_di_tab.h"
#include "screens/griglia_risultati.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolTip>
#include <QVBoxLayout>
#include <array>
#include <utility>
#include <variant>

namespace sortimetra {

// ---- SchermoConcorso ----

SchermoConcorso::SchermoConcorso(Sessione& sessione, const QString& nome, QWidget* padre)
    : FinestraRicerca{sessione, nome, padre},
      pagine_{new QStackedWidget{corpo()}},
      pagina_scelta_{new QWidget},
      scelta_{new SceltaConcorso} {
    auto* tutto = new QVBoxLayout{corpo()};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(pagine_);
    auto* mezzo = new QVBoxLayout{pagina_scelta_};
    mezzo->addStretch(2);
    // Stretches at the sides, no alignment: an aligned widget is not given the height of its wrapped lines.
    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    riga->addWidget(scelta_);
    riga->addStretch(1);
    mezzo->addLayout(riga);
    mezzo->addStretch(3);
    pagine_->addWidget(pagina_scelta_);
    scelta_->aggiungi_comando(comando_ultima());
    giro_di_tab(QList<QWidget*>{scelta_->casella()} + comando_ultima()->tasti());
    connect(scelta_, &SceltaConcorso::confermato, this, &SchermoConcorso::conferma);
    connect(scelta_, &SceltaConcorso::chiuso, this, &QWidget::close);
}

void SchermoConcorso::iniz() {
    QString frase = testo_qt(ricerca()->frase);
    if (archivio_simulato()) frase += tr(" Archivio simulato: non sono estrazioni vere.");
    scelta_->apri(*archivio(), tipo(), frase);
    pagine_->setCurrentWidget(pagina_scelta_);
    scelta_->fuoco_su_conferma();
}

void SchermoConcorso::avvia() {
    if (pagine_->currentWidget() == pagina_scelta_)
        conferma();
    else
        ripeti();
}

void SchermoConcorso::conferma() {
    if (in_corsa() || archivio() == nullptr) return;
    scelta_->casella()->riporta();
    scelta_->attesa(true);
    costruisci(domanda(*ricerca()));
    scelta_->attesa(false);
}

Parametri SchermoConcorso::parametri() const {
    return ParametriTabellone{.concorso = scelta_->casella()->scritto()};
}

void SchermoConcorso::imposta(const Domanda& domanda) {
    if (pagine_->currentWidget() != pagina_scelta_) iniz();
    if (const auto concorso = domanda.di<ParametriTabellone>().concorso)
        scelta_->casella()->scrivi(*concorso);
    FinestraRicerca::imposta(domanda);
}

EsitoRicerca SchermoConcorso::chiedi(const Ricerca& ricerca, const Domanda& domanda,
                                     PannelloAvanzamento* pannello) {
    const EsitoRicerca esito = corri(ricerca, domanda, pannello);
    di_messaggi(esito);
    return esito.prodotto() ? esito : EsitoRicerca{};
}

QWidget* SchermoConcorso::pagina() const {
    return pagine_->currentWidget();
}

void SchermoConcorso::aggiungi_pagina(QWidget* pagina) {
    pagine_->addWidget(pagina);
}

void SchermoConcorso::mostra_pagina(QWidget* pagina, const QString& titolo) {
    setWindowTitle(titolo);
    pagine_->setCurrentWidget(pagina);
}

// ---- PaginaTabellone ----

PaginaTabellone::PaginaTabellone(const QString& nome, const QString& griglia, const QString& esci,
                                 const QString& stampa)
    : titolo_{new QLabel{this}},
      etichetta_{new QLabel{this}},
      griglia_{new GrigliaRisultati{this}},
      stato_{new QLabel{this}},
      comandi_{new QHBoxLayout},
      stampa_{new QPushButton{tr("&Stampa"), this}} {
    setObjectName(nome);
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    assegna_ruolo(titolo_, "titolo");
    assegna_ruolo(etichetta_, "quieto");
    griglia_->imposta_tabellone(true);
    griglia_->blocca_prima_colonna(true);
    griglia_->vista()->setObjectName(griglia);
    griglia_->vista()->setAccessibleName(tr("Tabellone"));
    griglia_->imposta_frase_vuota(tr("A questo concorso non c'è nessun numero sul tabellone."));
    stato_->setObjectName(QStringLiteral("lblstato"));
    stato_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    stato_->setFont(carattere_tabellare(font()));
    assegna_ruolo(stato_, "quieto");

    auto* filtra = new QPushButton{icona(QStringLiteral("filtro")), tr("&Filtra"), this};
    filtra->setObjectName(QStringLiteral("cmdFiltra"));
    filtra->setToolTip(tr("Filtra le righe del tabellone (Ctrl+Maiusc+F)"));
    assegna_ruolo(filtra, "piatto");
    connect(filtra, &QPushButton::clicked, griglia_, &GrigliaRisultati::apri_filtro);
    auto* riga_titolo = new QHBoxLayout;
    riga_titolo->addWidget(titolo_, 1);
    riga_titolo->addWidget(filtra);
    auto* testata = new QVBoxLayout;
    testata->setSpacing(0);
    testata->addLayout(riga_titolo);
    testata->addWidget(etichetta_);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addLayout(testata);
    colonna->addWidget(griglia_, 1);
    // A line of its own: beside long captions there would be no room for it in a narrow window.
    colonna->addWidget(stato_);
    stampa_->setObjectName(stampa);
    giro_di_tab({filtra, griglia_->vista(), stampa_});
    colonna->addLayout(componi_piede(esci));

    for (QTableView* v : griglia_->findChildren<QTableView*>()) v->viewport()->installEventFilter(this);
    connect(griglia_->vista()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PaginaTabellone::racconta);
    connect(griglia_, &GrigliaRisultati::stampa_richiesta, this, &PaginaTabellone::stampa);
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, &PaginaTabellone::esporta);
    imposta_stampabile(false);
}

QBoxLayout* PaginaTabellone::componi_piede(const QString& nome_esci) {
    stampa_->setIcon(icona(QStringLiteral("stampa")));
    auto* esporta_bottone = new QPushButton{icona(QStringLiteral("esporta")), tr("Es&porta…"), this};
    esporta_bottone->setToolTip(tr("Scrive il tabellone in un file CSV, XLSX o JSON (Ctrl+E)"));
    auto* esci_bottone = new QPushButton{icona(QStringLiteral("sinistra")), tr("&Esci"), this};
    esci_bottone->setObjectName(nome_esci);
    esci_bottone->setToolTip(tr("Torna al catalogo (Esc)"));
    comandi_->setSpacing(2 * kPasso);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addLayout(comandi_);
    piede->addWidget(stampa_);
    piede->addWidget(esporta_bottone);
    piede->addWidget(esci_bottone);
    giro_di_tab({stampa_, esporta_bottone, esci_bottone});
    connect(esci_bottone, &QPushButton::clicked, this, &PaginaTabellone::esci);
    connect(stampa_, &QPushButton::clicked, this, &PaginaTabellone::stampa);
    connect(esporta_bottone, &QPushButton::clicked, this, &PaginaTabellone::esporta);
    return piede;
}

QPushButton* PaginaTabellone::aggiungi_comando(const QString& nome, const QString& scritta,
                                               const QString& figura) {
    auto* b = new QPushButton{icona(figura), scritta, this};
    b->setObjectName(nome);
    comandi_->addWidget(b);
    // It stands left of the usual commands.
    giro_di_tab({griglia_->vista(), b, stampa_});
    return b;
}

void PaginaTabellone::imposta_stampabile(bool si) {
    stampa_->setEnabled(si);
    stampa_->setToolTip(si ? tr("Stampa il tabellone (Ctrl+P)") : tr("La stampa non è ancora disponibile."));
    griglia_->imposta_stampabile(si);
}

void PaginaTabellone::mostra(const ArchivioEstrazioni& archivio, TipoTabellone tipo, Concorso concorso,
                             const EsitoRicerca& esito, const QString& etichetta) {
    esito_ = esito;
    const auto& risultato = esito_.risultato;
    tipo_ = tipo;
    estrazioni_ = estrazioni_tabellone(archivio, tipo, concorso);
    estrazioni_nazionale_.clear();
    if (tipo == TipoTabellone::lotto)
        estrazioni_nazionale_ = estrazioni_tabellone(archivio, tipo, concorso, true);
    titolo_->setText(testo_qt(esito_.titolo()));
    etichetta_->setText(etichetta);
    etichetta_->setVisible(!etichetta.isEmpty());
    const Tabella& tabella = risultato->tabelle.front();
    griglia_->mostra(std::shared_ptr<const Tabella>{risultato, &tabella});
    const std::size_t righe = tabella.righe();
    riassunto_ =
        tr("Concorso %1  ·  %2 ritardi occupati").arg(QString::number(concorso), QString::number(righe));
    if (righe > 0) riassunto_ += tr(", il più lungo %1").arg(testo_qt(tabella.testo(0, 0)));
    stato_->setText(riassunto_);
}

QString PaginaTabellone::posto(int colonna) const {
    const auto c = static_cast<std::size_t>(colonna - 1);
    if (tipo_ == TipoTabellone::lotto) {
        const std::size_t w = c / kEstratti;
        const auto& nome = kNomiRuote[w == kRuote ? std::size_t{kNazionale} : w].esteso;
        return tr("%1, %2° estratto").arg(testo_qt(nome)).arg(c % kEstratti + 1);
    }
    if (tipo_ == TipoTabellone::primi_estratti)
        return tr("colonna %1").arg(testo_qt(esito_.risultato->tabelle.front().titoli.front()[c + 1]));
    return tr("%1° posto della combinazione").arg(c + 1);
}

QString PaginaTabellone::spiegazione(int riga, int colonna) const {
    if (!esito_.risultato) return {};
    const Tabella& t = esito_.risultato->tabelle.front();
    const auto r = static_cast<std::size_t>(riga);
    if (r >= t.righe() || colonna < 0 || static_cast<std::size_t>(colonna) >= t.n_colonne()) return {};
    const auto d = static_cast<std::size_t>(std::get<ColonnaInteri>(t.colonne.front()).valori[r]);
    const bool nazionale = tipo_ == TipoTabellone::lotto && colonna > kRuote * kEstratti;
    const auto& estrazioni = nazionale ? estrazioni_nazionale_ : estrazioni_;
    QStringList parti;
    if (colonna > 0) {
        const std::string numero = t.testo(r, static_cast<std::size_t>(colonna));
        if (!numero.empty()) parti << tr("Numero %1").arg(testo_qt(numero));
        parti << posto(colonna);
    }
    parti << tr("ritardo %1").arg(d);
    if (d < estrazioni.size() && estrazioni[d])
        parti << tr("concorso %1 del %2")
                     .arg(estrazioni[d]->concorso)
                     .arg(testo_qt(testo_data(estrazioni[d]->data)));
    return parti.join(QStringLiteral("  ·  "));
}

void PaginaTabellone::racconta(const QModelIndex& cella) {
    stato_->setText(cella.isValid() ? spiegazione(cella.row(), cella.column()) : riassunto_);
}

bool PaginaTabellone::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* vista = qobject_cast<QTableView*>(oggetto->parent());
    if (vista != nullptr) {
        if (const auto* mosso = dynamic_cast<QMouseEvent*>(evento);
            mosso != nullptr && evento->type() == QEvent::MouseMove) {
            racconta(vista->indexAt(mosso->position().toPoint()));
        } else if (evento->type() == QEvent::Leave) {
            racconta(griglia_->vista()->currentIndex());
        } else if (const auto* aiuto = dynamic_cast<QHelpEvent*>(evento);
                   aiuto != nullptr && evento->type() == QEvent::ToolTip) {
            const QModelIndex cella = vista->indexAt(aiuto->pos());
            if (!cella.isValid() || cella.data().toString().isEmpty())
                QToolTip::hideText();
            else
                QToolTip::showText(aiuto->globalPos(), spiegazione(cella.row(), cella.column()), vista,
                                   vista->visualRect(cella));
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}

// ---- SchermoTabellone ----

SchermoTabellone::SchermoTabellone(Sessione& sessione, const QString& nome, QWidget* padre)
    : SchermoConcorso{sessione, nome, padre},
      pagina2_{new PaginaTabellone{QStringLiteral("FrameTabellone2"), QStringLiteral("MSFlexGrid2"),
                                   QStringLiteral("Command4"), QStringLiteral("Command3")}} {
    pagina2_->etichetta()->setObjectName(QStringLiteral("Label5"));
    collega(pagina2_);
}

void SchermoTabellone::collega(PaginaTabellone* pagina) {
    aggiungi_pagina(pagina);
    connect(pagina, &PaginaTabellone::esci, this, &QWidget::close);
    connect(pagina, &PaginaTabellone::stampa, this, [this] { stampa(); });
    connect(pagina, &PaginaTabellone::esporta, this, [this] { esporta(); });
}

PaginaTabellone* SchermoTabellone::pagina_tabellone() const {
    return qobject_cast<PaginaTabellone*>(pagina());
}

bool SchermoTabellone::costruisci_su(PaginaTabellone* pagina, const Ricerca& ricerca,
                                     const Domanda& domanda) {
    const EsitoRicerca esito = chiedi(ricerca, domanda);
    if (!esito.prodotto()) return false;
    // The page first: columns are fitted to the room that they have.
    mostra_pagina(pagina, testo_qt(esito.titolo()));
    pagina->mostra(*archivio(), tipo(),
                   concorso_scelto(*archivio(), tipo(), domanda.di<ParametriTabellone>().concorso), esito,
                   etichetta());
    pagina->griglia()->setFocus();
    return true;
}

void SchermoTabellone::costruisci(const Domanda& domanda) {
    costruisci_su(pagina2_, *ricerca(), domanda);
}

const EsitoRicerca* SchermoTabellone::in_mostra() const {
    const PaginaTabellone* p = pagina_tabellone();
    return p != nullptr && p->esito().prodotto() ? &p->esito() : nullptr;
}

void SchermoTabellone::trova() {
    if (const PaginaTabellone* p = pagina_tabellone(); p != nullptr) p->griglia()->apri_trova();
}

void SchermoTabellone::aggiorna_comandi() {
    pagina2_->imposta_stampabile(stampabile());
}

}  // namespace sortimetra
