#include "screens/schermo_ricerca.h"

#include "qt_testi.h"
#include "screens/area_parametri.h"
#include "screens/esporta.h"
#include "screens/freccia.h"
#include "screens/giro_di_tab.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kLarghezzaColonna = 70 * kPasso;
constexpr int kMargine = 4 * kPasso;
constexpr QSize kAllApertura{1180, 720};

QString durata(double ms) {
    if (ms >= 1000) return QStringLiteral("%1 s").arg(QString::number(ms / 1000, 'f', 1).replace('.', ','));
    if (ms >= 10) return QStringLiteral("%1 ms").arg(QString::number(ms, 'f', 0));
    return QStringLiteral("%1 ms").arg(QString::number(ms, 'f', 1).replace('.', ','));
}

QString conto(std::size_t quanti, const QString& uno, const QString& molti) {
    return testo_qt(migliaia(static_cast<std::int64_t>(quanti))) + QLatin1Char{' '} +
           (quanti == 1 ? uno : molti);
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
        if (!interno && !altrove && w->focusProxy() == nullptr && (w->focusPolicy() & Qt::TabFocus) != 0)
            trovati << w;
    }
    return trovati;
}

}  // namespace

SchermoRicerca::SchermoRicerca(Sessione& sessione, const QString& nome, QWidget* padre)
    : QWidget{padre, Qt::Window},
      sessione_{sessione},
      corpo_{new QWidget{this}},
      scorri_{new QScrollArea{corpo_}},
      area_{new AreaParametri},
      extra_{new QVBoxLayout},
      freccia_{new FrecciaAnimata{corpo_}},
      avvia_{new QPushButton{tr("Avvia &Ricerca"), corpo_}},
      riga_titolo_{new QHBoxLayout},
      titolo_{new QLabel{corpo_}},
      frase_{new QLabel{corpo_}},
      griglia_{new GrigliaRisultati{corpo_}},
      stato_{new QLabel{corpo_}},
      simulato_{new QLabel{tr("Archivio simulato"), corpo_}},
      riga_comandi_{new QHBoxLayout},
      cmd_stampa_{new QPushButton{tr("&Stampa"), corpo_}},
      cmd_esporta_{new QPushButton{tr("&Esporta…"), corpo_}},
      cmd_chiudi_{new QPushButton{tr("&Chiudi"), corpo_}},
      pannello_{new PannelloAvanzamento{this}} {
    setObjectName(nome);
    componi();
    scorciatoie();
    connect(area_, &AreaParametri::cambiato, this, [this] { svuota(); });
    connect(area_, &AreaParametri::tratto_cambiato, this, [this] { svuota(); });
    connect(avvia_, &QPushButton::clicked, this, &SchermoRicerca::avvia);
    connect(cmd_stampa_, &QPushButton::clicked, this, &SchermoRicerca::stampa);
    connect(cmd_esporta_, &QPushButton::clicked, this, &SchermoRicerca::esporta);
    connect(cmd_chiudi_, &QPushButton::clicked, this, &QWidget::close);
    connect(griglia_, &GrigliaRisultati::riga_cambiata, this, [this] { aggiorna_comandi(); });
    connect(griglia_, &GrigliaRisultati::esporta_richiesta, this, &SchermoRicerca::esporta);
    connect(griglia_, &GrigliaRisultati::stampa_richiesta, this, &SchermoRicerca::stampa);
    connect(pannello_, &PannelloAvanzamento::annulla, this, [this] {
        if (corsa_ != nullptr) corsa_->annulla();
    });
    resize(kAllApertura);
}

SchermoRicerca::~SchermoRicerca() = default;

void SchermoRicerca::componi() {
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(corpo_);
    auto* riga = new QHBoxLayout{corpo_};
    riga->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
    riga->setSpacing(kMargine);

    // Left: the question. It scrolls where the window is low; the start button never does.
    auto* contenuto = new QWidget;
    auto* domande = new QVBoxLayout{contenuto};
    domande->setContentsMargins(0, 0, 0, 0);
    domande->setSpacing(3 * kPasso);
    domande->addWidget(area_);
    extra_->setSpacing(3 * kPasso);
    domande->addLayout(extra_);
    domande->addStretch(1);
    scorri_->setWidget(contenuto);
    scorri_->setWidgetResizable(true);
    scorri_->setFrameShape(QFrame::NoFrame);
    scorri_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scorri_->setFocusPolicy(Qt::NoFocus);
    scorri_->viewport()->setAutoFillBackground(false);
    contenuto->setAutoFillBackground(false);

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
    sinistra->addLayout(riga_avvia);
    riga->addLayout(sinistra);

    // Right: the answer.
    titolo_->setObjectName(QStringLiteral("lbltitolo"));
    assegna_ruolo(titolo_, "titolo");
    frase_->setObjectName(QStringLiteral("lblfrase"));
    frase_->setWordWrap(true);
    assegna_ruolo(frase_, "quieto");
    riga_titolo_->setSpacing(2 * kPasso);
    riga_titolo_->addWidget(titolo_, 1);
    stato_->setObjectName(QStringLiteral("lblstato"));
    stato_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    assegna_ruolo(stato_, "quieto");
    simulato_->setObjectName(QStringLiteral("lblsimulato"));
    simulato_->setToolTip(tr("Estrazioni simulate, non reali: servono a provare il programma."));
    simulato_->hide();
    assegna_ruolo(simulato_, "avviso");

    cmd_stampa_->setObjectName(QStringLiteral("cmdStampa"));
    cmd_stampa_->setIcon(icona(QStringLiteral("stampa")));
    cmd_esporta_->setObjectName(QStringLiteral("cmdEsporta"));
    cmd_esporta_->setIcon(icona(QStringLiteral("esporta")));
    cmd_chiudi_->setObjectName(QStringLiteral("cmdChiudi"));
    cmd_chiudi_->setIcon(icona(QStringLiteral("chiudi")));
    cmd_chiudi_->setToolTip(tr("Torna al catalogo (Esc)"));
    riga_comandi_->setSpacing(2 * kPasso);
    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addWidget(simulato_);
    piede->addWidget(stato_, 1);
    piede->addWidget(cmd_stampa_);
    piede->addWidget(cmd_esporta_);
    piede->addWidget(cmd_chiudi_);

    auto* destra = new QVBoxLayout;
    destra->setSpacing(2 * kPasso);
    auto* testata = new QVBoxLayout;
    testata->setSpacing(0);
    testata->addLayout(riga_titolo_);
    testata->addWidget(frase_);
    destra->addLayout(testata);
    destra->addWidget(griglia_, 1);
    auto* comandi = new QHBoxLayout;
    comandi->addLayout(riga_comandi_);
    comandi->addStretch(1);
    destra->addLayout(comandi);
    destra->addLayout(piede);
    riga->addLayout(destra, 1);

    griglia_->imposta_frase_vuota(
        tr("Scegli l'ambito a sinistra, poi premi «Avvia Ricerca»\n(oppure Invio, o F5)."));
}

void SchermoRicerca::scorciatoie() {
    const auto tasto = [this](const QKeySequence& sequenza, auto&& azione) {
        auto* s = new QShortcut{sequenza, this};
        s->setContext(Qt::WidgetWithChildrenShortcut);
        connect(s, &QShortcut::activated, this, azione);
    };
    tasto(Qt::Key_F5, [this] { avvia(); });
    tasto(Qt::CTRL | Qt::Key_P, [this] { stampa(); });
    tasto(Qt::CTRL | Qt::Key_E, [this] { esporta(); });
    tasto(QKeySequence::Find, [this] { griglia_->apri_trova(); });
}

void SchermoRicerca::apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio, QWidget* apritore) {
    ricerca_ = &ricerca;
    archivio_ = &archivio;
    apritore_ = apritore;
    const QString titolo = testo_qt(ricerca.titolo);
    setWindowTitle(titolo);
    titolo_->setText(titolo);
    titolo_->setToolTip(titolo);
    frase_->setText(testo_qt(ricerca.frase));
    setProperty("Tag", testo_qt(ricerca.tag.empty() ? ricerca.chiave : ricerca.tag));
    griglia_->imposta_chiave(testo_qt(ricerca.chiave));
    risultato_.reset();
    domanda_risposta_.reset();
    inizializza_griglia();
    if (ricerca.gioco == Gioco::win_for_life)
        attivaWFL();
    else
        attiva();
    aggiorna_comandi();
    aggiorna_stato();
    ordina_tabulazione();
    avvia_->setFocus();
}

void SchermoRicerca::ordina_tabulazione() {
    // Reading order: the question, the start button, the answer, what to do with it.
    QList<QWidget*> giro = tasti_di(scorri_->widget());
    giro << avvia_ << tasti_di(griglia_);
    for (int i = 0; i < riga_comandi_->count(); ++i)
        if (QWidget* w = riga_comandi_->itemAt(i)->widget(); w != nullptr) giro << w;
    giro << cmd_stampa_ << cmd_esporta_ << cmd_chiudi_;
    giro_di_tab(giro);
}

void SchermoRicerca::attiva() {
    // SuperEnalotto knows no wheels, but for the search that divides its draws by their number.
    const bool ruote = ricerca_->gioco != Gioco::superenalotto || ricerca_->ammette(kOpzEstratto);
    area_->configura(ruote ? AreaParametri::Genere::lotto : AreaParametri::Genere::senza_ruote);
    area_->apri(*archivio_, ricerca_->ruote);
    simulato_->setVisible(archivio_->drawit().simulato);
}

void SchermoRicerca::attivaWFL() {
    area_->configura(AreaParametri::Genere::win_for_life);
    area_->apri(*archivio_, ricerca_->ruote);
    simulato_->setVisible(archivio_->drawit2().simulato);
}

Domanda SchermoRicerca::domanda() const {
    Domanda d;
    d.chiave = ricerca_->chiave;
    d.ambito = area_->ambito();
    d.parametri = parametri();
    d.cartella = sessione_.percorso_programma;
    return d;
}

std::shared_ptr<const Risultato> SchermoRicerca::corri(const Ricerca& ricerca, Domanda domanda,
                                                       double* millisecondi) {
    if (corsa_ != nullptr || archivio_ == nullptr || !ricerca.pronta()) return nullptr;
    // Without a cancel button the whole screen is disabled; with one, all but the panel.
    CorsaRicerca corsa{annullabile_ ? corpo_ : static_cast<QWidget*>(this), pannello_, griglia_};
    corsa_ = &corsa;
    auto risultato =
        std::make_shared<const Risultato>(esegui(ricerca, *archivio_, std::move(domanda), corsa));
    if (millisecondi != nullptr) *millisecondi = corsa.trascorsi();
    corsa_ = nullptr;
    return risultato;
}

void SchermoRicerca::avvia() {
    if (corsa_ != nullptr || ricerca_ == nullptr || archivio_ == nullptr) return;
    area_->riporta_tratto();
    const Domanda chiesta = domanda();
    const auto risposta = corri(*ricerca_, chiesta, &millisecondi_);
    if (!risposta) return;
    svuota();
    if (risposta->prodotto) {
        risultato_ = risposta;
        domanda_risposta_ = chiesta;
        mostra(risposta);
    }
    aggiorna_comandi();
    aggiorna_stato();
    for (const std::string& m : risposta->messaggi) mostra_messaggio(m);
}

void SchermoRicerca::mostra(const std::shared_ptr<const Risultato>& risultato) {
    if (!risultato->tabelle.empty())
        griglia_->mostra(std::shared_ptr<const Tabella>{risultato, &risultato->tabelle.front()});
}

void SchermoRicerca::mostra_messaggio(const std::string& testo) {
    sortimetra::mostra_messaggio(this, testo);
}

void SchermoRicerca::svuota() {
    risultato_.reset();
    domanda_risposta_.reset();
    griglia_->svuota();
    aggiorna_comandi();
    aggiorna_stato();
}

void SchermoRicerca::aggiorna_comandi() {
    const bool qualcosa = risultato_ != nullptr && !griglia_->vuota();
    cmd_stampa_->setEnabled(qualcosa && stampa_ != nullptr);
    cmd_stampa_->setToolTip(stampa_ == nullptr ? tr("La stampa non è ancora disponibile.")
                            : qualcosa         ? tr("Stampa il risultato (Ctrl+P)")
                                               : tr("Non c'è ancora un risultato da stampare."));
    cmd_esporta_->setEnabled(qualcosa);
    cmd_esporta_->setToolTip(qualcosa ? tr("Scrive il risultato in un file CSV, XLSX o JSON (Ctrl+E)")
                                      : tr("Non c'è ancora un risultato da esportare."));
}

void SchermoRicerca::aggiorna_stato() {
    if (archivio_ == nullptr) return;
    QStringList parti;
    if (risultato_)
        parti << conto(static_cast<std::size_t>(griglia_->modello()->rowCount()), tr("riga"), tr("righe"));
    parti << conto(concorsi_in_ambito(), tr("concorso in ambito"), tr("concorsi in ambito"));
    if (risultato_) {
        parti << durata(millisecondi_);
        for (const std::string& nota : risultato_->note) parti << QString::fromStdString(nota);
    }
    scrivi_stato(parti.join(QStringLiteral("  ·  ")));
}

void SchermoRicerca::scrivi_stato(const QString& testo) {
    stato_->setToolTip(testo);
    stato_->setText(stato_->fontMetrics().elidedText(testo, Qt::ElideRight, stato_->width()));
}

void SchermoRicerca::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    // The line's own width is known only once the layout has run.
    QMetaObject::invokeMethod(this, [this] { scrivi_stato(stato_->toolTip()); }, Qt::QueuedConnection);
}

std::size_t SchermoRicerca::concorsi_in_ambito() const {
    const AmbitoRicerca ambito = area_->ambito();
    switch (area_->genere()) {
        case AreaParametri::Genere::win_for_life:
            return vista_winforlife(*archivio_, ambito).size();
        case AreaParametri::Genere::senza_ruote:
            return vista_superenalotto(*archivio_, ambito).size();
        case AreaParametri::Genere::lotto:
        case AreaParametri::Genere::solo_ruote:
            break;
    }
    if (ricerca_->gioco == Gioco::superenalotto) return vista_superenalotto(*archivio_, ambito).size();
    return VistaEstrazioni{*archivio_, ambito}.concorsi();
}

void SchermoRicerca::imposta_stampa(std::function<void(const LavoroStampa&)> stampa) {
    stampa_ = std::move(stampa);
    griglia_->imposta_stampabile(stampa_ != nullptr);
    aggiorna_comandi();
}

void SchermoRicerca::imposta_annullabile(bool si) {
    annullabile_ = si;
    pannello_->imposta_annullabile(si);
}

void SchermoRicerca::stampa() {
    if (in_corsa() || !cmd_stampa_->isEnabled()) return;
    stampa_({.finestra = this,
             .ricerca = ricerca_,
             .risultato = risultato_,
             .ordine = griglia_->modello()->ordine(),
             .domanda = *domanda_risposta_,
             .archivio = archivio_,
             .concorsi = area_->testo_concorsi(),
             .periodo = area_->testo_intervallo()});
}

void SchermoRicerca::esporta() {
    if (in_corsa() || !cmd_esporta_->isEnabled()) return;
    const auto file = esporta_risultato(this, *risultato_, griglia_->modello()->ordine());
    if (file) scrivi_stato(tr("Scritto in %1").arg(*file));
}

void SchermoRicerca::keyPressEvent(QKeyEvent* evento) {
    if (in_corsa()) return;
    switch (evento->key()) {
        case Qt::Key_Escape:
            close();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            // On a button Enter presses that button, as everywhere.
            auto* bottone = qobject_cast<QPushButton*>(focusWidget());
            if (bottone != nullptr && bottone != avvia_)
                bottone->click();
            else
                avvia();
            return;
        }
        default:
            QWidget::keyPressEvent(evento);
    }
}

void SchermoRicerca::showEvent(QShowEvent* evento) {
    if (!evento->spontaneous()) {
        // As wide as planned, or as its widest content where the font is larger.
        const int barra = scorri_->verticalScrollBar()->sizeHint().width();
        const int contenuto = scorri_->widget()->minimumSizeHint().width() + barra;
        scorri_->setFixedWidth(std::max(kLarghezzaColonna, contenuto));
        if (!std::exchange(posto_letto_, true)) {
            freccia_->imposta_animata(QSettings{file_posti(sessione_), QSettings::IniFormat}
                                          .value(QStringLiteral("frecce"), true)
                                          .toBool());
            leggi_posto(*this, sessione_, kAllApertura);
        }
        freccia_->avvia();
    }
    QWidget::showEvent(evento);
}

void SchermoRicerca::closeEvent(QCloseEvent* evento) {
    if (corsa_ != nullptr) {
        if (annullabile_) corsa_->annulla();
        evento->ignore();
        return;
    }
    scrivi_posto(*this, sessione_);
    // The opener first: a moment without any window would end the program.
    if (apritore_) {
        apritore_->show();
        apritore_->raise();
        apritore_->activateWindow();
        apritore_ = nullptr;
    }
    evento->accept();
    emit chiuso();
}

}  // namespace sortimetra
