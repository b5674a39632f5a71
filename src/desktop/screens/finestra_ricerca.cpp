#include "screens/finestra_ricerca.h"

#include "qt_testi.h"
#include "results/risultato.h"
#include "results/selezione.h"
#include "screens/area_parametri.h"
#include "screens/comando_ultima.h"
#include "screens/esporta.h"
#include "screens/freccia.h"
#include "screens/griglia_risultati.h"
#include "screens/lato_risposta.h"
#include "screens/manuale.h"
#include "screens/memoria_schermi.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/posto_finestra.h"
#include "screens/schermi.h"
#include "screens/tema.h"
#include "statistics/parametri.h"
#include "text/testi.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

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

}  // namespace

std::size_t EsitoRicerca::righe() const {
    return risultato == nullptr || risultato->tabelle.empty() ? 0 : risultato->tabelle.front().righe();
}

FinestraRicerca::FinestraRicerca(Sessione& sessione, const QString& nome, QWidget* padre)
    : QWidget{padre, Qt::Window},
      sessione_{sessione},
      corpo_{new QWidget{this}},
      comando_ultima_{new ComandoUltima{this}},
      pannello_{new PannelloAvanzamento{this}},
      lato_{new LatoRisposta{*this}} {
    setObjectName(nome);
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
    tutto->addWidget(corpo_);
    scorciatoie();
    ascolta_f1(sessione_);
    connect(pannello_, &PannelloAvanzamento::annulla, this, &FinestraRicerca::ferma_corsa);
    comando_ultima_->hide();
    connect(comando_ultima_, &ComandoUltima::premuto, this, &FinestraRicerca::come_l_ultima_volta);
    connect(comando_ultima_, &ComandoUltima::riapri_scelto, this,
            [this](bool si) { imposta_riapre_come_l_ultima_volta(sessione_, si); });
    resize(kAllApertura);
}

FinestraRicerca::~FinestraRicerca() = default;

CorniceRicerca* FinestraRicerca::incornicia(CorniceRicerca::Domande domande) {
    cornice_ = new CorniceRicerca{domande, corpo_};
    auto* tutto = new QVBoxLayout{corpo_};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(cornice_);
    cornice_->aggiungi_sopra_avvio(comando_ultima_);
    comando_ultima_->show();
    lato_->incornicia();
    connect(cornice_->primario(), &QPushButton::clicked, this, &FinestraRicerca::avvia);
    connect(cornice_->cmd_filtra(), &QPushButton::clicked, this, &FinestraRicerca::filtra);
    connect(cornice_->cmd_stampa(), &QPushButton::clicked, this, &FinestraRicerca::stampa);
    connect(cornice_->cmd_esporta(), &QPushButton::clicked, this, &FinestraRicerca::esporta);
    connect(cornice_->cmd_chiudi(), &QPushButton::clicked, this, &QWidget::close);
    if (area() != nullptr) {
        connect(area(), &AreaParametri::cambiato, this, [this] { svuota(); });
        connect(area(), &AreaParametri::tratto_cambiato, this, [this] { svuota(); });
    }
    return cornice_;
}

void FinestraRicerca::scorciatoie() {
    const auto tasto = [this](const QKeySequence& sequenza, auto&& azione) {
        auto* s = new QShortcut{sequenza, this};
        s->setContext(Qt::WidgetWithChildrenShortcut);
        connect(s, &QShortcut::activated, this, azione);
    };
    tasto(Qt::Key_F5, [this] { avvia(); });
    tasto(Qt::CTRL | Qt::Key_P, [this] { stampa(); });
    tasto(Qt::CTRL | Qt::Key_E, [this] { esporta(); });
    tasto(QKeySequence::Find, [this] { trova(); });
    tasto(kTastoFiltro, [this] { filtra(); });
    tasto(Qt::CTRL | Qt::Key_L, [this] { come_l_ultima_volta(); });
    tasto(Qt::CTRL | Qt::Key_G, [this] { lato_->storia(); });
    tasto(Qt::CTRL | Qt::Key_I, [this] { lato_->caso(); });
    tasto(Qt::CTRL | Qt::Key_R, [this] { lato_->ruote(); });
}

AreaParametri* FinestraRicerca::area() const {
    return cornice_ == nullptr ? nullptr : cornice_->area();
}

// ---- opening ----

void FinestraRicerca::apri(const Ricerca& ricerca, const ArchivioEstrazioni& archivio, QWidget* apritore) {
    ricerca_ = &ricerca;
    archivio_ = &archivio;
    apritore_ = apritore;
    esito_ = {};
    ordine_richiesto_.reset();
    const QString titolo = testo_qt(ricerca.titolo());
    setWindowTitle(titolo);
    setProperty("Tag", testo_qt(tag_di(ricerca)));
    assegna_capitolo(this, capitolo_di(ricerca));
    if (cornice_ != nullptr) {
        cornice_->intitola(titolo, testo_qt(ricerca.frase));
        cornice_->segna_simulato(archivio_simulato());
    }
    prepara();
    if (ricerca.gioco == Gioco::win_for_life)
        attivaWFL();
    else
        attiva();
    segui_controlli();
    lato_->apri();
    aggiorna_ultima();
    if (riapre_come_l_ultima_volta(sessione_)) come_l_ultima_volta();
    aggiorna_comandi();
    if (cornice_ == nullptr) return;
    aggiorna_stato();
    cornice_->ordina_tabulazione();
    cornice_->primario()->setFocus();
}

void FinestraRicerca::attiva() {
    if (area() == nullptr) return;
    // SuperEnalotto knows no wheels, but for the search that divides its draws by their number.
    const bool ruote = ricerca_->gioco != Gioco::superenalotto || ricerca_->ammette(kOpzEstratto);
    area()->configura(ruote ? AreaParametri::Genere::lotto : AreaParametri::Genere::senza_ruote);
    area()->apri(*archivio_, ricerca_->ruote);
}

void FinestraRicerca::attivaWFL() {
    if (area() == nullptr) return;
    area()->configura(AreaParametri::Genere::win_for_life);
    area()->apri(*archivio_, ricerca_->ruote);
}

bool FinestraRicerca::archivio_simulato() const {
    return ricerca_->gioco == Gioco::win_for_life ? archivio_->drawit2().simulato
                                                  : archivio_->drawit().simulato;
}

// ---- the last time ----

/// The controls that a screen may have made since the last opening: grids tell their order, lines leave the
/// window its keys.
void FinestraRicerca::segui_controlli() {
    for (QLineEdit* casella : findChildren<QLineEdit*>()) casella->installEventFilter(this);
    for (GrigliaRisultati* g : findChildren<GrigliaRisultati*>()) {
        if (lato_->della_storia(g)) continue;
        lato_->segui(g);
        disconnect(g, &GrigliaRisultati::ordinata, this, nullptr);
        connect(g, &GrigliaRisultati::ordinata, this, [this, g](int colonna, Verso verso) {
            if (g != griglia_in_uso() || ricerca_ == nullptr || !lato_->colonne_proprie()) return;
            if (ordine_richiesto_) ordine_richiesto_ = {colonna, verso};
            ricorda_ordine(sessione_, *ricerca_, OrdineGriglia{colonna, verso});
        });
    }
}

Concorso FinestraRicerca::ultimo_concorso() const {
    if (area() != nullptr) return area()->ultimo();
    return ricerca_->gioco == Gioco::win_for_life ? archivio_->ultimo_concorso_winforlife()
                                                  : archivio_->ultimo_concorso();
}

void FinestraRicerca::aggiorna_ultima() {
    comando_ultima_->mostra(ultima_volta(sessione_, *ricerca_, ultimo_concorso()).has_value(),
                            riapre_come_l_ultima_volta(sessione_));
}

void FinestraRicerca::come_l_ultima_volta() {
    if (in_corsa() || ricerca_ == nullptr || archivio_ == nullptr) return;
    const auto ultima = ultima_volta(sessione_, *ricerca_, ultimo_concorso());
    if (!ultima) return;
    imposta(ultima->domanda);
    ordine_richiesto_ = ultima->ordine;
}

void FinestraRicerca::imposta(const Domanda& domanda) {
    if (area() != nullptr) area()->imposta_ambito(domanda.ambito);
    // The answer on show was of another question.
    svuota();
}

GrigliaRisultati* FinestraRicerca::griglia_in_uso() const {
    GrigliaRisultati* prima = nullptr;
    for (GrigliaRisultati* g : findChildren<GrigliaRisultati*>()) {
        if (g->window() != this || !g->isVisibleTo(this) || lato_->della_storia(g)) continue;
        if (g->isAncestorOf(focusWidget())) return g;
        if (prima == nullptr) prima = g;
    }
    return prima;
}

/// Puts a new answer in the order of the last time, where that was asked for.
void FinestraRicerca::riordina() {
    GrigliaRisultati* g = griglia_in_uso();
    if (!ordine_richiesto_ || g == nullptr || !lato_->colonne_proprie() ||
        ordine_richiesto_->first >= g->modello()->columnCount())
        return;
    g->ordina_colonna(ordine_richiesto_->first, ordine_richiesto_->second);
}

void FinestraRicerca::filtra() {
    if (GrigliaRisultati* g = griglia_in_uso(); g != nullptr && !in_corsa()) g->apri_filtro();
}

// ---- question and answer ----

Domanda FinestraRicerca::domanda(const Ricerca& ricerca) const {
    Domanda d = domanda_intatta(ricerca);
    if (area() != nullptr) d.ambito = area()->ambito();
    d.parametri = parametri();
    return d;
}

EsitoRicerca FinestraRicerca::corri(const Ricerca& ricerca, Domanda domanda, PannelloAvanzamento* pannello) {
    if (corsa_ != nullptr || archivio_ == nullptr || !ricerca.pronta()) return {};
    // A question that was put to another row asks this one now: its answer is printed as this row's.
    domanda.ricerca = &ricerca;
    // Without a cancel button the whole screen is disabled; with one, all but the panel.
    const QWidget* sopra = cornice_ == nullptr ? corpo_ : cornice_->risposta()->parentWidget();
    QWidget* spento = spento_ != nullptr ? spento_ : annullabile_ ? corpo_ : static_cast<QWidget*>(this);
    CorsaRicerca corsa{spento, pannello == nullptr ? pannello_ : pannello, sopra};
    corsa_ = &corsa;
    corsa.imposta_annullo_a_passi(annullo_a_passi_);
    // As it was asked: files of the user's that the search reads are no part of what is remembered.
    const Domanda chiesta = domanda;
    Risposta risposta = rispondi(std::move(domanda), *archivio_, sessione_.percorso_programma, corsa);
    corsa_ = nullptr;
    if (&ricerca == ricerca_ && risposta.prodotta()) {
        ricorda(sessione_, chiesta, ultimo_concorso());
        aggiorna_ultima();
    }
    return {std::move(risposta), corsa.trascorsi()};
}

void FinestraRicerca::avvia() {
    if (in_corsa() || ricerca_ == nullptr || archivio_ == nullptr) return;
    if (area() != nullptr) area()->riporta_tratto();
    const EsitoRicerca esito = corri(*ricerca_, domanda(*ricerca_));
    if (esito.risultato == nullptr) return;
    presenta(esito);
    di_messaggi(esito);
}

void FinestraRicerca::presenta(const EsitoRicerca& esito) {
    svuota();
    if (esito.prodotto()) {
        esito_ = lato_->vesti(esito);
        mostra(esito_);
        riordina();
        lato_->mostrata();
    }
    aggiorna_comandi();
    aggiorna_stato();
}

void FinestraRicerca::ferma_corsa() {
    if (corsa_ != nullptr) corsa_->annulla();
}

void FinestraRicerca::svuota() {
    esito_ = {};
    lato_->svuotata();
    aggiorna_comandi();
    aggiorna_stato();
}

void FinestraRicerca::riprendi(const EsitoRicerca& esito) {
    esito_ = esito;
    lato_->ripresa(esito);
    aggiorna_comandi();
    aggiorna_stato();
}

const EsitoRicerca* FinestraRicerca::in_mostra() const {
    return esito_.prodotto() ? &esito_ : nullptr;
}

void FinestraRicerca::di_messaggi(const EsitoRicerca& esito) {
    if (esito.risultato == nullptr) return;
    for (const Messaggio& m : esito.risultato->messaggi) mostra_messaggio(m);
}

void FinestraRicerca::mostra_messaggio(const Messaggio& messaggio) {
    sortimetra::mostra_messaggio(this, messaggio);
}

void FinestraRicerca::aggiorna_stato() {
    if (archivio_ == nullptr || cornice_ == nullptr) return;
    QStringList parti;
    if (esito_.prodotto()) parti << conto(esito_.righe(), tr("riga"), tr("righe"));
    if (area() != nullptr && ricerca_->tabelle != 0)
        parti << conto(concorsi_in_ambito(), tr("concorso in ambito"), tr("concorsi in ambito"));
    if (esito_.prodotto()) {
        parti << durata(esito_.millisecondi);
        for (const std::string& nota : esito_.risultato->note) parti << QString::fromStdString(nota);
    }
    cornice_->scrivi_stato(parti.join(QStringLiteral("  ·  ")));
}

std::size_t FinestraRicerca::concorsi_in_ambito() const {
    const AmbitoRicerca ambito = area()->ambito();
    switch (area()->genere()) {
        case AreaParametri::Genere::win_for_life:
            return vista_winforlife(*archivio_, ambito).size();
        case AreaParametri::Genere::senza_ruote:
        case AreaParametri::Genere::lotto:
        case AreaParametri::Genere::solo_ruote:
            break;
    }
    if (ricerca_->gioco_di(domanda(*ricerca_)) == Gioco::superenalotto)
        return vista_superenalotto(*archivio_, ambito).size();
    return VistaEstrazioni{*archivio_, ambito}.concorsi();
}

void FinestraRicerca::imposta_annullabile(bool si) {
    annullabile_ = si;
    pannello_->imposta_annullabile(si);
}

// ---- paper and files ----

void FinestraRicerca::imposta_stampa(std::function<void(const LavoroStampa&)> stampa) {
    stampa_ = std::move(stampa);
    aggiorna_comandi();
}

void FinestraRicerca::imposta_stampa_storia(std::function<void(QWidget*, const QImage&)> stampa) {
    lato_->imposta_stampa(std::move(stampa));
}

void FinestraRicerca::aggiorna_comandi() {
    if (cornice_ == nullptr) return;
    const bool qualcosa = in_mostra() != nullptr;
    cornice_->abilita_stampa(stampabile(), qualcosa);
    cornice_->abilita_esporta(qualcosa);
}

LavoroStampa FinestraRicerca::lavoro() {
    const EsitoRicerca* esito = in_mostra();
    if (esito == nullptr) return {};
    LavoroStampa lavoro{.finestra = this, .risposta = static_cast<const Risposta&>(*esito)};
    Risposta& r = lavoro.risposta;
    r.ordine = ordine_in_mostra();
    if (r.risultato->tabelle.empty() || r.ordine.empty() ||
        r.ordine.size() == r.risultato->tabelle.front().righe())
        return lavoro;
    // A filter leaves some rows alone: what is printed and written is what is on show.
    auto filtrato = std::make_shared<Risultato>(*r.risultato);
    Tabella& tabella = filtrato->tabelle.front();
    std::vector<std::size_t> colonne(tabella.n_colonne());
    std::iota(colonne.begin(), colonne.end(), std::size_t{0});
    tabella = seleziona(tabella, r.ordine, colonne);
    r.risultato = std::move(filtrato);
    r.ordine.clear();
    return lavoro;
}

void FinestraRicerca::stampa() {
    if (!in_corsa() && stampabile() && in_mostra() != nullptr) stampa_(lavoro());
}

void FinestraRicerca::esporta() {
    if (in_corsa() || in_mostra() == nullptr) return;
    const auto file = esporta_risultato(this, lavoro().risposta);
    if (file && cornice_ != nullptr) cornice_->scrivi_stato(tr("Scritto in %1").arg(*file));
}

// ---- the window ----

bool FinestraRicerca::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::ShortcutOverride && qobject_cast<QLineEdit*>(oggetto) != nullptr) {
        // A text field would take some of the window's keys for moves of its cursor.
        auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        if (tasto != nullptr && tasto->modifiers() == Qt::ControlModifier &&
            (tasto->key() == Qt::Key_E || tasto->key() == Qt::Key_P || tasto->key() == Qt::Key_L)) {
            evento->ignore();
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}

void FinestraRicerca::keyPressEvent(QKeyEvent* evento) {
    if (in_corsa()) return;
    switch (evento->key()) {
        case Qt::Key_Escape:
            if (!lato_->chiudi_cassetto()) close();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // On a button Enter presses that button, as everywhere.
            if (auto* bottone = qobject_cast<QPushButton*>(focusWidget()); bottone != nullptr)
                bottone->click();
            else
                avvia();
            return;
        default:
            QWidget::keyPressEvent(evento);
    }
}

void FinestraRicerca::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    // Once the layout has run.
    QMetaObject::invokeMethod(lato_, &LatoRisposta::disponi, Qt::QueuedConnection);
}

void FinestraRicerca::showEvent(QShowEvent* evento) {
    if (!evento->spontaneous()) {
        if (cornice_ != nullptr) cornice_->adatta_colonna();
        if (!std::exchange(posto_letto_, true)) {
            const MemoriaSchermi posti{sessione_};
            if (cornice_ != nullptr)
                cornice_->freccia()->imposta_animata(posti.value(QStringLiteral("frecce"), true).toBool());
            leggi_posto(*this, sessione_, kAllApertura);
        }
        if (cornice_ != nullptr) cornice_->freccia()->avvia();
    }
    QWidget::showEvent(evento);
}

void FinestraRicerca::closeEvent(QCloseEvent* evento) {
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
