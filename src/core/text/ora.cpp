#include "text/ora.h"

#include <cstddef>

namespace sortimetra {

std::optional<int> leggi_ora(std::string_view testo) {
    const auto cifra = [&](std::size_t i) { return testo[i] >= '0' && testo[i] <= '9'; };
    if (testo.size() == 5 && testo[2] == ':' && cifra(0) && cifra(1) && cifra(3) && cifra(4)) {
        const int ore = (testo[0] - '0') * 10 + (testo[1] - '0');
        const int minuti = (testo[3] - '0') * 10 + (testo[4] - '0');
        if (ore < 24 && minuti < 60) return ore * 60 + minuti;
    } else if (testo.size() == 4 && testo[1] == ':' && cifra(0) && cifra(2) && cifra(3)) {
        const int minuti = (testo[2] - '0') * 10 + (testo[3] - '0');
        if (minuti < 60) return (testo[0] - '0') * 60 + minuti;
    }
    return std::nullopt;
}

}  // namespace sortimetra
