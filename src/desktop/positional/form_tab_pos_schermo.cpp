#include "positional/form_tab_pos_schermo.h"

#include "positional/form_tab_pos_scelta.h"
#include "qt_testi.h"
#include "screens/esporta.h"
#include "screens/giro_di_tab.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolTip>
#include <QVBoxLayout>
#include <array>
#include <utility>
#include <variant>

namespace sortimetra {

namespace {

constexpr int kMargine = 4 * kPasso;
constexpr QSize kAllApertura{1180, 720};

}  // namespace

// ---- SchermoConcorso ----

SchermoConcorso::SchermoConcorso(Sessione& sessione, const QString& nome, QWidget* padre)
    : QWidget{padre, Qt::Window},
      sessione_{sessione},
      pagine_{new QStackedWidget{this}},
      pagina_scelta_{new QWidget},
      scelta_{new SceltaConcorso},
      pannello_{new PannelloAvanzamento{this}} {
    setObjectName(nome);
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
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

    const auto tasto = [this](const QKeySequence& sequenza, auto&& azione) {
        auto* s = new QShortcut{sequenza, this};
        s->setContext(Qt::WidgetWithChildrenShortcut);
        connect(s, &QShortcut::activated, this, azione);
    };
    tasto(Qt::Key_F5, [this] {
        if (pagine_->currentWidget() == pagina_scelta_)
            conferma();
        else
            ripeti();
    });
    tasto(Qt::CTRL | Qt::Key_P, [this] { stampa(); });
    tasto(Qt::CTRL | Qt::Key_E, [this] { esporta(); });
    tasto(QKeySequence::Find, [this] { trova(); });
    connect(scelta_, &SceltaConcorso::confermato, this, &SchermoConcorso::conferma);
    connect(scelta_, &SceltaConcorso::chiuso, this, &QWidget::close);
}

SchermoConcorso::~SchermoConcorso() = default;

void SchermoConcorso::apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio) {
    ricerca_ = &ricerca;
    archivio_ = &archivio;
    setWindowTitle(testo_qt(ricerca.titolo));
    setProperty("Tag", testo_qt(ricerca.tag));
    iniz();
}

void SchermoConcorso::iniz() {
    QString frase = testo_qt(ricerca_->frase);
    const bool wfl = tipo() == TipoTabellone::win_for_life;
    if (wfl ? archivio_->drawit2().simulato : archivio_->drawit().simulato)
        frase += tr(" Archivio simulato: non sono estrazioni vere.");
    scelta_->apri(*archivio_, tipo(), frase);
    pagine_->setCurrentWidget(pagina_scelta_);
    scelta_->fuoco_su_conferma();
    aggiorna_comandi();
}

void SchermoConcorso::conferma() {
    if (in_corsa() || archivio_ == nullptr) return;
    scelta_->casella()->riporta();
    scelta_->attesa(true);
    costruisci(domanda(*ricerca_));
    scelta_->attesa(false);
}

Domanda SchermoConcorso::domanda(const Ricerca& ricerca) const {
    Domanda d;
    d.chiave = ricerca.chiave;
    d.parametri.concorso = scelta_->casella()->scritto();
    d.cartella = sessione_.percorso_programma;
    return d;
}

std::shared_ptr<const Risultato> SchermoConcorso::corri(const Ricerca& ricerca, Domanda domanda,
                                                        PannelloAvanzamento* pannello) {
    if (in_corsa() || !ricerca.pronta()) return nullptr;
    std::shared_ptr<const Risultato> risultato;
    {
        CorsaRicerca corsa{this, pannello == nullptr ? pannello_ : pannello, pagine_};
        corsa_ = &corsa;
        risultato = std::make_shared<const Risultato>(esegui(ricerca, *archivio_, std::move(domanda), corsa));
        corsa_ = nullptr;
    }
    for (const std::string& m : risultato->messaggi) mostra_messaggio(this, m);
    return risultato->prodotto ? risultato : nullptr;
}

void SchermoConcorso::stampa_risultato(const Ricerca& ricerca,
                                       const std::shared_ptr<const Risultato>& risultato,
                                       const Domanda& domanda) {
    if (in_corsa() || !stampa_ || !risultato) return;
    stampa_({.finestra = this,
             .ricerca = &ricerca,
             .risultato = risultato,
             .ordine = {},
             .domanda = domanda,
             .archivio = archivio_,
             .concorsi = {},
             .periodo = {}});
}

void SchermoConcorso::imposta_stampa(std::function<void(const LavoroStampa&)> stampa) {
    stampa_ = std::move(stampa);
    aggiorna_comandi();
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

void SchermoConcorso::closeEvent(QCloseEvent* evento) {
    if (in_corsa()) {
        evento->ignore();
        return;
    }
    scrivi_posto(*this, sessione_);
    evento->accept();
    emit chiuso();
}

void SchermoConcorso::showEvent(QShowEvent* evento) {
    if (!evento->spontaneous() && !posto_letto_) {
        posto_letto_ = true;
        leggi_posto(*this, sessione_, kAllApertura);
    }
    QWidget::showEvent(evento);
}

void SchermoConcorso::keyPressEvent(QKeyEvent* evento) {
    if (in_corsa()) return;
    const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (evento->key() == Qt::Key_Escape)
        close();
    else if (auto* bottone = qobject_cast<QPushButton*>(focusWidget()); invio && bottone != nullptr)
        bottone->click();
    else
        QWidget::keyPressEvent(evento);
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

    stampa_->setObjectName(stampa);
    stampa_->setIcon(icona(QStringLiteral("stampa")));
    auto* esporta_bottone = new QPushButton{icona(QStringLiteral("esporta")), tr("Es&porta…"), this};
    esporta_bottone->setToolTip(tr("Scrive il tabellone in un file CSV, XLSX o JSON (Ctrl+E)"));
    auto* esci_bottone = new QPushButton{icona(QStringLiteral("chiudi")), tr("&Esci"), this};
    esci_bottone->setObjectName(esci);
    esci_bottone->setToolTip(tr("Torna al catalogo (Esc)"));
    comandi_->setSpacing(2 * kPasso);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addLayout(comandi_);
    piede->addWidget(stampa_);
    piede->addWidget(esporta_bottone);
    piede->addWidget(esci_bottone);

    auto* testata = new QVBoxLayout;
    testata->setSpacing(0);
    testata->addWidget(titolo_);
    testata->addWidget(etichetta_);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2 * kPasso);
    colonna->addLayout(testata);
    colonna->addWidget(griglia_, 1);
    // A line of its own: beside long captions there would be no room for it in a narrow window.
    colonna->addWidget(stato_);
    colonna->addLayout(piede);

    for (QTableView* v : griglia_->findChildren<QTableView*>()) v->viewport()->installEventFilter(this);
    connect(griglia_->vista()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PaginaTabellone::racconta);
    connect(esci_bottone, &QPushButton::clicked, this, &PaginaTabellone::esci);
    connect(stampa_, &QPushButton::clicked, this, &PaginaTabellone::stampa);
    connect(esporta_bottone, &QPushButton::clicked, this, &PaginaTabellone::esporta);
    connect(griglia_, &GrigliaRisultati::stampa_richiesta, this, &PaginaTabellone::stampa);
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, &PaginaTabellone::esporta);
    imposta_stampabile(false);
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
                             const std::shared_ptr<const Risultato>& risultato, const QString& etichetta) {
    risultato_ = risultato;
    tipo_ = tipo;
    estrazioni_ = estrazioni_tabellone(archivio, tipo, concorso);
    estrazioni_nazionale_.clear();
    if (tipo == TipoTabellone::lotto)
        estrazioni_nazionale_ = estrazioni_tabellone(archivio, tipo, concorso, true);
    titolo_->setText(testo_qt(risultato->titolo));
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
        return tr("colonna %1").arg(testo_qt(risultato_->tabelle.front().titoli.front()[c + 1]));
    return tr("%1° posto della combinazione").arg(c + 1);
}

QString PaginaTabellone::spiegazione(int riga, int colonna) const {
    if (!risultato_) return {};
    const Tabella& t = risultato_->tabelle.front();
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
    const auto risultato = corri(ricerca, domanda);
    if (!risultato) return false;
    chiesta_ = domanda;
    // The page first: columns are fitted to the room that they have.
    mostra_pagina(pagina, testo_qt(risultato->titolo));
    pagina->mostra(*archivio(), tipo(), concorso_scelto(*archivio(), tipo(), domanda.parametri.concorso),
                   risultato, etichetta());
    pagina->griglia()->setFocus();
    return true;
}

void SchermoTabellone::costruisci(const Domanda& domanda) {
    costruisci_su(pagina2_, *ricerca(), domanda);
}

void SchermoTabellone::stampa() {
    if (pagina() == pagina2_) stampa_risultato(*ricerca(), pagina2_->risultato(), chiesta_);
}

void SchermoTabellone::esporta() {
    if (const PaginaTabellone* p = pagina_tabellone(); p != nullptr && p->risultato() && !in_corsa())
        esporta_risultato(this, *p->risultato(), {});
}

void SchermoTabellone::trova() {
    if (const PaginaTabellone* p = pagina_tabellone(); p != nullptr) p->griglia()->apri_trova();
}

void SchermoTabellone::aggiorna_comandi() {
    pagina2_->imposta_stampabile(stampabile());
}

}  // namespace sortimetra
