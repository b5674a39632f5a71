#include "cartella.h"
#include "statistics/cinquine_dei_90.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace sortimetra;

constexpr std::size_t kNumeriAttesi = std::size_t{436} * 5;

/// The list read again, one character after the other; empty where it is refused.
std::vector<Numero> riletta(std::string_view testo) {
    std::vector<Numero> numeri;
    std::size_t i = 0;
    while (i < testo.size() && testo[i] != '\n') ++i;
    ++i;  // the first line and its end
    bool in_numero = false;
    unsigned numero = 0;
    for (; i <= testo.size() && numeri.size() < kNumeriAttesi; ++i) {
        const char c = i < testo.size() ? testo[i] : '\n';
        if (c == ',' || c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            if (in_numero && (numero < 1 || numero > 90)) return {};
            if (in_numero) numeri.push_back(static_cast<Numero>(numero));
            in_numero = false;
            numero = 0;
        } else if (c >= '0' && c <= '9') {
            in_numero = true;
            numero = numero > 90 ? numero : numero * 10 + static_cast<unsigned>(c - '0');
        } else {
            return {};
        }
    }
    return numeri.size() == kNumeriAttesi ? numeri : std::vector<Numero>{};
}

}  // namespace

/// Any bytes as `n90ridd.rid`, and as the end of a list that is sound as far as it goes: the first two bytes
/// say how many numbers stand before. A list is refused with its message or holds what a plain reader finds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const fuzz::Cartella cartella;
    if (n < 2) return 0;
    const std::size_t davanti = (dati[0] + std::size_t{dati[1]} * 256) % (kNumeriAttesi + 2);
    std::string testo;
    if (davanti != 0) testo = "436\n";
    for (std::size_t i = 1; i < davanti; ++i) testo += std::to_string(i % 90 + 1) + (i % 5 == 0 ? '\n' : ',');
    testo.append(reinterpret_cast<const char*>(dati) + 2, n - 2);
    cartella.scrivi(kFileCinquine, testo);

    const auto serie = leggi_cinquine_dei_90(cartella.percorso());
    if (serie ? serie->colonne != 5 || serie->numeri.empty() : serie.error().testo != kFileDanneggiato)
        std::abort();
    if ((serie ? serie->numeri : std::vector<Numero>{}) != riletta(testo)) std::abort();
    return 0;
}
