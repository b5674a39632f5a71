#include "catalogue/form_ricerche_elenco.h"

#include "qt_testi.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextCharFormat>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

/// What a row has above and below its text, together.
constexpr int kAriaRiga = 14;

/// As `piega` does it, but letter by letter, so that a place in the folded text is one in the text itself.
QString piega_lettere(const QString& t) {
    QString piegato;
    piegato.reserve(t.size());
    for (const QChar c : t) {
        const QString p = QString::fromStdString(piega(QString{c}.toStdString()));
        piegato += p.size() == 1 ? p.front() : c.toLower();
    }
    return piegato;
}

}  // namespace

// ---- the model ----

void ModelloElenco::mostra(std::vector<VoceElenco> voci, bool con_luogo) {
    beginResetModel();
    voci_ = std::move(voci);
    con_luogo_ = con_luogo;
    endResetModel();
}

void ModelloElenco::quando_disponibile(std::function<bool(const Ricerca&)> disponibile) {
    disponibile_ = std::move(disponibile);
}

const VoceElenco* ModelloElenco::voce(int riga) const {
    if (riga < 0 || static_cast<std::size_t>(riga) >= voci_.size()) return nullptr;
    return &voci_[static_cast<std::size_t>(riga)];
}

int ModelloElenco::riga_di(const QString& nome) const {
    const std::string cercato = nome.toStdString();
    const auto it =
        std::find_if(voci_.begin(), voci_.end(), [&](const VoceElenco& v) { return v.nome == cercato; });
    return it == voci_.end() ? -1 : static_cast<int>(it - voci_.begin());
}

int ModelloElenco::rowCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : static_cast<int>(voci_.size());
}

int ModelloElenco::columnCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : 2;
}

QVariant ModelloElenco::data(const QModelIndex& indice, int ruolo) const {
    const VoceElenco* v = voce(indice.row());
    if (v == nullptr) return {};
    const bool disponibile = !disponibile_ || disponibile_(*v->ricerca);
    switch (ruolo) {
        case Qt::DisplayRole:
            if (indice.column() == 0) return testo_qt(v->nome);
            if (!con_luogo_) return QString{};
            return v->gruppo.empty() ? testo_qt(v->gioco)
                                     : testo_qt(v->gioco) + QStringLiteral(" · ") + testo_qt(v->gruppo);
        case Qt::ToolTipRole:
            return disponibile ? QVariant{} : tr("Non ancora disponibile in questa versione");
        case Qt::AccessibleTextRole:
            if (indice.column() != 0) return {};
            return disponibile ? testo_qt(v->nome) : tr("%1, non ancora disponibile").arg(testo_qt(v->nome));
        case Qt::AccessibleDescriptionRole:
            return testo_qt(v->ricerca->frase);
        case kChiave:
            return testo_qt(v->ricerca->chiave());
        case kDisponibile:
            return disponibile;
        default:
            return {};
    }
}

QVariant ModelloElenco::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (verso != Qt::Horizontal || ruolo != Qt::DisplayRole) return {};
    return sezione == 0 ? tr("Ricerca") : tr("Dove si trova");
}

// ---- the rows ----

void DelegatoElenco::evidenzia(const QString& cercato) {
    parole_ =
        QString::fromStdString(piega(cercato.toStdString())).split(QLatin1Char{' '}, Qt::SkipEmptyParts);
}

QSize DelegatoElenco::sizeHint(const QStyleOptionViewItem& opzioni, const QModelIndex& indice) const {
    const QFontMetrics misure{opzioni.font};
    const QString t = indice.data().toString();
    return {t.isEmpty() ? 0 : misure.horizontalAdvance(t) + 2 * kMargine, misure.height() + kAriaRiga};
}

QList<QTextLayout::FormatRange> DelegatoElenco::segni(const QString& t) const {
    QList<QTextLayout::FormatRange> trovati;
    if (parole_.isEmpty()) return trovati;
    QTextCharFormat segno;
    segno.setBackground(QColor::fromRgb(skin_in_uso().trovato));
    segno.setForeground(QColor::fromRgb(skin_in_uso().testo_trovato));
    const QString piegato = piega_lettere(t);
    for (const QString& parola : parole_)
        for (qsizetype i = piegato.indexOf(parola); i >= 0; i = piegato.indexOf(parola, i + parola.size()))
            trovati.push_back({static_cast<int>(i), static_cast<int>(parola.size()), segno});
    return trovati;
}

void DelegatoElenco::paint(QPainter* p, const QStyleOptionViewItem& opzioni,
                           const QModelIndex& indice) const {
    const Skin& s = skin_in_uso();
    const auto* griglia = qobject_cast<const QTableView*>(opzioni.widget);
    const bool corrente = griglia != nullptr && griglia->currentIndex().row() == indice.row();
    const bool sopra = (opzioni.state & QStyle::State_MouseOver) != 0;
    const bool disponibile = indice.data(ModelloElenco::kDisponibile).toBool();
    const QColor fondo = QColor::fromRgb(corrente                ? s.selezione
                                         : indice.row() % 2 == 0 ? s.tinta_a
                                                                 : s.tinta_b);
    p->save();
    p->fillRect(opzioni.rect, fondo);
    if (corrente && indice.column() == 0) {
        // The bar says "here" to whoever cannot tell the two grounds apart; it thickens with the focus.
        const int largo = griglia->hasFocus() ? 6 : 3;
        p->fillRect(QRect{opzioni.rect.left(), opzioni.rect.top(), largo, opzioni.rect.height()},
                    QColor::fromRgb(s.accento));
    }
    QColor colore = QColor::fromRgb(corrente ? s.testo_selezione : s.testo);
    if (!disponibile || indice.column() == 1)
        colore = QColor::fromRgb(corrente ? s.testo_selezione : s.testo_quieto);
    QFont carattere = opzioni.font;
    if (!disponibile && indice.column() == 0) carattere.setItalic(true);
    const QRect dove = opzioni.rect.adjusted(kMargine, 0, -kMargine, 0);
    const QString t =
        QFontMetrics{carattere}.elidedText(indice.data().toString(), Qt::ElideRight, dove.width());
    QTextLayout riga{t, carattere};
    riga.setCacheEnabled(true);
    if (indice.column() == 0) riga.setFormats(segni(t));
    riga.beginLayout();
    QTextLine linea = riga.createLine();
    if (linea.isValid()) linea.setLineWidth(dove.width());
    riga.endLayout();
    const double x = indice.column() == 0 ? 0 : dove.width() - linea.naturalTextWidth();
    p->setPen(colore);
    riga.draw(p, QPointF{dove.left() + x, dove.top() + (dove.height() - linea.height()) / 2});
    if (sopra && !corrente) {
        p->setPen(QColor::fromRgb(s.linea));
        p->drawLine(opzioni.rect.bottomLeft(), opzioni.rect.bottomRight());
        p->drawLine(opzioni.rect.topLeft(), opzioni.rect.topRight());
    }
    p->restore();
}

// ---- the grid ----

GrigliaElenco::GrigliaElenco(QWidget* genitore) : QTableView{genitore} {
    setObjectName(QStringLiteral("MSHFlexGrid1"));
    // It stands in a card that has an edge of its own; the bar of the current row shows the focus.
    setStyleSheet(QStringLiteral("QTableView { border: none; background: transparent; }"));
    setAccessibleName(tr("Elenco delle ricerche"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(0);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    misura();
}

void GrigliaElenco::misura() {
    const int alto = fontMetrics().height() + kAriaRiga;
    verticalHeader()->setMinimumSectionSize(alto);
    verticalHeader()->setDefaultSectionSize(alto);
}

int GrigliaElenco::prima_riga() const {
    return verticalScrollBar()->value();
}

void GrigliaElenco::vai_a_prima_riga(int riga) {
    executeDelayedItemsLayout();
    updateGeometries();
    verticalScrollBar()->setValue(riga);
}

void GrigliaElenco::di_se_vuota(const QString& frase) {
    frase_vuota_ = frase;
    viewport()->update();
}

void GrigliaElenco::colora_riga() {
    viewport()->update();
}

void GrigliaElenco::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (currentIndex().isValid()) emit confermata();
            return;
        case Qt::Key_Left:
            emit verso_gruppi();
            return;
        case Qt::Key_Home:
            selectRow(0);
            return;
        case Qt::Key_End:
            if (model() != nullptr) selectRow(model()->rowCount() - 1);
            return;
        default:
            QTableView::keyPressEvent(evento);
    }
}

void GrigliaElenco::paintEvent(QPaintEvent* evento) {
    QTableView::paintEvent(evento);
    if (model() == nullptr || model()->rowCount() > 0 || frase_vuota_.isEmpty()) return;
    QPainter p{viewport()};
    p.setPen(QColor::fromRgb(skin_in_uso().testo_quieto));
    p.drawText(viewport()->rect().adjusted(kMargine, kMargine, -kMargine, -kMargine),
               Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, frase_vuota_);
}

void GrigliaElenco::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    adatta_colonne();
}

void GrigliaElenco::adatta_colonne() {
    if (model() == nullptr) return;
    // The place gives way to the name where there is no room for both.
    const int luogo = std::min(sizeHintForColumn(1), viewport()->width() * 2 / 5);
    setColumnWidth(1, std::max(0, luogo));
    setColumnWidth(0, viewport()->width() - columnWidth(1));
}

void GrigliaElenco::changeEvent(QEvent* evento) {
    QTableView::changeEvent(evento);
    if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange) misura();
}

}  // namespace sortimetra
