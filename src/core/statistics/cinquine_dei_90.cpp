#include "statistics/cinquine_dei_90.h"

#include "draws/ruote.h"
#include "files/file_sicuro.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <set>
#include <system_error>
#include <tuple>
#include <vector>

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

/// The numbers of a plain list after its first line; nothing if it holds fewer than `attesi`, or anything
/// that is no number 1 to 90. What follows the last wanted number is not looked at.
std::vector<Numero> leggi_numeri(std::string_view testo, std::size_t attesi) {
    constexpr std::string_view kSeparatori = ", \t\r\n";
    std::vector<Numero> numeri;
    const auto prima_linea = testo.find('\n');
    testo.remove_prefix(prima_linea == std::string_view::npos ? testo.size() : prima_linea + 1);
    while (numeri.size() < attesi) {
        const auto inizio = testo.find_first_not_of(kSeparatori);
        if (inizio == std::string_view::npos) return {};
        testo.remove_prefix(inizio);
        const std::string_view campo = testo.substr(0, testo.find_first_of(kSeparatori));
        int numero = 0;
        const auto [fine, errore] = std::from_chars(campo.data(), campo.data() + campo.size(), numero);
        if (errore != std::errc{} || fine != campo.data() + campo.size() || numero < 1 || numero > kNumeri)
            return {};
        numeri.push_back(static_cast<Numero>(numero));
        testo.remove_prefix(campo.size());
    }
    return numeri;
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

std::expected<SerieCorrente, Messaggio> leggi_cinquine_dei_90(const std::filesystem::path& cartella) {
    constexpr std::size_t kQuante = 436;
    constexpr std::size_t kMassimo = 1U << 20;
    const auto testo = leggi_file(cartella / kFileCinquine, kMassimo);
    SerieCorrente s{.colonne = std::tuple_size_v<Cinquina>};
    if (testo) s.numeri = leggi_numeri(*testo, kQuante * s.colonne);
    if (s.numeri.empty())
        return std::unexpected(Messaggio{Avviso::file_danneggiato, std::string{kFileDanneggiato}});
    return s;
}

std::expected<void, ErroreArchivio> prepara_cinquine_dei_90(const std::filesystem::path& cartella) {
    const auto file = cartella / kFileCinquine;
    std::error_code errore;
    if (std::filesystem::exists(file, errore)) return {};
    return scrivi_file(file, testo_cinquine_dei_90());
}

}  // namespace sortimetra
