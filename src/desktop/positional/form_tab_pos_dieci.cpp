#include "positional/form_tab_pos_dieci.h"

#include "positional/tabellone.h"
#include "results/risultato.h"
#include "screens/tema.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

constexpr int kColonne = static_cast<int>(kColonneDieci);
/// Rows from one band's names to the next one's: the band and the blank row.
constexpr int kPassoBanda = static_cast<int>(kRigheBanda) + 1;

constexpr int kLarghezzaPosto = 10 * kPasso;
constexpr int kLarghezzaCella = 11 * kPasso;
constexpr int kLarghezzaAgiata = 24 * kPasso;
/// What a row may be higher than it must where the grid has a page of its own.
constexpr int kAgioRiga = 2 * kPasso;
constexpr int kLarghezzaSpazio = 4 * kPasso;

enum class Parte { nome, titolo, posto, vuota };

Parte parte(int riga) {
    const int r = riga % kPassoBanda;
    if (r == 0) return Parte::nome;
    if (r == 1) return Parte::titolo;
    return r < static_cast<int>(kRigheBanda) ? Parte::posto : Parte::vuota;
}

/// Column 0 is the place; then number, delay, blank for each group.
bool spazio(int colonna) {
    return colonna > 0 && colonna % 3 == 0;
}

class PittoreDieci final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* p, const QStyleOptionViewItem& opzione, const QModelIndex& i) const override {
        const Skin& s = skin_in_uso();
        const Parte quale = parte(i.row());
        const bool cella = i.column() > 0 && !spazio(i.column());
        QRgb fondo = s.superficie;
        QRgb testo = s.testo_quieto;
        QFont carattere = opzione.font;
        if (cella && quale == Parte::nome) {
            fondo = s.rilievo;
            testo = s.testo;
            carattere.setBold(true);
        } else if (cella && quale == Parte::titolo) {
            fondo = s.rilievo;
            testo = leggibile(s.testo_quieto, s.rilievo);
        } else if (cella && quale == Parte::posto) {
            const auto colore = [&i](Qt::ItemDataRole ruolo) {
                return i.data(ruolo).value<QBrush>().color().rgb();
            };
            fondo = colore(Qt::BackgroundRole);
            testo = colore(Qt::ForegroundRole);
            // Both bands begin with the same tint, whatever row they begin in.
            if (fondo == s.tinta_a || fondo == s.tinta_b)
                fondo = i.row() % kPassoBanda % 2 == 0 ? s.tinta_a : s.tinta_b;
            carattere.setBold(i.column() % 3 == 1);
            if ((opzione.state & QStyle::State_Selected) != 0) {
                fondo = s.selezione;
                testo = s.testo_selezione;
            }
        }
        p->fillRect(opzione.rect, QColor::fromRgb(fondo));
        const QString scritto = i.data().toString();
        if (scritto.isEmpty()) return;
        p->setFont(carattere);
        p->setPen(QColor::fromRgb(testo));
        p->drawText(opzione.rect, Qt::AlignCenter, scritto);
    }
};

}  // namespace

GrigliaDieci::GrigliaDieci(QWidget* padre) : QTableView{padre}, modello_{new ModelloRisultato{this}} {
    setObjectName(QStringLiteral("MSFlexGrid4"));
    setAccessibleName(tr("I dieci numeri più in ritardo"));
    setModel(modello_);
    setItemDelegate(new PittoreDieci{this});
    setShowGrid(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(kPasso);
    verticalHeader()->setMinimumSectionSize(kPasso);
    setFont(carattere_tabellare(QApplication::font()));
}

void GrigliaDieci::mostra(const Risultato& dieci) {
    if (dieci.tabelle.empty()) return svuota();
    modello_->mostra(std::make_shared<const Tabella>(griglia_dieci(dieci.tabelle.front())));
    clearSpans();
    for (int riga = 0; riga < modello_->rowCount(); riga += kPassoBanda)
        for (int g = 0; g < static_cast<int>(kGruppiBanda); ++g) setSpan(riga, 3 * g + 1, 1, 2);
    disponi();
}

void GrigliaDieci::svuota() {
    clearSpans();
    modello_->mostra(nullptr);
}

QSize GrigliaDieci::sizeHint() const {
    int altezza = 2 * frameWidth();
    for (int r = 0; r < modello_->rowCount(); ++r) altezza += rowHeight(r);
    int larghezza = 2 * frameWidth() + kLarghezzaPosto;
    larghezza += static_cast<int>(kGruppiBanda) * (2 * kLarghezzaCella + kLarghezzaSpazio);
    return {larghezza, altezza};
}

void GrigliaDieci::disponi() {
    if (modello_->columnCount() == 0) return;
    constexpr int kRigheScritte = 2 * static_cast<int>(kRigheBanda);
    const int bassa = fontMetrics().height() + kPasso;
    // On a page of its own it fills the height; one that stands whole among other things is as high as it is.
    const bool intera = sizePolicy().verticalPolicy() == QSizePolicy::Fixed;
    const int libera_in_alto = viewport()->height() - 3 * kPasso - kRigheScritte * bassa;
    const int alta = bassa + (intera ? 0 : std::clamp(libera_in_alto / kRigheScritte, 0, kAgioRiga));
    for (int r = 0; r < modello_->rowCount(); ++r)
        setRowHeight(r, parte(r) == Parte::vuota ? 3 * kPasso : alta);
    constexpr int kGruppi = static_cast<int>(kGruppiBanda);
    const int minima =
        std::max(kLarghezzaCella, fontMetrics().horizontalAdvance(QStringLiteral("00000")) + kPasso);
    const int libera = viewport()->width() - kLarghezzaPosto - kGruppi * kLarghezzaSpazio;
    const int cella = std::clamp(libera / (2 * kGruppi), minima, std::max(minima, kLarghezzaAgiata));
    for (int c = 0; c < kColonne; ++c)
        setColumnWidth(c, c == 0 ? kLarghezzaPosto : spazio(c) ? kLarghezzaSpazio : cella);
    updateGeometry();
}

void GrigliaDieci::resizeEvent(QResizeEvent* evento) {
    QTableView::resizeEvent(evento);
    disponi();
}

void GrigliaDieci::changeEvent(QEvent* evento) {
    QTableView::changeEvent(evento);
    if (evento->type() == QEvent::FontChange) disponi();
}

void GrigliaDieci::keyPressEvent(QKeyEvent* evento) {
    if (!evento->matches(QKeySequence::Copy)) {
        QTableView::keyPressEvent(evento);
        return;
    }
    // The cells that are selected, as lines parted by tabs.
    QModelIndexList scelti = selectionModel()->selectedIndexes();
    std::sort(scelti.begin(), scelti.end());
    QString testo;
    for (qsizetype i = 0; i < scelti.size(); ++i) {
        if (i > 0) testo += scelti[i].row() == scelti[i - 1].row() ? QLatin1Char{'\t'} : QLatin1Char{'\n'};
        testo += scelti[i].data().toString();
    }
    if (!testo.isEmpty()) QApplication::clipboard()->setText(testo);
}

}  // namespace sortimetra
