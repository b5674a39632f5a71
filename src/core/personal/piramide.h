#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "personal/poste.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

/// The ten numbers of the pyramid; row r of the triangle is the first r of them.
using Piramide = std::array<Numero, kRighePiramide>;

/// "rit" or "freq": what ranks the partners of the start number.
enum class TipoPiramide : std::uint8_t { rit, freq };

/// The rows as the triangle calls them.
inline constexpr std::array<std::string_view, kRighePiramide> kTitoliPiramide{
    "Ambata",
    "Ambo",
    "Terzina per Ambo e Terno",
    "Quartina per Ambo e Terno",
    "Cinquina per Ambo e Terno",
    "Sestina per Ambo e Terno",
    "Settina per Ambo e Terno",
    "Ottina per Ambo, Terno e Quaterna",
    "Novina per Ambo, Terno e Quaterna",
    "  Decina per Ambo, Terno e Quaterna"};

/// The best single number of the scope: the most delayed, or the most frequent; the lowest of equal ones.
/// Every row counts as a draw of its own for T. A row without a first number adds nothing, though its draw
/// counts.
[[nodiscard]] Numero Ric_ambata(const VistaEstrazioni& vista, TipoPiramide tipo);

/// The pyramid over `numero`. Its partners are ranked by the delay (in concorsi, from the last one in scope)
/// or the frequency of the ambo that they make with it in the draws that hold it; the 18 strongest rows of
/// that ranking are passed over, the next nine make places 2 to 10. Each partner has two rows, one of them
/// without a value, and the number a row with itself: where few partners have a value a number can stand
/// twice.
[[nodiscard]] Piramide TROVA_PIRAMIDE(const VistaEstrazioni& vista, Numero numero, TipoPiramide tipo);

/// "piramide statistica": the triangle, ten rows of ten columns, and the label `piede`. Without a wheel, or
/// without the number that options 0 and 3 ask for, the search does not start and says nothing.
[[nodiscard]] Risultato piramide_statistica(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                            Avanzamento& avanzamento);
/// One wheel, TUTTE or NAZIONALE.
[[nodiscard]] std::optional<std::string> controlla_piramide(const Domanda& domanda);

/// The pyramid that an answer shows; nothing where it shows none.
[[nodiscard]] std::optional<Piramide> piramide_di(const Risultato& risultato);

}  // namespace sortimetra
