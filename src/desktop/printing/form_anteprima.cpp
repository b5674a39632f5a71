#include "printing/form_anteprima.h"

#include "catalogue/rapporti.h"
#include "qt_pdf.h"
#include "qt_superficie.h"
#include "screens/casella_cifre.h"
#include "screens/esporta.h"
#include "screens/finestra_ricerca.h"
#include "screens/giro_di_tab.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/stampanti.h"
#include "screens/tema.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>

namespace sortimetra {

namespace {

constexpr double kMmPerPollice = 25.4;
/// A4, upright: what every report is laid out for.
constexpr Dimensioni kA4{210, 297};
constexpr int kLarghezzaColonna = 64 * kPasso;

/// The entries of the size box: two that follow the window, then parts of the true size.
constexpr int kPaginaIntera = 0;
constexpr int kLarghezzaPagina = -1;
constexpr std::array kPercentuali{50, 75, 100, 125, 150, 200};

QLabel* etichetta(const QString& testo, QWidget* compagno, const char* ruolo = nullptr) {
    auto* l = new QLabel{testo};
    l->setBuddy(compagno);
    if (ruolo != nullptr) assegna_ruolo(l, ruolo);
    return l;
}

}  // namespace

// ---- the sheet ----

FoglioAnteprima::FoglioAnteprima(QWidget* padre) : QWidget{padre} {
    setObjectName(QStringLiteral("foglio"));
    setAccessibleName(tr("Anteprima della pagina"));
}

void FoglioAnteprima::imposta(const Rapporto* rapporto) {
    rapporto_ = rapporto;
    immagine_ = {};
    update();
}

QSizeF FoglioAnteprima::misure_mm() const {
    const QSizeF verticale{kA4.larghezza, kA4.altezza};
    return rapporto_ != nullptr && rapporto_->orientamento == Orientamento::orizzontale
               ? verticale.transposed()
               : verticale;
}

void FoglioAnteprima::mostra(int pagina) {
    pagina_ = pagina;
    immagine_ = {};
    update();
}

void FoglioAnteprima::imposta_scala(double pixel_per_mm) {
    scala_ = pixel_per_mm;
    immagine_ = {};
    setFixedSize((misure_mm() * scala_).toSize());
    update();
}

void FoglioAnteprima::paintEvent(QPaintEvent*) {
    if (rapporto_ == nullptr) return;
    const double punti = devicePixelRatioF();
    if (immagine_.size() != size() * punti) {
        immagine_ = QImage{size() * punti, QImage::Format_RGB32};
        immagine_.fill(Qt::white);  // paper, whatever the skin
        QPainter pittore{&immagine_};
        pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                               QPainter::SmoothPixmapTransform);
        pittore.scale(scala_ * punti, scala_ * punti);
        const QSizeF misure = misure_mm();
        SuperficieQt superficie{pittore, {misure.width(), misure.height()}, rapporto_->orientamento};
        EasyPrint stampante{superficie, {}};
        rapporto_->disegna(stampante, pagina_);
    }
    immagine_.setDevicePixelRatio(punti);
    QPainter{this}.drawImage(0, 0, immagine_);
}

// ---- the window ----

FormAnteprima::FormAnteprima(Rapporto rapporto, std::shared_ptr<const void> tenuto, QWidget* padre)
    : QDialog{padre},
      rapporto_{std::move(rapporto)},
      tenuto_{std::move(tenuto)},
      corpo_{new QWidget{this}},
      scorri_{new QScrollArea{corpo_}},
      foglio_{new FoglioAnteprima},
      indietro_{new QPushButton{corpo_}},
      avanti_{new QPushButton{corpo_}},
      txt_pagina_{new CasellaCifre{corpo_}},
      grandezza_{new QComboBox{corpo_}},
      txtpag_0_{new CasellaCifre{corpo_}},
      txtpag_1_{new CasellaCifre{corpo_}},
      esito_{new QLabel{corpo_}},
      pannello_{new PannelloAvanzamento{this}} {
    setObjectName(QStringLiteral("form_anteprima"));
    setWindowTitle(tr("Anteprima di stampa - %1").arg(QString::fromStdString(rapporto_.titolo)));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    componi();
    foglio_->imposta(&rapporto_);
    vai(1);
    resize(960, 720);
}

void FormAnteprima::componi() {
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(corpo_);
    auto* riga = new QHBoxLayout{corpo_};
    riga->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    riga->setSpacing(4 * kPasso);

    scorri_->setObjectName(QStringLiteral("scorriAnteprima"));
    scorri_->setAccessibleName(tr("Anteprima della pagina"));
    scorri_->setWidget(foglio_);
    scorri_->setAlignment(Qt::AlignCenter);
    scorri_->setMinimumSize(240, 240);
    scorri_->viewport()->installEventFilter(this);
    riga->addWidget(scorri_, 1);

    auto* destra = new QVBoxLayout;
    destra->setSpacing(3 * kPasso);

    destra->addLayout(componi_pagine());
    destra->addLayout(componi_grandezza());
    destra->addStretch(1);
    esito_->setObjectName(QStringLiteral("lblesito"));
    esito_->setWordWrap(true);
    assegna_ruolo(esito_, "quieto");
    destra->addWidget(esito_);
    auto* pdf = new QPushButton{tr("Salva come &PDF…"), corpo_};
    pdf->setObjectName(QStringLiteral("cmdPdf"));
    pdf->setIcon(icona(QStringLiteral("esporta")));
    pdf->setAutoDefault(false);
    connect(pdf, &QPushButton::clicked, this, &FormAnteprima::salva_pdf);
    destra->addWidget(componi_opzioni());
    destra->addWidget(pdf);

    auto* colonna = new QWidget{corpo_};
    colonna->setLayout(destra);
    destra->setContentsMargins(0, 0, 0, 0);
    colonna->setMinimumWidth(kLarghezzaColonna);
    riga->addWidget(colonna);
    giro_di_tab({indietro_, avanti_, txt_pagina_, grandezza_, txtpag_0_, txtpag_1_,
                 findChild<QPushButton*>(QStringLiteral("cmdopzioni_0")),
                 findChild<QPushButton*>(QStringLiteral("cmdopzioni_1")), pdf, scorri_});

    auto* stampa_subito = new QShortcut{Qt::CTRL | Qt::Key_P, this};
    connect(stampa_subito, &QShortcut::activated, this, &FormAnteprima::stampa);
    pannello_->imposta_annullabile(true);
    pannello_->imposta_scritta(tr("Stampa in corso…"));
}

QBoxLayout* FormAnteprima::componi_pagine() {
    indietro_->setObjectName(QStringLiteral("cmdIndietro"));
    indietro_->setIcon(icona(QStringLiteral("su")));
    indietro_->setToolTip(tr("Pagina precedente (Pag ↑)"));
    indietro_->setAccessibleName(tr("Pagina precedente"));
    avanti_->setObjectName(QStringLiteral("cmdAvanti"));
    avanti_->setIcon(icona(QStringLiteral("giu")));
    avanti_->setToolTip(tr("Pagina seguente (Pag ↓)"));
    avanti_->setAccessibleName(tr("Pagina seguente"));
    for (QPushButton* b : {indietro_, avanti_}) b->setAutoDefault(false);
    txt_pagina_->setObjectName(QStringLiteral("txtPagina"));
    txt_pagina_->setAccessibleName(tr("Pagina mostrata"));
    txt_pagina_->setFixedWidth(16 * kPasso);
    auto* pagine = new QHBoxLayout;
    pagine->setSpacing(2 * kPasso);
    pagine->addWidget(indietro_);
    pagine->addWidget(avanti_);
    pagine->addWidget(etichetta(tr("Pa&gina"), txt_pagina_));
    pagine->addWidget(txt_pagina_);
    auto* di = new QLabel{tr("di %1").arg(rapporto_.pagine), corpo_};
    assegna_ruolo(di, "quieto");
    pagine->addWidget(di);
    pagine->addStretch(1);
    connect(indietro_, &QPushButton::clicked, this, [this] { vai(pagina_ - 1); });
    connect(avanti_, &QPushButton::clicked, this, [this] { vai(pagina_ + 1); });
    connect(txt_pagina_, &QLineEdit::editingFinished, this, [this] { vai(txt_pagina_->numero()); });
    return pagine;
}

QBoxLayout* FormAnteprima::componi_grandezza() {
    grandezza_->setObjectName(QStringLiteral("cmbGrandezza"));
    grandezza_->addItem(tr("Pagina intera"), kPaginaIntera);
    grandezza_->addItem(tr("Larghezza della pagina"), kLarghezzaPagina);
    for (const int p : kPercentuali) grandezza_->addItem(QStringLiteral("%1%").arg(p), p);
    auto* quanto = new QHBoxLayout;
    quanto->setSpacing(2 * kPasso);
    quanto->addWidget(etichetta(tr("&Grandezza"), grandezza_));
    quanto->addWidget(grandezza_, 1);
    connect(grandezza_, &QComboBox::currentIndexChanged, this, [this] { adatta(); });
    return quanto;
}

QFrame* FormAnteprima::componi_opzioni() {
    auto* quadro = new QFrame{corpo_};
    quadro->setObjectName(QStringLiteral("Frame_opz"));
    assegna_ruolo(quadro, "scheda");
    auto* griglia = new QGridLayout{quadro};
    griglia->setContentsMargins(3 * kPasso, 3 * kPasso, 3 * kPasso, 3 * kPasso);
    griglia->setHorizontalSpacing(2 * kPasso);
    griglia->setVerticalSpacing(2 * kPasso);
    const QString scritte[] = {tr("Stampa &da Pagina"), tr("&a Pagina")};
    CasellaCifre* const caselle[] = {txtpag_0_, txtpag_1_};
    for (int i = 0; i < 2; ++i) {
        caselle[i]->setObjectName(QStringLiteral("txtpag_%1").arg(i));
        caselle[i]->setText(QString::number(i == 0 ? 1 : rapporto_.pagine));
        caselle[i]->installEventFilter(this);
        connect(caselle[i], &QLineEdit::textChanged, this, [this] { esito_->clear(); });
        griglia->addWidget(etichetta(scritte[i], caselle[i]), i, 0);
        griglia->addWidget(caselle[i], i, 1);
    }
    auto* totale = new QLabel{QStringLiteral("Totale Pagine: %1").arg(rapporto_.pagine), quadro};
    totale->setObjectName(QStringLiteral("lbltotale"));
    assegna_ruolo(totale, "quieto");
    griglia->addWidget(totale, 2, 0, 1, 2);
    auto* annulla = new QPushButton{tr("A&nnulla"), quadro};
    annulla->setObjectName(QStringLiteral("cmdopzioni_0"));
    annulla->setAutoDefault(false);
    auto* stampa = new QPushButton{tr("&Stampa"), quadro};
    stampa->setObjectName(QStringLiteral("cmdopzioni_1"));
    stampa->setIcon(icona(QStringLiteral("stampa"), TintaIcona::su_accento));
    stampa->setDefault(true);
    assegna_ruolo(stampa, "primario");
    auto* bottoni = new QHBoxLayout;
    bottoni->setSpacing(2 * kPasso);
    bottoni->addWidget(annulla);
    bottoni->addWidget(stampa, 1);
    griglia->addLayout(bottoni, 3, 0, 1, 2);
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);
    connect(stampa, &QPushButton::clicked, this, &FormAnteprima::stampa);
    return quadro;
}

void FormAnteprima::vai(int pagina) {
    pagina_ = std::clamp(pagina, 1, std::max(rapporto_.pagine, 1));
    foglio_->mostra(pagina_);
    txt_pagina_->setText(QString::number(pagina_));
    indietro_->setEnabled(pagina_ > 1);
    avanti_->setEnabled(pagina_ < rapporto_.pagine);
}

PagineScelte FormAnteprima::pagine() const {
    return {txtpag_0_->numero(), txtpag_1_->numero()};
}

void FormAnteprima::adatta() {
    const QSizeF mm = foglio_->misure_mm();
    const QSize posto = scorri_->maximumViewportSize() - QSize{4 * kPasso, 4 * kPasso};
    const int barra = scorri_->verticalScrollBar()->sizeHint().width();
    double scala = logicalDpiX() / kMmPerPollice;
    switch (const int scelta = grandezza_->currentData().toInt()) {
        case kPaginaIntera:
            scala = std::min(posto.width() / mm.width(), posto.height() / mm.height());
            break;
        case kLarghezzaPagina:
            scala = (posto.width() - barra) / mm.width();
            break;
        default:
            scala *= scelta / 100.0;
    }
    foglio_->imposta_scala(std::max(scala, 0.5));
}

void FormAnteprima::riporta(CasellaCifre* casella) const {
    const int n = std::clamp(casella->numero(), 1, std::max(rapporto_.pagine, 1));
    if (casella->text() != QString::number(n)) casella->setText(QString::number(n));
}

bool FormAnteprima::pagine_valide() {
    for (CasellaCifre* casella : {txtpag_0_, txtpag_1_}) riporta(casella);
    if (pagine().da <= pagine().a) return true;
    esito_->setText(tr("La prima pagina viene dopo l'ultima."));
    txtpag_0_->setFocus();
    return false;
}

template <class Lavoro>
void FormAnteprima::con_avanzamento(Lavoro&& lavoro) {
    esito_->clear();
    in_corsa_ = true;
    {
        CorsaRicerca corsa{corpo_, pannello_, scorri_};
        const auto legame = connect(pannello_, &PannelloAvanzamento::annulla, this, [&] { corsa.annulla(); });
        lavoro(corsa);
        disconnect(legame);
    }
    in_corsa_ = false;
}

void FormAnteprima::stampa() {
    if (in_corsa_ || !pagine_valide()) return;
    const auto stampante = stampanti().apri(stampanti().predefinita().section(QLatin1Char{','}, 0, 0));
    if (!stampante) {
        messaggi().avvisa(this, kTitoloMessaggi, tr("La stampante predefinita non si apre."));
        return;
    }
    stampante->setDocName(QString::fromStdString(rapporto_.titolo));
    stampante->setPageOrientation(
        rapporto_.orientamento == Orientamento::orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (!stampanti().scegli(this, *stampante)) return;
    stampanti().nuovo_documento(*stampante);
    bool finita = false;
    bool fallita = false;
    con_avanzamento([&](CorsaRicerca& corsa) {
        std::set<std::string> detti;  // a broken printer fails at every call: each reason is told once
        SuperficieStampante superficie{*stampante};
        EasyPrint easy_print{superficie, [&](const std::string& titolo, const std::string& testo) {
                                 if (detti.insert(testo).second)
                                     messaggi().ferma(this, QString::fromStdString(titolo),
                                                      QString::fromStdString(testo));
                             }};
        finita = sortimetra::stampa(easy_print, rapporto_, pagine(), corsa);
        fallita = easy_print.fallita();
    });
    if (finita && !fallita)
        accept();
    else if (!fallita)
        esito_->setText(tr("Stampa annullata."));
}

void FormAnteprima::salva_pdf() {
    if (in_corsa_ || !pagine_valide()) return;
    const auto scelto = chiedi_pdf(this, QString::fromStdString(rapporto_.titolo));
    if (!scelto) return;
    std::expected<void, ErroreArchivio> esito;
    bool annullata = false;
    con_avanzamento([&](CorsaRicerca& corsa) {
        esito = scrivi_pdf(rapporto_, QFile::encodeName(*scelto).toStdString(), corsa, pagine());
        annullata = corsa.annullata();
    });
    if (esito)
        esito_->setText(tr("Scritto in %1").arg(*scelto));
    else if (annullata)
        esito_->setText(tr("Stampa annullata."));
    else
        messaggi().avvisa(this, kTitoloMessaggi, QString::fromStdString(esito.error().testo()));
}

bool FormAnteprima::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut)
        for (CasellaCifre* casella : {txtpag_0_, txtpag_1_})
            if (oggetto == casella) riporta(casella);
    // A sheet that is wholly in sight has nothing to scroll: the wheel turns pages.
    if (const auto* ruota = dynamic_cast<QWheelEvent*>(evento);
        ruota != nullptr && oggetto == scorri_->viewport() && scorri_->verticalScrollBar()->maximum() == 0 &&
        ruota->angleDelta().y() != 0) {
        vai(pagina_ + (ruota->angleDelta().y() < 0 ? 1 : -1));
        return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

void FormAnteprima::resizeEvent(QResizeEvent* evento) {
    QDialog::resizeEvent(evento);
    adatta();
}

void FormAnteprima::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    adatta();
}

void FormAnteprima::keyPressEvent(QKeyEvent* evento) {
    if (in_corsa_) return;
    switch (evento->key()) {
        case Qt::Key_PageUp:
            vai(pagina_ - 1);
            return;
        case Qt::Key_PageDown:
            vai(pagina_ + 1);
            return;
        case Qt::Key_Home:
            vai(1);
            return;
        case Qt::Key_End:
            vai(rapporto_.pagine);
            return;
        default:
            QDialog::keyPressEvent(evento);
    }
}

void FormAnteprima::closeEvent(QCloseEvent* evento) {
    if (in_corsa_)
        evento->ignore();
    else
        QDialog::closeEvent(evento);
}

FormAnteprima* stampa_risultato(QWidget* finestra, const Risposta& risposta) {
    auto* anteprima = new FormAnteprima{prepara_rapporto(risposta), risposta.risultato, finestra};
    anteprima->setAttribute(Qt::WA_DeleteOnClose);
    anteprima->open();
    return anteprima;
}

void stampa_lavoro(const LavoroStampa& lavoro) {
    if (lavoro.risposta.prodotta()) stampa_risultato(lavoro.finestra, lavoro.risposta);
}

}  // namespace sortimetra
