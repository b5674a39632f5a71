#include "catalogue/form_ricerche.h"

#include "catalogue/form_ricerche_elenco.h"
#include "catalogue/form_ricerche_gruppo.h"
#include "catalogue/form_ricerche_segnalimite.h"
#include "catalogue/form_ricerche_ultima.h"
#include "catalogue/nomi.h"
#include "printing/form_anteprima.h"
#include "qt_testi.h"
#include "screens/giro_di_tab.h"
#include "screens/posto_finestra.h"
#include "screens/tema.h"
#include "statistics/cinquine_dei_90.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "text/testi.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kMargine = 4 * kPasso;
constexpr int kSpazio = 3 * kPasso;
constexpr QSize kAllApertura{1180, 720};
constexpr int kLarghezzaGruppi = 54 * kPasso;
constexpr int kLarghezzaDettaglio = 70 * kPasso;

/// The tab strip writes these in place of a group's index. At the next start the first brings back the tab of
/// the SuperEnalotto, the second leaves the first tab as it is.
constexpr int kIndiceSuperEnalotto = 6;
constexpr int kIndiceAltreSchede = 7;
constexpr int kGruppi = 6;

QString percorso(const std::filesystem::path& p) {
    return QString::fromStdString(p.string());
}

QLabel* etichetta(const char* nome, const char* ruolo) {
    auto* l = new QLabel;
    l->setObjectName(QString::fromLatin1(nome));
    if (ruolo != nullptr) assegna_ruolo(l, ruolo);
    return l;
}

QString quante_ricerche(int n) {
    return n == 1 ? form_ricerche::tr("1 ricerca") : form_ricerche::tr("%1 ricerche").arg(n);
}

/// A short text on the yellow of a marker: what must not be overlooked.
class Targhetta final : public QLabel {
  public:
    explicit Targhetta(const QString& testo) : QLabel{testo} {
        setContentsMargins(2 * kPasso, kPasso / 2, 2 * kPasso, kPasso / 2);
        QFont f = font();
        f.setWeight(QFont::DemiBold);
        setFont(f);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Skin& s = skin_in_uso();
        QPainter p{this};
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor::fromRgb(s.trovato));
        p.drawRoundedRect(rect(), kPasso, kPasso);
        p.setPen(QColor::fromRgb(s.testo_trovato));
        p.drawText(rect(), Qt::AlignCenter, text());
    }
};

/// Three stripes of a skin, for its entry in the menu.
QIcon campione(const Skin& s) {
    constexpr int kLato = 32;
    QPixmap immagine{kLato, kLato};
    immagine.fill(Qt::transparent);
    QPainter p{&immagine};
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QColor::fromRgb(s.bordo));
    p.setBrush(QColor::fromRgb(s.superficie));
    p.drawRoundedRect(QRectF{1, 1, kLato - 2, kLato - 2}, 6, 6);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor::fromRgb(s.accento));
    p.drawRoundedRect(QRectF{6, 6, kLato - 12, 6}, 2, 2);
    p.setBrush(QColor::fromRgb(s.selezione));
    p.drawRoundedRect(QRectF{6, 14, kLato - 12, 5}, 2, 2);
    p.setBrush(QColor::fromRgb(s.trovato));
    p.drawRoundedRect(QRectF{6, 21, (kLato - 12) / 2.0, 5}, 2, 2);
    return QIcon{immagine};
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
    : sessione_{sessione}, memoria_{sessione.percorso_programma}, schermi_{schermi} {
    setObjectName(QStringLiteral("form_ricerche"));
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

    tab_strip_ = new QTabBar;
    tab_strip_->setObjectName(QStringLiteral("TabStrip1"));
    tab_strip_->setAccessibleName(tr("Giochi"));
    tab_strip_->setExpanding(false);
    tab_strip_->setDrawBase(false);
    for (const Scheda& s : schede()) tab_strip_->addTab(testo_qt(s.nome));
    connect(tab_strip_, &QTabBar::currentChanged, this, &form_ricerche::TabStrip1_Click);

    cornici_ = new QStackedWidget;
    cornici_->setFixedWidth(kLarghezzaGruppi);
    frame1_ = componi_frame1();
    frame2_ = componi_frame2();
    cornici_->addWidget(frame1_);
    cornici_->addWidget(frame2_);

    auto* corpo = new QHBoxLayout;
    corpo->setSpacing(kSpazio);
    corpo->addWidget(cornici_);
    corpo->addWidget(componi_elenco(), 1);
    corpo->addWidget(componi_dettaglio());

    catalogo_ = new QWidget;
    auto* piano_catalogo = new QVBoxLayout{catalogo_};
    piano_catalogo->setContentsMargins(kMargine, 2 * kPasso, kMargine, kSpazio);
    piano_catalogo->setSpacing(0);
    piano_catalogo->addWidget(componi_testata());
    piano_catalogo->addSpacing(kPasso);
    piano_catalogo->addWidget(tab_strip_);
    auto* riga = new QFrame;
    assegna_ruolo(riga, "linea");
    piano_catalogo->addWidget(riga);
    piano_catalogo->addSpacing(kSpazio);
    piano_catalogo->addLayout(corpo, 1);

    pagine_ = new QStackedWidget;
    pagine_->addWidget(catalogo_);

    auto* piano = new QVBoxLayout{this};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(0);
    piano->addWidget(pagine_, 1);
    auto* riga_piede = new QFrame;
    assegna_ruolo(riga_piede, "linea");
    piano->addWidget(riga_piede);
    piano->addWidget(componi_piede());

    QList<QWidget*> giro{txt_cerca_, cmd_skin_, tab_strip_};
    for (auto* b : cmd_ricerche_) giro << b;
    giro << griglia_ << cmd_conferma_ << command1_;
    giro_di_tab(giro);

    scorciatoie();
    qApp->installEventFilter(this);
    leggi_posto(*this, sessione_, kAllApertura);
    TabStrip1_Click(0);
    aggiorna_stato();
}

form_ricerche::~form_ricerche() = default;

// ---- how the window is put together ----

QWidget* form_ricerche::componi_testata() {
    auto* logo = new QLabel;
    logo->setPixmap(QIcon{QStringLiteral(":/sortimetra.svg")}.pixmap(QSize{32, 32}, devicePixelRatioF()));
    auto* titolo = etichetta("lblTitolo", "titolo");
    titolo->setText(tr("Ricerche Statistiche"));

    txt_cerca_ = new QLineEdit;
    txt_cerca_->setObjectName(QStringLiteral("txtCerca"));
    txt_cerca_->setPlaceholderText(tr("Cerca fra tutte le ricerche (Ctrl+F)"));
    txt_cerca_->setAccessibleName(tr("Cerca fra le ricerche di tutti i giochi"));
    txt_cerca_->setClearButtonEnabled(true);
    txt_cerca_->addAction(icona(QStringLiteral("cerca"), TintaIcona::quieto), QLineEdit::LeadingPosition);
    txt_cerca_->setMinimumWidth(80 * kPasso);
    txt_cerca_->setMinimumHeight(8 * kPasso);
    connect(txt_cerca_, &QLineEdit::textChanged, this, &form_ricerche::filtra);

    cmd_skin_ = new QToolButton;
    cmd_skin_->setObjectName(QStringLiteral("cmdSkin"));
    cmd_skin_->setIcon(icona(QStringLiteral("skin")));
    cmd_skin_->setIconSize(QSize{20, 20});
    cmd_skin_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    cmd_skin_->setPopupMode(QToolButton::InstantPopup);
    cmd_skin_->setFocusPolicy(Qt::StrongFocus);
    cmd_skin_->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    cmd_skin_->setAccessibleName(tr("Aspetto"));
    cmd_skin_->setToolTip(tr("Cambia i colori del programma"));
    menu_skin_ = new QMenu{cmd_skin_};
    cmd_skin_->setMenu(menu_skin_);
    componi_menu_skin();

    auto* testata = new QWidget;
    auto* piano = new QHBoxLayout{testata};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(kSpazio);
    piano->addWidget(logo);
    piano->addWidget(titolo);
    piano->addStretch(1);
    piano->addWidget(txt_cerca_);
    piano->addWidget(cmd_skin_);
    return testata;
}

void form_ricerche::componi_menu_skin() {
    auto* gruppo = new QActionGroup{menu_skin_};
    for (int i = 1; i <= kNumeroSkin; ++i) {
        const Skin& s = skin()[static_cast<std::size_t>(i - 1)];
        auto* voce = menu_skin_->addAction(campione(s), QString::fromUtf8(s.nome));
        voce->setToolTip(QString::fromUtf8(s.carattere));
        voce->setCheckable(true);
        voce->setData(i);
        gruppo->addAction(voce);
    }
    menu_skin_->setToolTipsVisible(true);
    connect(gruppo, &QActionGroup::triggered, this,
            [this](QAction* voce) { carica_skin(voce->data().toInt()); });
    segna_skin();
}

void form_ricerche::segna_skin() {
    cmd_skin_->setText(QString::fromUtf8(skin_in_uso().nome));
    for (QAction* voce : menu_skin_->actions()) {
        const bool in_uso = voce->data().toInt() == skin_letta_;
        voce->setChecked(in_uso);
        QFont carattere = menu_skin_->font();
        carattere.setBold(in_uso);
        voce->setFont(carattere);
    }
}

QWidget* form_ricerche::componi_frame1() {
    auto* frame = new QWidget;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* piano = new QVBoxLayout{frame};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(2 * kPasso);
    const auto elenchi = schede()[0].elenchi;
    for (std::size_t i = 0; i < cmd_ricerche_.size(); ++i) {
        const int indice = static_cast<int>(i);
        const bool diretto = i == kGruppoTabellaRitardi;
        auto* pulsante = new PulsanteGruppo{
            testo_qt(elenchi[i].nome),
            diretto ? tr("I migliori ritardi") : quante_ricerche(static_cast<int>(elenchi[i].voci.size())),
            diretto ? QString{} : QString::number(i + 1)};
        pulsante->setObjectName(QStringLiteral("cmdRicerche_%1").arg(i));
        connect(pulsante, &QPushButton::clicked, this, [this, indice] { cmdRicerche_Click(indice); });
        auto* cornice = new CorniceGruppo{pulsante, i % 2 == 1};
        cornice->setObjectName(QStringLiteral("FrameB_%1").arg(i));
        cmd_ricerche_[i] = pulsante;
        frame_b_[i] = cornice;
        if (diretto) piano->addSpacing(2 * kPasso);
        piano->addWidget(cornice);
    }
    const Ricerca* ritardi = trova_ricerca(nomi::kMiglioriRitardi.chiave);
    auto* ultimo = cmd_ricerche_[kGruppoTabellaRitardi];
    if (ritardi == nullptr || !costruita(*ritardi)) {
        ultimo->setEnabled(false);
        ultimo->setToolTip(tr("Non ancora disponibile in questa versione"));
    } else {
        ultimo->setToolTip(testo_qt(ritardi->frase));
    }
    return frame;
}

QWidget* form_ricerche::componi_frame2() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("Frame2"));
    assegna_ruolo(frame, "scheda");
    lbl_frame2_ = etichetta("lblFrame2", "titolo");
    lbl_frame2_->setWordWrap(true);
    lbl_gioco_ = etichetta("lblGioco", "quieto");
    lbl_gioco_->setWordWrap(true);
    auto* piano = new QVBoxLayout{frame};
    piano->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_frame2_);
    piano->addWidget(lbl_gioco_);
    piano->addStretch(1);
    return frame;
}

QWidget* form_ricerche::componi_elenco() {
    modello_ = new ModelloElenco{this};
    modello_->quando_disponibile([this](const Ricerca& r) { return costruita(r); });
    griglia_ = new GrigliaElenco;
    griglia_->setModel(modello_);
    delegato_ = new DelegatoElenco{griglia_};
    griglia_->setItemDelegate(delegato_);
    connect(griglia_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &form_ricerche::riga_cambiata);
    connect(griglia_, &QTableView::doubleClicked, this, &form_ricerche::cmdConferma_Click);
    connect(griglia_, &GrigliaElenco::confermata, this, &form_ricerche::cmdConferma_Click);
    connect(griglia_, &GrigliaElenco::verso_gruppi, this, [this] {
        if (cornici_->currentWidget() == frame1_)
            cmd_ricerche_[static_cast<std::size_t>(gruppo_)]->setFocus();
    });

    lbl_elenco_ = etichetta("lblElenco", "sezione");
    lbl_quante_ = etichetta("lblQuante", "quieto");
    auto* titolo = new QHBoxLayout;
    titolo->setContentsMargins(kMargine, 0, kMargine, 0);
    titolo->addWidget(lbl_elenco_, 1);
    titolo->addWidget(lbl_quante_);
    auto* scheda = new QFrame;
    assegna_ruolo(scheda, "scheda");
    auto* piano_scheda = new QVBoxLayout{scheda};
    // One pixel at the sides for the edge of the card, and room below for its round corners.
    piano_scheda->setContentsMargins(1, 2 * kPasso, 1, 2 * kPasso);
    piano_scheda->setSpacing(2 * kPasso);
    piano_scheda->addLayout(titolo);
    piano_scheda->addWidget(griglia_, 1);

    auto* colonna = new QWidget;
    auto* piano = new QVBoxLayout{colonna};
    piano->setContentsMargins(0, 0, 0, 0);
    piano->setSpacing(kSpazio);
    piano->addWidget(componi_frame_archivio());
    piano->addWidget(scheda, 1);
    return colonna;
}

QWidget* form_ricerche::componi_frame_archivio() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("FrameArchivio"));
    assegna_ruolo(frame, "scheda");
    lbl_archivio_titolo_ = etichetta("lblArchivioTitolo", "titolo");
    lbl_archivio_titolo_->setWordWrap(true);
    lbl_archivio_testo_ = etichetta("lblArchivioTesto", nullptr);
    lbl_archivio_testo_->setWordWrap(true);
    lbl_archivio_testo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmd_dimostrazione_ = new QPushButton{tr("Archivio &dimostrativo")};
    cmd_dimostrazione_->setObjectName(QStringLiteral("cmdDimostrazione"));
    cmd_dimostrazione_->setToolTip(tr("Crea un archivio di estrazioni simulate, per provare il programma"));
    assegna_ruolo(cmd_dimostrazione_, "primario");
    connect(cmd_dimostrazione_, &QPushButton::clicked, this, &form_ricerche::crea_archivio_dimostrativo);
    auto* cartella = new QPushButton{tr("Scegli una car&tella…")};
    cartella->setObjectName(QStringLiteral("cmdCartella"));
    cartella->setToolTip(tr("Una cartella con drawit.mdb oppure drawit.db nella sua sottocartella archivio"));
    connect(cartella, &QPushButton::clicked, this, &form_ricerche::scegli_cartella);
    cmd_riprova_ = new QPushButton{tr("&Riprova")};
    cmd_riprova_->setObjectName(QStringLiteral("cmdRiprova"));
    connect(cmd_riprova_, &QPushButton::clicked, this, [this] {
        archivio_cercato_ = false;
        carica_archivio();
    });
    auto* pulsanti = new QHBoxLayout;
    pulsanti->setSpacing(2 * kPasso);
    pulsanti->addWidget(cmd_dimostrazione_);
    pulsanti->addWidget(cartella);
    pulsanti->addWidget(cmd_riprova_);
    pulsanti->addStretch(1);
    auto* piano = new QVBoxLayout{frame};
    piano->setContentsMargins(kMargine, kSpazio, kMargine, kSpazio);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_archivio_titolo_);
    piano->addWidget(lbl_archivio_testo_);
    piano->addLayout(pulsanti);
    frame->hide();
    frame_archivio_ = frame;
    return frame;
}

QWidget* form_ricerche::componi_dettaglio() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("FrameDettaglio"));
    assegna_ruolo(frame, "scheda");
    frame->setFixedWidth(kLarghezzaDettaglio);
    lbl_dove_ = etichetta("lblDove", "sezione");
    lbl_nome_ = etichetta("lblNome", "titolo");
    lbl_nome_->setWordWrap(true);
    lbl_frase_ = etichetta("lblFrase", nullptr);
    lbl_frase_->setWordWrap(true);
    lbl_impedimento_ = etichetta("lblImpedimento", "avviso");
    lbl_impedimento_->setWordWrap(true);
    auto* suggerimento = etichetta("lblSuggerimento", "quieto");
    suggerimento->setText(tr("Invio o doppio clic"));
    suggerimento->setAlignment(Qt::AlignHCenter);
    cmd_conferma_ = new QPushButton{tr("&Conferma")};
    cmd_conferma_->setObjectName(QStringLiteral("cmdConferma"));
    assegna_ruolo(cmd_conferma_, "primario");
    connect(cmd_conferma_, &QPushButton::clicked, this, &form_ricerche::cmdConferma_Click);
    auto* piano = new QVBoxLayout{frame};
    piano->setContentsMargins(kMargine, kMargine, kMargine, kSpazio);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_dove_);
    piano->addWidget(lbl_nome_);
    piano->addWidget(lbl_frase_);
    piano->addStretch(1);
    ultima_ = new UltimaEstrazione;
    piano->addWidget(ultima_);
    piano->addSpacing(2 * kPasso);
    piano->addWidget(lbl_impedimento_);
    piano->addWidget(cmd_conferma_);
    piano->addWidget(suggerimento);
    return frame;
}

QWidget* form_ricerche::componi_piede() {
    lbl_stato_ = etichetta("lblStato", "quieto");
    lbl_stato_->setAccessibleName(tr("Archivio in uso"));
    lbl_simulato_ = new Targhetta{tr("Archivio simulato")};
    lbl_simulato_->setObjectName(QStringLiteral("lblSimulato"));
    lbl_simulato_->setToolTip(
        tr("Le estrazioni di questo archivio non sono mai avvenute: servono a provare il programma."));
    lbl_simulato_->hide();
    auto* cambia = new QPushButton{tr("Cambia &archivio…")};
    cambia->setObjectName(QStringLiteral("cmdCambia"));
    assegna_ruolo(cambia, "piatto");
    cambia->setToolTip(tr("Lavora con l'archivio di un'altra cartella"));
    connect(cambia, &QPushButton::clicked, this, &form_ricerche::scegli_cartella);
    command1_ = new QPushButton{tr("C&hiudi")};
    command1_->setObjectName(QStringLiteral("Command1"));
    command1_->setToolTip(tr("Esce dal programma"));
    connect(command1_, &QPushButton::clicked, this, &QWidget::close);
    auto* piede = new QWidget;
    auto* piano = new QHBoxLayout{piede};
    piano->setContentsMargins(kMargine, 2 * kPasso, kMargine, 2 * kPasso);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_simulato_);
    piano->addWidget(lbl_stato_);
    piano->addStretch(1);
    piano->addWidget(cambia);
    piano->addWidget(command1_);
    return piede;
}

void form_ricerche::scorciatoie() {
    for (int i = 0; i < kGruppi; ++i) {
        // The digit of the keypad counts as the same key; a text field keeps its digits for itself.
        auto* tasto = new QShortcut{QKeySequence{Qt::Key_1 + i}, catalogo_};
        connect(tasto, &QShortcut::activated, this, [this, i] {
            cmdRicerche_Click(i);
            griglia_->setFocus();
        });
    }
    auto* trova = new QShortcut{QKeySequence::Find, catalogo_};
    connect(trova, &QShortcut::activated, this, [this] {
        txt_cerca_->setFocus(Qt::ShortcutFocusReason);
        txt_cerca_->selectAll();
    });
    const auto scheda = [this](const QKeySequence& tasti, int passo) {
        auto* s = new QShortcut{tasti, catalogo_};
        connect(s, &QShortcut::activated, this, [this, passo] {
            const int n = tab_strip_->count();
            tab_strip_->setCurrentIndex((tab_strip_->currentIndex() + passo + n) % n);
            griglia_->setFocus(Qt::ShortcutFocusReason);
        });
    };
    scheda(QKeySequence{Qt::CTRL | Qt::Key_PageDown}, 1);
    scheda(QKeySequence{Qt::CTRL | Qt::Key_PageUp}, -1);
    scheda(QKeySequence{Qt::CTRL | Qt::Key_Tab}, 1);
    scheda(QKeySequence{Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab}, -1);
}

// ---- the course of the window ----

void form_ricerche::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    if (!std::exchange(attivata_, true)) prima_attivazione();
}

void form_ricerche::paintEvent(QPaintEvent* evento) {
    QWidget::paintEvent(evento);
    // Only once the window is there: opening the archive takes as long as it takes.
    if (!archivio_cercato_) QTimer::singleShot(0, this, &form_ricerche::carica_archivio);
}

void form_ricerche::prima_attivazione() {
    memoria_.crea_se_manca();
    const auto indice = valore_iniziale(memoria_.leggi_memoria("tipo", ""));
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
        valore_iniziale(memoria_.leggi_memoria("nome", chiave + "t")), 0, modello_->rowCount())));
    const int riga = modello_->riga_di(QString::fromStdString(memoria_.leggi_memoria("nome", chiave)));
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
    lbl_impedimento_->setVisible(false);
    if (voce == nullptr) {
        lbl_dove_->clear();
        lbl_nome_->clear();
        lbl_frase_->clear();
        ultima_->mostra(nullptr, Gioco::sistemi);
        cmd_conferma_->setEnabled(false);
        cmd_conferma_->setToolTip({});
        return;
    }
    const QString impedisce = impedimento(*voce->ricerca);
    const bool in_gruppi = tab_strip_->currentIndex() == 0 && !cerca_attiva();
    const std::string_view gruppo =
        in_gruppi ? schede()[0].elenchi[static_cast<std::size_t>(gruppo_)].nome : voce->gruppo;
    lbl_dove_->setText(gruppo.empty() ? testo_qt(voce->gioco)
                                      : testo_qt(voce->gioco) + QStringLiteral(" · ") + testo_qt(gruppo));
    lbl_nome_->setText(testo_qt(voce->nome));
    lbl_frase_->setText(testo_qt(voce->ricerca->frase));
    lbl_impedimento_->setText(impedisce);
    lbl_impedimento_->setVisible(!impedisce.isEmpty());
    ultima_->mostra(archivio_ ? &*archivio_ : nullptr, voce->ricerca->gioco);
    cmd_conferma_->setEnabled(impedisce.isEmpty());
    cmd_conferma_->setToolTip(impedisce);
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
    frame_archivio_->setVisible(archivio_cercato_ && !archivio_);
    lbl_stato_->setToolTip({});
    if (archivio_) {
        const bool lotto = !archivio_->drawit().file.empty();
        const Fonte& fonte = lotto ? archivio_->drawit() : archivio_->drawit2();
        const QString nome = percorso(fonte.file.filename());
        const Concorso ultimo =
            lotto ? archivio_->ultimo_concorso() : archivio_->ultimo_concorso_winforlife();
        const auto& date = lotto ? archivio_->lotto().data : archivio_->winforlife().data;
        lbl_stato_->setText(date.empty() ? tr("%1 · nessuna estrazione").arg(nome)
                                         : tr("%1 · ultimo concorso %2 del %3")
                                               .arg(nome)
                                               .arg(ultimo)
                                               .arg(testo_qt(testo_data(date.back()))));
        QString dove = percorso(fonte.file);
        if (lotto && !archivio_->drawit2().file.empty())
            dove += QLatin1Char{'\n'} + percorso(archivio_->drawit2().file);
        lbl_stato_->setToolTip(dove);
    } else {
        lbl_stato_->setText(archivio_cercato_ ? tr("Nessun archivio aperto") : tr("Apro l'archivio…"));
    }
    aggiorna_frame2();
    aggiorna_dettaglio();
}

void form_ricerche::carica_skin(int indice) {
    skin_letta_ = indice;
    applica_tema(*qApp, indice);
    scrivi_skin(sessione_.percorso_skin(), indice);
    if (cmd_skin_ != nullptr) segna_skin();
}

// ---- the archive ----

void form_ricerche::carica_archivio() {
    if (std::exchange(archivio_cercato_, true)) return;
    archivio_.reset();
    errore_archivio_.clear();
    const auto dove = sessione_.percorso_archivio();
    cmd_dimostrazione_->setVisible(false);
    cmd_riprova_->setVisible(true);
    if (!contiene_archivio(dove)) {
        lbl_archivio_titolo_->setText(tr("Qui non c'è ancora un archivio delle estrazioni"));
        errore_archivio_ =
            tr("Nella cartella %1 non si trovano né drawit.mdb né drawit.db. Puoi indicare la cartella "
               "di un'installazione che li ha, oppure provare il programma con estrazioni simulate.")
                .arg(percorso(dove));
        assegna_ruolo(lbl_archivio_testo_, "quieto");
        cmd_dimostrazione_->setVisible(true);
        cmd_riprova_->setVisible(false);
    } else if (auto aperto = apri_archivio(dove)) {
        archivio_ = std::move(*aperto);
        // Without the list its one search says that the file is missing; there is nothing to add to that.
        std::ignore = prepara_cinquine_dei_90(sessione_.percorso_programma);
    } else {
        lbl_archivio_titolo_->setText(tr("L'archivio non si apre"));
        errore_archivio_ = QString::fromStdString(aperto.error().testo());
        assegna_ruolo(lbl_archivio_testo_, "avviso");
    }
    lbl_archivio_testo_->setText(errore_archivio_);
    aggiorna_stato();
}

void form_ricerche::crea_archivio_dimostrativo() {
    lbl_archivio_titolo_->setText(tr("Creo l'archivio dimostrativo…"));
    lbl_archivio_titolo_->repaint();
    SenzaAvanzamento subito;
    if (const auto esito = crea_dimostrazione(sessione_.percorso_archivio(), subito); !esito) {
        lbl_archivio_titolo_->setText(tr("L'archivio dimostrativo non si può creare"));
        errore_archivio_ = QString::fromStdString(esito.error().testo());
        assegna_ruolo(lbl_archivio_testo_, "avviso");
        lbl_archivio_testo_->setText(errore_archivio_);
        return;
    }
    archivio_cercato_ = false;
    carica_archivio();
    griglia_->setFocus();
}

void form_ricerche::scegli_cartella() {
    const QString scelta = chiedi_cartella();
    if (scelta.isEmpty()) return;
    std::filesystem::path cartella = scelta.toStdString();
    // The folder that holds `archivio` is meant; whoever points at `archivio` itself means its parent.
    if (!contiene_archivio(cartella / "archivio") && contiene_archivio(cartella) &&
        minuscolo(cartella.filename().string()) == "archivio")
        cartella = cartella.parent_path();
    usa_cartella(cartella);
    emit cartella_scelta(percorso(cartella));
}

void form_ricerche::usa_cartella(const std::filesystem::path& cartella) {
    sessione_.percorso_programma = cartella;
    sessione_.scheda_corrente = 1;
    memoria_ = MemoriaRicerca{cartella};
    if (const auto indice = leggi_skin(sessione_.percorso_skin())) carica_skin(*indice);
    archivio_cercato_ = false;
    carica_archivio();
    prima_attivazione();
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
    if (mostra)
        frame_segnalimite_->setFocus();
    else
        griglia_->setFocus();
}

}  // namespace sortimetra
