#include "statistics/misure.h"

#include "results/risultato.h"

#include <numeric>

namespace sortimetra {

namespace {

template <class Cella>
Risultato tabella_celle(Colonna numeri, std::span<const Cella> misure, Estrazioni t, Eventi eventi,
                        const std::vector<std::string>& titoli) {
    ScrittoreMisure scrittore{misure.size()};
    scrittore.righe(misure, t);
    return std::move(scrittore).risultato(std::move(numeri), std::move(eventi), titoli);
}

}  // namespace

Risultato tabella_misure(Colonna numeri, std::span<const Misura> misure, Estrazioni t, Eventi eventi,
                         const std::vector<std::string>& titoli) {
    return tabella_celle(std::move(numeri), misure, t, std::move(eventi), titoli);
}

Risultato tabella_misure(Colonna numeri, std::span<const MisuraBreve> misure, Estrazioni t, Eventi eventi,
                         const std::vector<std::string>& titoli) {
    return tabella_celle(std::move(numeri), misure, t, std::move(eventi), titoli);
}

Risultato tabella_numeri(const MisureNumeri& misure, int quanti, Estrazioni t, Gioco gioco, Posti posti) {
    const auto n = static_cast<std::size_t>(quanti);
    ColonnaInteri numeri{std::vector<std::int32_t>(n)};
    std::iota(numeri.valori.begin(), numeri.valori.end(), 1);
    return tabella_misure(std::move(numeri), std::span{misure}.subspan(1, n), t,
                          {.gioco = gioco, .presenti = 1, .posti = posti});
}

}  // namespace sortimetra
