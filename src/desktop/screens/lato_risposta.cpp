#include "screens/lato_risposta.h"

#include "chance/caso.h"
#include "chance/risposta_estesa.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/memoria_schermi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/pannello_storia.h"
#include "screens/tema.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <utility>

namespace sortimetra {

namespace {

/// The story's width beside an answer: at least, and at most; and the blank between the two.
constexpr int kMinima = 100 * kPasso;
constexpr int kMassima = 220 * kPasso;
constexpr int kFra = 4 * kPasso;
/// A drawer's width, which is never more than seven tenths of the window.
constexpr int kCassetto = 120 * kPasso;

/// A switch without its caption, and the least that is left to the title beside the switches.
constexpr int kSoloFigura = 10 * kPasso;
constexpr int kTitoloMinimo = 30 * kPasso;

QPushButton* interruttore(QWidget* padre, const char* nome, const QString& testo, const char* figura) {
    auto* b = new QPushButton{icona(QString::fromLatin1(figura)), testo, padre};
    b->setObjectName(QString::fromLatin1(nome));
    b->setCheckable(true);
    b->setAccessibleName(QString{testo}.remove(QLatin1Char{'&'}));
    b->setProperty("scritta", testo);
    // Where there is little room it shows its picture alone (see `adatta_interruttori`).
    b->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    b->setMinimumWidth(kSoloFigura);
    assegna_ruolo(b, "interruttore");
    return b;
}

int ruote_scelte(const SelezioneRuote& ruote) {
    return ruote.e_nazionale() ? 1 : std::popcount(ruote.ruote_lette());
}

}  // namespace

LatoRisposta::LatoRisposta(FinestraRicerca& finestra)
    : QObject{&finestra}, finestra_{finestra}, pausa_{new QTimer{this}} {
    pausa_->setSingleShot(true);
    pausa_->setInterval(0);
    connect(pausa_, &QTimer::timeout, this, &LatoRisposta::racconta);
}

// ---- the switches ----

void LatoRisposta::incornicia() {
    componi_interruttori();
    finestra_.cornice()->riga_titolo()->insertWidget(1, interruttori_);
}

void LatoRisposta::componi_interruttori() {
    interruttori_ = new QWidget{&finestra_};
    cmd_storia_ = interruttore(interruttori_, "cmdStoria", tr("St&oria"), "storia");
    cmd_caso_ = interruttore(interruttori_, "cmdCaso", tr("&Il caso"), "caso");
    cmd_ruote_ = interruttore(interruttori_, "cmdRuote", tr("Confronta r&uote"), "tabella");
    combo_misura_ = new QComboBox{interruttori_};
    combo_misura_->setObjectName(QStringLiteral("ComboMisura"));
    combo_misura_->setAccessibleName(tr("Misura da confrontare"));
    combo_misura_->addItems({tr("Ritardo"), tr("Frequenza"), tr("Ritardo Storico")});
    cmd_storia_->setToolTip(tr("Mostra la storia della riga scelta (Ctrl+G)"));
    cmd_caso_->setToolTip(tr("Mostra accanto a ogni riga che cosa ne farebbe il solo caso (Ctrl+I)"));
    auto* riga = new QHBoxLayout{interruttori_};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(kPasso);
    for (QWidget* w : std::initializer_list<QWidget*>{cmd_storia_, cmd_caso_, cmd_ruote_, combo_misura_}) {
        riga->addWidget(w);
        w->hide();
    }
    connect(cmd_storia_, &QPushButton::clicked, this, &LatoRisposta::storia);
    connect(cmd_caso_, &QPushButton::clicked, this, &LatoRisposta::caso);
    connect(cmd_ruote_, &QPushButton::clicked, this, &LatoRisposta::ruote);
    connect(combo_misura_, &QComboBox::activated, this, [this] {
        if (ruote_attive_) ripresenta();
    });
}

void LatoRisposta::apri() {
    const MemoriaSchermi posti{finestra_.sessione()};
    caso_attivo_ = posti.value(QStringLiteral("caso"), false).toBool();
    storia_voluta_ = posti.value(QStringLiteral("storia"), true).toBool();
    ruote_attive_ = false;
    cassetto_ = false;
    intatta_ = {};
    aggiorna_interruttori();
    pausa_->start();
}

/// Captions give way to the title of a narrow window.
void LatoRisposta::adatta_interruttori() {
    if (interruttori_ == nullptr) return;
    const std::array bottoni{cmd_storia_, cmd_caso_, cmd_ruote_};
    const auto scrivi = [&](bool si) {
        for (QPushButton* b : bottoni) b->setText(si ? b->property("scritta").toString() : QString{});
    };
    const auto servono = [&] {
        int larga = kTitoloMinimo + finestra_.cornice()->cmd_filtra()->sizeHint().width() + 4 * kPasso;
        for (const QPushButton* b : bottoni)
            if (b->isVisibleTo(interruttori_)) larga += b->sizeHint().width() + kPasso;
        if (combo_misura_->isVisibleTo(interruttori_)) larga += combo_misura_->sizeHint().width() + kPasso;
        return larga;
    };
    scrivi(true);
    if (finestra_.isVisible() && servono() > finestra_.cornice()->larghezza_risposta()) scrivi(false);
}

bool LatoRisposta::puo_caso() const {
    return intatta_.prodotto() && intatta_.percorso && misura_eventi(intatta_);
}

bool LatoRisposta::puo_ruote() const {
    return finestra_.ricerca() != nullptr && ha_ruote(*finestra_.ricerca()) && intatta_.prodotto() &&
           misura_eventi(intatta_) && ruote_scelte(intatta_.domanda.ambito.ruote) > 1;
}

void LatoRisposta::aggiorna_interruttori() {
    if (interruttori_ == nullptr || finestra_.ricerca() == nullptr) return;
    const Ricerca& r = *finestra_.ricerca();
    const bool risposta = intatta_.prodotto();
    cmd_caso_->setVisible(r.un_evento);
    cmd_caso_->setEnabled(!risposta || puo_caso());
    cmd_caso_->setChecked(caso_attivo_ && !ruote_attive_);
    cmd_ruote_->setVisible(ha_ruote(r));
    cmd_ruote_->setEnabled(risposta && puo_ruote());
    cmd_ruote_->setChecked(ruote_attive_);
    cmd_ruote_->setToolTip(!risposta || puo_ruote()
                               ? tr("Mostra la misura di ogni riga ruota per ruota (Ctrl+R)")
                               : tr("Per confrontare servono almeno due ruote."));
    combo_misura_->setVisible(ruote_attive_ && ha_ruote(r));
    cmd_storia_->setVisible(r.un_evento || ha_storie());
    cmd_storia_->setChecked(pannello_ != nullptr && pannello_->isVisibleTo(&finestra_));
    adatta_interruttori();
}

void LatoRisposta::caso() {
    if (finestra_.in_corsa() || finestra_.ricerca() == nullptr || !finestra_.ricerca()->un_evento) return;
    // Beside the wheels there is no room for it: it takes their place.
    caso_attivo_ = ruote_attive_ || !caso_attivo_;
    ruote_attive_ = false;
    MemoriaSchermi{finestra_.sessione()}.setValue(QStringLiteral("caso"), caso_attivo_);
    ripresenta();
    aggiorna_interruttori();
}

void LatoRisposta::ruote() {
    if (!finestra_.in_corsa() && (ruote_attive_ || puo_ruote())) {
        ruote_attive_ = !ruote_attive_;
        ripresenta();
    }
    aggiorna_interruttori();
}

void LatoRisposta::storia() {
    if (spazio_accanto() >= kMinima && ha_storie()) {
        storia_voluta_ = !storia_voluta_;
        MemoriaSchermi{finestra_.sessione()}.setValue(QStringLiteral("storia"), storia_voluta_);
    } else {
        cassetto_ = !cassetto_ && ha_storie();
    }
    disponi();
    racconta();
}

// ---- the answer ----

EsitoRicerca LatoRisposta::vesti(const EsitoRicerca& esito) {
    intatta_ = esito;
    EsitoRicerca vestita = esito;
    if (ruote_attive_ && !puo_ruote()) ruote_attive_ = false;
    if (ruote_attive_) {
        const auto misura = static_cast<MisuraRuote>(std::max(combo_misura_->currentIndex(), 0));
        CorsaRicerca corsa{&finestra_, finestra_.pannello_, finestra_.corpo_};
        finestra_.corsa_ = &corsa;
        vestita.risultato = con_ruote(esito, tabella_ruote(esito, *finestra_.archivio(), misura, corsa));
        finestra_.corsa_ = nullptr;
    } else if (caso_attivo_ && puo_caso()) {
        vestita.risultato = con_caso(esito);
    }
    // Columns leave the story its room, if that is not at their cost.
    if (GrigliaRisultati* g = finestra_.griglia_accanto(); g != nullptr && finestra_.cornice() != nullptr) {
        const bool con_storia = storia_voluta_ && vestita.risultato->tabelle.front().eventi.presenti > 0;
        g->imposta_spazio(con_storia ? finestra_.cornice()->larghezza_risposta() - kFra - kMinima : -1);
    }
    return vestita;
}

void LatoRisposta::mostrata() {
    const auto& risultato = finestra_.esito_.risultato;
    if (risultato == nullptr || risultato->tabelle.empty()) return;
    const Tabella* prima = &risultato->tabelle.front();
    const bool con_colonne = risultato != intatta_.risultato && !ruote_attive_;
    for (GrigliaRisultati* g : finestra_.findChildren<GrigliaRisultati*>()) {
        if (della_storia(g)) continue;
        const bool sua = g->modello()->tabella().get() == prima;
        g->imposta_aspetto(
            sua && con_colonne ? static_cast<int>(intatta_.risultato->tabelle.front().n_colonne()) : -1,
            sua && ruote_attive_);
        // The numbers stay in sight beside columns that go on to the right.
        if (sua && finestra_.ricerca()->un_evento) g->blocca_prima_colonna(con_colonne || ruote_attive_);
    }
    QStringList frasi;
    if (puo_caso()) {
        const Tabella& t = intatta_.risultato->tabelle.front();
        if (caso_attivo_) frasi << testo_qt(frase_insolita(t, *intatta_.percorso));
        if (const std::string quadro = frase_chi_quadro(t); !quadro.empty())
            frasi << tr("Chi quadro: %1.").arg(testo_qt(quadro));
    }
    frasi.removeAll(QString{});
    if (finestra_.cornice() != nullptr) finestra_.cornice()->di_del_caso(frasi.join(QStringLiteral("  ")));
    aggiorna_interruttori();
    // After the answer has been painted.
    pausa_->start();
}

void LatoRisposta::svuotata() {
    intatta_ = {};
    if (finestra_.cornice() != nullptr) finestra_.cornice()->di_del_caso({});
    aggiorna_interruttori();
    pausa_->start();
}

void LatoRisposta::ripresa(const EsitoRicerca& esito) {
    intatta_ = esito;
    aggiorna_interruttori();
    pausa_->start();
}

/// Shows the answer once more as the switches say now, its order and its row kept.
void LatoRisposta::ripresenta() {
    const EsitoRicerca esito = intatta_;
    if (!esito.prodotto()) return;
    GrigliaRisultati* g = finestra_.griglia_in_uso();
    const auto ordine = g == nullptr ? std::nullopt : g->ordinamento();
    const auto riga = g == nullptr ? std::nullopt : g->riga_scelta();
    const auto colonne_proprie = static_cast<int>(esito.risultato->tabelle.front().n_colonne());
    finestra_.presenta(esito);
    if (g == nullptr) return;
    if (ordine && !ruote_attive_ && ordine->first < colonne_proprie)
        g->ordina_colonna(ordine->first, ordine->second);
    if (riga) g->scegli_riga(*riga);
}

// ---- the story ----

bool LatoRisposta::della_storia(const QWidget* widget) const {
    return pannello_ != nullptr && pannello_->isAncestorOf(widget);
}

void LatoRisposta::segui(GrigliaRisultati* griglia) {
    disconnect(griglia, nullptr, this, nullptr);
    connect(griglia, &GrigliaRisultati::scelta_cambiata, this,
            [this, griglia] { programma_storia(griglia); });
    connect(griglia, &GrigliaRisultati::menu_aperto, this, &LatoRisposta::aggiungi_voci);
    connect(griglia, &QObject::destroyed, this, [this, griglia] {
        if (scelta_ == griglia) scelta_ = nullptr;
    });
}

void LatoRisposta::aggiungi_voci(QMenu* menu) {
    const auto voce = [menu](const QString& testo, const QKeySequence& tasto, bool attiva, auto&& azione) {
        auto* a = menu->addAction(testo);
        connect(a, &QAction::triggered, menu, azione);
        a->setShortcut(tasto);
        a->setCheckable(true);
        a->setChecked(attiva);
        return a;
    };
    if (!ha_storie() && !puo_caso()) return;
    menu->addSeparator();
    if (ha_storie())
        voce(tr("St&oria della riga"), Qt::CTRL | Qt::Key_G,
             pannello_ != nullptr && pannello_->isVisibleTo(&finestra_), [this] { storia(); });
    if (puo_caso())
        voce(tr("&Il caso"), Qt::CTRL | Qt::Key_I, caso_attivo_ && !ruote_attive_, [this] { caso(); });
    if (puo_ruote()) voce(tr("Confronta r&uote"), Qt::CTRL | Qt::Key_R, ruote_attive_, [this] { ruote(); });
}

bool LatoRisposta::ha_storie() const {
    const auto ha_eventi = [](const GrigliaRisultati* g) {
        const auto& t = g->modello()->tabella();
        return t && t->righe() > 0 && t->eventi.presenti > 0 && t->numeri_per_riga() > 0;
    };
    const auto griglie = finestra_.findChildren<GrigliaRisultati*>();
    return std::any_of(griglie.begin(), griglie.end(), [&](const GrigliaRisultati* g) {
        return !della_storia(g) && g->isVisibleTo(&finestra_) && ha_eventi(g);
    });
}

void LatoRisposta::programma_storia(GrigliaRisultati* griglia) {
    scelta_ = griglia;
    pausa_->start();
}

/// Draws the story of the rows that are chosen now, if it is in sight.
void LatoRisposta::racconta() {
    disponi();
    aggiorna_interruttori();
    if (pannello_ == nullptr || finestra_.archivio() == nullptr) return;
    // What is out of sight tells nothing until it is opened, but keeps no story of another answer either.
    const EsitoRicerca* esito = finestra_.in_mostra();
    if (esito != nullptr && !pannello_->isVisibleTo(&finestra_)) return;
    std::vector<Storia> storie;
    if (scelta_ != nullptr && esito != nullptr && scelta_->modello()->tabella()) {
        SenzaAvanzamento senza;
        for (const std::size_t r : scelta_->righe_scelte(kSerieGrafico))
            if (const auto evento = scelta_->modello()->tabella()->evento(r))
                storie.push_back(
                    sortimetra::storia(*finestra_.archivio(), esito->domanda.ambito, *evento, senza));
    }
    if (storie.empty())
        pannello_->svuota(tr("Scegli una riga: qui compare la sua storia."));
    else
        pannello_->mostra(std::move(storie), di_che(), finestra_.archivio_simulato());
}

/// Wheels, concorsi and days of the answer, in one line.
QString LatoRisposta::di_che() const {
    const auto& ambito = intatta_.ambito;
    if (!ambito) return {};
    QStringList parti{testo_qt(ambito->ruote)};
    const TrattoConcorsi& tratto = ambito->proprio ? ambito->proprio->tratto : ambito->tratto;
    parti << tr("concorsi %1-%2").arg(tratto.da).arg(tratto.a);
    const auto dal = ambito->proprio ? std::optional{ambito->proprio->dal} : ambito->dal;
    const auto al = ambito->proprio ? std::optional{ambito->proprio->al} : ambito->al;
    if (dal && al) parti << testo_qt(testo_data(*dal) + "-" + testo_data(*al));
    return parti.join(QStringLiteral(" · "));
}

void LatoRisposta::imposta_stampa(std::function<void(QWidget*, const QImage&)> stampa) {
    stampa_ = std::move(stampa);
    if (pannello_ != nullptr) pannello_->imposta_stampa(stampa_);
}

void LatoRisposta::apri_pannello() {
    if (pannello_ != nullptr) return;
    pannello_ = new PannelloStoria{&finestra_};
    pannello_->hide();
    pannello_->imposta_stampa(stampa_);
    connect(pannello_, &PannelloStoria::chiudi, this, &LatoRisposta::storia);
}

/// What a wide window leaves beside the columns of its one grid.
int LatoRisposta::spazio_accanto() const {
    const GrigliaRisultati* g = finestra_.griglia_accanto();
    if (g == nullptr || finestra_.cornice() == nullptr || !g->isVisibleTo(&finestra_)) return 0;
    return finestra_.cornice()->larghezza_risposta() - g->larghezza_tabella() - kFra;
}

void LatoRisposta::disponi() {
    adatta_interruttori();
    const bool storie = ha_storie();
    const int spazio = spazio_accanto();
    // An empty grid keeps the place of what stood beside it: nothing jumps when the next answer comes.
    const GrigliaRisultati* g = finestra_.griglia_accanto();
    const bool aspetta = g != nullptr && g->vuota() && pannello_ != nullptr &&
                         pannello_->parentWidget() != &finestra_ && pannello_->isVisibleTo(&finestra_);
    if (storia_voluta_ && ((storie && spazio >= kMinima) || aspetta)) {
        affianca(std::clamp(spazio, kMinima, kMassima));
        cassetto_ = false;
    } else if (cassetto_ && storie) {
        apri_cassetto();
    } else if (pannello_ != nullptr) {
        pannello_->hide();
    }
}

void LatoRisposta::affianca(int larghezza) {
    apri_pannello();
    QHBoxLayout* riga = finestra_.cornice()->riga_risposta();
    if (riga->indexOf(pannello_) < 0) {
        riga->addWidget(pannello_);
        pannello_->imposta_cassetto(false);
        assegna_ruolo(pannello_, "scheda");
    }
    pannello_->setFixedWidth(larghezza);
    pannello_->show();
}

void LatoRisposta::apri_cassetto() {
    apri_pannello();
    if (pannello_->parentWidget() != &finestra_) {
        if (finestra_.cornice() != nullptr) finestra_.cornice()->riga_risposta()->removeWidget(pannello_);
        pannello_->setParent(&finestra_);
    }
    pannello_->imposta_cassetto(true);
    assegna_ruolo(pannello_, "pannello");
    const QRect dentro = finestra_.rect().adjusted(kFra / 2, kFra / 2, -kFra / 2, -kFra / 2);
    const int larga = std::min(kCassetto, finestra_.width() * 7 / 10);
    pannello_->setFixedWidth(larga);
    pannello_->setGeometry(dentro.right() + 1 - larga, dentro.top(), larga, dentro.height());
    pannello_->raise();
    pannello_->show();
}

bool LatoRisposta::chiudi_cassetto() {
    if (!cassetto_ || pannello_ == nullptr || !pannello_->isVisibleTo(&finestra_)) return false;
    storia();
    return true;
}

}  // namespace sortimetra
