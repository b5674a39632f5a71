// How the main window is put together; what it does stands in form_ricerche.cpp.

#include "catalogue/form_ricerche.h"
#include "catalogue/form_ricerche_archivio.h"
#include "catalogue/form_ricerche_dettaglio.h"
#include "catalogue/form_ricerche_elenco.h"
#include "catalogue/form_ricerche_gruppo.h"
#include "catalogue/form_ricerche_skin.h"
#include "catalogue/nomi.h"
#include "qt_testi.h"
#include "screens/giro_di_tab.h"
#include "screens/tema.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace sortimetra {

namespace {

constexpr int kSpazio = 3 * kPasso;
constexpr int kLarghezzaGruppi = 54 * kPasso;

QLabel* etichetta(const char* nome, const char* ruolo) {
    auto* l = new QLabel;
    l->setObjectName(QString::fromLatin1(nome));
    if (ruolo != nullptr) assegna_ruolo(l, ruolo);
    return l;
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

}  // namespace

void form_ricerche::componi() {
    componi_schede();
    componi_catalogo();
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
    giro << griglia_ << dettaglio_->conferma() << command1_;
    giro_di_tab(giro);
}

void form_ricerche::componi_schede() {
    tab_strip_ = new QTabBar;
    tab_strip_->setObjectName(QStringLiteral("TabStrip1"));
    tab_strip_->setAccessibleName(tr("Giochi"));
    tab_strip_->setExpanding(false);
    tab_strip_->setDrawBase(false);
    for (const Scheda& s : schede()) tab_strip_->addTab(testo_qt(s.nome));
    connect(tab_strip_, &QTabBar::currentChanged, this, &form_ricerche::TabStrip1_Click);
}

void form_ricerche::componi_catalogo() {
    dettaglio_ = new FrameDettaglio;
    connect(dettaglio_->conferma(), &QPushButton::clicked, this, &form_ricerche::cmdConferma_Click);
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
    corpo->addWidget(dettaglio_);

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
}

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

    cmd_skin_ = new PulsanteSkin;
    cmd_skin_->segna(skin_letta_);
    connect(cmd_skin_, &PulsanteSkin::scelta, this, &form_ricerche::carica_skin);

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
    frame_archivio_ = new FrameArchivio;
    frame_archivio_->hide();
    connect(frame_archivio_, &FrameArchivio::dimostrazione, this, &form_ricerche::crea_archivio_dimostrativo);
    connect(frame_archivio_, &FrameArchivio::cartella, this, &form_ricerche::scegli_cartella);
    connect(frame_archivio_, &FrameArchivio::aggiorna, this, [this] { apri_aggiorna(); });
    connect(frame_archivio_, &FrameArchivio::riprova, this, [this] {
        archivio_cercato_ = false;
        carica_archivio();
    });
    piano->addWidget(frame_archivio_);
    piano->addWidget(scheda, 1);
    return colonna;
}

QWidget* form_ricerche::componi_piede() {
    lbl_stato_ = etichetta("lblStato", "quieto");
    lbl_stato_->setAccessibleDescription(tr("Archivio in uso"));
    // It gives way to the buttons beside it; its tooltip tells all.
    lbl_stato_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lbl_simulato_ = new Targhetta{tr("Archivio simulato")};
    lbl_simulato_->setObjectName(QStringLiteral("lblSimulato"));
    lbl_simulato_->setToolTip(
        tr("Le estrazioni di questo archivio non sono mai avvenute: servono a provare il programma."));
    lbl_simulato_->hide();
    auto* aggiorna = new QPushButton{tr("A&ggiorna archivio…")};
    aggiorna->setObjectName(QStringLiteral("cmdAggiorna"));
    aggiorna->setToolTip(
        tr("Aggiungi le nuove estrazioni: da un file, dagli appunti, a mano (Ctrl+U). "
           "Un file si può anche trascinare su qualsiasi finestra."));
    connect(aggiorna, &QPushButton::clicked, this, [this] { apri_aggiorna(); });
    auto* cambia = new QPushButton{tr("Cambia &archivio…")};
    cambia->setObjectName(QStringLiteral("cmdCambia"));
    assegna_ruolo(cambia, "piatto");
    cambia->setToolTip(tr("Lavora con l'archivio di un'altra cartella"));
    connect(cambia, &QPushButton::clicked, this, &form_ricerche::scegli_cartella);
    command1_ = new QPushButton{tr("C&hiudi")};
    command1_->setObjectName(QStringLiteral("Command1"));
    command1_->setIcon(icona(QStringLiteral("chiudi")));
    command1_->setToolTip(tr("Chiude il programma"));
    connect(command1_, &QPushButton::clicked, this, &QWidget::close);
    auto* piede = new QWidget;
    auto* piano = new QHBoxLayout{piede};
    piano->setContentsMargins(kMargine, 2 * kPasso, kMargine, 2 * kPasso);
    piano->setSpacing(2 * kPasso);
    piano->addWidget(lbl_simulato_);
    piano->addWidget(lbl_stato_, 1);
    piano->addWidget(aggiorna);
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
    auto* aggiorna = new QShortcut{QKeySequence{Qt::CTRL | Qt::Key_U}, catalogo_};
    connect(aggiorna, &QShortcut::activated, this, [this] { apri_aggiorna(); });
    auto* incolla = new QShortcut{QKeySequence::Paste, griglia_};
    connect(incolla, &QShortcut::activated, this,
            [this] { apri_aggiorna(QApplication::clipboard()->mimeData()); });
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

}  // namespace sortimetra
