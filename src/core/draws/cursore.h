#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace sortimetra {

// Walking the archive row by row, in either direction, as the screens and tables do that look at single
// draws. A cursor is a list of row numbers over the packed tables: no row is copied. The archive must outlive
// it.

enum class TabellaArchivio : std::uint8_t { Lotto, Nazionale, SuperEnalotto, WinForLife };

/// What stands in one field: nothing (the table has no such column), a whole number, a date or text.
using Campo = std::variant<std::monostate, int, Data, std::string_view>;

/// One row of a draw table.
class Estrazione {
  public:
    Estrazione(const ArchivioEstrazioni& archivio, TabellaArchivio tabella, std::size_t record, int ruota)
        : archivio_{&archivio}, tabella_{tabella}, record_{record}, ruota_{ruota} {}

    [[nodiscard]] Concorso concorso() const;
    [[nodiscard]] Data data() const;
    /// "BA" to "VE", or "NAZIONALE"; empty for the games without wheels.
    [[nodiscard]] std::string_view ruota() const;
    /// The numbers in the order of the columns: five, six or ten. 0 for an empty cell.
    [[nodiscard]] std::span<const Numero> numeri() const;
    /// The k-th number from 1; 0 for an empty cell and for a place that the game does not have.
    [[nodiscard]] int numero(int k) const;
    /// Only SuperEnalotto has them.
    [[nodiscard]] std::optional<int> jolly() const;
    [[nodiscard]] std::optional<int> superstar() const;
    /// Clock text as stored; empty but for Win for Life.
    [[nodiscard]] std::string_view ora() const;

    /// By position from 0, in the column order of the table. Position 1 of SuperEnalotto is nothing: what
    /// stands there differs by store and is never asked for.
    [[nodiscard]] Campo campo(int posizione) const;
    /// By column name, without regard to case.
    [[nodiscard]] Campo campo(std::string_view nome) const;

  private:
    const ArchivioEstrazioni* archivio_;
    TabellaArchivio tabella_;
    std::size_t record_;
    int ruota_;
};

/// A walk over chosen rows. A new cursor stands on its first row; without rows it stands at its end.
class Cursore {
  public:
    /// `righe` holds record numbers of the table; for the Lotto, record * kRuote + wheel.
    Cursore(const ArchivioEstrazioni& archivio, TabellaArchivio tabella, std::vector<std::uint32_t> righe)
        : archivio_{&archivio}, tabella_{tabella}, righe_{std::move(righe)} {}

    /// The true number of rows, known before the walk begins.
    [[nodiscard]] std::size_t conteggio() const { return righe_.size(); }
    /// Behind the last row.
    [[nodiscard]] bool fine() const { return posto_ >= quante(); }
    /// Before the first row: only `precedente` and `sposta` lead there.
    [[nodiscard]] bool inizio() const { return posto_ < 0; }

    void primo() { posto_ = 0; }
    void ultimo() { posto_ = righe_.empty() ? 0 : quante() - 1; }
    void successivo() { sposta(1); }
    void precedente() { sposta(-1); }
    /// By `n` rows, back where it is negative; stops behind the last row and before the first.
    void sposta(std::ptrdiff_t n);

    /// The row on which the cursor stands; nothing behind the last and before the first.
    [[nodiscard]] std::optional<Estrazione> corrente() const;

  private:
    [[nodiscard]] std::ptrdiff_t quante() const { return static_cast<std::ptrdiff_t>(righe_.size()); }

    const ArchivioEstrazioni* archivio_;
    TabellaArchivio tabella_;
    std::vector<std::uint32_t> righe_;
    std::ptrdiff_t posto_ = 0;
};

/// Rows of the scope's wheels (NAZIONALE's own rows if that is the wheel), by concorso, then wheel.
[[nodiscard]] Cursore estrazioni_ruote(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);
/// Rows of the wheel NAZIONALE in the range and calendar of the scope, whatever wheels it names.
[[nodiscard]] Cursore estrazioni_nazionale(const ArchivioEstrazioni& archivio, AmbitoRicerca ambito);
/// Rows of SuperEnalotto in the range and calendar of the scope.
[[nodiscard]] Cursore estrazioni_superenalotto(const ArchivioEstrazioni& archivio,
                                               const AmbitoRicerca& ambito);
/// Rows of Win for Life in the range and at the hour of the scope.
[[nodiscard]] Cursore estrazioni_winforlife(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);
/// All Lotto rows of one concorso, by wheel.
[[nodiscard]] Cursore estrazione_concorso(const ArchivioEstrazioni& archivio, Concorso concorso);
/// The Bari row of one concorso, from which the screens take its date.
[[nodiscard]] Cursore estrazione_bari(const ArchivioEstrazioni& archivio, Concorso concorso);
/// One wheel's rows (0 to 9, or `kNazionale`) between two concorsi, both included.
[[nodiscard]] Cursore estrazioni_ruota(const ArchivioEstrazioni& archivio, int ruota, Concorso dalla,
                                       Concorso alla);
/// Every row of a table in its order: concorso, then wheel.
[[nodiscard]] Cursore tutte_le_estrazioni(const ArchivioEstrazioni& archivio,
                                          TabellaArchivio tabella = TabellaArchivio::Lotto);
/// A cursor over the whole table that stands on the first row of the concorso; nothing if it has none. To
/// look up many, ask for the record number with the other `cerca_concorso` (archivio.h), which makes no
/// cursor.
[[nodiscard]] std::optional<Cursore> cerca_concorso(const ArchivioEstrazioni& archivio,
                                                    TabellaArchivio tabella, Concorso concorso);
/// Lotto rows up to a date, the newest concorso first, wheels ascending within it.
[[nodiscard]] Cursore estrazioni_fino_a(const ArchivioEstrazioni& archivio, Data data);
/// Rows of NAZIONALE up to a concorso, ascending.
[[nodiscard]] Cursore estrazioni_nazionale_fino_a(const ArchivioEstrazioni& archivio, Concorso concorso);
/// Rows of the scope that hold at least one of the numbers, in whichever of the five places; a number that is
/// no number of the Lotto is in no row.
[[nodiscard]] Cursore estrazioni_con_numeri(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                                            std::span<const int> numeri);

/// The scratch table of the screens that need computed values in order. It lives in memory, in its owner.
class TabellaTemp {
  public:
    /// Makes it with these columns, empty; a table that is there goes.
    void crea_temp(std::vector<std::string> colonne);
    /// Adds a row, one value per column; returns false, and adds nothing, for another number of values.
    bool riempi_temp(std::span<const int> valori);
    /// The rows by one column, descending; equal values in the order of writing. Without such a column (names
    /// are matched without regard to case) they come in the order of writing.
    [[nodiscard]] std::vector<std::span<const int>> leggi_temp(std::string_view ordine) const;
    void elimina_temp();
    [[nodiscard]] std::size_t conteggio() const {
        return colonne_.empty() ? 0 : valori_.size() / colonne_.size();
    }

  private:
    std::vector<std::string> colonne_;
    std::vector<int> valori_;
};

}  // namespace sortimetra
