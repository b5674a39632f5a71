#include "printing/frm_stampa_fcpb.h"

#include "printing/fogli.h"
#include "qt_pdf.h"
#include "qt_superficie.h"
#include "qt_testi.h"
#include "screens/casella_cifre.h"
#include "screens/esporta.h"
#include "screens/giro_di_tab.h"
#include "screens/manuale.h"
#include "screens/messaggi.h"
#include "screens/posto_finestra.h"
#include "screens/stampanti.h"
#include "screens/tema.h"

#include <QBuffer>
#include <QCheckBox>
#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPageLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kZoom = 240;
/// Lengths closer than this are the same on paper.
constexpr double kTolleranza = 0.01;
/// Controls are copied with this many points per pixel, so that their texts are sharp on paper.
constexpr double kFinezza = 3;

QString righe(std::initializer_list<QString> testi) {
    return QStringList{testi}.join(QLatin1Char{'\n'});
}

/// The picture as a surface takes it: the bytes of a file.
QByteArray byte_immagine(const QImage& immagine) {
    QByteArray byte;
    QBuffer memoria{&byte};
    immagine.save(&memoria, "BMP");
    return byte;
}
Immagine come_immagine(const QByteArray& byte) {
    return {"oggetto", {byte.constData(), static_cast<std::size_t>(byte.size())}};
}

}  // namespace

QString testo_misura(double valore) {
    if (!std::isfinite(valore)) return QStringLiteral("0");
    QString testo = QString::number(std::abs(valore), 'f', 2);
    while (testo.endsWith(QLatin1Char{'0'})) testo.chop(1);
    if (testo.endsWith(QLatin1Char{'.'})) testo.chop(1);
    testo.replace(QLatin1Char{'.'}, QLatin1Char{','});
    qsizetype intera = testo.indexOf(QLatin1Char{','});
    if (intera < 0) intera = testo.size();
    for (qsizetype i = intera - 3; i > 0; i -= 3) testo.insert(i, QLatin1Char{'.'});
    return valore < 0 && testo != QLatin1String{"0"} ? QLatin1Char{'-'} + testo : testo;
}

std::optional<double> leggi_misura(const QString& testo) {
    static const QRegularExpression con_migliaia{QStringLiteral("^-?\\d{1,3}(\\.\\d{3})+(,\\d*)?$")};
    QString piano = testo.trimmed();
    if (con_migliaia.match(piano).hasMatch()) piano.remove(QLatin1Char{'.'});
    piano.replace(QLatin1Char{','}, QLatin1Char{'.'});
    bool bene = false;
    const double valore = piano.toDouble(&bene);
    return bene && std::isfinite(valore) && std::abs(valore) < 1e5 ? std::optional{valore} : std::nullopt;
}

// ---- the preview ----

PicPreview::PicPreview(QWidget* padre)
    : QWidget{padre}, foglio_{new QFrame{this}}, bordo_{new QLabel{foglio_}} {
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(tr("Anteprima del foglio"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    foglio_->setObjectName(QStringLiteral("shpFoglio"));
    // Paper is white, whatever the skin.
    foglio_->setStyleSheet(
        QStringLiteral("#shpFoglio { background: white; border: 1px solid gray; }"
                       "#shpBordo { background: white; border: 1px dashed gray; }"));
    bordo_->setObjectName(QStringLiteral("shpBordo"));
    bordo_->setScaledContents(true);
    bordo_->setCursor(Qt::SizeAllCursor);
    bordo_->setMouseTracking(true);
    bordo_->setToolTip(
        tr("Trascina l'immagine, o spostala con le frecce; con Ctrl le frecce spostano l'ingrandimento"));
    bordo_->installEventFilter(this);
}

void PicPreview::imposta_immagine(const QImage& immagine) {
    immagine_ = immagine;
    bordo_->setPixmap(QPixmap::fromImage(immagine));
}

void PicPreview::imposta(QSizeF foglio, QRectF cornice) {
    misure_ = foglio;
    cornice_ = cornice;
    disponi();
}

double PicPreview::scala() const {
    const double w = std::max(misure_.width(), 1.0);
    const double h = std::max(misure_.height(), 1.0);
    return std::max(std::min((width() - 2 * kPasso) / w, (height() - 2 * kPasso) / h), 0.1);
}

void PicPreview::disponi() {
    const double s = scala();
    const QSize foglio = (misure_ * s).toSize();
    foglio_->setGeometry(
        QRect{QPoint{(width() - foglio.width()) / 2, (height() - foglio.height()) / 2}, foglio});
    // A pixel at least, so that a tiny picture can still be taken hold of.
    const QSizeF lati{std::max(cornice_.width() * s, 4.0), std::max(cornice_.height() * s, 4.0)};
    bordo_->setGeometry(QRectF{cornice_.topLeft() * s, lati}.toRect());
}

void PicPreview::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    disponi();
}

void PicPreview::keyPressEvent(QKeyEvent* evento) {
    constexpr double kSguardo = 0.05;
    const double passo = evento->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    QPointF verso;
    switch (evento->key()) {
        case Qt::Key_Left:
            verso = {-1, 0};
            break;
        case Qt::Key_Right:
            verso = {1, 0};
            break;
        case Qt::Key_Up:
            verso = {0, -1};
            break;
        case Qt::Key_Down:
            verso = {0, 1};
            break;
        default:
            QWidget::keyPressEvent(evento);
            return;
    }
    if (evento->modifiers().testFlag(Qt::ControlModifier))
        emit sguardo_spostato(verso * kSguardo);
    else
        emit spostata(verso.x() * passo, verso.y() * passo);
}

bool PicPreview::eventFilter(QObject* oggetto, QEvent* evento) {
    const auto* mouse = dynamic_cast<QMouseEvent*>(evento);
    if (mouse == nullptr) return QWidget::eventFilter(oggetto, evento);
    switch (mouse->type()) {
        case QEvent::MouseButtonPress:
            presa_ = mouse->globalPosition();
            setFocus();
            break;
        case QEvent::MouseMove:
            emit guardata({mouse->position().x() / std::max(bordo_->width(), 1),
                           mouse->position().y() / std::max(bordo_->height(), 1)});
            if (presa_) {
                const QPointF passo = (mouse->globalPosition() - *presa_) / scala();
                presa_ = mouse->globalPosition();
                emit spostata(passo.x(), passo.y());
            }
            break;
        default:
            presa_.reset();
    }
    return true;
}

// ---- the screen ----

frmStampaFCPB::frmStampaFCPB(QWidget* padre)
    : QDialog{padre},
      pic_copia_{new QLabel{this}},
      pic_copia_temp_{new QLabel{this}},
      preview_{new PicPreview{this}},
      zoom_{new QLabel{this}},
      txt_x_{new QLineEdit{this}},
      txt_y_{new QLineEdit{this}},
      txt_w_{new QLineEdit{this}},
      txt_h_{new QLineEdit{this}},
      txt_scala_{new QLineEdit{this}},
      txt_copie_{new CasellaCifre{this}},
      proporzioni_{new QCheckBox{tr("&Mantieni proporzioni"), this}},
      centro_{new QCheckBox{tr("Stampa &al centro"), this}},
      fra_foglio_{new QGroupBox{tr("Foglio"), this}},
      lbl_fg_w_{new QLabel{fra_foglio_}},
      lbl_fg_h_{new QLabel{fra_foglio_}},
      fuori_foglio_{new QLabel{tr("Stampa fuori foglio"), this}},
      in_corso_{new QLabel{tr("Stampa in corso..."), this}},
      cmd_stampa_{new QPushButton{tr("&Stampa"), this}},
      timer_{new QTimer{this}} {
    setObjectName(QStringLiteral("frmStampaFCPB"));
    assegna_capitolo(this, "stampare");
    setWindowTitle(QStringLiteral("StampaFCPB"));
    componi();
    resize(grandezza_sullo_schermo(*this));
}

void frmStampaFCPB::componi() {
    componi_immagini();
    auto* riga = new QHBoxLayout{this};
    riga->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    riga->setSpacing(4 * kPasso);
    riga->addWidget(preview_, 1);
    auto* colonna = new QVBoxLayout;
    colonna->setSpacing(2 * kPasso);
    colonna->addLayout(componi_misure());
    componi_posto(colonna);
    componi_foglio(colonna);
    auto* riga_zoom = new QHBoxLayout;
    riga_zoom->addWidget(zoom_);
    colonna->addLayout(riga_zoom, 1);
    componi_bottoni(colonna);
    riga->addLayout(colonna);
    const auto bottone = [this](const char* nome) { return findChild<QPushButton*>(QLatin1String{nome}); };
    giro_di_tab({preview_, txt_x_, txt_y_, txt_w_, txt_h_, txt_scala_, bottone("cmdScala"), txt_copie_,
                 proporzioni_, centro_, bottone("cmdOrigine"), bottone("cmdMax"), bottone("cmdPdf"),
                 cmd_stampa_, bottone("cmdChiudi")});
}

void frmStampaFCPB::componi_immagini() {
    for (QLabel* nascosto : {pic_copia_, pic_copia_temp_}) nascosto->hide();
    pic_copia_->setObjectName(QStringLiteral("picCopia"));
    pic_copia_temp_->setObjectName(QStringLiteral("picCopiaTemp"));
    zoom_->setObjectName(QStringLiteral("picZoom"));
    zoom_->setAlignment(Qt::AlignCenter);
    // As large as the window leaves room for, up to its limit.
    zoom_->setMinimumSize(kZoom / 3, kZoom / 3);
    zoom_->setMaximumSize(kZoom, kZoom);
    zoom_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    zoom_->installEventFilter(this);
    zoom_->setAccessibleName(tr("Immagine ingrandita"));
    connect(preview_, &PicPreview::spostata, this, [this](double dx, double dy) {
        const QSignalBlocker zitto{centro_};
        centro_->setChecked(false);
        cornice_.translate(dx, dy);
        mostra_valori();
    });
    connect(preview_, &PicPreview::guardata, this, &frmStampaFCPB::guarda);
    connect(preview_, &PicPreview::sguardo_spostato, this,
            [this](QPointF passo) { guarda(sguardo_ + passo); });
}

QGridLayout* frmStampaFCPB::componi_misure() {
    auto* moduli = new QGridLayout;
    moduli->setHorizontalSpacing(2 * kPasso);
    moduli->setVerticalSpacing(2 * kPasso);
    // Two boxes a row, each with its caption before it and what it is told in behind it: a low screen has no
    // room for six rows.
    constexpr int kColonne = 3;
    for (const int c : {1, 1 + kColonne}) {
        moduli->setColumnStretch(c, 1);
        moduli->setColumnMinimumWidth(c, 18 * kPasso);
    }
    const auto posa = [&](int n, const QString& testo, QWidget* casella, QWidget* dopo) {
        auto* l = new QLabel{testo, this};
        l->setBuddy(casella);
        const int colonna = n % 2 * kColonne;
        moduli->addWidget(l, n / 2, colonna);
        moduli->addWidget(casella, n / 2, colonna + 1);
        if (dopo != nullptr) moduli->addWidget(dopo, n / 2, colonna + 2);
    };
    struct Casella {
        QLineEdit* casella;
        const char* nome;
        QString scritta;
    };
    const Casella caselle[] = {{txt_x_, "txtPrX", tr("S&inistro:")},
                               {txt_y_, "txtPrY", tr("S&uperiore:")},
                               {txt_w_, "txtPrW", tr("Largh&ezza:")},
                               {txt_h_, "txtPrH", tr("Al&tezza:")}};
    int n = 0;
    for (const Casella& c : caselle) {
        c.casella->setObjectName(QLatin1String{c.nome});
        c.casella->setAlignment(Qt::AlignRight);
        c.casella->setToolTip(tr("In millimetri"));
        auto* mm = new QLabel{QStringLiteral("mm"), this};
        assegna_ruolo(mm, "quieto");
        posa(n++, c.scritta, c.casella, mm);
    }
    txt_scala_->setObjectName(QStringLiteral("txtScala"));
    txt_scala_->setAlignment(Qt::AlignRight);
    txt_scala_->setToolTip(tr("Quante volte la grandezza naturale"));
    auto* ok = new QPushButton{tr("OK"), this};
    ok->setObjectName(QStringLiteral("cmdScala"));
    ok->setAutoDefault(false);
    posa(n++, tr("Sca&la:"), txt_scala_, ok);
    txt_copie_->setObjectName(QStringLiteral("txtNCopies"));
    txt_copie_->setText(QStringLiteral("1"));
    txt_copie_->setMaxLength(3);
    posa(n, tr("C&opie:"), txt_copie_, nullptr);
    connect(txt_x_, &QLineEdit::editingFinished, this, &frmStampaFCPB::cambia_posto);
    connect(txt_y_, &QLineEdit::editingFinished, this, &frmStampaFCPB::cambia_posto);
    connect(txt_w_, &QLineEdit::editingFinished, this, [this] { cambia_misura(true); });
    connect(txt_h_, &QLineEdit::editingFinished, this, [this] { cambia_misura(false); });
    connect(ok, &QPushButton::clicked, this, &frmStampaFCPB::applica_scala);
    connect(txt_scala_, &QLineEdit::returnPressed, this, &frmStampaFCPB::applica_scala);
    connect(txt_copie_, &QLineEdit::editingFinished, this, [this] {
        if (leggi_misura(txt_copie_->text()).value_or(0) < 1) txt_copie_->setText(QStringLiteral("1"));
    });
    return moduli;
}

void frmStampaFCPB::componi_posto(QBoxLayout* colonna) {
    proporzioni_->setObjectName(QStringLiteral("chkProporzioni"));
    proporzioni_->setChecked(true);
    centro_->setObjectName(QStringLiteral("chkCentro"));
    colonna->addWidget(proporzioni_);
    colonna->addWidget(centro_);
    auto* origine = new QPushButton{tr("Imposta i margini a &0"), this};
    origine->setObjectName(QStringLiteral("cmdOrigine"));
    auto* massimo = new QPushButton{tr("Usa tutto il &foglio"), this};
    massimo->setObjectName(QStringLiteral("cmdMax"));
    for (QPushButton* b : {origine, massimo}) {
        b->setAutoDefault(false);
        colonna->addWidget(b);
    }
    connect(centro_, &QCheckBox::toggled, this, [this](bool si) {
        if (si) centra();
        mostra_valori();
    });
    connect(origine, &QPushButton::clicked, this, [this] {
        centro_->setChecked(false);
        cornice_.moveTo(0, 0);
        mostra_valori();
    });
    connect(massimo, &QPushButton::clicked, this, &frmStampaFCPB::usa_tutto);
}

void frmStampaFCPB::componi_foglio(QBoxLayout* colonna) {
    fra_foglio_->setObjectName(QStringLiteral("fraFoglio"));
    lbl_fg_w_->setObjectName(QStringLiteral("lblFgW"));
    lbl_fg_h_->setObjectName(QStringLiteral("lblFgH"));
    auto* misure = new QHBoxLayout{fra_foglio_};
    misure->setSpacing(2 * kPasso);
    for (QWidget* w :
         {static_cast<QWidget*>(new QLabel{tr("Larghezza:"), fra_foglio_}), static_cast<QWidget*>(lbl_fg_w_),
          static_cast<QWidget*>(new QLabel{tr("Altezza:"), fra_foglio_}), static_cast<QWidget*>(lbl_fg_h_)})
        misure->addWidget(w);
    misure->addStretch(1);
    colonna->addWidget(fra_foglio_);
    fuori_foglio_->setObjectName(QStringLiteral("lblFuoriFoglio"));
    assegna_ruolo(fuori_foglio_, "avviso");
    in_corso_->setObjectName(QStringLiteral("lblStampaInCorso"));
    for (QLabel* l : {fuori_foglio_, in_corso_}) {
        // Their place stays, so that nothing jumps when they come.
        QSizePolicy politica = l->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        l->setSizePolicy(politica);
        l->hide();
        colonna->addWidget(l);
    }
}

void frmStampaFCPB::componi_bottoni(QBoxLayout* colonna) {
    cmd_stampa_->setObjectName(QStringLiteral("cmdStampa"));
    cmd_stampa_->setIcon(icona(QStringLiteral("stampa"), TintaIcona::su_accento));
    cmd_stampa_->setAutoDefault(false);
    assegna_ruolo(cmd_stampa_, "primario");
    auto* chiudi = new QPushButton{tr("Chiudi "), this};
    chiudi->setObjectName(QStringLiteral("cmdChiudi"));
    chiudi->setAutoDefault(false);
    auto* pdf = new QPushButton{tr("Salva come &PDF…"), this};
    pdf->setObjectName(QStringLiteral("cmdPdf"));
    pdf->setIcon(icona(QStringLiteral("esporta")));
    pdf->setAutoDefault(false);
    colonna->addWidget(pdf);
    auto* bottoni = new QHBoxLayout;
    bottoni->setSpacing(2 * kPasso);
    bottoni->addWidget(cmd_stampa_, 1);
    bottoni->addWidget(chiudi);
    colonna->addLayout(bottoni);
    connect(cmd_stampa_, &QPushButton::clicked, this, &frmStampaFCPB::stampa);
    connect(pdf, &QPushButton::clicked, this, &frmStampaFCPB::salva_pdf);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::reject);

    timer_->setObjectName(QStringLiteral("Timer1"));
    timer_->setSingleShot(true);
    timer_->setInterval(30);
    // The label "in corso" must be on the screen before the printer keeps the thread busy.
    connect(timer_, &QTimer::timeout, this, [this] {
        const int copie = std::max(1, static_cast<int>(leggi_misura(txt_copie_->text()).value_or(1)));
        txt_copie_->setText(QString::number(copie));
        Print_FCPB(cornice_.x(), cornice_.y(), cornice_.width(), cornice_.height());
        in_corso_->hide();
        cmd_stampa_->setEnabled(true);
    });
}

bool frmStampaFCPB::Preview(const QImage& immagine) {
    if (immagine.isNull()) {
        messaggi().ferma(this, QStringLiteral(" Errore in Preview"), tr("Formato grafico sconosciuto."));
        return false;
    }
    preview_->imposta_immagine(immagine);
    return true;
}

bool frmStampaFCPB::Zoom(const QImage& immagine) {
    if (immagine.isNull()) {
        messaggi().ferma(this, QStringLiteral(" Errore in Zoom"), tr("Formato grafico sconosciuto."));
        return false;
    }
    ingrandita_ = immagine;
    ingrandisci();
    return true;
}

void frmStampaFCPB::ingrandisci() {
    if (ingrandita_.isNull()) return;
    const QSizeF tutta = ingrandita_.size();
    const QSizeF posto = zoom_->size();
    const double intera = std::min(posto.width() / tutta.width(), posto.height() / tutta.height());
    const double mostrata = preview_->larghezza_mostrata() / tutta.width();
    const double scala = std::max(intera, kIngrandimento * mostrata);
    const QSize parte = (posto / scala).toSize().expandedTo({1, 1}).boundedTo(ingrandita_.size());
    // Where the point looked at is near an edge the part ends with the picture.
    const auto inizio = [](double punto, int tutto, int lungo) {
        return std::clamp(static_cast<int>(punto * tutto) - lungo / 2, 0, tutto - lungo);
    };
    parte_ = QRect{QPoint{inizio(sguardo_.x(), ingrandita_.width(), parte.width()),
                          inizio(sguardo_.y(), ingrandita_.height(), parte.height())},
                   parte};
    const double punti = devicePixelRatioF();
    QImage pezzo = ingrandita_.copy(parte_);
    pezzo.setDevicePixelRatio(1);
    QPixmap mostrato = QPixmap::fromImage(pezzo.scaled((QSizeF{parte} * scala * punti).toSize(),
                                                       Qt::KeepAspectRatio, Qt::SmoothTransformation));
    mostrato.setDevicePixelRatio(punti);
    zoom_->setPixmap(mostrato);
}

void frmStampaFCPB::guarda(QPointF punto) {
    sguardo_ = {std::clamp(punto.x(), 0.0, 1.0), std::clamp(punto.y(), 0.0, 1.0)};
    ingrandisci();
}

void frmStampaFCPB::errore(const char* routine, const QString& testo) {
    messaggi().ferma(this, QStringLiteral(" Errore in frmStampaFCPB/") + QLatin1String{routine}, testo);
}

bool frmStampaFCPB::StampaFCPB(const OggettoStampa& oggetto, double x, double y, double larghezza,
                               double altezza, const QString& nome) {
    const QImage* immagine = std::get_if<QImage>(&oggetto);
    QObject* const* controllo = std::get_if<QObject*>(&oggetto);
    if (std::holds_alternative<std::monostate>(oggetto) || (immagine != nullptr && immagine->isNull()) ||
        (controllo != nullptr && *controllo == nullptr)) {
        errore("StampaFCPB",
               righe({QStringLiteral("L' oggetto da stampare"), QStringLiteral("e' di tipo errato.")}));
        return false;
    }
    QString chiamato = nome;
    if (controllo != nullptr) {
        if (chiamato.isEmpty()) chiamato = (*controllo)->objectName();
        if (!(*controllo)->isWidgetType()) {
            errore("StampaFCPB",
                   righe({QStringLiteral("L' oggetto da stampare"), QStringLiteral("\"%1\"").arg(chiamato),
                          QStringLiteral("non espone la proprieta' hWnd.")}));
            return false;
        }
    }
    // Written so that a value that is no number is refused too.
    if (!(larghezza > 0) || !(altezza > 0) || !std::isfinite(larghezza) || !std::isfinite(altezza) ||
        !std::isfinite(x) || !std::isfinite(y)) {
        errore("StampaFCPB", righe({QStringLiteral("Parametri errati."),
                                    QStringLiteral("La larghezza e l' altezza di stampa"),
                                    QStringLiteral("richieste devono essere > 0.")}));
        return false;
    }
    const QString stampante = GetDefPrinterName();
    if (stampante.isEmpty() || !OpenDocPrinter(stampante) || !FoglioStampa()) return false;
    cornice_ = QRectF{x, y, larghezza, altezza};
    if (!controlla_scala()) return false;
    immagine_ = Copia_Oggetto(oggetto);
    if (immagine_.isNull() || !Legge_PictureBox()) return false;

    nome_ = chiamato;
    setWindowTitle(QStringLiteral("Anteprima di stampa ") + chiamato);
    if (!Preview(immagine_) || !Zoom(immagine_)) return false;
    mostra_valori();
    exec();
    stampante_.reset();
    return true;
}

QString frmStampaFCPB::GetDefPrinterName() {
    const QString nome = stampanti().predefinita().section(QLatin1Char{','}, 0, 0).trimmed();
    if (nome.isEmpty()) errore("GetDefPrinterName", QStringLiteral("Stampante di default non specificata."));
    return nome;
}

bool frmStampaFCPB::OpenDocPrinter(const QString& nome) {
    stampante_ = stampanti().apri(nome);
    if (stampante_ == nullptr)
        errore("OpenDocPrinter", QStringLiteral("Non posso accedere alla stampante richiesta."));
    else if (!stampante_->pageLayout().isValid())
        errore("OpenDocPrinter", QStringLiteral("DocumentProperties non funziona."));
    else
        return true;
    return false;
}

bool frmStampaFCPB::FoglioStampa() {
    const QPageLayout layout = stampante_->pageLayout();
    const bool verticale = layout.orientation() == QPageLayout::Portrait;
    if (!verticale && layout.orientation() != QPageLayout::Landscape) {
        errore("FoglioStampa", QStringLiteral("Orientamento errato"));
        return false;
    }
    foglio_ = layout.fullRect(QPageLayout::Millimeter).size();
    testo_foglio_ = QStringLiteral(" Foglio: ") +
                    testo_qt(nome_foglio(SuperficieStampante{*stampante_}.lavoro().foglio)) +
                    (verticale ? QStringLiteral(",  Portrait") : QStringLiteral(",  Landscape"));
    fra_foglio_->setTitle(testo_foglio_);
    lbl_fg_w_->setText(testo_misura(foglio_.width()));
    lbl_fg_h_->setText(testo_misura(foglio_.height()));
    return true;
}

/// Asks before a picture that leaves the sheet is scaled. False if the user gives up.
bool frmStampaFCPB::controlla_scala() {
    const bool larga = cornice_.right() > foglio_.width() + kTolleranza;
    const bool alta = cornice_.bottom() > foglio_.height() + kTolleranza;
    if (!larga && !alta) return true;
    switch (messaggi().chiede_o_annulla(this, QStringLiteral(" Errore di Scala"),
                                        righe({QStringLiteral("Le dimensioni di stampa richieste"),
                                               QStringLiteral("sono superiori a quelle del foglio"),
                                               QStringLiteral("della stampante selezionata."),
                                               QStringLiteral("Posso cambiare la scala?")}))) {
        case Assenso::annulla:
            return false;
        case Assenso::no:
            return true;
        case Assenso::si:
            break;
    }
    // A picture that begins beyond the sheet has no free space: it begins at the edge then.
    if (cornice_.x() >= foglio_.width()) cornice_.moveLeft(0);
    if (cornice_.y() >= foglio_.height()) cornice_.moveTop(0);
    double rapporto = 1;
    if (cornice_.right() > foglio_.width())
        rapporto = std::min(rapporto, (foglio_.width() - cornice_.x()) / cornice_.width());
    if (cornice_.bottom() > foglio_.height())
        rapporto = std::min(rapporto, (foglio_.height() - cornice_.y()) / cornice_.height());
    cornice_.setSize(cornice_.size() * rapporto);
    return true;
}

QImage frmStampaFCPB::Copia_Oggetto(const OggettoStampa& oggetto) {
    QImage copia;
    if (const QImage* immagine = std::get_if<QImage>(&oggetto)) {
        copia = *immagine;
    } else if (QObject* const* controllo = std::get_if<QObject*>(&oggetto)) {
        auto* finestra = qobject_cast<QWidget*>(*controllo);
        if (finestra != nullptr && !finestra->size().isEmpty()) {
            copia = QImage{(QSizeF{finestra->size()} * kFinezza).toSize(), QImage::Format_RGB32};
            copia.setDevicePixelRatio(kFinezza);
            copia.fill(Qt::white);
            if (!copia.isNull()) finestra->render(&copia);
        }
    }
    if (copia.isNull()) {
        errore("Copia_Oggetto", QStringLiteral("Errore di Copia"));
        return {};
    }
    pic_copia_->setPixmap(QPixmap::fromImage(copia));
    // Pixels of the screen at its own resolution are the natural size.
    const QSizeF punti = copia.deviceIndependentSize();
    naturale_ = QSizeF{punti.width() * kPollice / logicalDpiX(), punti.height() * kPollice / logicalDpiY()};
    return copia;
}

/// The picture as the printer takes it. False after a message.
bool frmStampaFCPB::Legge_PictureBox() {
    if (!stampanti().disegna_immagini(*stampante_)) {
        errore("Legge_PictureBox", QStringLiteral("This device does not support DIB's"));
        errore("Legge_PictureBox", QStringLiteral("L' operazione di stampa viene interrotta."));
        return false;
    }
    immagine_ = immagine_.convertToFormat(QImage::Format_RGB32);
    if (immagine_.isNull()) {
        errore("Legge_PictureBox", QStringLiteral("Formato grafico sconosciuto."));
        return false;
    }
    return true;
}

// ---- place and size ----

void frmStampaFCPB::mostra_valori() {
    txt_x_->setText(testo_misura(cornice_.x()));
    txt_y_->setText(testo_misura(cornice_.y()));
    txt_w_->setText(testo_misura(cornice_.width()));
    txt_h_->setText(testo_misura(cornice_.height()));
    txt_scala_->setText(testo_misura(naturale_.width() > 0 ? cornice_.width() / naturale_.width() : 1));
    fuori_foglio_->setVisible(cornice_.left() < -kTolleranza || cornice_.top() < -kTolleranza ||
                              cornice_.right() > foglio_.width() + kTolleranza ||
                              cornice_.bottom() > foglio_.height() + kTolleranza);
    preview_->imposta(foglio_, cornice_);
    ingrandisci();
}

void frmStampaFCPB::cambia_posto() {
    const QPointF prima = cornice_.topLeft();
    // A value is taken only where the text is not just what is shown: two decimals are not the whole of it.
    if (txt_x_->text() != testo_misura(prima.x()))
        if (const auto x = leggi_misura(txt_x_->text())) cornice_.moveLeft(*x);
    if (txt_y_->text() != testo_misura(prima.y()))
        if (const auto y = leggi_misura(txt_y_->text())) cornice_.moveTop(*y);
    if (cornice_.topLeft() != prima) {
        const QSignalBlocker zitto{centro_};
        centro_->setChecked(false);
    }
    mostra_valori();
}

void frmStampaFCPB::cambia_misura(bool dalla_larghezza) {
    const double prima = dalla_larghezza ? cornice_.width() : cornice_.height();
    const QString testo = (dalla_larghezza ? txt_w_ : txt_h_)->text();
    const auto valore = leggi_misura(testo);
    if (valore && *valore > 0 && testo != testo_misura(prima)) {
        QSizeF misura = cornice_.size();
        const bool insieme = proporzioni_->isChecked() && !naturale_.isEmpty();
        if (dalla_larghezza) {
            misura.setWidth(*valore);
            if (insieme) misura.setHeight(*valore * naturale_.height() / naturale_.width());
        } else {
            misura.setHeight(*valore);
            if (insieme) misura.setWidth(*valore * naturale_.width() / naturale_.height());
        }
        cornice_.setSize(misura);
        if (centro_->isChecked()) centra();
    }
    mostra_valori();
}

void frmStampaFCPB::applica_scala() {
    QString testo = txt_scala_->text().trimmed();
    testo.replace(QLatin1Char{','}, QLatin1Char{'.'});
    bool bene = false;
    const double scala = testo.toDouble(&bene);
    if (!bene || !(scala > 0) || scala > 1000) {
        errore("txtScala", QStringLiteral("Il valore della scala non è un numero maggiore di 0."));
    } else {
        cornice_.setSize(naturale_ * scala);
        if (centro_->isChecked()) centra();
    }
    mostra_valori();
}

void frmStampaFCPB::centra() {
    cornice_.moveTo((foglio_.width() - cornice_.width()) / 2, (foglio_.height() - cornice_.height()) / 2);
}

void frmStampaFCPB::usa_tutto() {
    QSizeF misura = foglio_;
    // The side that fills the sheet first decides, the other follows.
    if (proporzioni_->isChecked() && !naturale_.isEmpty())
        misura = naturale_.scaled(foglio_, Qt::KeepAspectRatio);
    cornice_ = QRectF{QPointF{0, 0}, misura};
    if (centro_->isChecked()) centra();
    mostra_valori();
}

// ---- printing ----

void frmStampaFCPB::stampa() {
    if (timer_->isActive() || !cmd_stampa_->isEnabled()) return;
    cmd_stampa_->setEnabled(false);
    in_corso_->show();
    timer_->start();
}

void frmStampaFCPB::salva_pdf() {
    const auto scelto = chiedi_pdf(this, nome_);
    if (!scelto) return;
    const QByteArray byte = byte_immagine(immagine_);
    const auto misura = [](double mm) { return static_cast<float>(mm); };
    const Lavoro carta = SuperficieStampante{*stampante_}.lavoro();
    const Rapporto rapporto{.titolo = nome_.toStdString(),
                            .orientamento = carta.orientamento,
                            .disegna = [&](EasyPrint& stampante, int) {
                                stampante.PaperSize(static_cast<std::int16_t>(carta.foglio));
                                stampante.PrintPicture(come_immagine(byte), misura(cornice_.x()),
                                                       misura(cornice_.y()), misura(cornice_.width()),
                                                       misura(cornice_.height()));
                            }};
    SenzaAvanzamento nessuno;
    if (const auto esito = scrivi_pdf(rapporto, QFile::encodeName(*scelto).toStdString(), nessuno); !esito)
        messaggi().avvisa(this, kTitoloMessaggi, QString::fromStdString(esito.error().testo()));
    else
        messaggi().informa(this, kTitoloMessaggi, tr("Scritto in %1").arg(*scelto));
}

void frmStampaFCPB::Print_FCPB(double x, double y, double larghezza, double altezza) {
    const QByteArray byte = byte_immagine(immagine_);
    const Immagine immagine = come_immagine(byte);
    const int copie = txt_copie_->text().toInt();
    for (int copia = 0; copia < copie; ++copia) {
        stampanti().nuovo_documento(*stampante_);
        stampante_->setDocName(windowTitle());
        SuperficieStampante superficie{*stampante_};
        const Foglio foglio = superficie.foglio();
        const Esito disegno = superficie.disegna(immagine, x - foglio.scostamento_x, y - foglio.scostamento_y,
                                                 {larghezza, altezza});
        const Esito fine = disegno ? superficie.fine() : Esito{};
        if (disegno && fine) continue;
        if (!disegno && disegno.error().numero == kErroreStampante) {
            // The document begins with the first drawing.
            errore("Print_FCPB",
                   righe({QStringLiteral("Errore di StartDoc."), QStringLiteral("Stampa interrotta.")}));
        } else {
            const auto esito = [](const Esito& e) { return QString::number(e ? 1 : 0); };
            const int codice = (disegno ? fine : disegno).error().numero;
            errore("Print_FCPB",
                   righe({QStringLiteral("La funzione di Stampa"),
                          QStringLiteral("ha trovato una situazione imprevista."),
                          QStringLiteral("Codice di errore = %1").arg(codice), QStringLiteral("R1 = 1"),
                          QStringLiteral("R2 = 1"), QStringLiteral("R3 = ") + esito(disegno),
                          QStringLiteral("R4 = ") + esito(fine),
                          QStringLiteral("prhDC = %1").arg(stampante_->isValid() ? 1 : 0),
                          QStringLiteral("Stampa interrotta.")}));
        }
        return;
    }
}

void frmStampaFCPB::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
        // Enter takes what a box says; it never prints by itself.
        if (auto* bottone = qobject_cast<QPushButton*>(focusWidget())) bottone->click();
        return;
    }
    QDialog::keyPressEvent(evento);
}

bool frmStampaFCPB::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == zoom_ && evento->type() == QEvent::Resize) ingrandisci();
    return QDialog::eventFilter(oggetto, evento);
}

void frmStampaFCPB::resizeEvent(QResizeEvent* evento) {
    QDialog::resizeEvent(evento);
    preview_->imposta(foglio_, cornice_);
    ingrandisci();
}

void frmStampaFCPB::showEvent(QShowEvent* evento) {
    if (sessione_ != nullptr && !std::exchange(posto_letto_, true))
        leggi_posto(*this, *sessione_, grandezza_sullo_schermo(*this));
    QDialog::showEvent(evento);
}

void frmStampaFCPB::done(int esito) {
    if (sessione_ != nullptr && isVisible()) scrivi_posto(*this, *sessione_);
    QDialog::done(esito);
}

}  // namespace sortimetra
