#include "screens/pannello_storia.h"

#include "files/modulo.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "results/selezione.h"
#include "screens/esporta.h"
#include "screens/griglia_risultati.h"
#include "screens/manuale.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

/// A sheet of paper, lying, at 300 dots to the inch.
constexpr QSize kFoglioStampa{3508, 2480};

struct FormatoSalvato {
    FormatoGrafico formato;
    const char* nome;
    const char* fine;
};
constexpr FormatoSalvato kFormati[] = {{FormatoGrafico::png, "PNG", ".png"},
                                       {FormatoGrafico::svg, "SVG", ".svg"},
                                       {FormatoGrafico::pdf, "PDF", ".pdf"}};

QToolButton* bottone(QWidget* padre, const char* nome, const char* figura, const QString& detto) {
    auto* b = new QToolButton{padre};
    b->setObjectName(QString::fromLatin1(nome));
    b->setIcon(icona(QString::fromLatin1(figura)));
    b->setToolTip(detto);
    b->setAccessibleName(detto);
    b->setFocusPolicy(Qt::StrongFocus);
    return b;
}

ColoriGrafico colori_dell_aspetto() {
    const Skin& s = skin_in_uso();
    return {.fondo = s.superficie, .testo = s.testo, .quieto = s.testo_quieto, .linea = s.linea};
}

}  // namespace

PannelloStoria::PannelloStoria(QWidget* padre)
    : QFrame{padre},
      campo_{new QWidget{this}},
      posto_tela_{new QVBoxLayout},
      titolo_{new QLabel{this}},
      di_che_{new QLabel{this}},
      frase_{new QLabel{this}},
      errore_{new QLabel{campo_}},
      lbl_elenco_{new QLabel{campo_}},
      cmd_salva_{bottone(this, "cmdSalvaStoria", "esporta", tr("Salva o copia la storia"))},
      cmd_stampa_{bottone(this, "cmdStampaStoria", "stampa", tr("Stampa la storia"))},
      elenco_{new GrigliaRisultati{campo_}} {
    setObjectName(QStringLiteral("PannelloStoria"));
    setAccessibleName(tr("Storia della riga"));
    assegna_ruolo(this, "scheda");
    assegna_capitolo(this, "la-storia-di-una-riga");
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(3 * kPasso, 2 * kPasso, 2 * kPasso, 2 * kPasso);
    colonna->setSpacing(kPasso);
    componi_testata(colonna);

    errore_->setObjectName(QStringLiteral("lblerrorestoria"));
    errore_->setWordWrap(true);
    assegna_ruolo(errore_, "avviso");
    errore_->hide();
    auto* sopra = new QWidget{campo_};
    posto_tela_->setContentsMargins(0, 0, 0, 0);
    posto_tela_->addWidget(errore_);
    sopra->setLayout(posto_tela_);
    auto* sotto = new QWidget{campo_};
    auto* riga_elenco = new QVBoxLayout{sotto};
    riga_elenco->setContentsMargins(0, 0, 0, 0);
    riga_elenco->setSpacing(kPasso);
    assegna_ruolo(lbl_elenco_, "sezione");
    lbl_elenco_->setObjectName(QStringLiteral("lblelencostoria"));
    elenco_->imposta_compatta(true);
    elenco_->imposta_senza_pulsanti(true);
    elenco_->vista()->setAccessibleName(tr("Uscite"));
    riga_elenco->addWidget(lbl_elenco_);
    riga_elenco->addWidget(elenco_, 1);
    auto* due = new QSplitter{Qt::Vertical, campo_};
    due->addWidget(sopra);
    due->addWidget(sotto);
    due->setStretchFactor(0, 5);
    due->setStretchFactor(1, 3);
    due->setSizes({5000, 3000});
    due->setChildrenCollapsible(false);
    due->setHandleWidth(2 * kPasso);
    due->setStyleSheet(QStringLiteral("QSplitter::handle { background: transparent; }"));
    auto* dentro = new QVBoxLayout{campo_};
    dentro->setContentsMargins(0, 0, kPasso, 0);
    dentro->addWidget(due);
    colonna->addWidget(campo_, 1);

    frase_->setObjectName(QStringLiteral("lblfrasestoria"));
    frase_->setAlignment(Qt::AlignCenter);
    frase_->setWordWrap(true);
    assegna_ruolo(frase_, "quieto");
    colonna->addWidget(frase_, 1);
    svuota({});
}

void PannelloStoria::componi_testata(QVBoxLayout* colonna) {
    titolo_->setObjectName(QStringLiteral("lbltitolostoria"));
    titolo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    assegna_ruolo(titolo_, "titolo");
    di_che_->setObjectName(QStringLiteral("lbldichestoria"));
    di_che_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    assegna_ruolo(di_che_, "quieto");

    auto* menu = new QMenu{cmd_salva_};
    for (const FormatoSalvato& f : kFormati) {
        auto* voce = menu->addAction(tr("Salva come %1…").arg(QString::fromLatin1(f.nome)), this,
                                     [this, f] { salva(f.formato); });
        voce->setObjectName(QStringLiteral("mnuSalva%1").arg(QString::fromLatin1(f.nome)));
    }
    menu->addSeparator();
    auto* copia = menu->addAction(icona(QStringLiteral("copia")), tr("&Copia i dati"), this,
                                  &PannelloStoria::copia_dati);
    copia->setObjectName(QStringLiteral("mnuCopiaStoria"));
    copia->setShortcut(QKeySequence::Copy);
    copia->setShortcutContext(Qt::WidgetShortcut);
    cmd_salva_->setMenu(menu);
    cmd_salva_->setPopupMode(QToolButton::InstantPopup);
    cmd_salva_->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    cmd_stampa_->hide();
    connect(cmd_stampa_, &QToolButton::clicked, this, &PannelloStoria::stampa);
    auto* chiudi = bottone(this, "cmdChiudiStoria", "chiudi", tr("Chiudi la storia (Ctrl+G)"));
    connect(chiudi, &QToolButton::clicked, this, &PannelloStoria::chiudi);

    auto* riga = new QHBoxLayout;
    riga->setSpacing(kPasso);
    riga->addWidget(titolo_, 1);
    riga->addWidget(cmd_salva_);
    riga->addWidget(cmd_stampa_);
    riga->addWidget(chiudi);
    colonna->addLayout(riga);
    colonna->addWidget(di_che_);
}

void PannelloStoria::imposta_stampa(std::function<void(QWidget*, const QImage&)> stampa) {
    stampa_ = std::move(stampa);
    cmd_stampa_->setVisible(stampa_ != nullptr);
}

void PannelloStoria::svuota(const QString& frase) {
    storie_.clear();
    grafico_ = {};
    campo_->hide();
    frase_->setText(frase);
    frase_->show();
    titolo_->setToolTip(tr("Storia"));
    adatta_titolo();
    di_che_->clear();
    cmd_salva_->setEnabled(false);
    cmd_stampa_->setEnabled(false);
}

void PannelloStoria::mostra(std::vector<Storia> storie, const QString& di_che, bool simulato) {
    if (storie.empty()) return;
    if (storie.size() > static_cast<std::size_t>(kSerieGrafico)) storie.resize(kSerieGrafico);
    storie_ = std::move(storie);
    grafico_ = sortimetra::grafico(storie_, di_che.toStdString(), simulato);
    frase_->hide();
    campo_->show();
    titolo_->setToolTip(testo_qt(grafico_.titolo));
    adatta_titolo();
    di_che_->setText(di_che);
    di_che_->setToolTip(di_che);
    cmd_salva_->setEnabled(true);
    cmd_stampa_->setEnabled(true);
    disegna();
    mostra_elenco();
}

/// The picture's module, when it is needed for the first time.
bool PannelloStoria::carica_tela() {
    if (tela_ != nullptr) return true;
    const auto porta = apri_modulo(kModuloTela);
    if (!porta) {
        errore_->setText(tr("Il grafico non si può mostrare: %1").arg(testo_qt(porta.error().testo())));
        errore_->show();
        return false;
    }
    tela_ = reinterpret_cast<CreaTelaStoria>(*porta)(this);
    tela_->setObjectName(QStringLiteral("telastoria"));
    tela_->setAccessibleName(tr("Grafico della storia"));
    tela_->setMinimumHeight(40 * kPasso);
    posto_tela_->addWidget(tela_, 1);
    return true;
}

void PannelloStoria::disegna() {
    if (storie_.empty() || !carica_tela()) return;
    tela_->mostra(grafico_, colori_dell_aspetto());
    // What the picture says, for whoever does not see it.
    QStringList detto;
    for (const SerieGrafico& s : grafico_.serie)
        detto << tr("%1: ritardo %2, ritardo storico %3, record atteso %4")
                     .arg(testo_qt(s.nome))
                     .arg(s.presente)
                     .arg(s.record)
                     .arg(qRound(s.record_atteso));
    tela_->setAccessibleDescription(detto.join(QStringLiteral("; ")));
}

void PannelloStoria::mostra_elenco() {
    const Storia& s = storie_.front();
    const Tabella colpi = tabella_colpi(s);
    // The heading tells how many they are: the count of each gives its place to the others. Wheels, which may
    // be many, stand last.
    constexpr std::array<std::size_t, 5> kColonne{1, 2, 5, 4, 3};
    std::vector<std::uint32_t> righe(colpi.righe());
    std::iota(righe.begin(), righe.end(), 0U);
    auto tabella = std::make_shared<Tabella>(seleziona(colpi, righe, kColonne));
    const auto quante = static_cast<std::int64_t>(righe.size());
    const QString nome = testo_qt(nome_evento(s.evento));
    lbl_elenco_->setText(quante == 1 ? tr("La sola uscita di %1").arg(nome)
                                     : tr("Le %1 uscite di %2").arg(testo_qt(migliaia(quante)), nome));
    elenco_->imposta_frase_vuota(tr("In questi concorsi non è mai uscito."));
    elenco_->mostra(std::move(tabella));
    // The newest first: that is what one looks for.
    elenco_->ordina_colonna(0, Verso::decrescente);
}

void PannelloStoria::copia_dati() const {
    QString testo;
    for (const Storia& s : storie_) {
        const Tabella t = tabella_colpi(s);
        if (storie_.size() > 1) testo += testo_qt(nome_evento(s.evento)) + QLatin1Char{'\n'};
        QStringList celle;
        for (const std::string& titolo : t.titoli.back()) celle << testo_qt(titolo);
        testo += celle.join(QLatin1Char{'\t'}) + QLatin1Char{'\n'};
        for (std::size_t r = 0; r < t.righe(); ++r) {
            celle.clear();
            for (std::size_t c = 0; c < t.n_colonne(); ++c) celle << testo_qt(rifila(t.testo(r, c)));
            testo += celle.join(QLatin1Char{'\t'}) + QLatin1Char{'\n'};
        }
    }
    if (!testo.isEmpty()) QApplication::clipboard()->setText(testo);
}

void PannelloStoria::salva(FormatoGrafico formato) {
    if (grafico_.serie.empty()) return;
    const auto* f = std::find_if(std::begin(kFormati), std::end(kFormati),
                                 [formato](const FormatoSalvato& x) { return x.formato == formato; });
    const QString fine = QString::fromLatin1(f->fine);
    QString filtro = tr("Immagine %1 (*%2)").arg(QString::fromLatin1(f->nome), fine);
    const auto file =
        chiedi_file(this, tr("Salva la storia"), testo_qt(grafico_.titolo) + fine, filtro, &filtro,
                    [&fine](const QString& scelto) {
                        return scelto.endsWith(fine, Qt::CaseInsensitive) ? scelto : scelto + fine;
                    });
    if (!file) return;
    if (const auto fatto = scrivi_grafico(grafico_, file->toStdString(), formato); !fatto)
        messaggi().avvisa(this, kTitoloMessaggi, testo_qt(fatto.error().testo()));
}

void PannelloStoria::stampa() {
    if (!stampa_ || grafico_.serie.empty()) return;
    const auto porta = apri_modulo(kModuloDipingi);
    if (!porta) {
        messaggi().avvisa(this, kTitoloMessaggi, testo_qt(porta.error().testo()));
        return;
    }
    QImage foglio{kFoglioStampa, QImage::Format_RGB32};  // NOLINT(misc-const-correctness): painted there
    reinterpret_cast<DipingiGrafico>(*porta)(grafico_, foglio);
    stampa_(window(), foglio);
}

void PannelloStoria::keyPressEvent(QKeyEvent* evento) {
    if (evento->matches(QKeySequence::Copy))
        copia_dati();
    else if (cassetto_ && evento->key() == Qt::Key_Escape)
        emit chiudi();
    else
        QFrame::keyPressEvent(evento);
}

/// A long title is cut with its dots; its tooltip has the whole.
void PannelloStoria::adatta_titolo() {
    titolo_->setText(titolo_->fontMetrics().elidedText(titolo_->toolTip(), Qt::ElideRight,
                                                       std::max(titolo_->width(), 30 * kPasso)));
}

void PannelloStoria::resizeEvent(QResizeEvent* evento) {
    QFrame::resizeEvent(evento);
    // The title's own width is known only once the layout has run.
    QMetaObject::invokeMethod(this, &PannelloStoria::adatta_titolo, Qt::QueuedConnection);
}

void PannelloStoria::changeEvent(QEvent* evento) {
    QFrame::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange && tela_ != nullptr) disegna();
}

}  // namespace sortimetra
