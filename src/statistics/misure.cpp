#include "statistics/misure.h"

#include <numeric>

namespace sortimetra {

Risultato tabella_numeri(const MisureNumeri& misure, int quanti, std::int32_t t) {
    const auto n = static_cast<std::size_t>(quanti);
    ColonnaInteri numeri{std::vector<std::int32_t>(n)};
    std::iota(numeri.valori.begin(), numeri.valori.end(), 1);
    ScrittoreMisure scrittore{n};
    scrittore.righe(std::span{misure}.subspan(1, n), t);
    return std::move(scrittore).risultato(std::move(numeri));
}

}  // namespace sortimetra
