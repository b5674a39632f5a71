#include "personal/scelta_numeri.h"

#include "screens/tema.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace sortimetra {

namespace {

constexpr int kPerRiga = 10;
constexpr int kAltezzaCella = 6 * kPasso;
constexpr QPoint kNessuno{-1, -1};

/// The cell where the keyboard stands, in a frame that is seen.
class PittoreNumero final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* pittore, const QStyleOptionViewItem& opzione,
               const QModelIndex& cella) const override {
        QStyleOptionViewItem senza = opzione;
        senza.state &= ~QStyle::State_HasFocus;
        QStyledItemDelegate::paint(pittore, senza, cella);
        if ((opzione.state & QStyle::State_HasFocus) == 0) return;
        constexpr int kSpesso = 2;
        pittore->save();
        pittore->setPen(QPen{QColor::fromRgb(skin_in_uso().accento), kSpesso});
        pittore->drawRect(opzione.rect.adjusted(1, 1, -1, -1));
        pittore->restore();
    }
};

}  // namespace

SceltaNumeri::SceltaNumeri(QWidget* padre) : QTableWidget{padre} {
    setObjectName(QStringLiteral("MSHFlexGrid1"));
    setAccessibleName(tr("Numeri da scegliere"));
    setToolTip(
        tr("Un clic sceglie un numero, il trascinamento un rettangolo; da tastiera frecce e barra "
           "spaziatrice."));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new PittoreNumero{this});
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setMinimumSectionSize(1);
    setFont(carattere_tabellare(font()));
}

void SceltaNumeri::disponi(int quanti) {
    quanti_ = quanti;
    scelti_.assign(static_cast<std::size_t>(quanti) + 1, false);
    const int righe = (quanti + kPerRiga - 1) / kPerRiga;
    clear();
    setRowCount(righe);
    setColumnCount(kPerRiga);
    for (int n = 1; n <= quanti; ++n) {
        auto* cella = new QTableWidgetItem{QString::number(n).rightJustified(2, u'0')};
        cella->setTextAlignment(Qt::AlignCenter);
        setItem((n - 1) / kPerRiga, (n - 1) % kPerRiga, cella);
    }
    // Two rows of ten stand behind their titles.
    const bool titoli = righe < 3;
    verticalHeader()->setVisible(titoli);
    if (titoli) setVerticalHeaderLabels({tr("1-10"), tr("11-20")});
    setFixedHeight(righe * kAltezzaCella + 2 * frameWidth());
    verticalHeader()->setDefaultSectionSize(kAltezzaCella);
    setCurrentCell(0, 0);
    colora();
    resizeEvent(nullptr);
}

std::vector<int> SceltaNumeri::numeri() const {
    std::vector<int> numeri;
    for (int n = 1; n <= quanti_; ++n)
        if (scelti_[static_cast<std::size_t>(n)]) numeri.push_back(n);
    return numeri;
}

void SceltaNumeri::imposta(const std::vector<int>& numeri) {
    std::fill(scelti_.begin(), scelti_.end(), false);
    for (const int n : numeri)
        if (n >= 1 && n <= quanti_) scelti_[static_cast<std::size_t>(n)] = true;
    colora();
    emit cambiati();
}

void SceltaNumeri::svuota() {
    imposta({});
}

QTableWidgetItem* SceltaNumeri::cella(int numero) const {
    return item((numero - 1) / kPerRiga, (numero - 1) % kPerRiga);
}

void SceltaNumeri::segna(QTableWidgetItem* cella, bool si) {
    const Skin& s = skin_in_uso();
    cella->setBackground(QColor::fromRgb(si ? s.trovato : s.superficie));
    cella->setForeground(QColor::fromRgb(si ? s.testo_trovato : s.testo));
    QFont carattere = font();
    carattere.setBold(si);
    cella->setFont(carattere);
    const QString numero = cella->text();
    cella->setData(Qt::AccessibleTextRole, si ? tr("%1, scelto").arg(numero) : numero);
}

void SceltaNumeri::colora() {
    for (int n = 1; n <= quanti_; ++n) segna(cella(n), scelti_[static_cast<std::size_t>(n)]);
}

void SceltaNumeri::rovescia(const QPoint& da, const QPoint& a) {
    for (int r = std::min(da.y(), a.y()); r <= std::max(da.y(), a.y()); ++r)
        for (int c = std::min(da.x(), a.x()); c <= std::max(da.x(), a.x()); ++c)
            if (const int n = r * kPerRiga + c + 1; n >= 1 && n <= quanti_)
                scelti_[static_cast<std::size_t>(n)] = !scelti_[static_cast<std::size_t>(n)];
    colora();
    emit cambiati();
}

void SceltaNumeri::mostra_rettangolo(const QPoint& a) {
    if (a == fine_) return;
    fine_ = a;
    colora();
    const QColor bordo = QColor::fromRgb(skin_in_uso().selezione);
    for (int r = std::min(inizio_.y(), a.y()); r <= std::max(inizio_.y(), a.y()); ++r)
        for (int c = std::min(inizio_.x(), a.x()); c <= std::max(inizio_.x(), a.x()); ++c)
            if (QTableWidgetItem* cella = item(r, c); cella != nullptr) {
                cella->setBackground(bordo);
                cella->setForeground(QColor::fromRgb(skin_in_uso().testo_selezione));
            }
}

void SceltaNumeri::mousePressEvent(QMouseEvent* evento) {
    const QModelIndex dove = indexAt(evento->pos());
    if (evento->button() != Qt::LeftButton || !dove.isValid()) return;
    setFocus();
    setCurrentIndex(dove);
    inizio_ = {dove.column(), dove.row()};
    fine_ = kNessuno;
    mostra_rettangolo(inizio_);
}

void SceltaNumeri::mouseMoveEvent(QMouseEvent* evento) {
    if (inizio_ == kNessuno) return;
    if (const QModelIndex dove = indexAt(evento->pos()); dove.isValid())
        mostra_rettangolo({dove.column(), dove.row()});
}

void SceltaNumeri::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || inizio_ == kNessuno) return;
    const QPoint da = std::exchange(inizio_, kNessuno);
    rovescia(da, fine_);
}

void SceltaNumeri::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Space) {
        const QPoint qui{currentColumn(), currentRow()};
        rovescia(qui, qui);
        return;
    }
    const bool freccia = evento->key() == Qt::Key_Left || evento->key() == Qt::Key_Right ||
                         evento->key() == Qt::Key_Up || evento->key() == Qt::Key_Down;
    if (!freccia) {
        // Enter and the shortcuts are the window's.
        evento->ignore();
        return;
    }
    const bool disegna = evento->modifiers().testFlag(Qt::ShiftModifier);
    if (disegna && inizio_ == kNessuno) {
        inizio_ = {currentColumn(), currentRow()};
        fine_ = kNessuno;
    }
    const int passo_x = evento->key() == Qt::Key_Left ? -1 : evento->key() == Qt::Key_Right ? 1 : 0;
    const int passo_y = evento->key() == Qt::Key_Up ? -1 : evento->key() == Qt::Key_Down ? 1 : 0;
    setCurrentCell(std::clamp(currentRow() + passo_y, 0, rowCount() - 1),
                   std::clamp(currentColumn() + passo_x, 0, columnCount() - 1));
    if (disegna) mostra_rettangolo({currentColumn(), currentRow()});
}

void SceltaNumeri::keyReleaseEvent(QKeyEvent* evento) {
    if (evento->key() != Qt::Key_Shift || inizio_ == kNessuno) {
        QTableWidget::keyReleaseEvent(evento);
        return;
    }
    const QPoint da = std::exchange(inizio_, kNessuno);
    rovescia(da, {currentColumn(), currentRow()});
}

void SceltaNumeri::resizeEvent(QResizeEvent* evento) {
    if (evento != nullptr) QTableWidget::resizeEvent(evento);
    const int larga = viewport()->width();
    for (int c = 0; c < columnCount(); ++c)
        setColumnWidth(c, larga * (c + 1) / kPerRiga - larga * c / kPerRiga);
}

void SceltaNumeri::changeEvent(QEvent* evento) {
    QTableWidget::changeEvent(evento);
    // Another skin has other yellows.
    if (evento->type() == QEvent::PaletteChange && quanti_ > 0) colora();
}

}  // namespace sortimetra
