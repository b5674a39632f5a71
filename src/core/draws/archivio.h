#pragma once

#include "draws/ruote.h"
#include "files/errore.h"
#include "text/data.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
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

/// A column of a table: it views values that the table's `custode` keeps.
template <class T>
class ColonnaArchivio : public std::span<const T> {
  public:
    using const_iterator = typename std::span<const T>::iterator;
    using std::span<const T>::span;
    constexpr ColonnaArchivio() = default;

    friend bool operator==(const ColonnaArchivio& a, const ColonnaArchivio& b) {
        return std::ranges::equal(a, b);
    }
};

/// The clock texts of Win for Life. Few of them differ: each stands once, and a row has the place of its own.
class ColonnaOre {
  public:
    ColonnaOre() = default;
    /// `voce` has a place for each row, `fine` the end of each text in `testi`, where they stand one after
    /// the other.
    ColonnaOre(ColonnaArchivio<std::uint32_t> voce, ColonnaArchivio<std::uint32_t> fine,
               std::string_view testi)
        : voce_{voce}, fine_{fine}, testi_{testi} {}

    [[nodiscard]] std::size_t size() const { return voce_.size(); }
    [[nodiscard]] std::string_view operator[](std::size_t riga) const { return testo(voce_[riga]); }
    [[nodiscard]] std::string_view back() const { return testo(voce_.back()); }

    /// The place of each row's text, and the texts that differ.
    [[nodiscard]] ColonnaArchivio<std::uint32_t> voce() const { return voce_; }
    [[nodiscard]] std::size_t voci() const { return fine_.size(); }
    [[nodiscard]] std::string_view testo(std::size_t voce) const {
        const std::size_t inizio = voce == 0 ? 0 : fine_[voce - 1];
        return testi_.substr(inizio, fine_[voce] - inizio);
    }
    [[nodiscard]] ColonnaArchivio<std::uint32_t> fine() const { return fine_; }
    [[nodiscard]] std::string_view testi() const { return testi_; }

    /// Equal row by row, wherever the texts stand.
    friend bool operator==(const ColonnaOre& a, const ColonnaOre& b);

  private:
    ColonnaArchivio<std::uint32_t> voce_;
    ColonnaArchivio<std::uint32_t> fine_;
    std::string_view testi_;
};

/// Keeps the memory that the columns of a table view: vectors of this process, or a file that is mapped.
/// Tables are copied by sharing it.
using Custode = std::shared_ptr<const void>;

/// One record per concorso, ascending and unique. Column w * 5 + p of `numeri` is wheel w, place p (from 0).
struct TabellaLotto {
    ColonnaArchivio<Concorso> concorso{};
    ColonnaArchivio<Data> data{};
    ColonnaArchivio<std::uint16_t> presenti{};  ///< bit w is set where the row of wheel w exists
    ColonnaArchivio<std::array<Numero, kRuote * kEstratti>> numeri{};

    /// Number of rows (not of draws), as the store counts them.
    std::size_t righe{};
    Custode custode{};
};

struct TabellaNazionale {
    ColonnaArchivio<Concorso> concorso{};
    ColonnaArchivio<Data> data{};
    ColonnaArchivio<std::array<Numero, kEstratti>> numeri{};
    Custode custode{};
};

/// Places 0 to 5 the combination as stored, 6 the Jolly, 7 the SuperStar.
struct TabellaSuperEnalotto {
    ColonnaArchivio<Concorso> concorso{};
    ColonnaArchivio<Data> data{};
    ColonnaArchivio<std::array<Numero, 8>> numeri{};
    Custode custode{};
};

/// Ascending, but a concorso may stand twice (told apart by `ora`); lookups take its first row.
struct TabellaWinForLife {
    ColonnaArchivio<Concorso> concorso{};
    ColonnaArchivio<Data> data{};
    ColonnaOre ora{};
    ColonnaArchivio<std::array<Numero, 10>> numeri{};
    Custode custode{};
};

/// What the games that count by the Lotto's concorsi want of it, without its rows: where they end, and the
/// dates of Bari at both ends of the archive (nothing where Bari has no row there).
struct ConfiniLotto {
    Concorso ultimo = 0;  ///< 0 without draws
    std::optional<Data> primo_giorno{};
    std::optional<Data> ultimo_giorno{};
    friend bool operator==(const ConfiniLotto&, const ConfiniLotto&) = default;
};
[[nodiscard]] ConfiniLotto confini_lotto(std::span<const RigaLotto> righe);
/// Whether an archive could end so.
[[nodiscard]] bool possibili(const ConfiniLotto& confini);

/// All that an archive holds, whoever packed and checked it.
struct TabelleArchivio {
    TabellaLotto lotto{};
    TabellaNazionale nazionale{};
    TabellaSuperEnalotto superenalotto{};
    TabellaWinForLife winforlife{};
    /// Known where the rows of the Lotto were not read.
    std::optional<ConfiniLotto> confini{};
};

/// A draw outside of these years is damage, not a draw.
inline constexpr Data kPrimaData{std::chrono::year{1800} / 1 / 1};
inline constexpr Data kUltimaData{std::chrono::year{2999} / 12 / 31};

/// A concorso above this is no draw number but damage: the longest game has a draw an hour.
inline constexpr Concorso kConcorsoMassimo = 10'000'000;

/// Where one of the two database files came from.
struct Fonte {
    std::filesystem::path file;
    bool simulato = false;  ///< the demonstration archive, which must say so wherever it is shown
};

/// The past draws of all games: packed once, then only viewed. Immutable; a copy shares the tables.
class ArchivioEstrazioni {
  public:
    ArchivioEstrazioni() = default;

    /// Sorts, checks and packs the rows of a store. A row that cannot be true (two rows for one wheel of one
    /// draw, a number above 90, a concorso below 1) makes the whole archive fail: a wrong archive gives wrong
    /// answers without saying so.
    [[nodiscard]] static std::expected<ArchivioEstrazioni, ErroreArchivio> componi(RigheArchivio righe,
                                                                                   Fonte drawit = {},
                                                                                   Fonte drawit2 = {});
    /// Tables that are packed and checked already.
    ArchivioEstrazioni(TabelleArchivio tabelle, Fonte drawit, Fonte drawit2)
        : tabelle_{std::move(tabelle)}, drawit_{std::move(drawit)}, drawit2_{std::move(drawit2)} {}

    [[nodiscard]] const TabelleArchivio& tabelle() const { return tabelle_; }
    [[nodiscard]] const TabellaLotto& lotto() const { return tabelle_.lotto; }
    [[nodiscard]] const TabellaNazionale& nazionale() const { return tabelle_.nazionale; }
    [[nodiscard]] const TabellaSuperEnalotto& superenalotto() const { return tabelle_.superenalotto; }
    [[nodiscard]] const TabellaWinForLife& winforlife() const { return tabelle_.winforlife; }

    /// The file of Lotto and SuperEnalotto, and that of Win for Life.
    [[nodiscard]] const Fonte& drawit() const { return drawit_; }
    [[nodiscard]] const Fonte& drawit2() const { return drawit2_; }

    /// Highest concorso of the ten wheels, 0 without draws: the upper end of every concorso box but those of
    /// Win for Life.
    [[nodiscard]] Concorso ultimo_concorso() const {
        if (!lotto().concorso.empty()) return lotto().concorso.back();
        return tabelle_.confini ? tabelle_.confini->ultimo : 0;
    }
    [[nodiscard]] Concorso ultimo_concorso_winforlife() const {
        return winforlife().concorso.empty() ? 0 : winforlife().concorso.back();
    }

    /// Date of a concorso as the Lotto screens show it: that of its Bari row, nothing without one. Where the
    /// rows of the Lotto were not read only its ends have one.
    [[nodiscard]] std::optional<Data> data_bari(Concorso concorso) const;
    [[nodiscard]] std::optional<Data> data_winforlife(Concorso concorso) const;
    [[nodiscard]] ConfiniLotto confini_lotto() const {
        return {ultimo_concorso(), data_bari(1), data_bari(ultimo_concorso())};
    }

  private:
    TabelleArchivio tabelle_;
    Fonte drawit_;
    Fonte drawit2_;
};

/// Index of the first record with that concorso in an ascending column; nothing if there is none.
[[nodiscard]] std::optional<std::size_t> cerca_concorso(std::span<const Concorso> colonna, Concorso concorso);

}  // namespace sortimetra
