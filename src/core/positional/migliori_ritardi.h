#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/ricerca.h"
#include "results/risultato_fwd.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// What the hits of a family are judged by on the page of best delays.
enum class SogliaFamiglia : unsigned char {
    ambo,       ///< two numbers of the group on one wheel
    combo_rit,  ///< more numbers than the selection index that the statistics screen's combo was left at
};

/// One family of the two pages of best delays: which series, and how many of its groups are shown.
struct FamigliaMigliori {
    std::string_view titolo{};     ///< caption, as the page shows it
    std::string_view carica{};     ///< loader of the series
    std::size_t righe = 0;         ///< groups shown, those with the greatest delays
    bool etichette_brevi = false;  ///< groups are told by the family's short labels
    SogliaFamiglia soglia = SogliaFamiglia::ambo;
    std::string_view prefisso{};  ///< before the group's text
};

/// The 16 families of page 1, and those of page 2.
[[nodiscard]] std::span<const FamigliaMigliori> famiglie_migliori(int pagina);

/// The line over a printed page: "I migliori ritardi statistici all'estrazione n°4655 del 10/10/2020".
[[nodiscard]] std::string titolo_migliori(Concorso concorso, std::string_view data);

/// Reads the list of the cinquine dei 90 into the question; one that cannot be read leaves none.
[[nodiscard]] std::expected<void, Messaggio> carica_cinquine_migliori(const std::filesystem::path& cartella,
                                                                      Domanda& domanda);

/// "tabellone migliori ritardi": the groups of each family with the greatest delays over the chosen wheels,
/// up to the chosen concorso. Calendar and range do not apply. `pagina` 1 or 2.
///
/// One table, "Serie", "Gruppo", "Ritardo" ("R. 12"), `righe` rows per family in the order of the page; a
/// family with fewer groups leaves the rest empty. On page 1 the answer of `dieci_piu_in_ritardo` is
/// attached. Where the file of the cinquine dei 90 cannot be read, its rows are empty and its message is
/// given, and the other families are computed.
[[nodiscard]] Risultato migliori_ritardi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                         Avanzamento& avanzamento);

}  // namespace sortimetra
