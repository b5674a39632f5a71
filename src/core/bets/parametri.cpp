#include "bets/parametri.h"

#include <algorithm>

namespace sortimetra {

bool leggi_opzione_limite(std::string_view valore, Domanda& domanda) {
    // The box turns a point into a comma as it is typed.
    std::string scritto{valore};
    std::replace(scritto.begin(), scritto.end(), '.', ',');
    const auto decimi = leggi_decimi(scritto);
    if (decimi) domanda.parametri.per<ParametriScommesse>().decimi = decimi;
    return decimi.has_value();
}

std::optional<std::string> scrivi_opzione_limite(const Domanda& domanda) {
    const auto& decimi = domanda.di<ParametriScommesse>().decimi;
    if (!decimi) return std::nullopt;
    return std::to_string(*decimi / 10) + "," + std::to_string(*decimi % 10);
}

}  // namespace sortimetra
