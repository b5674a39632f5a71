#include "screens/griglia_risultati.h"

#include "results/risultato.h"
#include "screens/tema.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
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
/// Side of the arrow in a sort button, and the button's own width where it stands beside a title.
constexpr int kFreccia = 3 * kPasso;
constexpr int kPulsanteOrdina = 5 * kPasso;
/// A grid of few columns is not narrower than what it says when it is empty.
constexpr int kLarghezzaMinima = 90 * kPasso;

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
        if (i.data(ModelloRisultato::kRuoloSegno).toBool()) segna(*pittore, opzione.rect, testo);
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
    /// A small triangle at the cell's left: the delay is above the longest one ever closed.
    static void segna(QPainter& pittore, const QRect& cella, QRgb inchiostro) {
        const QRgb fondo = testo_su(inchiostro) == qRgb(0, 0, 0) ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
        pittore.save();
        pittore.setRenderHint(QPainter::Antialiasing);
        pittore.setPen(Qt::NoPen);
        pittore.setBrush(QColor::fromRgb(leggibile(skin_in_uso().avviso, fondo)));
        const double x = cella.left() + kPasso;
        const double y = cella.center().y() + kPasso;
        pittore.drawPolygon(QPolygonF{{{x, y}, {x + 2 * kPasso, y}, {x + kPasso, y - 2 * kPasso}}});
        pittore.restore();
    }

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
    explicit Testata(GrigliaRisultati* griglia) : QWidget{griglia->campo_}, griglia_{griglia} {
        setMouseTracking(true);
    }

    [[nodiscard]] std::size_t righe() const {
        const auto& t = griglia_->modello_->tabella();
        return t ? t->titoli.size() : 0;
    }
    /// The column whose title is under the pointer, -1 for none.
    [[nodiscard]] int sopra() const { return sopra_; }
    [[nodiscard]] int altezza_titolo() const {
        return fontMetrics().height() + (griglia_->titoli_sotto() ? 2 : 3) * kPasso;
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Skin& s = skin_in_uso();
        QPainter p{this};
        p.fillRect(rect(), QColor::fromRgb(s.rilievo));
        p.fillRect(0, height() - 1, width(), 1, QColor::fromRgb(s.bordo));
        if (righe() == 0) return;
        const int base = height() - static_cast<int>(righe()) * altezza_titolo();
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
        const int colonna = titolo_in(e->position());
        if (colonna >= 0) griglia_->titolo_premuto(colonna);
    }
    void mouseMoveEvent(QMouseEvent* e) override { segna_sopra(titolo_in(e->position())); }
    void leaveEvent(QEvent*) override { segna_sopra(-1); }

  private:
    /// The column whose title is at a point; -1 where there is none that sorts.
    [[nodiscard]] int titolo_in(QPointF dove) const {
        if (griglia_->tabellone_ || righe() == 0 || dove.y() < height() - altezza_titolo()) return -1;
        const int x = static_cast<int>(dove.x()) - 1;
        const bool ferma = griglia_->bloccata_->isVisible() && x < griglia_->bloccata_->columnWidth(0);
        return ferma ? 0 : griglia_->vista_->columnAt(x);
    }
    void segna_sopra(int colonna) {
        if (std::exchange(sopra_, colonna) == colonna) return;
        update();
        setToolTip(colonna < 0 ? QString{} : griglia_->suggerimento(colonna));
    }
    /// Blanks at the sides of a title: beside the last row of them, where there is no strip above, stands the
    /// column's button.
    [[nodiscard]] std::pair<int, int> margini(int colonna, bool ultima) const {
        const int margine = griglia_->tabellone_ ? 1 : griglia_->margine_;
        if (!ultima || griglia_->titoli_sotto() || griglia_->senza_pulsanti_) return {margine, margine};
        return griglia_->modello_->numerica(colonna) ? std::pair{kPulsanteOrdina, margine}
                                                     : std::pair{margine, kPulsanteOrdina};
    }
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
                if (ultima && c == sopra_) p.fillRect(dove.adjusted(0, 0, 0, -1), QColor::fromRgb(s.linea));
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
                const auto [prima, dopo] = margini(c, ultima);
                p.drawText(dove.adjusted(prima, 0, -dopo, 0), static_cast<int>(lato | Qt::AlignVCenter),
                           scritto);
                c = fine;
            }
        }
    }

    GrigliaRisultati* griglia_;
    int sopra_ = -1;  ///< the column whose title is under the pointer
};

GrigliaRisultati::GrigliaRisultati(QWidget* padre)
    : QWidget{padre},
      modello_{new ModelloRisultato{this}},
      campo_{new QWidget{this}},
      vista_{new VistaGriglia{campo_}},
      bloccata_{new VistaGriglia{vista_}},
      testata_{new Testata{this}},
      frase_{new QLabel{vista_}},
      barra_trova_{new QWidget{this}},
      testo_trova_{new QLineEdit{barra_trova_}},
      esito_trova_{new QLabel{barra_trova_}},
      barra_filtro_{new QWidget{this}},
      testo_filtro_{new QLineEdit{barra_filtro_}},
      conto_filtro_{new QLabel{barra_filtro_}},
      errore_filtro_{new QLabel{barra_filtro_}},
      pausa_filtro_{new QTimer{this}} {
    componi_viste();
    frase_->setAlignment(Qt::AlignCenter);
    frase_->setWordWrap(true);
    frase_->setAttribute(Qt::WA_TransparentForMouseEvents);
    assegna_ruolo(frase_, "quieto");

    componi_trova();
    componi_filtro();
    auto* tavola = new QVBoxLayout{campo_};
    tavola->setContentsMargins(0, 0, 0, 0);
    tavola->setSpacing(0);
    tavola->addWidget(testata_);
    tavola->addWidget(vista_, 1);
    auto* colonna = new QVBoxLayout{this};
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);
    colonna->addWidget(barra_filtro_);
    colonna->addWidget(campo_, 1);
    colonna->addWidget(barra_trova_);
    disponi();
}

void GrigliaRisultati::focusInEvent(QFocusEvent* evento) {
    // No focus proxy: Tab would go round between the proxy and the sort buttons and never leave the grid.
    vista_->setFocus(evento->reason());
}

/// Whether the titles stand under a strip of sort buttons (or, on a board, without any).
bool GrigliaRisultati::titoli_sotto() const {
    const auto& t = modello_->tabella();
    return tabellone_ || (t && t->titoli.size() > 1);
}

int GrigliaRisultati::titolo_sotto() const {
    return testata_->sopra();
}

/// What columns may take: the grid's width less what is round them.
int GrigliaRisultati::spazio_colonne() const {
    return width() - 2 * vista_->frameWidth();
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
    connect(vista_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &GrigliaRisultati::scelta_cambiata);
    connect(vista_, &VistaGriglia::copia_richiesta, this, &GrigliaRisultati::copia);
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
    if (!barra_filtro_->isHidden()) filtra(true);
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
    conto_filtro_->clear();
    aggiorna_frase();
    emit riga_cambiata();
}

void GrigliaRisultati::imposta_frase_vuota(const QString& frase) {
    frase_vuota_ = frase;
    aggiorna_frase();
}

void GrigliaRisultati::imposta_pulsante_1(int colonna) {
    pulsante_1_ = colonna;
    for (int i = 0; i < static_cast<int>(pulsanti_.size()); ++i) battezza_pulsante(i);
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
    const auto n = tabellone_ || senza_pulsanti_ ? 0 : static_cast<std::size_t>(modello_->columnCount());
    while (pulsanti_.size() > n) {
        delete pulsanti_.back();
        pulsanti_.pop_back();
    }
    // Tab reaches the buttons before the rows under them, however late they were made.
    QWidget* prima = pulsanti_.empty() ? static_cast<QWidget*>(vista_) : pulsanti_.back();
    while (pulsanti_.size() < n) {
        const auto i = static_cast<int>(pulsanti_.size());
        auto* b = new QPushButton{testata_};
        b->setObjectName(nomi_pulsanti_.arg(primo_pulsante_ + i));
        b->setProperty("tag", QString{});
        b->setIconSize({kFreccia, kFreccia});
        b->installEventFilter(this);
        connect(b, &QPushButton::clicked, this, [this, i] { premi(i); });
        b->show();
        setTabOrder(prima, b);
        prima = b;
        pulsanti_.push_back(b);
    }
    if (n > 0) setTabOrder(pulsanti_.back(), vista_);
    for (std::size_t i = 0; i < n; ++i) {
        QPushButton* b = pulsanti_[i];
        // Sixty sort buttons would bury the grid in tab stops: there the context menu sorts.
        b->setFocusPolicy(n <= 8 ? Qt::StrongFocus : Qt::ClickFocus);
        b->setProperty("striscia", titoli_sotto());
        assegna_ruolo(b, "ordina");
        battezza_pulsante(static_cast<int>(i));
    }
}

void GrigliaRisultati::battezza_pulsante(int i) {
    const auto titolo = [this](int colonna) {
        const QString t = modello_->headerData(colonna, Qt::Horizontal).toString();
        return t.isEmpty() ? tr("colonna %1").arg(colonna + 1) : t;
    };
    const int ordinata = i == 1 ? pulsante_1_ : i;
    QPushButton* b = pulsanti_[static_cast<std::size_t>(i)];
    b->setAccessibleName(tr("Ordina per %1").arg(titolo(ordinata)));
    b->setToolTip(ordinata == i ? tr("Ordina per questa colonna")
                                : tr("Questo pulsante ordina per «%1».\nPer ordinare per «%2» fai clic sul "
                                     "titolo.")
                                      .arg(titolo(ordinata), titolo(i)));
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
        // A table without rows may have fewer titles than the grid has had columns.
        if (c >= titoli[r].size()) continue;
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
    const bool dipinti = titoli_sotto();
    margine_ = compatta_ ? kMargineStretto : kMargineCella;
    std::vector<int> larghezze;
    std::vector<int> strette;
    const int blanco = tabellone_ ? kMargineStrettoTabellone : kMargineStretto;
    for (int c = 0; c < n; ++c) {
        const QString titolo = titolo_piu_largo(c);
        const int testo = (c == 0 ? prima : celle).horizontalAdvance(modello_->testo_piu_largo(c));
        // Under a strip of buttons titles have none beside them.
        const int testata =
            titoli.horizontalAdvance(titolo) + (dipinti || senza_pulsanti_ ? 0 : kPulsanteOrdina - kPasso);
        const int margine = tabellone_ ? kMargineTabellone : margine_;
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
    // Beside a neighbour the bar keeps its place also where there is nothing to scroll.
    const int barra = scorre || spazio_ >= 0 ? vista_->verticalScrollBar()->sizeHint().width() : 0;
    const auto libero = [&](const std::vector<int>& l) {
        return spazio_colonne() - barra - std::accumulate(l.begin(), l.end(), 0);
    };
    // Many columns of short numbers give up their blanks where that brings the last of them into sight. Those
    // of a board do so at any width: a narrower window never has wider cells.
    if (libero(larghezze) < 0 && ((dipinti && tabellone_) || libero(strette) >= 0)) {
        larghezze = strette;
        margine_ = blanco;
    }
    // A narrow table takes some of the room that is left, up to a width at which a line is still one line.
    int avanza = std::max(libero(larghezze), 0);
    const int fuori = spazio_colonne() - (spazio_ - 2 * vista_->frameWidth());
    if (spazio_ >= 0 && fuori <= avanza) avanza -= std::max(fuori, 0);
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

int GrigliaRisultati::larghezza_tabella() const {
    const int larga = vista_->horizontalHeader()->length() + 2 * vista_->frameWidth() +
                      vista_->verticalScrollBar()->sizeHint().width();
    return std::max(larga, compatta_ ? 0 : kLarghezzaMinima);
}

void GrigliaRisultati::imposta_aspetto(int prima_aggiunta, bool calore) {
    modello_->imposta_aspetto(prima_aggiunta, calore);
    for (VistaGriglia* v : {vista_, bloccata_}) v->viewport()->update();
}

void GrigliaRisultati::disponi() {
    const int striscia = tabellone_ || !titoli_sotto() ? 0 : 6 * kPasso;
    testata_->setFixedHeight(modello_->columnCount() == 0 ? 0
                                                          : striscia + static_cast<int>(testata_->righe()) *
                                                                           testata_->altezza_titolo());
    // Columns stay together: what is left of a wide window is no part of the table.
    campo_->setMaximumWidth(modello_->columnCount() == 0 ? QWIDGETSIZE_MAX : larghezza_tabella());

    const bool blocca = blocca_ && modello_->columnCount() > 1 &&
                        vista_->horizontalHeader()->length() > vista_->viewport()->width();
    const bool accanto = !titoli_sotto();
    QFont grassetto = testata_->font();
    grassetto.setBold(true);
    const QFontMetrics titoli{grassetto};
    const QRect porta = vista_->viewport()->geometry();
    bloccata_->setGeometry(porta.x(), porta.y(), bloccata_->columnWidth(0), porta.height());
    bloccata_->setVisible(blocca);
    for (std::size_t i = 0; i < pulsanti_.size(); ++i) {
        const int c = static_cast<int>(i);
        const int x = blocca && c == 0 ? 0 : vista_->columnViewportPosition(c);
        const int larghezza = vista_->columnWidth(c);
        // Right beside its title: at the column's other end it would seem to belong to the next one.
        const int titolo = titoli.horizontalAdvance(titolo_piu_largo(c)) + margine_;
        const int accosto = std::min(titolo, larghezza - kPulsanteOrdina);
        const int scarto = modello_->numerica(c) ? larghezza - accosto - kPulsanteOrdina : accosto;
        // The last pixel of the header is its lower edge.
        if (accanto)
            pulsanti_[i]->setGeometry(porta.x() + x + scarto, 0, kPulsanteOrdina, testata_->height() - 1);
        else
            pulsanti_[i]->setGeometry(porta.x() + x, 0, larghezza, striscia);
    }
    if (blocca && !pulsanti_.empty()) pulsanti_.front()->raise();
    testata_->update();
    frase_->setGeometry(porta.adjusted(6 * kPasso, 0, -6 * kPasso, 0));
}

void GrigliaRisultati::segna_ordinamento() {
    for (std::size_t i = 0; i < pulsanti_.size(); ++i) {
        const bool questa = ordinamento_ && ordinamento_->first == static_cast<int>(i);
        const bool crescente = questa && ordinamento_->second == Verso::crescente;
        // Another shape, not another colour alone: a full arrow that way, or the quiet sign of a button.
        const QString figura = !questa     ? QStringLiteral("ordina")
                               : crescente ? QStringLiteral("ordinata_su")
                                           : QStringLiteral("ordinata_giu");
        pulsanti_[i]->setIcon(icona(figura, questa ? TintaIcona::accento : TintaIcona::quieto));
        pulsanti_[i]->setProperty("freccia", figura);
        pulsanti_[i]->setAccessibleDescription(!questa     ? QString{}
                                               : crescente ? tr("ordinata dal più piccolo")
                                                           : tr("ordinata dal più grande"));
    }
}

void GrigliaRisultati::aggiorna_frase() {
    frase_->setText(modello_->filtrato() ? tr("Nessuna riga risponde al filtro.") : frase_vuota_);
    frase_->setVisible(vuota() && !frase_->text().isEmpty());
}

void GrigliaRisultati::premi(int pulsante) {
    if (pulsante < 0 || static_cast<std::size_t>(pulsante) >= pulsanti_.size()) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const int colonna = pulsante == 1 ? pulsante_1_ : pulsante;
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
    emit ordinata(colonna, verso);
}

void GrigliaRisultati::titolo_premuto(int colonna) {
    // Under a strip of buttons titles keep a turn of their own, ascending first. A title that stands alone
    // follows the order on show, the largest first, as its button does.
    Verso verso = Verso::decrescente;
    if (titoli_sotto()) {
        const std::pair crescente{colonna, Verso::crescente};
        verso = ultimo_titolo_ == crescente ? Verso::decrescente : Verso::crescente;
        ultimo_titolo_ = {colonna, verso};
    } else if (ordinamento_ == std::pair{colonna, Verso::decrescente}) {
        verso = Verso::crescente;
    }
    ordina_colonna(colonna, verso);
}

std::optional<std::size_t> GrigliaRisultati::riga_scelta() const {
    const QModelIndex i = vista_->currentIndex();
    if (!i.isValid()) return std::nullopt;
    return modello_->riga_originale(i.row());
}

std::vector<std::size_t> GrigliaRisultati::righe_scelte(std::size_t massimo) const {
    std::vector<std::size_t> righe;
    const auto aggiungi = [&](int riga) {
        const std::size_t r = modello_->riga_originale(riga);
        if (righe.size() < massimo && std::find(righe.begin(), righe.end(), r) == righe.end())
            righe.push_back(r);
    };
    const QItemSelection scelte = vista_->selectionModel()->selection();
    const QModelIndex corrente = vista_->currentIndex();
    if (corrente.isValid() && vista_->selectionModel()->isSelected(corrente)) aggiungi(corrente.row());
    for (const QItemSelectionRange& r : scelte)
        for (int riga = r.top(); riga <= r.bottom() && righe.size() < massimo; ++riga) aggiungi(riga);
    return righe;
}

void GrigliaRisultati::scegli_riga(std::size_t riga) {
    for (int r = 0; r < modello_->rowCount(); ++r) {
        if (modello_->riga_originale(r) != riga) continue;
        const QModelIndex i = modello_->index(r, 0);
        vista_->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect);
        vista_->scrollTo(i);
        return;
    }
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
    a = menu.addAction(icona(QStringLiteral("filtro")), tr("&Filtra le righe…"), this,
                       &GrigliaRisultati::apri_filtro);
    a->setShortcut(kTastoFiltro);
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
    emit menu_aperto(&menu);
    menu.exec(dove);
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
    if (oggetto == testo_trova_ || oggetto == testo_filtro_) {
        auto* tasto = dynamic_cast<QKeyEvent*>(evento);
        return tasto != nullptr && tasto_in_riga(*tasto, oggetto);
    }
    if (const auto* aiuto = evento->type() == QEvent::ToolTip ? dynamic_cast<QHelpEvent*>(evento) : nullptr;
        aiuto != nullptr && suggerisci(oggetto, *aiuto))
        return true;
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
