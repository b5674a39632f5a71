#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The boards: each shows every number of a game once, in the row of its delay at a chosen concorso and in
/// the column where it last came out.
enum class TipoTabellone : std::uint8_t {
    lotto,           ///< ten wheels and Nazionale, five places each
    primi_estratti,  ///< Bari's numbers, sorted, in six columns
    sestina,         ///< the six of SuperEnalotto
    dieci_e_lotto,   ///< the twenty of 10eLotto
    win_for_life,    ///< the ten of Win for Life
};

/// What a board is called once it stands, `data` being the chosen draw's day as shown ("" without one).
[[nodiscard]] std::string titolo_tabellone(TipoTabellone tipo, std::string_view data);
/// The same for the list of the ten most delayed numbers.
[[nodiscard]] std::string titolo_dieci(std::string_view data);

/// The day of a concorso as the boards show it, "" where there is none: that of its Bari row, or Win for
/// Life's own.
[[nodiscard]] std::string data_tabellone(const ArchivioEstrazioni& archivio, TipoTabellone tipo,
                                         Concorso concorso);

/// The range of a board's concorso box.
struct LimitiConcorso {
    Concorso minimo = 500;
    Concorso massimo = 0;

    /// Below the lower end becomes the lower end; then above the upper end becomes the upper end.
    [[nodiscard]] constexpr Concorso riporta(Concorso c) const {
        return std::min(std::max(c, minimo), massimo);
    }
};
[[nodiscard]] LimitiConcorso limiti_concorso(const ArchivioEstrazioni& archivio, TipoTabellone tipo);

/// The concorso that a search on a board runs at: the one typed, brought into the box's range with a note in
/// `note` if that is given; the game's last one when none is typed, as it is.
[[nodiscard]] Concorso concorso_scelto(const ArchivioEstrazioni& archivio, TipoTabellone tipo,
                                       const std::optional<Concorso>& scritto,
                                       std::vector<std::string>* note = nullptr);

/// A finished board: `delay` by `column`, 0 for an empty cell.
struct Tabellone {
    std::size_t colonne = 0;
    std::size_t ritardi = 0;  ///< rows: delays 0 to `ritardi` - 1
    std::vector<Numero> celle;

    [[nodiscard]] Numero cella(std::size_t ritardo, std::size_t colonna) const {
        return celle[ritardo * colonne + colonna];
    }
    [[nodiscard]] bool riga_vuota(std::size_t ritardo) const;
};

/// Builds a board in one walk back from `concorso`, in which each number is placed the first time that its
/// group (a wheel, or the whole draw) has it. Rows below concorso 406 stay empty on all boards but the
/// Lotto's, since the games that they come from began with 402.
///
/// A concorso that the board's table lacks leaves delay 0 empty and goes on from the table's end; on the
/// Lotto board nothing is placed then.
[[nodiscard]] Tabellone iniz_tabellone(const ArchivioEstrazioni& archivio, TipoTabellone tipo,
                                       Concorso concorso);

/// A draw that a row of a board stands for.
struct EstrazioneTabellone {
    Concorso concorso = 0;
    Data data{};
};

/// The draws of a board by their delay, as many as the walk back from `concorso` meets; nothing at a delay
/// whose row stays empty. With `nazionale` those of the Lotto board's last five columns.
[[nodiscard]] std::vector<std::optional<EstrazioneTabellone>> estrazioni_tabellone(
    const ArchivioEstrazioni& archivio, TipoTabellone tipo, Concorso concorso, bool nazionale = false);

// The searches: the delay first, then the columns, from the greatest delay down; delays at which no number
// stands are left out. The Lotto board colours its cells by wheel.
[[nodiscard]] Risultato tabellone_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);
[[nodiscard]] Risultato tabellone_primi_estratti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                                 Avanzamento& avanzamento);
[[nodiscard]] Risultato tabellone_sestina(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                          Avanzamento& avanzamento);
[[nodiscard]] Risultato tabellone_10elotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                           Avanzamento& avanzamento);
[[nodiscard]] Risultato tabellone_winforlife(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                             Avanzamento& avanzamento);

/// The ten numbers that have been away longest, read off the finished Lotto board: per wheel, for Nazionale,
/// and for all wheels together.
///
/// One table, "Ruota", "Posto", "Num.", "Rit.", ten rows a group. A number that is on no row of its wheel's
/// board comes first, with the count of Nazionale's draws up to the concorso as its delay. "Tutte" is taken
/// from the last 510 rows of the archive and does not stop at the chosen concorso.
[[nodiscard]] Risultato dieci_piu_in_ritardo(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                             Avanzamento& avanzamento);

/// Groups of one band of `griglia_dieci`, and its columns: the place, then number, delay and a blank a group.
inline constexpr std::size_t kGruppiBanda = 6;
inline constexpr std::size_t kColonneDieci = 1 + 3 * kGruppiBanda;
/// Rows of one band: names, titles, ten places; a blank row parts the two bands.
inline constexpr std::size_t kRigheBanda = 12;

/// The answer of `dieci_piu_in_ritardo` laid out in two bands of six groups, 25 rows and 19 columns of text:
/// group g has its numbers in column 3g + 1 and its delays in column 3g + 2. The first band is Bari to Milano
/// and Tutte, the second Napoli to Nazionale.
[[nodiscard]] Tabella griglia_dieci(const Tabella& dieci);

}  // namespace sortimetra
