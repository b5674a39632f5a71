#pragma once

#include "draws/ruote.h"
#include "files/errore.h"
#include "text/data.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {

/// The number of a draw, counted from 1 over the whole archive; it does not restart with the year.
using Concorso = std::int32_t;

/// A number of draws, such as T. It reads as a whole number, but none becomes one unsaid: a concorso counts
/// over the whole archive, and in the place of T it would give delays of thousands.
class Estrazioni {
  public:
    constexpr Estrazioni() = default;
    explicit constexpr Estrazioni(std::int32_t quante) : quante_{quante} {}
    constexpr operator std::int32_t() const { return quante_; }  // NOLINT(*-explicit-*): see above

  private:
    std::int32_t quante_ = 0;
};

/// A number 1 to 90, or 0 where a cell is empty.
using Numero = std::uint8_t;

// ---- rows as a store hands them over, in any order ----

/// One wheel of one Lotto draw. `ruota` is 0 to 9, or `kNazionale`.
struct RigaLotto {
    Concorso concorso{};
    Data data{};
    int ruota{};
    std::array<Numero, kEstratti> numeri{};
    bool operator==(const RigaLotto&) const = default;
};

struct RigaSuperEnalotto {
    Concorso concorso{};
    Data data{};
    std::array<Numero, 6> numeri{};
    Numero jolly{};
    Numero superstar{};
    bool operator==(const RigaSuperEnalotto&) const = default;
};

struct RigaWinForLife {
    Concorso concorso{};
    Data data{};
    std::string ora{};  ///< clock text as stored, "08:00" or "8:00", possibly padded with blanks
    std::array<Numero, 10> numeri{};
    bool operator==(const RigaWinForLife&) const = default;
};

struct RigheArchivio {
    std::vector<RigaLotto> lotto;
    std::vector<RigaLotto> nazionale;
    std::vector<RigaSuperEnalotto> superenalotto;
    std::vector<RigaWinForLife> winforlife;
};

// ---- the same, packed ----

/// One record per concorso, ascending and unique. Column w * 5 + p of `numeri` is wheel w, place p (from 0).
struct TabellaLotto {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::uint16_t> presenti;  ///< bit w is set where the row of wheel w exists
    std::vector<std::array<Numero, kRuote * kEstratti>> numeri;

    /// Number of rows (not of draws), as the store counts them.
    std::size_t righe{};
};

struct TabellaNazionale {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::array<Numero, kEstratti>> numeri;
};

/// Places 0 to 5 the combination as stored, 6 the Jolly, 7 the SuperStar.
struct TabellaSuperEnalotto {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::array<Numero, 8>> numeri;
};

/// Ascending, but a concorso may stand twice (told apart by `ora`); lookups take its first row.
struct TabellaWinForLife {
    std::vector<Concorso> concorso;
    std::vector<Data> data;
    std::vector<std::string> ora;
    std::vector<std::array<Numero, 10>> numeri;
};

/// Where one of the two database files came from.
struct Fonte {
    std::filesystem::path file;
    bool simulato = false;  ///< the demonstration archive, which must say so wherever it is shown
};

/// The past draws of all games: packed once, then only viewed. Immutable after `componi`.
class ArchivioEstrazioni {
  public:
    ArchivioEstrazioni() = default;

    /// Sorts, checks and packs the rows of a store. A row that cannot be true (two rows for one wheel of one
    /// draw, a number above 90, a concorso below 1) makes the whole archive fail: a wrong archive gives wrong
    /// answers without saying so.
    [[nodiscard]] static std::expected<ArchivioEstrazioni, ErroreArchivio> componi(RigheArchivio righe,
                                                                                   Fonte drawit = {},
                                                                                   Fonte drawit2 = {});

    [[nodiscard]] const TabellaLotto& lotto() const { return lotto_; }
    [[nodiscard]] const TabellaNazionale& nazionale() const { return nazionale_; }
    [[nodiscard]] const TabellaSuperEnalotto& superenalotto() const { return superenalotto_; }
    [[nodiscard]] const TabellaWinForLife& winforlife() const { return winforlife_; }

    /// The file of Lotto and SuperEnalotto, and that of Win for Life.
    [[nodiscard]] const Fonte& drawit() const { return drawit_; }
    [[nodiscard]] const Fonte& drawit2() const { return drawit2_; }

    /// Highest concorso of the ten wheels, 0 without draws: the upper end of every concorso box but those of
    /// Win for Life.
    [[nodiscard]] Concorso ultimo_concorso() const {
        return lotto_.concorso.empty() ? 0 : lotto_.concorso.back();
    }
    [[nodiscard]] Concorso ultimo_concorso_winforlife() const {
        return winforlife_.concorso.empty() ? 0 : winforlife_.concorso.back();
    }

    /// Date of a concorso as the Lotto screens show it: that of its Bari row, nothing without one.
    [[nodiscard]] std::optional<Data> data_bari(Concorso concorso) const;
    [[nodiscard]] std::optional<Data> data_winforlife(Concorso concorso) const;

  private:
    TabellaLotto lotto_;
    TabellaNazionale nazionale_;
    TabellaSuperEnalotto superenalotto_;
    TabellaWinForLife winforlife_;
    Fonte drawit_;
    Fonte drawit2_;
};

/// Index of the first record with that concorso in an ascending column; nothing if there is none.
[[nodiscard]] std::optional<std::size_t> cerca_concorso(std::span<const Concorso> colonna, Concorso concorso);

}  // namespace sortimetra
