#include "printing/form_anteprima.h"

#include "catalogue/rapporti.h"
#include "printing/vista_fogli.h"
#include "qt_pdf.h"
#include "qt_superficie.h"
#include "screens/casella_cifre.h"
#include "screens/esporta.h"
#include "screens/finestra_ricerca.h"
#include "screens/giro_di_tab.h"
#include "screens/manuale.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/posto_finestra.h"
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
#include <QPageSize>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kLarghezzaColonna = 64 * kPasso;

QLabel* etichetta(const QString& testo, QWidget* compagno, const char* ruolo = nullptr) {
    auto* l = new QLabel{testo};
    l->setBuddy(compagno);
    if (ruolo != nullptr) assegna_ruolo(l, ruolo);
    return l;
}

}  // namespace

// ---- the window ----

FormAnteprima::FormAnteprima(Rapporto rapporto, std::shared_ptr<const void> tenuto, QWidget* padre)
    : QDialog{padre},
      rapporto_{std::move(rapporto)},
      tenuto_{std::move(tenuto)},
      corpo_{new QWidget{this}},
      vista_{new VistaFogli{corpo_}},
      prima_{bottone_pagina("cmdPrima", QStringLiteral("prima"), tr("Prima pagina"), tr("Home"))},
      indietro_{bottone_pagina("cmdIndietro", QStringLiteral("su"), tr("Pagina precedente"), tr("Pag ↑"))},
      avanti_{bottone_pagina("cmdAvanti", QStringLiteral("giu"), tr("Pagina seguente"), tr("Pag ↓"))},
      ultima_{bottone_pagina("cmdUltima", QStringLiteral("ultima"), tr("Ultima pagina"), tr("Fine"))},
      lbl_pagina_{new QLabel{corpo_}},
      txt_pagina_{new CasellaCifre{corpo_}},
      grandezza_{new QComboBox{corpo_}},
      txtpag_0_{new CasellaCifre{corpo_}},
      txtpag_1_{new CasellaCifre{corpo_}},
      in_vista_{new QPushButton{corpo_}},
      esito_{new QLabel{corpo_}},
      pannello_{new PannelloAvanzamento{this}} {
    setObjectName(QStringLiteral("form_anteprima"));
    assegna_capitolo(this, "stampare");
    setWindowTitle(tr("Anteprima di stampa - %1").arg(QString::fromStdString(rapporto_.titolo)));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    componi();
    vista_->imposta(&rapporto_);
    resize(grandezza_sullo_schermo(*this));
}

QPushButton* FormAnteprima::bottone_pagina(const char* nome, const QString& figura, const QString& scritta,
                                           const QString& tasto) {
    auto* b = new QPushButton{corpo_};
    b->setObjectName(QLatin1String{nome});
    b->setIcon(icona(figura));
    b->setToolTip(QStringLiteral("%1 (%2)").arg(scritta, tasto));
    b->setAccessibleName(scritta);
    b->setAutoDefault(false);
    return b;
}

void FormAnteprima::componi() {
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->addWidget(corpo_);
    auto* riga = new QHBoxLayout{corpo_};
    riga->setContentsMargins(4 * kPasso, 4 * kPasso, 4 * kPasso, 4 * kPasso);
    riga->setSpacing(4 * kPasso);

    vista_->setObjectName(QStringLiteral("scorriAnteprima"));
    vista_->setAccessibleName(tr("Anteprima della pagina"));
    vista_->setMinimumSize(240, 240);
    connect(vista_, &VistaFogli::pagina_cambiata, this, &FormAnteprima::aggiorna_pagina);
    riga->addWidget(vista_, 1);

    auto* destra = new QVBoxLayout;
    destra->setSpacing(3 * kPasso);

    destra->addLayout(componi_pagine());
    destra->addLayout(componi_salto());
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
    in_vista_->setObjectName(QStringLiteral("cmdStampaPagina"));
    in_vista_->setIcon(icona(QStringLiteral("stampa")));
    in_vista_->setAutoDefault(false);
    connect(in_vista_, &QPushButton::clicked, this, &FormAnteprima::stampa_in_vista);
    destra->addWidget(in_vista_);
    destra->addWidget(pdf);

    auto* colonna = new QWidget{corpo_};
    colonna->setLayout(destra);
    destra->setContentsMargins(0, 0, 0, 0);
    colonna->setMinimumWidth(kLarghezzaColonna);
    riga->addWidget(colonna);
    giro_di_tab({prima_, indietro_, avanti_, ultima_, txt_pagina_, grandezza_, txtpag_0_, txtpag_1_,
                 findChild<QPushButton*>(QStringLiteral("cmdopzioni_0")),
                 findChild<QPushButton*>(QStringLiteral("cmdopzioni_1")), in_vista_, pdf, vista_});

    auto* stampa_subito = new QShortcut{Qt::CTRL | Qt::Key_P, this};
    connect(stampa_subito, &QShortcut::activated, this, &FormAnteprima::stampa);
    pannello_->imposta_annullabile(true);
    pannello_->imposta_annulla(tr("Annulla"));
    pannello_->imposta_scritta(tr("Stampa in corso…"));
}

QBoxLayout* FormAnteprima::componi_pagine() {
    lbl_pagina_->setObjectName(QStringLiteral("lblPagina"));
    auto* pagine = new QHBoxLayout;
    pagine->setSpacing(kPasso);
    for (QPushButton* b : {prima_, indietro_, avanti_, ultima_}) pagine->addWidget(b);
    pagine->addSpacing(kPasso);
    pagine->addWidget(lbl_pagina_, 1);
    connect(prima_, &QPushButton::clicked, this, [this] { vai(1); });
    connect(indietro_, &QPushButton::clicked, vista_, &VistaFogli::indietro);
    connect(avanti_, &QPushButton::clicked, vista_, &VistaFogli::avanti);
    connect(ultima_, &QPushButton::clicked, this, [this] { vai(rapporto_.pagine); });
    return pagine;
}

QBoxLayout* FormAnteprima::componi_salto() {
    txt_pagina_->setObjectName(QStringLiteral("txtPagina"));
    txt_pagina_->setAccessibleName(tr("Vai a pagina"));
    txt_pagina_->setFixedWidth(16 * kPasso);
    auto* salto = new QHBoxLayout;
    salto->setSpacing(2 * kPasso);
    salto->addWidget(etichetta(tr("&Vai a pagina"), txt_pagina_));
    salto->addWidget(txt_pagina_);
    salto->addStretch(1);
    connect(txt_pagina_, &QLineEdit::editingFinished, this, [this] {
        // What is in sight already stays where it was scrolled to.
        if (txt_pagina_->numero() != pagina()) vai(txt_pagina_->numero());
    });
    return salto;
}

QBoxLayout* FormAnteprima::componi_grandezza() {
    grandezza_->setObjectName(QStringLiteral("cmbGrandezza"));
    grandezza_->setToolTip(tr("Ctrl con la rotella, oppure Ctrl e + o -"));
    grandezza_->addItem(tr("Pagina intera"), VistaFogli::kPaginaIntera);
    grandezza_->addItem(tr("Larghezza della pagina"), VistaFogli::kLarghezzaPagina);
    for (const int p : VistaFogli::kPercentuali) grandezza_->addItem(QStringLiteral("%1%").arg(p), p);
    auto* quanto = new QHBoxLayout;
    quanto->setSpacing(2 * kPasso);
    quanto->addWidget(etichetta(tr("&Grandezza"), grandezza_));
    quanto->addWidget(grandezza_, 1);
    connect(grandezza_, &QComboBox::currentIndexChanged, this,
            [this] { vista_->imposta_misura(grandezza_->currentData().toInt()); });
    connect(vista_, &VistaFogli::misura_cambiata, this,
            [this](int misura) { grandezza_->setCurrentIndex(grandezza_->findData(misura)); });
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

int FormAnteprima::pagina() const {
    return vista_->pagina();
}

void FormAnteprima::vai(int pagina) {
    vista_->vai(pagina);
}

void FormAnteprima::aggiorna_pagina() {
    const int prima = vista_->prima_in_vista();
    const int ultima = vista_->ultima_in_vista();
    const int totale = std::max(rapporto_.pagine, 1);
    lbl_pagina_->setText(prima == ultima ? tr("pagina %1 di %2").arg(prima).arg(totale)
                                         : tr("pagine %1 e %2 di %3").arg(prima).arg(ultima).arg(totale));
    in_vista_->setText(prima == ultima ? tr("Stampa &questa pagina") : tr("Stampa &queste pagine"));
    txt_pagina_->setText(QString::number(pagina()));
    for (QPushButton* b : {prima_, indietro_}) b->setEnabled(prima > 1);
    for (QPushButton* b : {avanti_, ultima_}) b->setEnabled(ultima < totale);
}

PagineScelte FormAnteprima::pagine() const {
    return {txtpag_0_->numero(), txtpag_1_->numero()};
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
        CorsaRicerca corsa{corpo_, pannello_, vista_};
        const auto legame = connect(pannello_, &PannelloAvanzamento::annulla, this, [&] { corsa.annulla(); });
        lavoro(corsa);
        disconnect(legame);
    }
    in_corsa_ = false;
}

void FormAnteprima::stampa() {
    if (!in_corsa_ && pagine_valide() && stampa_pagine(pagine())) accept();
}

void FormAnteprima::stampa_in_vista() {
    if (in_corsa_) return;
    const PagineScelte viste{vista_->prima_in_vista(), vista_->ultima_in_vista()};
    if (!stampa_pagine(viste)) return;
    esito_->setText(viste.da == viste.a ? tr("Stampata la pagina %1.").arg(viste.da)
                                        : tr("Stampate le pagine %1 e %2.").arg(viste.da).arg(viste.a));
}

bool FormAnteprima::stampa_pagine(PagineScelte scelte) {
    const auto stampante = stampanti().apri(stampanti().predefinita().section(QLatin1Char{','}, 0, 0));
    if (!stampante) {
        messaggi().avvisa(this, kTitoloMessaggi, tr("La stampante predefinita non si apre."));
        return false;
    }
    stampante->setDocName(QString::fromStdString(rapporto_.titolo));
    // What every report is laid out for.
    stampante->setPageSize(QPageSize{QPageSize::A4});
    stampante->setPageOrientation(
        rapporto_.orientamento == Orientamento::orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (!stampanti().scegli(this, *stampante)) return false;
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
        finita = sortimetra::stampa(easy_print, rapporto_, scelte, corsa);
        fallita = easy_print.fallita();
    });
    if (!finita && !fallita) esito_->setText(tr("Stampa annullata."));
    return finita && !fallita;
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
    return QDialog::eventFilter(oggetto, evento);
}

void FormAnteprima::showEvent(QShowEvent* evento) {
    if (sessione_ != nullptr && !std::exchange(posto_letto_, true))
        leggi_posto(*this, *sessione_, grandezza_sullo_schermo(*this));
    QDialog::showEvent(evento);
}

void FormAnteprima::done(int esito) {
    if (sessione_ != nullptr && isVisible()) scrivi_posto(*this, *sessione_);
    QDialog::done(esito);
}

void FormAnteprima::keyPressEvent(QKeyEvent* evento) {
    if (in_corsa_) return;
    const bool ctrl = evento->modifiers().testFlag(Qt::ControlModifier);
    switch (evento->key()) {
        case Qt::Key_PageUp:
            vista_->scorri(false);
            return;
        case Qt::Key_PageDown:
            vista_->scorri(true);
            return;
        case Qt::Key_Home:
            vai(1);
            return;
        case Qt::Key_End:
            vai(rapporto_.pagine);
            return;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
        case Qt::Key_Minus:
            if (!ctrl) break;
            vista_->ingrandisci(evento->key() != Qt::Key_Minus);
            return;
        case Qt::Key_0:
            if (!ctrl) break;
            vista_->imposta_misura(VistaFogli::kPaginaIntera);
            return;
        default:
            break;
    }
    QDialog::keyPressEvent(evento);
}

void FormAnteprima::closeEvent(QCloseEvent* evento) {
    if (in_corsa_)
        evento->ignore();
    else
        QDialog::closeEvent(evento);
}

FormAnteprima* stampa_risultato(QWidget* finestra, const Risposta& risposta, const Sessione* sessione) {
    auto* anteprima = new FormAnteprima{prepara_rapporto(risposta), risposta.risultato, finestra};
    if (sessione != nullptr) anteprima->ricorda(*sessione);
    anteprima->setAttribute(Qt::WA_DeleteOnClose);
    anteprima->open();
    return anteprima;
}

void stampa_rapporto(QWidget* finestra, Rapporto rapporto) {
    auto* anteprima = new FormAnteprima{std::move(rapporto), nullptr, finestra};
    anteprima->setAttribute(Qt::WA_DeleteOnClose);
    anteprima->open();
}

void stampa_lavoro(const LavoroStampa& lavoro, const Sessione& sessione) {
    if (lavoro.risposta.prodotta()) stampa_risultato(lavoro.finestra, lavoro.risposta, &sessione);
}

}  // namespace sortimetra
