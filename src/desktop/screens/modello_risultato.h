#pragma once

#include "results/colore.h"
#include "results/risultato_fwd.h"

#include <QAbstractTableModel>
#include <QRgb>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace sortimetra {

/// A result table as a grid reads it. Numbers become text in `data`, for the cells in sight alone; sorting
/// changes a permutation and leaves the table as the search wrote it.
class ModelloRisultato final : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows a table, in the order of writing. Null shows nothing, not even titles.
    void mostra(std::shared_ptr<const Tabella> tabella);
    /// Takes the rows away and leaves the titles.
    void svuota();
    /// Puts the rows in the order of one column; the table itself stays.
    void ordina_per(int colonna, Verso verso);
    /// Shows these rows of the table alone, in the order in use; nothing shows all of them again.
    void filtra(const std::optional<std::vector<std::uint32_t>>& righe);
    [[nodiscard]] bool filtrato() const { return filtrato_; }

    [[nodiscard]] const std::shared_ptr<const Tabella>& tabella() const { return tabella_; }
    /// Row of the table that stands in a row of the grid: what a search or a file means by "row".
    [[nodiscard]] std::size_t riga_originale(int riga) const;
    /// The rows on show in their order, empty for all of them as written.
    [[nodiscard]] const std::vector<std::uint32_t>& ordine() const { return ordine_; }
    /// Text of a cell without the blanks that once lined it up.
    [[nodiscard]] QString testo(int riga, int colonna) const;
    /// Whether a column holds numbers (also as text: "12,50%", "1.443,33"): it stands to the right.
    [[nodiscard]] bool numerica(int colonna) const;
    /// Width in characters-worth of text: the longest text of a column, for measuring.
    [[nodiscard]] QString testo_piu_largo(int colonna) const;

    /// True for a delay above the longest one ever closed: it is marked, and its tooltip says why.
    static constexpr int kRuoloSegno = Qt::UserRole + 1;
    /// Columns from `prima_aggiunta` on in quiet ink (-1 for none); with `calore` those behind the first on a
    /// ground by their value.
    void imposta_aspetto(int prima_aggiunta, bool calore);

    [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int sezione, Qt::Orientation verso,
                                      int ruolo = Qt::DisplayRole) const override;

  private:
    [[nodiscard]] QRgb fondo(int riga, int colonna) const;
    [[nodiscard]] bool oltre_lo_storico(std::size_t riga) const;
    [[nodiscard]] QVariant suggerimento(int riga, int colonna) const;
    void trova_misure();

    std::shared_ptr<const Tabella> tabella_;
    std::vector<std::uint32_t> ordine_;
    bool filtrato_ = false;
    std::vector<bool> numerica_;
    int prima_aggiunta_ = -1;
    bool calore_ = false;
    std::int32_t massimo_ = 0;  ///< the greatest value, of those with a ground by their value
    /// The three measures' columns, where the table has each once.
    std::optional<std::size_t> frequenza_, ritardo_, storico_;
};

/// A packed colour 0xBBGGRR of a result on the screen. The plain yellow of a hit becomes the skin's own.
[[nodiscard]] QRgb colore_schermo(Colore colore);
/// `testo` if it can be read on `fondo`, else moved towards black or white until it can (4.5 to 1).
[[nodiscard]] QRgb leggibile(QRgb testo, QRgb fondo);

}  // namespace sortimetra
