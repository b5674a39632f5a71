#include "positional/form_tab_pos2.h"

#include "catalogue/nomi.h"
#include "positional/form_tab_pos_dieci.h"
#include "positional/form_tab_pos_etichette.h"
#include "positional/form_tab_pos_scelta.h"
#include "positional/migliori_ritardi.h"
#include "positional/parametri.h"
#include "printing/superficie.h"
#include "qt_testi.h"
#include "results/risultato.h"
#include "screens/area_parametri.h"
#include "screens/giro_di_tab.h"
#include "screens/pannello_avanzamento.h"
#include "screens/tema.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kLarghezzaColonna = 70 * kPasso;
constexpr int kMargineScheda = 2 * kPasso;
/// Of the page as a picture: points of the screen across it, and what they become on paper.
constexpr int kLarghezzaImmagine = 240 * kPasso;
constexpr double kPuntiPerPollice = 300;
/// Caption once the screen runs.
constexpr const char* kTitoloInCorsa = "Migliori Ritardi Statistici - Lotto";

constexpr std::array<PaginaMigliori::Nomi, 2> kNomiPagine{{
    {1, "Frame10rit", "Command6", "cmdImmagine_1", "Command5", "Image1", "lblStampaIntestazione"},
    {2, "Frame11rit", "Command10", "cmdImmagine_2", "Command11", "Image2", "lblStampaIntestazione2"},
}};
constexpr std::array kNomiAvvia{"Command8", "Command9"};
constexpr std::array kNomiPannelli{"Frame3", "Frame6"};

}  // namespace

// ---- PaginaMigliori ----

PaginaMigliori::PaginaMigliori(const Nomi& nomi, std::span<QLabel* const> etichette)
    : nomi_{nomi},
      ambito_{new QLabel},
      intestazione_{new QLabel},
      freccia_{new QPushButton{nomi_.pagina == 1 ? tr("Pagina &avanti") : tr("Pagina &indietro"), this}},
      stampa_{new QPushButton{tr("&Stampa"), this}},
      immagine_{new QPushButton{tr("Come i&mmagine…"), this}},
      esporta_{new QPushButton{tr("Es&porta…"), this}},
      scorri_{new QScrollArea{this}},
      contenuto_{new QWidget},
      campo_{new QWidget} {
    setObjectName(QString::fromLatin1(nomi.cornice));
    componi_contenuto(etichette);
    auto* tutto = new QVBoxLayout{this};
    tutto->setContentsMargins(0, 0, 0, 0);
    tutto->setSpacing(2 * kPasso);
    tutto->addLayout(componi_testata());
    tutto->addWidget(scorri_, 1);
    tutto->addLayout(componi_piede());
    svuota();
}

QBoxLayout* PaginaMigliori::componi_testata() {
    auto* titolo = new QLabel{tr("I Migliori Ritardi Statistici"), this};
    assegna_ruolo(titolo, "titolo");
    auto* quale = new QLabel{tr("pagina %1 di 2").arg(nomi_.pagina), this};
    assegna_ruolo(quale, "quieto");
    freccia_->setObjectName(QString::fromLatin1(nomi_.freccia));
    freccia_->setIcon(icona(nomi_.pagina == 1 ? QStringLiteral("destra") : QStringLiteral("sinistra")));
    if (nomi_.pagina == 1) freccia_->setLayoutDirection(Qt::RightToLeft);
    assegna_ruolo(freccia_, "piatto");

    auto* testata = new QHBoxLayout;
    testata->setSpacing(2 * kPasso);
    testata->addWidget(titolo);
    testata->addWidget(quale);
    testata->addStretch(1);
    testata->addWidget(freccia_);
    connect(freccia_, &QPushButton::clicked, this, &PaginaMigliori::volta);
    return testata;
}

void PaginaMigliori::componi_contenuto(std::span<QLabel* const> etichette) {
    ambito_->setObjectName(QStringLiteral("lblambito_%1").arg(nomi_.pagina));
    ambito_->setWordWrap(true);
    assegna_ruolo(ambito_, "quieto");

    intestazione_->setObjectName(QString::fromLatin1(nomi_.intestazione));
    assegna_ruolo(intestazione_, "titolo");
    intestazione_->hide();

    // Families that follow one another under the same caption share a card.
    const auto famiglie = famiglie_migliori(nomi_.pagina);
    for (std::size_t i = 0; i < famiglie.size();) {
        std::size_t dopo = i + 1;
        while (dopo < famiglie.size() && famiglie[dopo].titolo == famiglie[i].titolo) ++dopo;
        schede_.push_back(componi_scheda(i, dopo, etichette));
        i = dopo;
    }
    auto* griglia = new QGridLayout{campo_};
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setSpacing(2 * kPasso);

    auto* colonna = new QVBoxLayout{contenuto_};
    colonna->setContentsMargins(0, 0, kPasso, 0);
    colonna->setSpacing(3 * kPasso);
    colonna->addWidget(intestazione_);
    colonna->addWidget(ambito_);
    colonna->addWidget(campo_);
    colonna->addStretch(1);
    scorri_->setWidget(contenuto_);
    scorri_->setWidgetResizable(true);
    scorri_->setFrameShape(QFrame::NoFrame);
    // Nothing to be seen would have the focus then: Page Up and Down come from the window.
    scorri_->setFocusPolicy(Qt::NoFocus);
    scorri_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scorri_->viewport()->setAutoFillBackground(false);
    contenuto_->setAutoFillBackground(false);
    scorri_->viewport()->installEventFilter(this);
}

QBoxLayout* PaginaMigliori::componi_piede() {
    stampa_->setObjectName(QString::fromLatin1(nomi_.stampa));
    stampa_->setIcon(icona(QStringLiteral("stampa")));
    immagine_->setObjectName(QString::fromLatin1(nomi_.immagine));
    esporta_->setIcon(icona(QStringLiteral("esporta")));
    auto* esci_bottone = new QPushButton{icona(QStringLiteral("sinistra")), tr("&Esci"), this};
    esci_bottone->setObjectName(QString::fromLatin1(nomi_.esci));
    esci_bottone->setToolTip(tr("Torna al catalogo (Esc)"));

    auto* piede = new QHBoxLayout;
    piede->setSpacing(2 * kPasso);
    piede->addStretch(1);
    piede->addWidget(stampa_);
    piede->addWidget(immagine_);
    piede->addWidget(esporta_);
    piede->addWidget(esci_bottone);
    // In the order of reading: the arrow at the top, then the commands.
    giro_di_tab({freccia_, stampa_, immagine_, esporta_, esci_bottone});
    connect(stampa_, &QPushButton::clicked, this, &PaginaMigliori::stampa);
    connect(immagine_, &QPushButton::clicked, this, &PaginaMigliori::stampa_immagine);
    connect(esporta_, &QPushButton::clicked, this, &PaginaMigliori::esporta);
    connect(esci_bottone, &QPushButton::clicked, this, &PaginaMigliori::esci);
    return piede;
}

QWidget* PaginaMigliori::componi_scheda(std::size_t prima, std::size_t dopo,
                                        std::span<QLabel* const> etichette) {
    const auto famiglie = famiglie_migliori(nomi_.pagina);
    auto* scheda = new QFrame{campo_};
    assegna_ruolo(scheda, "scheda");
    auto* griglia = new QGridLayout{scheda};
    griglia->setContentsMargins(kMargineScheda, 2 * kPasso, kMargineScheda, 2 * kPasso);
    griglia->setHorizontalSpacing(2 * kPasso);
    griglia->setVerticalSpacing(kPasso / 2);
    auto* titolo = new QLabel{testo_qt(famiglie[prima].titolo), scheda};
    assegna_ruolo(titolo, "sezione");
    griglia->addWidget(titolo, 0, 0, 1, 2);
    int riga = 1;
    for (std::size_t f = prima; f < dopo; ++f) {
        const auto [carica, gruppi, ritardi] = etichette_di(famiglie[f].carica);
        for (std::size_t i = 0; i < gruppi.size() && i < ritardi.size(); ++i, ++riga) {
            QLabel* gruppo = etichette[gruppi[i]];
            QLabel* ritardo = etichette[ritardi[i]];
            ritardo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            QFont grassetto = ritardo->font();
            grassetto.setBold(true);
            ritardo->setFont(grassetto);
            // A description: a name would be read in place of the figures.
            gruppo->setAccessibleDescription(tr("%1, gruppo %2").arg(titolo->text()).arg(i + 1));
            ritardo->setAccessibleDescription(tr("%1, ritardo %2").arg(titolo->text()).arg(i + 1));
            griglia->addWidget(gruppo, riga, 0);
            griglia->addWidget(ritardo, riga, 1);
            gruppi_.push_back(gruppo);
            ritardi_.push_back(ritardo);
        }
    }
    griglia->setColumnStretch(0, 1);
    griglia->setRowStretch(riga, 1);
    return scheda;
}

void PaginaMigliori::aggiungi_sotto(QWidget* widget, const QString& titolo) {
    auto* colonna = qobject_cast<QVBoxLayout*>(contenuto_->layout());
    auto* scritta = new QLabel{titolo, contenuto_};
    scritta->setWordWrap(true);
    assegna_ruolo(scritta, "sezione");
    const int dove = colonna->count() - 1;
    colonna->insertWidget(dove, scritta);
    colonna->insertWidget(dove + 1, widget);
    giro_di_tab({freccia_, widget, stampa_});
}

void PaginaMigliori::disponi_schede(int larghezza) {
    // The longest group of the page stands on one line.
    const QFontMetrics misure{gruppi_.front()->font()};
    const QFontMetrics grassetto{ritardi_.front()->font()};
    const QString lungo = QStringLiteral("00-").repeated(nomi_.pagina == 1 ? 6 : 10).chopped(1);
    const int minima = misure.horizontalAdvance(lungo) +
                       grassetto.horizontalAdvance(QStringLiteral("R. 0000")) + 2 * kMargineScheda +
                       3 * kPasso;
    const int spazio = 2 * kPasso;
    const int colonne = std::clamp((larghezza + spazio) / (minima + spazio), 1, 5);
    if (colonne == colonne_) return;
    colonne_ = colonne;
    auto* griglia = qobject_cast<QGridLayout*>(campo_->layout());
    for (QWidget* s : schede_) griglia->removeWidget(s);
    for (std::size_t i = 0; i < schede_.size(); ++i) {
        const int n = static_cast<int>(i);
        griglia->addWidget(schede_[i], n / colonne, n % colonne);
    }
    for (int c = 0; c < 5; ++c) griglia->setColumnStretch(c, c < colonne ? 1 : 0);
}

bool PaginaMigliori::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == scorri_->viewport() && evento->type() == QEvent::Resize)
        disponi_schede(scorri_->viewport()->width());
    return QWidget::eventFilter(oggetto, evento);
}

void PaginaMigliori::mostra(const EsitoRicerca& esito, const QString& ambito) {
    esito_ = esito;
    const Tabella& t = esito.risultato->tabelle.front();
    for (std::size_t i = 0; i < gruppi_.size() && i < t.righe(); ++i) {
        gruppi_[i]->setText(testo_qt(t.testo(i, 1)));
        ritardi_[i]->setText(testo_qt(t.testo(i, 2)));
    }
    ambito_->setText(ambito);
    intestazione_->setText(testo_qt(esito.titolo()));
    aggiorna_comandi();
}

void PaginaMigliori::svuota() {
    esito_ = {};
    for (std::size_t i = 0; i < gruppi_.size(); ++i) {
        gruppi_[i]->clear();
        ritardi_[i]->clear();
    }
    ambito_->setText(tr("Scegli le ruote a sinistra, poi premi «Avvia Ricerca» (oppure F5)."));
    aggiorna_comandi();
}

void PaginaMigliori::imposta_stampabile(bool si, bool come_immagine) {
    stampabile_ = si;
    come_immagine_ = come_immagine;
    aggiorna_comandi();
}

void PaginaMigliori::aggiorna_comandi() {
    const bool qualcosa = esito_.prodotto();
    const QString niente = tr("Non c'è ancora un risultato: avvia la ricerca.");
    stampa_->setEnabled(qualcosa && stampabile_);
    stampa_->setToolTip(!stampabile_ ? tr("La stampa non è ancora disponibile.")
                        : qualcosa   ? tr("Stampa la pagina (Ctrl+P)")
                                     : niente);
    immagine_->setEnabled(qualcosa && come_immagine_);
    immagine_->setToolTip(qualcosa ? tr("Stampa la pagina com'è sullo schermo, da posare sul foglio")
                                   : niente);
    esporta_->setEnabled(qualcosa);
    esporta_->setToolTip(qualcosa ? tr("Scrive la pagina in un file CSV, XLSX o JSON (Ctrl+E)") : niente);
}

void PaginaMigliori::scorri(bool avanti) {
    scorri_->verticalScrollBar()->triggerAction(avanti ? QAbstractSlider::SliderPageStepAdd
                                                       : QAbstractSlider::SliderPageStepSub);
}

QImage PaginaMigliori::immagine() {
    // Paper is light: on a dark skin the picture is drawn in the first one. The window keeps its own, since
    // nothing is painted in between.
    const int skin = indice_skin_in_uso();
    const bool scura = skin_in_uso().scura;
    if (scura) applica_tema(*qApp, 1);
    // The commands and the arrow stand outside of what is drawn; the heading comes for the picture alone. The
    // scroll area would bring the page back to the window's width.
    scorri_->setWidgetResizable(false);
    intestazione_->show();
    QList<std::pair<QAbstractScrollArea*, Qt::ScrollBarPolicy>> barre;
    for (auto* area : contenuto_->findChildren<QAbstractScrollArea*>()) {
        barre.append({area, area->horizontalScrollBarPolicy()});
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    const QSize prima = contenuto_->size();
    // At once, without a turn of the event loop, which would paint.
    const auto disponi = [this](QSize misura) {
        campo_->layout()->activate();
        campo_->updateGeometry();
        contenuto_->layout()->invalidate();
        contenuto_->resize(misura);
        contenuto_->layout()->activate();
    };
    const auto stendi = [&](int larghezza) {
        disponi_schede(larghezza - kPasso);
        disponi({larghezza, contenuto_->height()});
        QLayout* tutto = contenuto_->layout();
        tutto->invalidate();
        disponi(
            {larghezza, std::max(tutto->totalHeightForWidth(larghezza), tutto->totalSizeHint().height())});
    };
    stendi(kLarghezzaImmagine);
    // A larger font may need more than the usual width: the picture grows rather than be cut.
    if (const int minima = contenuto_->layout()->totalMinimumSize().width(); minima > kLarghezzaImmagine)
        stendi(minima);
    // A white edge all round: nothing ends where the picture does.
    const QSizeF intera = contenuto_->size() + QSize{2 * kPasso, 2 * kPasso};
    const double punti = kLarghezzaCarta / kPollice * kPuntiPerPollice / intera.width();
    QImage disegno{(intera * punti).toSize(), QImage::Format_RGB32};
    disegno.setDevicePixelRatio(punti);
    disegno.fill(Qt::white);
    contenuto_->render(&disegno, {kPasso, kPasso}, {}, QWidget::DrawChildren);
    intestazione_->hide();
    for (const auto& [area, come] : barre) area->setHorizontalScrollBarPolicy(come);
    disponi_schede(scorri_->viewport()->width());
    disponi(prima);
    scorri_->setWidgetResizable(true);
    if (scura) applica_tema(*qApp, skin);
    return disegno;
}

// ---- form_tab_pos2 ----

form_tab_pos2::form_tab_pos2(Sessione& sessione, QWidget* padre)
    : SchermoConcorso{sessione, QStringLiteral("form_tab_pos2"), padre},
      cornice_{new QWidget},
      pila_{new QStackedWidget{cornice_}},
      area_{new AreaParametri},
      concorso_{new QLabel{cornice_}},
      dieci_{new GrigliaDieci} {
    const QFont cifre = carattere_tabellare(font());
    for (std::size_t i = 0; i < lblDatiTab_.size(); ++i) {
        // Each goes into the card of its family; the two that no family writes stay unseen.
        auto* l = new QLabel{pila_};
        l->setObjectName(QStringLiteral("lblDatiTab_%1").arg(i));
        l->setFont(cifre);
        lblDatiTab_[i] = l;
    }
    for (std::size_t p = 0; p < pagine_.size(); ++p) {
        pagine_[p] = new PaginaMigliori{kNomiPagine[p], lblDatiTab_};
        pila_->addWidget(pagine_[p]);
        pannelli_[p] = new PannelloAvanzamento{this};
        pannelli_[p]->setObjectName(QString::fromLatin1(kNomiPannelli[p]));
        pannelli_[p]->imposta_scritta(tr("Elaborazione in corso..."));
        connect(pagine_[p], &PaginaMigliori::volta, this, [this, p] { volta(p == 0 ? 2 : 1); });
        connect(pagine_[p], &PaginaMigliori::stampa, this, [this] { stampa(); });
        connect(pagine_[p], &PaginaMigliori::stampa_immagine, this, &form_tab_pos2::stampa_immagine);
        connect(pagine_[p], &PaginaMigliori::esporta, this, [this] { esporta(); });
        connect(pagine_[p], &PaginaMigliori::esci, this, &QWidget::close);
    }
    for (std::size_t i = 0; i < lblDatiTab_.size(); ++i) {
        if (lblDatiTab_[i]->parent() != pila_) continue;
        lblDatiTab_[i]->setParent(pagine_[i < kPrimaEtichettaPagina2 ? 0 : 1]);
        lblDatiTab_[i]->hide();
    }
    // The list stands on the page whole: the page scrolls, not the list.
    dieci_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    dieci_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    dieci_->setFrameShape(QFrame::NoFrame);
    pagine_[0]->aggiungi_sotto(dieci_, tr("I 10 numeri più in ritardo su ogni ruota («Tutte» all'ultima "
                                          "estrazione dell'archivio)"));

    auto* riga = new QHBoxLayout{cornice_};
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(4 * kPasso);
    riga->addWidget(componi_colonna());
    riga->addWidget(pila_, 1);
    aggiungi_pagina(cornice_);
}

QWidget* form_tab_pos2::componi_colonna() {
    auto* colonna = new QWidget{cornice_};
    colonna->setFixedWidth(kLarghezzaColonna);
    area_->configura(AreaParametri::Genere::solo_ruote);
    auto* scritta = new QLabel{tr("Al concorso"), colonna};
    assegna_ruolo(scritta, "sezione");
    concorso_->setObjectName(QStringLiteral("lblconcorso"));
    concorso_->setFont(carattere_tabellare(font()));
    auto* altro = new QLabel{tr("I ritardi sono contati fino a questo concorso. Per un altro, esci e "
                                "riapri la ricerca dal catalogo."),
                             colonna};
    altro->setWordWrap(true);
    assegna_ruolo(altro, "quieto");
    auto* v = new QVBoxLayout{colonna};
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(kPasso);
    v->addWidget(area_);
    v->addWidget(scritta);
    v->addWidget(concorso_);
    v->addWidget(altro);
    v->addStretch(1);
    for (std::size_t p = 0; p < avvia_.size(); ++p) {
        avvia_[p] = new QPushButton{tr("Avvia &Ricerca"), colonna};
        avvia_[p]->setObjectName(QString::fromLatin1(kNomiAvvia[p]));
        avvia_[p]->setIcon(icona(QStringLiteral("avvia"), TintaIcona::su_accento));
        avvia_[p]->setToolTip(tr("Calcola la pagina %1 (F5)").arg(p + 1));
        assegna_ruolo(avvia_[p], "primario");
        v->addWidget(avvia_[p]);
    }
    connect(avvia_[0], &QPushButton::clicked, this, &form_tab_pos2::CalcolaTabellone);
    connect(avvia_[1], &QPushButton::clicked, this, &form_tab_pos2::CalcolaTabellone2);
    return colonna;
}

void form_tab_pos2::iniz() {
    area_->apri(*archivio(), ricerca()->ruote);
    for (PaginaMigliori* p : pagine_) p->svuota();
    dieci_->svuota();
    SchermoConcorso::iniz();
}

void form_tab_pos2::costruisci(const Domanda& domanda) {
    const EsitoRicerca dieci = chiedi(*trova_ricerca(nomi::kDieciNumeri.chiave), domanda);
    if (!dieci.prodotto()) return;
    chiesta_ = domanda;
    dieci_->mostra(*dieci.risultato);
    const Concorso c = concorso_scelto(*archivio(), tipo(), domanda.di<ParametriTabellone>().concorso);
    const std::string giorno = data_tabellone(*archivio(), tipo(), c);
    concorso_->setText(giorno.empty() ? QString::number(c) : tr("%1 del %2").arg(c).arg(testo_qt(giorno)));
    mostra_pagina(cornice_, QString::fromLatin1(kTitoloInCorsa));
    volta(1);
}

PaginaMigliori* form_tab_pos2::in_vista() const {
    return pagina() == cornice_ ? dynamic_cast<PaginaMigliori*>(pila_->currentWidget()) : nullptr;
}

void form_tab_pos2::volta(int pagina) {
    pila_->setCurrentWidget(pagine_[static_cast<std::size_t>(pagina - 1)]);
    for (std::size_t p = 0; p < avvia_.size(); ++p) avvia_[p]->setVisible(static_cast<int>(p) + 1 == pagina);
    avvia_[static_cast<std::size_t>(pagina - 1)]->setFocus();
}

void form_tab_pos2::CalcolaTabellone() {
    calcola(pagine_[0]);
}

void form_tab_pos2::CalcolaTabellone2() {
    calcola(pagine_[1]);
}

void form_tab_pos2::calcola(PaginaMigliori* pagina) {
    if (in_corsa() || archivio() == nullptr) return;
    Domanda d = chiesta_;
    d.ambito.ruote = area_->ruote();
    auto& parametri = d.parametri.per<ParametriTabellone>();
    parametri.pagina = pagina->numero();
    parametri.indice_combo = sessione().indice_combo_rit;
    const EsitoRicerca esito =
        chiedi(*ricerca(), d, pannelli_[static_cast<std::size_t>(pagina->numero() - 1)]);
    if (!esito.prodotto()) return;
    const std::string ruote = d.ambito.ruote.nomi();
    QString ambito = tr("Ruote: %1  ·  al concorso %2")
                         .arg(ruote.empty() ? tr("Bari") : testo_qt(ruote), concorso_->text());
    if (esito.ambito && esito.ambito->simulato) ambito += tr("  ·  Archivio simulato");
    pagina->mostra(esito, ambito);
}

void form_tab_pos2::imposta(const Domanda& domanda) {
    SchermoConcorso::imposta(domanda);
    area_->imposta_ruote(domanda.ambito.ruote);
}

void form_tab_pos2::ripeti() {
    if (PaginaMigliori* p = in_vista()) calcola(p);
}

void form_tab_pos2::keyPressEvent(QKeyEvent* evento) {
    PaginaMigliori* p = in_vista();
    if (p != nullptr && (evento->key() == Qt::Key_PageUp || evento->key() == Qt::Key_PageDown))
        p->scorri(evento->key() == Qt::Key_PageDown);
    else
        SchermoConcorso::keyPressEvent(evento);
}

void form_tab_pos2::imposta_stampa_immagine(std::function<void(QWidget*, const QImage&)> stampa) {
    stampa_immagine_ = std::move(stampa);
    aggiorna_comandi();
}

const EsitoRicerca* form_tab_pos2::in_mostra() const {
    const PaginaMigliori* p = in_vista();
    return p != nullptr && p->esito().prodotto() ? &p->esito() : nullptr;
}

void form_tab_pos2::stampa_immagine() {
    if (in_mostra() != nullptr && !in_corsa() && stampa_immagine_)
        stampa_immagine_(this, in_vista()->immagine());
}

void form_tab_pos2::aggiorna_comandi() {
    for (PaginaMigliori* p : pagine_) p->imposta_stampabile(stampabile(), stampa_immagine_ != nullptr);
}

}  // namespace sortimetra
