#include "bets/parametri.h"

#include <algorithm>
#include <cmath>

namespace sortimetra {

bool leggi_opzione_limite(std::string_view valore, Domanda& domanda) {
    // The box turns a point into a comma as it is typed.
    std::string scritto{valore};
    std::replace(scritto.begin(), scritto.end(), '.', ',');
    const auto decimi = leggi_decimi(scritto);
    if (decimi) domanda.parametri.per<ParametriScommesse>().limite = valore_decimi(*decimi);
    return decimi.has_value();
}

std::optional<std::string> scrivi_opzione_limite(const Domanda& domanda) {
    const auto limite = domanda.di<ParametriScommesse>().limite;
    if (!limite) return std::nullopt;
    constexpr double kUnita = 10;
    const auto decimi = std::llround(*limite * kUnita);
    return std::to_string(decimi / 10) + "," + std::to_string(decimi % 10);
}

}  // namespace sortimetra
