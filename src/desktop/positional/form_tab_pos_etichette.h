#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace sortimetra {

/// Labels `lblDatiTab` of both pages of best delays, 0 to 167, and the first of them on the second page.
inline constexpr std::size_t kEtichetteMigliori = 168;
inline constexpr std::size_t kPrimaEtichettaPagina2 = 94;

/// In which labels a family's groups and their delays stand, the longest delay first.
struct EtichetteFamiglia {
    std::string_view carica;  ///< loader of the series, as the family has it
    std::span<const std::size_t> gruppi;
    std::span<const std::size_t> ritardi;  ///< as many
};

[[nodiscard]] std::span<const EtichetteFamiglia> etichette_famiglie();

/// The labels of a family; empty for one that is on neither page.
[[nodiscard]] EtichetteFamiglia etichette_di(std::string_view carica);

}  // namespace sortimetra
