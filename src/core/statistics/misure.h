#pragma once

#include "draws/archivio.h"
#include "draws/ruote.h"
#include "results/risultato.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

/// The three measures of one object (a number, an ambo, a member of a series) while draws are walked.
///
/// `ritardo` needs no field of its own: it is T minus the ordinal of the last hit, or T without one.
struct Misura {
    std::int32_t ultimo = 0;     ///< ordinal C of the last hit; its start value differs by search
    std::int32_t frequenza = 0;  ///< hits, one per wheel row
    std::int32_t storico = 0;    ///< longest closed delay, in draws

    friend bool operator==(const Misura&, const Misura&) = default;
};

/// A delay counts once it is closed: the wait before the first hit is outside when `ultimo` starts at
/// `inizio_ambata(t)`, and the wait in progress always is. A second hit in one draw gives -1 and changes
/// nothing but the frequency.
constexpr void esce(Misura& m, std::int32_t c) {
    ++m.frequenza;
    m.storico = std::max(m.storico, c - m.ultimo - 1);
    m.ultimo = c;
}

/// The same in eight bytes, for searches that touch hundreds of thousands of cells at random. Enough for
/// archives of less than 65,536 draws; `basta` says whether it is.
struct MisuraBreve {
    std::uint16_t ultimo = 0;
    std::uint16_t storico = 0;
    std::int32_t frequenza = 0;

    MisuraBreve() = default;
    /// A cell without a hit yet.
    explicit constexpr MisuraBreve(std::int32_t inizio) : ultimo{static_cast<std::uint16_t>(inizio)} {}
    explicit constexpr operator Misura() const { return {ultimo, frequenza, storico}; }

    /// Whether so many draws, from that start of `ultimo`, fit: neither ordinals nor delays are above either.
    [[nodiscard]] static constexpr bool basta(std::size_t estrazioni, std::int32_t inizio) {
        return estrazioni <= 0xFFFF && inizio >= 0 && inizio <= 0xFFFF;
    }
};

constexpr void esce(MisuraBreve& m, std::int32_t c) {
    ++m.frequenza;
    m.storico = static_cast<std::uint16_t>(std::max<std::int32_t>(m.storico, c - m.ultimo - 1));
    m.ultimo = static_cast<std::uint16_t>(c);
}

/// Start of `ultimo` for numbers, ambi and terni: the first gap comes out as C - T, never above 0 as long as
/// no more draws are walked than T.
constexpr std::int32_t inizio_ambata(Estrazioni t) {
    return t - 1;
}
/// Start of `ultimo` for the named series: the wait before the first hit does count, less one.
inline constexpr std::int32_t kInizioSerie = 1;

/// Draws since the last hit. Where wheels lack rows T is smaller than the draws walked and this can fall
/// below 0; no correction is made.
[[nodiscard]] constexpr std::int32_t ritardo(const Misura& m, Estrazioni t) {
    return m.frequenza == 0 ? t : t - m.ultimo;
}

/// The titles of every table of measures; searches on the wider series use the short form.
inline const std::vector<std::string> kTitoliMisure{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"};
inline const std::vector<std::string> kTitoliMisureBrevi{"Numeri", "Freq.", "Rit.", "R. S."};

/// Room for the measures of the numbers 1 to 90; index 0 stays unused, or takes the hits of empty cells.
using MisureNumeri = std::array<Misura, kNumeri + 1>;

/// The four columns of a table of measures, filled row by row.
class ScrittoreMisure {
  public:
    explicit ScrittoreMisure(std::size_t righe)
        : frequenza_{std::vector<std::int32_t>(righe)},
          ritardo_{std::vector<std::int32_t>(righe)},
          storico_{std::vector<std::int32_t>(righe)} {}
    /// Writes the next row; no more rows than were told may be written.
    void riga(std::int32_t frequenza, std::int32_t ritardo, std::int32_t storico) {
        frequenza_.valori[riga_] = frequenza;
        ritardo_.valori[riga_] = ritardo;
        storico_.valori[riga_] = storico;
        ++riga_;
    }
    /// Writes one row per measure, in whatever cells it was counted.
    template <class Celle>
    void righe(const Celle& misure, Estrazioni t) {
        std::int32_t* __restrict f = frequenza_.valori.data() + riga_;
        std::int32_t* __restrict r = ritardo_.valori.data() + riga_;
        std::int32_t* __restrict s = storico_.valori.data() + riga_;
        for (std::size_t i = 0; i < misure.size(); ++i) {
            const auto m = static_cast<Misura>(misure[i]);
            f[i] = m.frequenza;
            r[i] = sortimetra::ritardo(m, t);
            s[i] = m.storico;
        }
        riga_ += misure.size();
    }

    /// The finished table, with `numeri` as its first column.
    [[nodiscard]] Risultato risultato(Colonna numeri, Eventi eventi = {},
                                      const std::vector<std::string>& titoli = kTitoliMisure) && {
        Tabella tabella;
        tabella.eventi = std::move(eventi);
        tabella.titoli = {titoli};
        tabella.colonne.emplace_back(std::move(numeri));
        tabella.colonne.emplace_back(std::move(frequenza_));
        tabella.colonne.emplace_back(std::move(ritardo_));
        tabella.colonne.emplace_back(std::move(storico_));
        Risultato r;
        r.tabelle.push_back(std::move(tabella));
        return r;
    }

  private:
    std::size_t riga_ = 0;
    ColonnaInteri frequenza_;
    ColonnaInteri ritardo_;
    ColonnaInteri storico_;
};

/// A table of measures, one row each, with `numeri` as its first column; `eventi` is what they measure.
[[nodiscard]] Risultato tabella_misure(Colonna numeri, std::span<const Misura> misure, Estrazioni t,
                                       Eventi eventi = {},
                                       const std::vector<std::string>& titoli = kTitoliMisure);
[[nodiscard]] Risultato tabella_misure(Colonna numeri, std::span<const MisuraBreve> misure, Estrazioni t,
                                       Eventi eventi = {},
                                       const std::vector<std::string>& titoli = kTitoliMisure);

/// The table of measures of the numbers 1 to `quanti`, in number order, each looked for in `posti`.
[[nodiscard]] Risultato tabella_numeri(const MisureNumeri& misure, int quanti, Estrazioni t, Gioco gioco,
                                       Posti posti = kOgniPosto);

}  // namespace sortimetra
