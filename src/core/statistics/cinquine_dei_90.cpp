#include "statistics/cinquine_dei_90.h"

#include "draws/ruote.h"
#include "files/file_sicuro.h"
#include "statistics/famiglie.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <set>
#include <system_error>

namespace sortimetra {

namespace {

using Cinquina = std::array<int, 5>;

constexpr std::array<Cinquina, 4> kBasi{{
    {0, 1, 3, 8, 58},
    {0, 4, 21, 51, 70},
    {0, 6, 16, 29, 44},
    {0, 11, 25, 37, 59},
}};

/// All 45 pairs of ten things in six blocks of five.
constexpr std::array<Cinquina, 6> kDieciInSei{{
    {0, 1, 2, 3, 4},
    {0, 1, 2, 5, 6},
    {0, 1, 7, 8, 9},
    {2, 3, 7, 8, 9},
    {3, 4, 5, 6, 7},
    {4, 5, 6, 8, 9},
}};

/// The cinquina `da` + `passo` * k for the five k of a block, as numbers 1 to 90 in ascending order.
Cinquina numeri(const Cinquina& blocco, int da, int passo) {
    Cinquina c{};
    for (std::size_t i = 0; i < c.size(); ++i) {
        const int residuo = (da + passo * blocco[i]) % kNumeri;
        c[i] = residuo == 0 ? kNumeri : residuo;
    }
    std::sort(c.begin(), c.end());
    return c;
}

}  // namespace

std::string testo_cinquine_dei_90() {
    std::set<Cinquina> cinquine;
    for (const Cinquina& base : kBasi)
        for (int da = 0; da < kNumeri; ++da) cinquine.insert(numeri(base, da, 1));
    for (int classe = 0; classe < 9; ++classe)
        for (const Cinquina& blocco : kDieciInSei) cinquine.insert(numeri(blocco, classe, 9));
    constexpr Cinquina kFila{0, 1, 2, 3, 4};
    for (int da = 1; da <= 18; ++da) cinquine.insert(numeri(kFila, da, 18));
    for (int da = 1; da <= 16; da += 5) cinquine.insert(numeri(kFila, da, 1));

    std::string testo = fmt::format("{}\n", cinquine.size());
    for (const Cinquina& c : cinquine)
        fmt::format_to(std::back_inserter(testo), "{},{},{},{},{}\n", c[0], c[1], c[2], c[3], c[4]);
    return testo;
}

std::expected<void, ErroreArchivio> prepara_cinquine_dei_90(const std::filesystem::path& cartella) {
    const auto file = cartella / kFileCinquine;
    std::error_code errore;
    if (std::filesystem::exists(file, errore)) return {};
    return scrivi_file(file, testo_cinquine_dei_90());
}

}  // namespace sortimetra
