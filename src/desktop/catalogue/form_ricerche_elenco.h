#pragma once

#include "catalogue/cerca.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextLayout>
#include <functional>
#include <vector>

namespace sortimetra {

/// The list of searches: the name, and beside it where the search stands when the list crosses the games.
class ModelloElenco final : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Ruoli { kChiave = Qt::UserRole, kDisponibile };

    using QAbstractTableModel::QAbstractTableModel;

    /// `con_luogo` fills the second column with game and group.
    void mostra(std::vector<VoceElenco> voci, bool con_luogo);
    /// Whether a search can be opened by this program at all; asked once per row shown.
    void quando_disponibile(std::function<bool(const Ricerca&)> disponibile);

    /// The search of a row; null outside the list.
    [[nodiscard]] const VoceElenco* voce(int riga) const;
    /// The row with that name, -1 without one.
    [[nodiscard]] int riga_di(const QString& nome) const;

    [[nodiscard]] int rowCount(const QModelIndex& genitore = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& genitore = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  private:
    std::vector<VoceElenco> voci_;
    std::function<bool(const Ricerca&)> disponibile_;
    bool con_luogo_ = false;
};

/// Paints a row of the list in one of the two tints by its parity, the current one in the highlight colour,
/// what cannot be opened in the quiet colour, and the words sought with a marker's yellow.
class DelegatoElenco final : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void evidenzia(const QString& cercato);
    void paint(QPainter* pittore, const QStyleOptionViewItem& opzioni,
               const QModelIndex& indice) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& opzioni,
                                 const QModelIndex& indice) const override;

  private:
    /// Where the words sought stand in a text.
    [[nodiscard]] QList<QTextLayout::FormatRange> segni(const QString& t) const;

    QStringList parole_;  ///< folded
};

/// `MSHFlexGrid1`: the table of the searches. An empty one says why in one quiet sentence.
class GrigliaElenco final : public QTableView {
    Q_OBJECT
  public:
    explicit GrigliaElenco(QWidget* genitore = nullptr);

    /// First visible row, by number.
    [[nodiscard]] int prima_riga() const;
    void vai_a_prima_riga(int riga);
    void di_se_vuota(const QString& frase);
    /// Repaints the rows in their tints and the current one in the highlight colour.
    void colora_riga();
    /// Gives the columns their widths after the list has changed.
    void adatta_colonne();

  signals:
    /// Enter on the current row.
    void confermata();
    /// The left arrow: back to the groups.
    void verso_gruppi();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void misura();
    QString frase_vuota_;
};

}  // namespace sortimetra
