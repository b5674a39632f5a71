#include "screens/griglia_risultati.h"

#include "screens/tema.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace sortimetra {

namespace {

/// Blank on each side of a cell's text.
constexpr int kMargineCella = 2 * kPasso;
/// A column narrower than this looks cramped; one that is given spare room stops at the other.
constexpr int kColonnaMinima = 14 * kPasso;
constexpr int kColonnaAgiata = 40 * kPasso;
/// Under painted titles there are many columns of short numbers.
constexpr int kColonnaMinimaDipinta = 10 * kPasso;
/// The same three measures on a board.
constexpr int kMargineTabellone = kPasso;
constexpr int kColonnaMinimaTabellone = 7 * kPasso;
constexpr int kColonnaAgiataTabellone = 24 * kPasso;
/// Blanks that columns under painted titles and those of a board may shrink to where the whole table is in
/// sight then.
constexpr int kMargineStretto = kPasso;
constexpr int kMargineStrettoTabellone = kPasso / 2;
/// A text column of whole sentences is cut here; the cell shows the rest as its tooltip.
constexpr int kColonnaMassima = 120 * kPasso;
/// Eighths of a selection's colour in the row under the pointer.
constexpr int kParteSotto = 3;
/// Side of the arrow in a sort button.
constexpr int kFreccia = 3 * kPasso;

constexpr std::array kChiaviPulsanteUno{"ricerche su tutti gli ambi", "ambata capogioco", "ambo capogioco"};

/// `a` with so many eighths of `b`.
QRgb mescolato(QRgb a, QRgb b, int ottavi) {
    const auto m = [ottavi](int x, int y) { return x + (y - x) * ottavi / 8; };
    return qRgb(m(qRed(a), qRed(b)), m(qGreen(a), qGreen(b)), m(qBlue(a), qBlue(b)));
}
QRgb mezzo(QRgb a, QRgb b) {
    return mescolato(a, b, 4);
}

/// Paints a cell with as little as it takes: ground, text, and the row of the current cell half way to the
/// colour of a selection, so that the eye follows a line from its number to its last figure.
class PittoreCelle final : public QStyledItemDelegate {
  public:
    explicit PittoreCelle(QTableView* vista) : QStyledItemDelegate{vista}, vista_{vista} {}

    void imposta_tabellone(bool si) { tabellone_ = si; }
    void imposta_margine(int margine) { margine_ = margine; }
    /// The row under the pointer, -1 for none: on a board it is tinted, too, but less.
    void imposta_riga_sotto(int riga) { riga_sotto_ = riga; }
    [[nodiscard]] int riga_sotto() const { return riga_sotto_; }

    void paint(QPainter* pittore, const QStyleOptionViewItem& opzione, const QModelIndex& i) const override {
        const Skin& s = skin_in_uso();
        const auto colore = [&i](Qt::ItemDataRole ruolo) {
            return i.data(ruolo).value<QBrush>().color().rgb();
        };
        const QRgb tinta = colore(Qt::BackgroundRole);
        QRgb fondo = tinta;
        QRgb testo = colore(Qt::ForegroundRole);
        const QModelIndex corrente = vista_->currentIndex();
        if ((opzione.state & QStyle::State_Selected) != 0) {
            fondo = s.selezione;
            testo = s.testo_selezione;
        } else if (corrente.isValid() && corrente.row() == i.row()) {
            fondo = mezzo(fondo, s.selezione);
            testo = leggibile(testo, fondo);
        } else if (riga_sotto_ == i.row()) {
            fondo = mescolato(fondo, s.selezione, kParteSotto);
            testo = leggibile(testo, fondo);
        }
        pittore->fillRect(opzione.rect, QColor::fromRgb(fondo));
        if (tinta != s.tinta_a && tinta != s.tinta_b && tabellone_) {
            // Columns tinted from top to bottom have no bands: a fine rule under each row leads the eye from
            // the delay to its numbers.
            const QRect& r = opzione.rect;
            pittore->fillRect(r.left(), r.bottom(), r.width(), 1,
                              QColor::fromRgb(mescolato(fondo, testo, 1)));
        }
        pittore->setPen(QColor::fromRgb(testo));
        QFont carattere = opzione.font;
        carattere.setBold(i.column() == 0);
        pittore->setFont(carattere);
        const int margine = tabellone_ ? 0 : margine_;
        const QRect dove = opzione.rect.adjusted(margine, 0, -margine, 0);
        const QString scritto = i.data(Qt::DisplayRole).toString();
        const QFontMetrics misure{carattere};
        const Qt::Alignment lato =
            tabellone_ ? Qt::AlignCenter : i.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
        pittore->drawText(dove, static_cast<int>(lato),
                          misure.elidedText(scritto, Qt::ElideRight, dove.width()));
        if (corrente == i && vista_->hasFocus()) {
            pittore->setPen(QColor::fromRgb(s.accento));
            pittore->drawRect(opzione.rect.adjusted(0, 0, -1, -1));
        }
    }

  private:
    QTableView* vista_;
    bool tabellone_ = false;
    int margine_ = kMargineCella;
    int riga_sotto_ = -1;
};

PittoreCelle* pittore_di(const QTableView* vista) {
    return dynamic_cast<PittoreCelle*>(vista->itemDelegate());
}

}  // namespace

void VistaGriglia::paintEvent(QPaintEvent* evento) {
    const int sinistra = horizontalHeader()->length() - horizontalHeader()->offset();
    if (model() != nullptr && sinistra < viewport()->width()) {
        QPainter pittore{viewport()};
        const Skin& s = skin_in_uso();
        const int righe = model()->rowCount();
        for (int r = std::max(0, rowAt(0)); r < righe; ++r) {
            const int y = rowViewportPosition(r);
            if (y >= viewport()->height()) break;
            QRgb fondo = r % 2 == 0 ? s.tinta_a : s.tinta_b;
            if (currentIndex().isValid() && currentIndex().row() == r)
                fondo = mezzo(fondo, s.selezione);
            else if (pittore_di(this)->riga_sotto() == r)
                fondo = mescolato(fondo, s.selezione, kParteSotto);
            pittore.fillRect(sinistra, y, viewport()->width() - sinistra, rowHeight(r),
                             QColor::fromRgb(fondo));
        }
    }
    QTableView::paintEvent(evento);
}

void VistaGriglia::keyPressEvent(QKeyEvent* evento) {
    // The view's own answer would be the text of one cell.
    if (evento->matches(QKeySequence::Copy)) {
        emit copia_richiesta();
        evento->accept();
        return;
    }
    QTableView::keyPressEvent(evento);
}

/// The titles and the sort buttons, lined up with the columns of the view under them.
class GrigliaRisultati::Testata final : public QWidget {
  public:
    explicit Testata(GrigliaRisultati* griglia) : QWidget{griglia}, griglia_{griglia} {}

    [[nodiscard]] std::size_t righe_dipinte() const {
        const auto& t = griglia_->modello_->tabella();
        return t && (griglia_->tabellone_ || t->titoli.size() > 1) ? t->titoli.size() : 0;
    }
    [[nodiscard]] int altezza_titolo() const { return fontMetrics().height() + 2 * kPasso; }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Skin& s = skin_in_uso();
        QPainter p{this};
        p.fillRect(rect(), QColor::fromRgb(s.rilievo));
        p.fillRect(0, height() - 1, width(), 1, QColor::fromRgb(s.bordo));
        if (righe_dipinte() == 0) return;
        const int base = height() - static_cast<int>(righe_dipinte()) * altezza_titolo();
        const bool blocca = griglia_->bloccata_->isVisible();
        const int fermo = blocca ? griglia_->bloccata_->columnWidth(0) + 1 : 0;
        p.save();
        p.setClipRect(fermo, 0, width() - fermo, height());
        dipingi_titoli(p, base, 0, fermo);
        p.restore();
        if (blocca) {
            p.setClipRect(0, 0, fermo, height());
            p.fillRect(0, base, fermo, height() - base - 1, QColor::fromRgb(s.rilievo));
            dipingi_titoli(p, base, griglia_->vista_->horizontalScrollBar()->value(), 0);
        }
    }
    void mousePressEvent(QMouseEvent* e) override {
        if (griglia_->tabellone_ || righe_dipinte() == 0 || e->position().y() < height() - altezza_titolo())
            return;
        const int x = static_cast<int>(e->position().x()) - 1;
        const bool ferma = griglia_->bloccata_->isVisible() && x < griglia_->bloccata_->columnWidth(0);
        const int colonna = ferma ? 0 : griglia_->vista_->columnAt(x);
        if (colonna >= 0) griglia_->titolo_premuto(colonna);
    }

  private:
    /// `fermo` is what the frozen column covers: a wide title stays in the part of its span that is in sight.
    void dipingi_titoli(QPainter& p, int base, int scarto, int fermo) const {
        const Skin& s = skin_in_uso();
        const auto& titoli = griglia_->modello_->tabella()->titoli;
        const int n = griglia_->modello_->columnCount();
        QFont carattere = font();
        carattere.setBold(true);
        p.setFont(carattere);
        for (std::size_t r = 0; r < titoli.size(); ++r) {
            const int y = base + static_cast<int>(r) * altezza_titolo();
            const bool ultima = r + 1 == titoli.size() && !griglia_->tabellone_;
            for (int c = 0; c < n;) {
                int fine = c + 1;
                const auto titolo = [&](int i) -> const std::string& {
                    return titoli[r][static_cast<std::size_t>(i)];
                };
                // A title spans the empty ones after it; the first column stands alone.
                while (!ultima && c > 0 && fine < n && titolo(fine).empty()) ++fine;
                const int sinistra = griglia_->vista_->columnViewportPosition(c) + 1 + scarto;
                const int destra = griglia_->vista_->columnViewportPosition(fine - 1) +
                                   griglia_->vista_->columnWidth(fine - 1) + 1 + scarto;
                QRect dove{sinistra, y, destra - sinistra, altezza_titolo()};
                // A title has the empty rows under it, too.
                const auto vuota = [&](std::size_t sotto) {
                    const auto* prima = titoli[sotto].data();
                    return std::all_of(prima + c, prima + fine, [](const auto& t) { return t.empty(); });
                };
                for (std::size_t sotto = r + 1; sotto < titoli.size() && vuota(sotto); ++sotto)
                    dove.setHeight(dove.height() + altezza_titolo());
                if (r > 0 && vuota(r)) {
                    c = fine;
                    continue;
                }
                p.setPen(QColor::fromRgb(s.linea));
                p.drawLine(dove.topRight(), dove.bottomRight());
                p.setPen(QColor::fromRgb(s.testo));
                const auto lato = fine - c > 1 || griglia_->tabellone_ ? Qt::AlignHCenter
                                  : griglia_->modello_->numerica(c)    ? Qt::AlignRight
                                                                       : Qt::AlignLeft;
                const QString scritto = QString::fromStdString(titolo(c)).trimmed();
                const QRect in_vista = dove.intersected({fermo, y, width() - fermo, dove.height()});
                if (fine - c > 1 && p.fontMetrics().horizontalAdvance(scritto) < in_vista.width())
                    dove = in_vista;
                const int margine = griglia_->tabellone_ ? 1 : griglia_->margine_;
                p.drawText(dove.adjusted(margine, 0, -margine, 0), static_cast<int>(lato | Qt::AlignVCenter),
                           scritto);
                c = fine;
            }
        }
    }

    GrigliaRisultati* griglia_;
};

GrigliaRisultati::GrigliaRisultati(QWidget* padre)
    : QWidget{padre},
      modello_{new ModelloRisultato{this}},
      vista_{new VistaGriglia{this}},
      bloccata_{new VistaGriglia{vista_}},
      testata_{new Testata{this}},
      frase_{new QLabel{vista_}},
      barra_trova_{new QWidget{this}},
      testo_trova_{new QLineEdit{barra_trova_}},
      esito_trova_{new QLabel{barra_trova_}} {
    componi_viste();
    frase_->setAlignment(Qt::AlignCenter);
    frase_->setWordWrap(true);
    frase_->setAttribute(Qt::WA_TransparentForMouseEvents);
    assegna_ruolo(frase_, "quieto");

    componi_trova();
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);
    colonna->addWidget(testata_);
    colonna->addWidget(vista_, 1);
    colonna->addWidget(barra_trova_);
    setFocusProxy(vista_);
    disponi();
}

void GrigliaRisultati::componi_viste() {
    vista_->setObjectName(QStringLiteral("MSHFlexGrid1"));
    vista_->setAccessibleName(tr("Risultati"));
    bloccata_->setObjectName(QStringLiteral("MSHFlexGrid1_prima_colonna"));
    bloccata_->setFocusPolicy(Qt::NoFocus);
    bloccata_->setFrameShape(QFrame::NoFrame);
    // The skin frames every table: here that would push the rows a pixel off their neighbours.
    bloccata_->setStyleSheet(QStringLiteral("QTableView { border: none; }"));
    bloccata_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    bloccata_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    bloccata_->hide();
    for (VistaGriglia* v : {vista_, bloccata_}) {
        v->setModel(modello_);
        v->setItemDelegate(new PittoreCelle{v});
        v->setShowGrid(false);
        v->setWordWrap(false);
        v->setEditTriggers(QAbstractItemView::NoEditTriggers);
        v->setSelectionMode(QAbstractItemView::ExtendedSelection);
        v->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        v->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        v->setTabKeyNavigation(false);
        v->horizontalHeader()->hide();
        v->verticalHeader()->hide();
        v->horizontalHeader()->setMinimumSectionSize(2 * kPasso);
        v->verticalHeader()->setMinimumSectionSize(2 * kPasso);
        v->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        v->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(v, &QWidget::customContextMenuRequested, this,
                [this, v](const QPoint& p) { mostra_menu(v->viewport()->mapToGlobal(p)); });
        v->viewport()->installEventFilter(this);
    }
    bloccata_->setSelectionModel(vista_->selectionModel());
    prendi_caratteri();
    connect(vista_->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { disponi(); });
    connect(vista_->verticalScrollBar(), &QScrollBar::valueChanged, bloccata_->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(bloccata_->verticalScrollBar(), &QScrollBar::valueChanged, vista_->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(vista_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        // The whole line of the current cell is tinted, not the cell alone.
        vista_->viewport()->update();
        bloccata_->viewport()->update();
        emit riga_cambiata();
    });
    connect(vista_, &VistaGriglia::copia_richiesta, this, &GrigliaRisultati::copia);
}

void GrigliaRisultati::componi_trova() {
    auto* riga_trova = new QHBoxLayout{barra_trova_};
    riga_trova->setContentsMargins(0, 2 * kPasso, 0, 0);
    riga_trova->setSpacing(2 * kPasso);
    testo_trova_->setObjectName(QStringLiteral("txttrova"));
    testo_trova_->setPlaceholderText(tr("Trova nel risultato"));
    testo_trova_->setAccessibleName(tr("Trova nel risultato"));
    testo_trova_->setMaximumWidth(80 * kPasso);
    testo_trova_->addAction(icona(QStringLiteral("cerca"), TintaIcona::quieto), QLineEdit::LeadingPosition);
    testo_trova_->installEventFilter(this);
    assegna_ruolo(esito_trova_, "quieto");
    const auto bottone = [this](const char* figura, const QString& nome, auto&& azione) {
        auto* b = new QToolButton{barra_trova_};
        b->setIcon(icona(QString::fromLatin1(figura)));
        b->setToolTip(nome);
        b->setAccessibleName(nome);
        connect(b, &QToolButton::clicked, this, azione);
        return b;
    };
    riga_trova->addWidget(testo_trova_, 1);
    riga_trova->addWidget(bottone("su", tr("Precedente"), [this] { trova(-1); }));
    riga_trova->addWidget(bottone("giu", tr("Successivo"), [this] { trova(1); }));
    riga_trova->addWidget(esito_trova_);
    riga_trova->addStretch(1);
    riga_trova->addWidget(bottone("chiudi", tr("Chiudi la ricerca"), [this] {
        barra_trova_->hide();
        vista_->setFocus();
    }));
    barra_trova_->hide();
    connect(testo_trova_, &QLineEdit::textChanged, this, [this] {
        cerca_corrispondenze();
        if (!corrispondenze_.empty()) vai_a(0);
    });
}

void GrigliaRisultati::inizializza(const std::vector<std::vector<std::string>>& titoli) {
    auto vuota = std::make_shared<Tabella>();
    vuota->titoli = titoli;
    vuota->colonne.resize(titoli.empty() ? 0 : titoli.back().size());
    mostra(std::move(vuota));
    ultimo_titolo_.reset();
}

void GrigliaRisultati::mostra(std::shared_ptr<const Tabella> tabella) {
    modello_->mostra(std::move(tabella));
    ordinamento_.reset();
    crea_pulsanti();
    adatta_colonne();
    segna_ordinamento();
    vista_->scrollToTop();
    vista_->horizontalScrollBar()->setValue(0);
    cerca_corrispondenze();
    aggiorna_frase();
    emit riga_cambiata();
}

void GrigliaRisultati::svuota() {
    modello_->svuota();
    ordinamento_.reset();
    segna_ordinamento();
    cerca_corrispondenze();
    aggiorna_frase();
    emit riga_cambiata();
}

void GrigliaRisultati::imposta_frase_vuota(const QString& frase) {
    frase_->setText(frase);
    aggiorna_frase();
}

void GrigliaRisultati::blocca_prima_colonna(bool si) {
    blocca_ = si;
    disponi();
}

void GrigliaRisultati::imposta_tabellone(bool si) {
    tabellone_ = si;
    for (VistaGriglia* v : {vista_, bloccata_}) {
        pittore_di(v)->imposta_tabellone(si);
        v->setMouseTracking(si);
    }
    crea_pulsanti();
    adatta_colonne();
}

void GrigliaRisultati::crea_pulsanti() {
    const auto n = tabellone_ ? 0 : static_cast<std::size_t>(modello_->columnCount());
    while (pulsanti_.size() > n) {
        delete pulsanti_.back();
        pulsanti_.pop_back();
    }
    while (pulsanti_.size() < n) {
        const auto i = static_cast<int>(pulsanti_.size());
        auto* b = new QPushButton{testata_};
        b->setObjectName(nomi_pulsanti_.arg(primo_pulsante_ + i));
        b->setProperty("tag", QString{});
        b->setIconSize({kFreccia, kFreccia});
        connect(b, &QPushButton::clicked, this, [this, i] { premi(i); });
        b->show();
        pulsanti_.push_back(b);
    }
    const bool titoli_dipinti = testata_->righe_dipinte() > 0;
    for (std::size_t i = 0; i < n; ++i) {
        QPushButton* b = pulsanti_[i];
        const QString titolo = modello_->headerData(static_cast<int>(i), Qt::Horizontal).toString();
        b->setText(titoli_dipinti ? QString{} : titolo);
        b->setToolTip(tr("Ordina per questa colonna"));
        b->setAccessibleName(
            tr("Ordina per %1").arg(titolo.isEmpty() ? tr("colonna %1").arg(i + 1) : titolo));
        // Sixty sort buttons would bury the grid in tab stops: there the context menu sorts.
        b->setFocusPolicy(n <= 8 ? Qt::StrongFocus : Qt::ClickFocus);
        const bool destra = modello_->numerica(static_cast<int>(i));
        b->setProperty("lato", titoli_dipinti ? "centro" : destra ? "destra" : "sinistra");
        assegna_ruolo(b, "ordina");
    }
}

void GrigliaRisultati::prendi_caratteri() {
    const QFont cifre = carattere_tabellare(QApplication::font());
    for (VistaGriglia* v : {vista_, bloccata_}) {
        v->setFont(cifre);
        v->verticalHeader()->setDefaultSectionSize(QFontMetrics{cifre}.height() + 2 * kPasso);
    }
}

QString GrigliaRisultati::titolo_piu_largo(int colonna) const {
    QString largo;
    const auto c = static_cast<std::size_t>(colonna);
    const auto& titoli = modello_->tabella()->titoli;
    for (std::size_t r = 0; r < titoli.size(); ++r) {
        // A title with empty ones after it has their room too.
        const bool si_allarga = (tabellone_ || r + 1 < titoli.size()) && c > 0 && c + 1 < titoli[r].size() &&
                                titoli[r][c + 1].empty();
        const QString titolo = QString::fromStdString(titoli[r][c]).trimmed();
        if (!si_allarga && titolo.size() > largo.size()) largo = titolo;
    }
    return largo;
}

void GrigliaRisultati::adatta_colonne() {
    const int n = modello_->columnCount();
    if (n == 0) return;
    QFont grassetto = vista_->font();
    grassetto.setBold(true);
    const QFontMetrics celle{vista_->font()};
    const QFontMetrics prima{grassetto};
    QFont font_titoli = testata_->font();
    font_titoli.setBold(true);
    const QFontMetrics titoli{font_titoli};
    const bool dipinti = testata_->righe_dipinte() > 0;
    margine_ = compatta_ ? kMargineStretto : kMargineCella;
    std::vector<int> larghezze;
    std::vector<int> strette;
    const int blanco = tabellone_ ? kMargineStrettoTabellone : kMargineStretto;
    for (int c = 0; c < n; ++c) {
        const QString titolo = titolo_piu_largo(c);
        const int testo = (c == 0 ? prima : celle).horizontalAdvance(modello_->testo_piu_largo(c));
        // Painted titles have no arrow beside them: it stands in the strip of buttons above.
        const int testata = titoli.horizontalAdvance(titolo) + (dipinti ? 0 : kFreccia + kPasso);
        const int margine = tabellone_ ? kMargineTabellone : compatta_ ? kMargineStretto : kMargineCella;
        const int minima = tabellone_             ? kColonnaMinimaTabellone
                           : dipinti || compatta_ ? kColonnaMinimaDipinta
                                                  : kColonnaMinima;
        const int contenuto = std::max(testo, testata);
        const int l = std::clamp(contenuto + 2 * margine + kPasso, minima, kColonnaMassima);
        larghezze.push_back(l);
        strette.push_back(std::min(l, contenuto + 2 * (c == 0 ? std::max(blanco, kMargineStretto) : blanco)));
    }
    const bool scorre =
        modello_->rowCount() * vista_->verticalHeader()->defaultSectionSize() > vista_->viewport()->height();
    const int barra = scorre && !vista_->verticalScrollBar()->isVisible()
                          ? vista_->verticalScrollBar()->sizeHint().width()
                          : 0;
    const auto libero = [&](const std::vector<int>& l) {
        return vista_->viewport()->width() - barra - std::accumulate(l.begin(), l.end(), 0);
    };
    // Many columns of short numbers give up their blanks where that brings the last of them into sight.
    if (dipinti && libero(larghezze) < 0 && libero(strette) >= 0) {
        larghezze = strette;
        margine_ = blanco;
    }
    // A narrow table takes some of the room that is left, up to a width at which a line is still one line.
    const int avanza = std::max(libero(larghezze), 0);
    for (int c = 0; c < n; ++c) {
        int& l = larghezze[static_cast<std::size_t>(c)];
        const int agiata = tabellone_ ? kColonnaAgiataTabellone : kColonnaAgiata;
        if (l < agiata) l = std::min(agiata, l + avanza / n + (c < avanza % n ? 1 : 0));
        vista_->setColumnWidth(c, l);
        bloccata_->setColumnHidden(c, c > 0);
    }
    for (VistaGriglia* v : {vista_, bloccata_}) pittore_di(v)->imposta_margine(margine_);
    bloccata_->setColumnWidth(0, larghezze.front());
    disponi();
}

void GrigliaRisultati::disponi() {
    const int riga = testata_->fontMetrics().height() + 3 * kPasso;
    const auto dipinte = testata_->righe_dipinte();
    const int striscia = tabellone_ ? 0 : dipinte > 0 ? 6 * kPasso : riga;
    testata_->setFixedHeight(
        modello_->columnCount() == 0 ? 0 : striscia + static_cast<int>(dipinte) * testata_->altezza_titolo());

    const bool blocca = blocca_ && modello_->columnCount() > 1 &&
                        vista_->horizontalHeader()->length() > vista_->viewport()->width();
    const QRect porta = vista_->viewport()->geometry();
    bloccata_->setGeometry(porta.x(), porta.y(), bloccata_->columnWidth(0), porta.height());
    bloccata_->setVisible(blocca);
    for (std::size_t i = 0; i < pulsanti_.size(); ++i) {
        const int c = static_cast<int>(i);
        const int x = blocca && c == 0 ? 0 : vista_->columnViewportPosition(c);
        pulsanti_[i]->setGeometry(porta.x() + x, 0, vista_->columnWidth(c), striscia);
    }
    if (blocca && !pulsanti_.empty()) pulsanti_.front()->raise();
    testata_->update();
    frase_->setGeometry(porta.adjusted(6 * kPasso, 0, -6 * kPasso, 0));
}

void GrigliaRisultati::segna_ordinamento() {
    for (std::size_t i = 0; i < pulsanti_.size(); ++i) {
        const bool questa = ordinamento_ && ordinamento_->first == static_cast<int>(i);
        const bool crescente = questa && ordinamento_->second == Verso::crescente;
        // A button without a caption would be a blank: there the arrow shows always, quiet until it sorts.
        const bool muto = pulsanti_[i]->text().isEmpty();
        pulsanti_[i]->setIcon(questa || muto ? icona(crescente ? QStringLiteral("su") : QStringLiteral("giu"),
                                                     questa ? TintaIcona::accento : TintaIcona::quieto)
                                             : QIcon{});
    }
}

void GrigliaRisultati::aggiorna_frase() {
    frase_->setVisible(vuota() && !frase_->text().isEmpty());
}

void GrigliaRisultati::premi(int pulsante) {
    if (pulsante < 0 || static_cast<std::size_t>(pulsante) >= pulsanti_.size()) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool propria =
        pulsante == 1 && std::any_of(kChiaviPulsanteUno.begin(), kChiaviPulsanteUno.end(),
                                     [this](const char* c) { return chiave_ == QLatin1String(c); });
    const int colonna = propria ? 0 : pulsante;
    QPushButton* b = pulsanti_[static_cast<std::size_t>(pulsante)];
    const bool crescente = !b->property("tag").toString().isEmpty();
    b->setProperty("tag", crescente ? QString{} : QStringLiteral("0"));
    ordina_colonna(colonna, crescente ? Verso::crescente : Verso::decrescente);
    QApplication::restoreOverrideCursor();
}

void GrigliaRisultati::ordina_colonna(int colonna, Verso verso) {
    if (vuota()) return;
    // A selection of many single cells would cost more than the sort.
    vista_->selectionModel()->clearSelection();
    modello_->ordina_per(colonna, verso);
    ordinamento_ = {colonna, verso};
    segna_ordinamento();
    vista_->scrollToTop();
    cerca_corrispondenze();
}

void GrigliaRisultati::titolo_premuto(int colonna) {
    const std::pair crescente{colonna, Verso::crescente};
    const Verso verso = ultimo_titolo_ == crescente ? Verso::decrescente : Verso::crescente;
    ultimo_titolo_ = {colonna, verso};
    ordina_colonna(colonna, verso);
}

std::optional<std::size_t> GrigliaRisultati::riga_scelta() const {
    const QModelIndex i = vista_->currentIndex();
    if (!i.isValid()) return std::nullopt;
    return modello_->riga_originale(i.row());
}

QString GrigliaRisultati::testo_selezione() const {
    QItemSelection scelta = vista_->selectionModel()->selection();
    const QModelIndex corrente = vista_->currentIndex();
    const bool una_cella = scelta.size() == 1 && scelta[0].width() == 1 && scelta[0].height() == 1;
    if ((scelta.isEmpty() || una_cella) && corrente.isValid())
        scelta = {modello_->index(corrente.row(), 0),
                  modello_->index(corrente.row(), modello_->columnCount() - 1)};
    if (scelta.isEmpty()) return {};
    // The rectangle round everything that is selected, with the cells that are not left empty.
    int alto = scelta[0].top();
    int basso = scelta[0].bottom();
    int sinistra = scelta[0].left();
    int destra = scelta[0].right();
    for (const QItemSelectionRange& r : scelta) {
        alto = std::min(alto, r.top());
        basso = std::max(basso, r.bottom());
        sinistra = std::min(sinistra, r.left());
        destra = std::max(destra, r.right());
    }
    const bool intera = scelta.size() == 1;
    QString testo;
    for (int r = alto; r <= basso; ++r) {
        QString riga;
        bool qualcosa = intera;
        for (int c = sinistra; c <= destra; ++c) {
            if (c > sinistra) riga += QLatin1Char{'\t'};
            if (!intera && !scelta.contains(modello_->index(r, c))) continue;
            riga += modello_->testo(r, c);
            qualcosa = true;
        }
        if (qualcosa) testo += riga + QLatin1Char{'\n'};
    }
    return testo;
}

void GrigliaRisultati::copia() const {
    const QString testo = testo_selezione();
    if (!testo.isEmpty()) QApplication::clipboard()->setText(testo);
}

void GrigliaRisultati::mostra_menu(const QPoint& dove) {
    QMenu menu;
    menu.setObjectName(QStringLiteral("menu_griglia"));
    const int colonna = vista_->currentIndex().column();
    const bool qualcosa = !vuota();
    auto* a = menu.addAction(icona(QStringLiteral("copia")), tr("&Copia"), this, &GrigliaRisultati::copia);
    a->setShortcut(QKeySequence::Copy);
    a->setEnabled(qualcosa && vista_->currentIndex().isValid());
    a = menu.addAction(tr("Seleziona &tutto"), vista_, &QTableView::selectAll);
    a->setShortcut(QKeySequence::SelectAll);
    a->setEnabled(qualcosa);
    a = menu.addAction(icona(QStringLiteral("cerca")), tr("&Trova…"), this, &GrigliaRisultati::apri_trova);
    a->setShortcut(QKeySequence::Find);
    a->setEnabled(qualcosa);
    menu.addSeparator();
    if (!tabellone_) {
        a = menu.addAction(icona(QStringLiteral("giu")), tr("&Ordina per questa colonna"), this,
                           [this, colonna] {
                               const bool girare = ordinamento_ && ordinamento_->first == colonna &&
                                                   ordinamento_->second == Verso::decrescente;
                               ordina_colonna(colonna, girare ? Verso::crescente : Verso::decrescente);
                           });
        a->setEnabled(qualcosa && colonna >= 0);
        menu.addSeparator();
    }
    a = menu.addAction(icona(QStringLiteral("esporta")), tr("&Esporta…"), this,
                       &GrigliaRisultati::esporta_richiesta);
    a->setEnabled(qualcosa);
    a = menu.addAction(icona(QStringLiteral("stampa")), tr("&Stampa…"), this,
                       &GrigliaRisultati::stampa_richiesta);
    a->setEnabled(qualcosa && stampabile_);
    menu.exec(dove);
}

void GrigliaRisultati::apri_trova() {
    if (vuota()) return;
    barra_trova_->show();
    // Whatever was shown or sorted while the line was hidden.
    cerca_corrispondenze();
    testo_trova_->setFocus();
    testo_trova_->selectAll();
}

void GrigliaRisultati::cerca_corrispondenze() {
    corrispondenze_.clear();
    corrente_.reset();
    const std::string cercato = testo_trova_->text().toLower().toStdString();
    const auto& tabella = modello_->tabella();
    if (cercato.empty() || !tabella || barra_trova_->isHidden()) {
        esito_trova_->clear();
        return;
    }
    std::string cella;
    const int righe = modello_->rowCount();
    const int colonne = modello_->columnCount();
    for (int r = 0; r < righe; ++r) {
        const std::size_t originale = modello_->riga_originale(r);
        for (int c = 0; c < colonne; ++c) {
            cella.clear();
            tabella->aggiungi_testo(cella, originale, static_cast<std::size_t>(c));
            // Only text columns have letters; numbers need no change of case.
            const Colonna& colonna = tabella->colonne[static_cast<std::size_t>(c)];
            const bool testo =
                std::holds_alternative<ColonnaTesti>(colonna) || std::holds_alternative<ColonnaVoci>(colonna);
            if (testo) cella = QString::fromStdString(cella).toLower().toStdString();
            if (tabellone_ ? cella == cercato : cella.find(cercato) != std::string::npos)
                corrispondenze_.emplace_back(r, c);
        }
    }
    esito_trova_->setText(corrispondenze_.empty() ? tr("Nessuna corrispondenza") : QString{});
}

void GrigliaRisultati::vai_a(std::size_t corrispondenza) {
    corrente_ = corrispondenza;
    const auto [r, c] = corrispondenze_[corrispondenza];
    const QModelIndex i = modello_->index(r, c);
    vista_->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect);
    vista_->scrollTo(i);
    esito_trova_->setText(tr("%1 di %2").arg(corrispondenza + 1).arg(corrispondenze_.size()));
}

void GrigliaRisultati::trova(int passo) {
    const std::size_t n = corrispondenze_.size();
    if (n == 0) return;
    if (passo > 0)
        vai_a(corrente_ ? (*corrente_ + 1) % n : 0);
    else
        vai_a((corrente_.value_or(0) + n - 1) % n);
}

void GrigliaRisultati::segna_riga_sotto(int riga) {
    if (riga == riga_sotto_) return;
    for (VistaGriglia* v : {vista_, bloccata_}) {
        pittore_di(v)->imposta_riga_sotto(riga);
        for (const int r : {riga_sotto_, riga})
            if (r >= 0)
                v->viewport()->update(0, v->rowViewportPosition(r), v->viewport()->width(), v->rowHeight(r));
    }
    riga_sotto_ = riga;
}

bool GrigliaRisultati::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == testo_trova_ && evento->type() == QEvent::KeyPress) {
        const auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        if (tasto == nullptr) return false;
        if (tasto->key() == Qt::Key_Escape) {
            barra_trova_->hide();
            vista_->setFocus();
            return true;
        }
        if (tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter) {
            trova((tasto->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
            return true;
        }
    }
    if (oggetto == vista_->viewport() && evento->type() == QEvent::Resize) disponi();
    const bool sulla_griglia = oggetto == vista_->viewport() || oggetto == bloccata_->viewport();
    if (tabellone_ && sulla_griglia &&
        (evento->type() == QEvent::MouseMove || evento->type() == QEvent::Leave)) {
        const auto* mosso = dynamic_cast<QMouseEvent*>(evento);
        segna_riga_sotto(mosso == nullptr ? -1 : vista_->rowAt(static_cast<int>(mosso->position().y())));
    }
    return QWidget::eventFilter(oggetto, evento);
}

void GrigliaRisultati::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    // Widths stay put once there is a result in them; a board, or a list on one, fits its room.
    if (vuota() || tabellone_ || compatta_) adatta_colonne();
    disponi();
}

void GrigliaRisultati::changeEvent(QEvent* evento) {
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::FontChange) {
        prendi_caratteri();
        adatta_colonne();
    }
    // Icons and grounds are drawn in the skin's colours at each painting: a new skin needs no more than that.
    if (evento->type() == QEvent::StyleChange || evento->type() == QEvent::PaletteChange) disponi();
}

}  // namespace sortimetra
