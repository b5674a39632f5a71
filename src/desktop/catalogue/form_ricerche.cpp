#include "catalogue/form_ricerche.h"

#include "catalogue/form_ricerche_dettaglio.h"
#include "catalogue/form_ricerche_elenco.h"
#include "catalogue/form_ricerche_gruppo.h"
#include "catalogue/form_ricerche_segnalimite.h"
#include "catalogue/form_ricerche_skin.h"
#include "catalogue/nomi.h"
#include "draws/calendario.h"
#include "printing/form_anteprima.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/finestra_ricerca.h"
#include "screens/manuale.h"
#include "screens/messaggi.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "statistics/cinquine_dei_90.h"
#include "stores/apertura.h"
#include "stores/form_aggiorna.h"
#include "stores/importa.h"
#include "stores/porta_trascinati.h"
#include "text/testi.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <algorithm>
#include <tuple>
#include <utility>

namespace sortimetra {

namespace {

constexpr QSize kAllApertura{1180, 720};

/// The tab strip writes these in place of a group's index. At the next start the first brings back the tab of
/// the SuperEnalotto, the second leaves the first tab as it is.
constexpr int kIndiceSuperEnalotto = 6;
constexpr int kIndiceAltreSchede = 7;

/// A reading that takes longer than this many milliseconds says so where it is seen.
constexpr int kLungaMs = 400;

QString percorso(const std::filesystem::path& p) {
    return QString::fromStdString(p.string());
}

/// Prints a search that reads no draws: there is nothing to ask it.
void stampa_senza_archivio(QWidget& finestra, const Ricerca& ricerca, const Sessione& sessione) {
    static const ArchivioEstrazioni nessuno;
    SenzaAvanzamento zitto;
    stampa_risultato(&finestra, rispondi(domanda_intatta(ricerca), nessuno, {}, zitto), &sessione);
}

/// A window of its own, no dialog, menu or tip.
bool e_finestra(const QWidget& w) {
    return w.isWindow() && (w.windowType() == Qt::Window || w.windowType() == Qt::Widget);
}

/// For the time of its life, lists change by program and nothing is written to the memory.
class InCarica {
  public:
    explicit InCarica(bool& segno) : segno_{segno}, prima_{std::exchange(segno, true)} {}
    InCarica(const InCarica&) = delete;
    InCarica& operator=(const InCarica&) = delete;
    ~InCarica() { segno_ = prima_; }

  private:
    bool& segno_;
    bool prima_;
};

}  // namespace

form_ricerche::form_ricerche(Sessione& sessione, std::span<const RigaSchermo> schermi)
    : sessione_{sessione},
      memoria_{sessione},
      schermi_{schermi},
      lettore_{[this](EsitoArchivio esito) { archivio_letto(std::move(esito)); }} {
    setObjectName(QStringLiteral("form_ricerche"));
    lettore_.guarda = [copia = sessione.copia](const std::filesystem::path& dove) {
        return guarda_archivio(dove, copia);
    };
    setWindowTitle(tr("Sortimetra Plus - Ricerche Statistiche"));
    chiedi_cartella = [this] {
        return QFileDialog::getExistingDirectory(this, tr("Scegli la cartella che contiene l'archivio"),
                                                 percorso(sessione_.percorso_programma));
    };

    // The skin comes first: what is built next takes its colours from it.
    if (const auto indice = leggi_skin(sessione_.percorso_skin()))
        carica_skin(*indice);
    else
        applica_tema(*qApp, 0);

    assegna_capitolo(this, "il-catalogo");
    ascolta_f1(sessione_);
    componi();
    scorciatoie();
    qApp->installEventFilter(this);
    auto* porta = new PortaTrascinati{this};
    qApp->installEventFilter(porta);
    connect(porta, &PortaTrascinati::portato, this, [this](const QMimeData& dati) { apri_aggiorna(&dati); });
    leggi_posto(*this, sessione_, kAllApertura);
    TabStrip1_Click(0);
    aggiorna_stato();
}

form_ricerche::~form_ricerche() = default;

QString form_ricerche::quante_ricerche(int n) {
    return n == 1 ? tr("1 ricerca") : tr("%1 ricerche").arg(n);
}

// ---- the course of the window ----

void form_ricerche::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    if (!std::exchange(attivata_, true)) prima_attivazione();
}

void form_ricerche::paintEvent(QPaintEvent* evento) {
    QWidget::paintEvent(evento);
    // Only once the window is there: the archive takes as long as it takes.
    if (!archivio_cercato_ && !legge_archivio()) QTimer::singleShot(0, this, &form_ricerche::carica_archivio);
}

void form_ricerche::prima_attivazione() {
    memoria_.crea_se_manca();
    const auto indice = valore_iniziale(memoria_.leggi("tipo", ""));
    in_carica_ = true;
    if (indice == kIndiceSuperEnalotto) {
        tab_strip_->setCurrentIndex(1);
        griglia_->setFocus();
    } else {
        gruppo_ = indice >= 0 && indice < kGruppi ? static_cast<int>(indice) : 0;
        const int scheda = std::clamp(sessione_.scheda_corrente, 1, tab_strip_->count()) - 1;
        if (tab_strip_->currentIndex() == scheda)
            TabStrip1_Click(scheda);
        else
            tab_strip_->setCurrentIndex(scheda);
        cmd_ricerche_[static_cast<std::size_t>(gruppo_)]->setFocus();
    }
    in_carica_ = false;
}

void form_ricerche::closeEvent(QCloseEvent* evento) {
    scrivi_posto(*this, sessione_);
    QWidget::closeEvent(evento);
    if (!evento->isAccepted()) return;
    terminata_ = true;
    emit terminata();
}

void form_ricerche::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape && cerca_attiva()) {
        txt_cerca_->clear();
        return;
    }
    // Whoever waits no longer is not surprised by a window.
    if (evento->key() == Qt::Key_Escape && std::exchange(attesa_, nullptr) != nullptr) {
        aggiorna_stato();
        return;
    }
    QWidget::keyPressEvent(evento);
}

bool form_ricerche::eventFilter(QObject* oggetto, QEvent* evento) {
    // A screen has closed: the catalogue comes back, unless another one has taken its place.
    if (evento->type() == QEvent::Hide && !isVisible()) {
        if (const auto* w = qobject_cast<QWidget*>(oggetto); w != nullptr && e_finestra(*w))
            QTimer::singleShot(0, this, &form_ricerche::torna);
    }
    if (evento->type() != QEvent::KeyPress) return QWidget::eventFilter(oggetto, evento);
    auto* tasto = dynamic_cast<QKeyEvent*>(evento);
    if (tasto == nullptr) return false;
    const bool invio = tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter;
    if (oggetto == txt_cerca_) {
        switch (tasto->key()) {
            case Qt::Key_Up:
            case Qt::Key_Down:
            case Qt::Key_PageUp:
            case Qt::Key_PageDown:
                QCoreApplication::sendEvent(griglia_, tasto);
                return true;
            case Qt::Key_Escape:
                txt_cerca_->clear();
                griglia_->setFocus();
                return true;
            default:
                if (!invio) break;
                cmdConferma_Click();
                return true;
        }
    }
    const auto it = std::find(cmd_ricerche_.begin(), cmd_ricerche_.end(), oggetto);
    if (it != cmd_ricerche_.end()) {
        const int i = static_cast<int>(it - cmd_ricerche_.begin());
        const int passo = tasto->key() == Qt::Key_Down ? 1 : tasto->key() == Qt::Key_Up ? -1 : 0;
        if (passo != 0) {
            // The groups are browsed as a list is; the last button opens a screen and wants its own press.
            const int altro = std::clamp(i + passo, 0, static_cast<int>(kGruppoTabellaRitardi));
            auto* pulsante = cmd_ricerche_[static_cast<std::size_t>(altro)];
            if (altro != i && pulsante->isEnabled()) {
                pulsante->setFocus(Qt::TabFocusReason);
                if (altro < kGruppi) cmdRicerche_Click(altro);
            }
            return true;
        }
        if (tasto->key() == Qt::Key_Right) {
            griglia_->setFocus(Qt::TabFocusReason);
            return true;
        }
        if (invio) {
            if (i < kGruppi)
                cmdConferma_Click();
            else
                cmdRicerche_Click(i);
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}

// ---- groups, tabs, list ----

int form_ricerche::chiave_memoria() const {
    const int scheda = tab_strip_->currentIndex();
    return scheda == 0 ? gruppo_ : kIndiceSuperEnalotto + scheda - 1;
}

bool form_ricerche::cerca_attiva() const {
    return !txt_cerca_->text().trimmed().isEmpty();
}

void form_ricerche::cmdRicerche_Click(int indice) {
    if (static_cast<std::size_t>(indice) == kGruppoTabellaRitardi) {
        const Ricerca* ritardi = trova_ricerca(nomi::kMiglioriRitardi.chiave);
        if (ritardi == nullptr || !costruita(*ritardi)) return;
        memoria_.scrivi_gruppo(indice);
        apri(*ritardi);
        return;
    }
    gruppo_ = indice;
    memoria_.scrivi_gruppo(indice);
    if (tab_strip_->currentIndex() == 0) {
        carica_lista();
    } else {
        tab_strip_->setCurrentIndex(0);
    }
}

void form_ricerche::TabStrip1_Click(int indice) {
    sessione_.scheda_corrente = indice + 1;
    if (!in_carica_)
        memoria_.scrivi_gruppo(indice == 0   ? gruppo_
                               : indice == 1 ? kIndiceSuperEnalotto
                                             : kIndiceAltreSchede);
    cornici_->setCurrentWidget(indice == 0 ? frame1_ : frame2_);
    aggiorna_frame2();
    carica_lista();
}

void form_ricerche::colora_gruppi() {
    // While words are sought in all games no group is the one shown.
    for (std::size_t i = 0; i < frame_b_.size(); ++i)
        frame_b_[i]->premi(static_cast<int>(i) == gruppo_ && !cerca_attiva());
}

void form_ricerche::carica_lista() {
    const InCarica guardia{in_carica_};
    {
        const QSignalBlocker zitto{txt_cerca_};
        txt_cerca_->clear();
    }
    const auto elenchi = schede()[static_cast<std::size_t>(tab_strip_->currentIndex())].elenchi;
    const Elenco& elenco = elenchi[elenchi.size() > 1 ? static_cast<std::size_t>(gruppo_) : 0];
    delegato_->evidenzia({});
    modello_->mostra(voci(elenco), false);
    griglia_->di_se_vuota({});
    griglia_->adatta_colonne();
    lbl_elenco_->setText(testo_qt(elenco.nome));
    lbl_quante_->setText(quante_ricerche(modello_->rowCount()));
    ripristina_riga();
    colora_gruppi();
    aggiorna_dettaglio();
}

void form_ricerche::ripristina_riga() {
    const std::string chiave = std::to_string(chiave_memoria());
    griglia_->vai_a_prima_riga(static_cast<int>(std::clamp<std::int64_t>(
        valore_iniziale(memoria_.leggi("nome", chiave + "t")), 0, modello_->rowCount())));
    const int riga = modello_->riga_di(QString::fromStdString(memoria_.leggi("nome", chiave)));
    griglia_->setCurrentIndex(modello_->index(std::max(riga, 0), 0));
}

void form_ricerche::filtra(const QString& scritto) {
    if (!cerca_attiva()) {
        carica_lista();
        return;
    }
    const InCarica guardia{in_carica_};
    delegato_->evidenzia(scritto);
    modello_->mostra(cerca(scritto.toStdString()), true);
    const int trovate = modello_->rowCount();
    griglia_->di_se_vuota(
        tr("Nessuna ricerca contiene «%1».\nProva con una parola sola, o premi Esc per tornare "
           "all'elenco.")
            .arg(scritto.trimmed()));
    griglia_->adatta_colonne();
    lbl_elenco_->setText(tr("In tutti i giochi"));
    lbl_quante_->setText(quante_ricerche(trovate));
    if (trovate > 0) griglia_->setCurrentIndex(modello_->index(0, 0));
    colora_gruppi();
    aggiorna_dettaglio();
}

void form_ricerche::riga_cambiata() {
    const VoceElenco* voce = modello_->voce(griglia_->currentIndex().row());
    // What a search of words finds is no list of its own, and is not remembered.
    if (voce != nullptr && !in_carica_ && !cerca_attiva())
        memoria_.scrivi_selezione(chiave_memoria(), voce->nome, griglia_->prima_riga());
    griglia_->colora_riga();
    aggiorna_dettaglio();
}

const Ricerca* form_ricerche::ricerca_corrente() const {
    const VoceElenco* voce = modello_->voce(griglia_->currentIndex().row());
    return voce == nullptr ? nullptr : voce->ricerca;
}

// ---- what the window says ----

void form_ricerche::aggiorna_dettaglio() {
    const VoceElenco* voce = modello_->voce(griglia_->currentIndex().row());
    if (voce == nullptr) {
        dettaglio_->svuota();
        return;
    }
    const bool in_gruppi = tab_strip_->currentIndex() == 0 && !cerca_attiva();
    const std::string_view gruppo =
        in_gruppi ? schede()[0].elenchi[static_cast<std::size_t>(gruppo_)].nome : voce->gruppo;
    const QString gioco = testo_qt(voce->gioco);
    dettaglio_->mostra(*voce, gruppo.empty() ? gioco : gioco + QStringLiteral(" · ") + testo_qt(gruppo),
                       impedimento(*voce->ricerca), archivio_ ? &*archivio_ : nullptr);
}

void form_ricerche::aggiorna_frame2() {
    const int scheda = tab_strip_->currentIndex();
    lbl_frame2_->setText(testo_qt(schede()[static_cast<std::size_t>(scheda)].nome));
    QString gioco;
    if (archivio_) {
        const auto fatti = [](std::size_t quanti, Data prima, Data ultima) {
            return tr("%1 concorsi in archivio,\ndal %2\nal %3")
                .arg(testo_qt(migliaia(static_cast<std::int64_t>(quanti))), testo_qt(testo_data(prima)),
                     testo_qt(testo_data(ultima)));
        };
        const auto& lotto = archivio_->lotto();
        const auto& sestine = archivio_->superenalotto();
        const auto& win = archivio_->winforlife();
        if (scheda == 1 && !sestine.data.empty())
            gioco = fatti(sestine.data.size(), sestine.data.front(), sestine.data.back());
        if (scheda == 2 && !lotto.data.empty())
            gioco = fatti(lotto.data.size(), lotto.data.front(), lotto.data.back());
        if (scheda == 3 && !win.data.empty())
            gioco = fatti(win.data.size(), win.data.front(), win.data.back());
    }
    lbl_gioco_->setText(gioco);
}

void form_ricerche::aggiorna_stato() {
    lbl_simulato_->setVisible(archivio_ && (archivio_->drawit().simulato || archivio_->drawit2().simulato));
    frame_archivio_->setVisible(!archivio_ && (archivio_cercato_ || lettura_lunga_));
    lbl_stato_->setToolTip({});
    if (legge_archivio()) {
        lbl_stato_->setText(
            attesa_ == nullptr
                ? tr("Leggo l'archivio…")
                : tr("Leggo l'archivio… poi si apre «%1» (Esc la annulla)").arg(testo_qt(attesa_->titolo())));
    } else if (archivio_) {
        const bool lotto = !archivio_->drawit().file.empty();
        const Fonte& fonte = lotto ? archivio_->drawit() : archivio_->drawit2();
        const QString nome = percorso(fonte.file.filename());
        lbl_stato_->setText(nome + QStringLiteral(" · ") + ultima_estrazione());
        QString dove = percorso(fonte.file);
        if (lotto && !archivio_->drawit2().file.empty())
            dove += QLatin1Char{'\n'} + percorso(archivio_->drawit2().file);
        lbl_stato_->setToolTip(dove);
    } else {
        lbl_stato_->setText(archivio_cercato_ ? tr("Nessun archivio aperto") : tr("Leggo l'archivio…"));
    }
    aggiorna_frame2();
    aggiorna_dettaglio();
}

QString form_ricerche::ultima_estrazione() const {
    const bool lotto = !archivio_->drawit().file.empty();
    const auto& date = lotto ? archivio_->lotto().data : archivio_->winforlife().data;
    if (date.empty()) return tr("nessuna estrazione");
    QString ultimo = tr("ultimo concorso %1 del %2")
                         .arg(lotto ? archivio_->ultimo_concorso() : archivio_->ultimo_concorso_winforlife())
                         .arg(testo_qt(testo_data(date.back())));
    // Simulated draws are not to be continued.
    const bool simulato = lotto ? archivio_->drawit().simulato : archivio_->drawit2().simulato;
    const int mancano =
        simulato || !lotto ? 0 : estrazioni_mancanti(Gioco::lotto, {.data = date.back()}, oggi());
    if (mancano == 0) return ultimo;
    return mancano == 1 ? tr("%1: manca circa 1 estrazione").arg(ultimo)
                        : tr("%1: mancano circa %2 estrazioni").arg(ultimo, testo_qt(migliaia(mancano)));
}

void form_ricerche::carica_skin(int indice) {
    skin_letta_ = indice;
    applica_tema(*qApp, indice);
    memoria_.scrivi_skin(sessione_.percorso_skin(), indice);
    if (cmd_skin_ != nullptr) cmd_skin_->segna(indice);
}

// ---- the archive ----

void form_ricerche::carica_archivio() {
    if (archivio_cercato_ || legge_archivio()) return;
    archivio_.reset();
    lettore_.leggi(sessione_.percorso_archivio());
    aggiorna_stato();
    // Most are there before anybody has seen that there was something to wait for.
    QTimer::singleShot(kLungaMs, this, [this] {
        if (!legge_archivio() || archivio_) return;
        lettura_lunga_ = true;
        frame_archivio_->mentre_legge();
        aggiorna_stato();
    });
}

void form_ricerche::archivio_letto(EsitoArchivio esito) {
    if (terminata_) return;
    lettura_lunga_ = false;
    if (const auto cartella = std::exchange(cartella_in_prova_, std::nullopt)) {
        cartella_letta(*cartella, std::move(esito));
    } else {
        archivio_cercato_ = true;
        if (esito) {
            usa_archivio(std::move(*esito));
        } else {
            chiudi_schermi();
            archivio_.reset();
            frame_archivio_->spiega(esito.error());
        }
        archivio_riletto();
    }
    const Ricerca* attesa = std::exchange(attesa_, nullptr);
    aggiorna_stato();
    if (attesa != nullptr) apri(*attesa);
}

void form_ricerche::usa_archivio(ArchivioEstrazioni archivio) {
    archivio_ = std::move(archivio);
    // Without the list its one search says that the file is missing; there is nothing to add to that.
    std::ignore = prepara_cinquine_dei_90(sessione_.percorso_programma);
}

void form_ricerche::crea_archivio_dimostrativo() {
    frame_archivio_->mentre_crea();
    SenzaAvanzamento subito;
    if (const auto esito = crea_dimostrazione(sessione_.percorso_archivio(), subito); !esito) {
        frame_archivio_->non_creato(QString::fromStdString(esito.error().testo()));
        return;
    }
    archivio_cercato_ = false;
    carica_archivio();
    griglia_->setFocus();
}

void form_ricerche::scegli_cartella() {
    const QString scelta = chiedi_cartella();
    if (scelta.isEmpty()) return;
    usa_cartella(cartella_intesa(scelta.toStdString()));
}

void form_ricerche::usa_cartella(const std::filesystem::path& cartella) {
    // Looked at before anything is closed here or written there.
    cartella_in_prova_ = cartella;
    lettore_.leggi(cartella / "archivio");
    aggiorna_stato();
}

void form_ricerche::cartella_letta(const std::filesystem::path& cartella, EsitoArchivio esito) {
    if (!esito) {
        messaggi().avvisa(
            this, kTitoloMessaggi,
            esito.error().perche + tr("\n\nScegli una cartella che ha drawit.mdb oppure drawit.db nella sua "
                                      "sottocartella archivio. Per ora tutto resta com'era."));
        return;
    }
    sessione_.percorso_programma = cartella;
    sessione_.scheda_corrente = 1;
    memoria_.usa(sessione_);
    if (const auto indice = leggi_skin(sessione_.percorso_skin())) carica_skin(*indice);
    archivio_cercato_ = true;
    usa_archivio(std::move(*esito));
    aggiorna_stato();
    prima_attivazione();
    archivio_riletto();
    emit cartella_scelta(percorso(cartella));
}

void form_ricerche::apri_aggiorna(const QMimeData* portato) {
    if (aggiorna_ == nullptr) {
        aggiorna_ = std::make_unique<Form_Aggiorna>(sessione_);
        connect(aggiorna_.get(), &Form_Aggiorna::archivio_cambiato, this, &form_ricerche::rileggi_archivio);
    }
    if (!aggiorna_->isVisible()) aggiorna_->prepara(archivio_ ? &*archivio_ : nullptr, oggi());
    aggiorna_->show();
    aggiorna_->raise();
    aggiorna_->activateWindow();
    if (portato != nullptr) aggiorna_->accogli(*portato);
}

void form_ricerche::rileggi_archivio() {
    // The one in use stays until the other is there: screens are open on it.
    lettore_.leggi(sessione_.percorso_archivio());
    aggiorna_stato();
}

void form_ricerche::archivio_riletto() {
    const ArchivioEstrazioni* archivio = archivio_ ? &*archivio_ : nullptr;
    if (aggiorna_ != nullptr) aggiorna_->usa_archivio(archivio, oggi());
    // Screens that are open have bounds and results of the archive that was.
    for (FinestraRicerca* schermo : schermi_aperti()) schermo->apri(*schermo->ricerca(), *archivio);
}

QList<FinestraRicerca*> form_ricerche::schermi_aperti() const {
    QList<FinestraRicerca*> aperti;
    for (const auto& [schermo, finestra] : finestre_)
        if (auto* f = qobject_cast<FinestraRicerca*>(finestra.get()); f != nullptr && f->isVisible())
            aperti.push_back(f);
    return aperti;
}

void form_ricerche::chiudi_schermi() {
    for (FinestraRicerca* schermo : schermi_aperti()) schermo->close();
}

// ---- opening a search ----

bool form_ricerche::costruita(const Ricerca& ricerca) const {
    if (!ricerca.pronta()) return false;
    return schermo_di(ricerca) == Schermo::segnalimite ||
           std::any_of(schermi_.begin(), schermi_.end(),
                       [&](const RigaSchermo& r) { return r.schermo == schermo_di(ricerca); });
}

QString form_ricerche::impedimento(const Ricerca& ricerca) const {
    if (!costruita(ricerca)) return tr("Non ancora disponibile in questa versione");
    if (ricerca.tabelle == 0 || !archivio_cercato_) return {};
    if (!archivio_) return tr("Serve un archivio delle estrazioni");
    // Where the game is chosen on the screen, what is there can be asked.
    if (ricerca.gioco == Gioco::sistemi) return {};
    const bool vuole_win = (ricerca.tabelle & kTabellaWinForLife) != 0;
    const bool vuole_lotto = (ricerca.tabelle & ~unsigned{kTabellaWinForLife}) != 0;
    if (vuole_win && archivio_->drawit2().file.empty())
        return tr("Nell'archivio mancano le estrazioni del Win for Life");
    if (vuole_lotto && archivio_->drawit().file.empty())
        return tr("Nell'archivio mancano le estrazioni del Lotto");
    return {};
}

void form_ricerche::cmdConferma_Click() {
    if (const Ricerca* ricerca = ricerca_corrente()) apri(*ricerca);
}

void form_ricerche::apri(const Ricerca& ricerca) {
    if (ricerca.tabelle != 0) carica_archivio();
    if (!impedimento(ricerca).isEmpty()) return;
    // No screen opens on an archive that is about to be another.
    if (ricerca.tabelle != 0 && legge_archivio()) {
        attesa_ = &ricerca;
        aggiorna_stato();
        return;
    }
    if (schermo_di(ricerca) == Schermo::segnalimite) {
        mostra_segnalimite(true);
        return;
    }
    const auto riga = std::find_if(schermi_.begin(), schermi_.end(),
                                   [&](const RigaSchermo& r) { return r.schermo == schermo_di(ricerca); });
    auto& finestra = finestre_[schermo_di(ricerca)];
    if (!finestra) {
        finestra.reset(riga->crea(sessione_));
    }
    static const ArchivioEstrazioni nessuno;
    riga->attiva(*finestra, ricerca, archivio_ ? *archivio_ : nessuno);
    finestra->show();
    finestra->raise();
    finestra->activateWindow();
    scrivi_posto(*this, sessione_);
    hide();
}

void form_ricerche::torna() {
    const auto aperte = QApplication::topLevelWidgets();
    if (terminata_ || std::any_of(aperte.begin(), aperte.end(),
                                  [](const QWidget* w) { return w->isVisible() && e_finestra(*w); }))
        return;
    show();
    raise();
    activateWindow();
    const InCarica guardia{in_carica_};
    if (!cerca_attiva()) tab_strip_->setCurrentIndex(sessione_.scheda_corrente - 1);
    if (cerca_attiva())
        txt_cerca_->setFocus();
    else
        griglia_->setFocus();
}

void form_ricerche::mostra_segnalimite(bool mostra) {
    if (mostra && frame_segnalimite_ == nullptr) {
        frame_segnalimite_ = new FrameSegnalimite;
        connect(frame_segnalimite_, &FrameSegnalimite::esci, this, [this] { mostra_segnalimite(false); });
        connect(frame_segnalimite_, &FrameSegnalimite::stampa, this, [this] {
            if (const Ricerca* r = trova_ricerca(nomi::kSegnalimiteCabalistici.chiave))
                stampa_senza_archivio(*this, *r, sessione_);
        });
        pagine_->addWidget(frame_segnalimite_);
    }
    pagine_->setCurrentWidget(mostra ? static_cast<QWidget*>(frame_segnalimite_) : catalogo_);
    // "Esci" goes back to the lists, "Chiudi" ends the program: one at a time.
    command1_->setVisible(!mostra);
    if (mostra)
        frame_segnalimite_->setFocus();
    else
        griglia_->setFocus();
}

}  // namespace sortimetra
