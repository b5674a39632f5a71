#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/colore.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// The shades that mark the isotopes of one column, in order of use.
inline constexpr std::array<Colore, 5> kPaletta{0xFFFF00, 65280, 255, 0x80C0FF, 65535};
/// The ground of the wheels' rows: the first, third … and the others.
inline constexpr std::array<Colore, 2> kRigheCiclometria{0xFFFFF2, 0xFFFFFF};

/// Sum on the circle of 90: 1 to 90, and 0 only for two empty cells.
[[nodiscard]] constexpr int somma_ciclometrica(int a, int b) {
    const int s = a + b;
    return s > 90 ? s - 90 : s;
}
/// The shorter arc between two numbers on the circle of 90: 1 to 45, and 0 for two equal numbers.
[[nodiscard]] constexpr int distanza_ciclometrica(int a, int b) {
    const int d = a > b ? 90 - a + b : b - a;
    return d > 45 ? 90 - d : d;
}

/// The concorso of that day or, failing one, of the last draw before it; nothing before the first draw.
[[nodiscard]] std::optional<Concorso> concorso_alla_data(const ArchivioEstrazioni& archivio, Data data);

/// The concorso that a question asks for; nothing if it has no draw.
[[nodiscard]] std::optional<Concorso> concorso_ciclometria(const ArchivioEstrazioni& archivio,
                                                           const Domanda& domanda);

/// "calcolo somme e distanze ciclometriche": the ten wheels of one draw in three tables: their numbers
/// ("risultati"), the sums of adjacent numbers ("somme") and their distances ("distanze"). A sum or distance
/// that two or more wheels have in the same place has a shade in common.
///
/// The draw's rows fill the table from Bari down, whatever their wheel; where there are fewer than ten the
/// last goes on to the end.
[[nodiscard]] Risultato ciclometria(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                    Avanzamento& avanzamento);

/// The isotopes of a draw in words, one line per table, place and value: "Somma 1°- 2°: 1 a Cagliari e
/// Firenze".
[[nodiscard]] std::vector<std::string> testi_isotopi(const Risultato& risultato);

/// A draw is told by its concorso or by its day, not by both.
[[nodiscard]] std::optional<std::string> controlla_ciclometria(const Domanda& domanda);

}  // namespace sortimetra
