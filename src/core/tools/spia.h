#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/colore.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The draws after which a spy is spent.
inline constexpr int kColpi = 9;

// Colours of the grid of spies.
inline constexpr Colore kSfondoSpia = 65535;        ///< the spy itself, yellow
inline constexpr Colore kSfondoInAttesa = 255;      ///< the spy came, the number has not followed yet: red
inline constexpr Colore kSfondoSeguita = 65280;     ///< the spy came and the number has followed: green
inline constexpr Colore kSfondoLontana = 0xFFFFFF;  ///< the spy came longer ago

/// What the figures and colours mean, as the screen and the foot of the report tell it.
inline constexpr std::string_view kLegendaPercento1 =
    "%1 = Percentuale di sortita entro il 9 colpo dopo l'uscita del numero spia";
inline constexpr std::string_view kLegendaPercento2 =
    "%2 = Percentuale presenza del numero spia nei 9 colpi precedenti la sortita del numero in esame.";
inline constexpr std::string_view kLegendaRosso =
    "In rosso sono evidenziati i casi in cui si è avuta la sortita del numero spia nei 9 colpi precedenti, "
    "per cui è probabile l'uscita del numero esaminato.";
inline constexpr std::string_view kLegendaVerde =
    "In verde sono evidenziati i casi in cui la sortita del numero spia nei 9 colpi precedenti è stata "
    "seguita dall'uscita del numero in esame.";

/// "calcolo dei numeri spia": for each number asked for, the number that most often stood in the nine rows
/// before it came. One row each, in number order: the number, its delay, its spy (0 without one), how often
/// the number follows the spy within nine rows (%1), how often the spy stood before the number (%2), the
/// spy's delay.
///
/// Delays count concorsi, steps count rows: on all ten wheels nine rows are less than one draw. A search that
/// is cancelled keeps the numbers that it has examined.
[[nodiscard]] Risultato numeri_spia(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                    Avanzamento& avanzamento);

/// Two answers about different numbers of one scope as one, in number order: how a board grows click by
/// click.
[[nodiscard]] Risultato unisci_spie(const Risultato& prima, const Risultato& altre);

/// The numbers that an answer is about.
[[nodiscard]] std::vector<int> numeri_esaminati(const Risultato& risultato);

/// Why the question cannot be asked: no number, or several wheels one by one; nothing if it can.
[[nodiscard]] std::optional<std::string> controlla_spia(const Domanda& domanda);

}  // namespace sortimetra
