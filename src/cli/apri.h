#pragma once

#include "cli/comandi.h"
#include "draws/archivio.h"
#include "files/sessione.h"

#include <optional>
#include <string_view>

namespace sortimetra {

/// Said wherever draws of the demonstration archive are shown.
inline constexpr std::string_view kAvvisoSimulato =
    "archivio dimostrativo simulato: le estrazioni non sono vere.";

/// Opens the tables that a command needs. Says on `errori` why it cannot, that the draws are simulated, or
/// that some of them are of a day that is yet to come.
[[nodiscard]] std::optional<ArchivioEstrazioni> apri_per_leggere(const Sessione& sessione, unsigned tabelle,
                                                                 const Canali& canali);

}  // namespace sortimetra
