#include "systems/misure_combinazione.h"

namespace sortimetra {

namespace {

template <std::size_t K>
std::size_t scomponi_in(std::span<const Valore, kEstratti> ordinati, Valore* dove) {
    for (const auto& posti : kScomposizione<K>.posti)
        for (const std::uint8_t p : posti) *dove++ = ordinati[p];
    return kScomposizione<K>.posti.size();
}

}  // namespace

std::size_t scomponi(std::size_t k, std::span<const Numero, kEstratti> estratti, Valore* dove) {
    std::array<Valore, kEstratti> n{};
    std::copy(estratti.begin(), estratti.end(), n.begin());
    if (k == 5) {
        std::copy(n.begin(), n.end(), dove);
        return 1;
    }
    // Five numbers in nine exchanges.
    constexpr std::array<std::array<std::uint8_t, 2>, 9> kScambi{
        {{0, 1}, {3, 4}, {2, 4}, {2, 3}, {1, 4}, {0, 3}, {0, 2}, {1, 3}, {1, 2}}};
    for (const auto [a, b] : kScambi) {
        const Valore minore = std::min(n[a], n[b]);
        n[b] = std::max(n[a], n[b]);
        n[a] = minore;
    }
    switch (k) {
        case 2:
            return scomponi_in<2>(n, dove);
        case 3:
            return scomponi_in<3>(n, dove);
        case 4:
            return scomponi_in<4>(n, dove);
        default:
            return 0;
    }
}

}  // namespace sortimetra
