#include "cartella.h"
#include "systems/sistemi_salvati.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace sortimetra;

using Numeri = std::vector<Valore>;

/// The words of a piece between commas, each a whole number of 16 bits; false where one is none.
bool parole(std::string_view pezzo, Numeri& numeri, bool& qualcosa) {
    qualcosa = false;
    for (std::size_t i = 0; i < pezzo.size();) {
        const std::size_t inizio = pezzo.find_first_not_of(" \t", i);
        if (inizio == std::string_view::npos) return true;
        i = std::min(pezzo.find_first_of(" \t", inizio), pezzo.size());
        std::string_view parola = pezzo.substr(inizio, i - inizio);
        const bool negativo = parola.front() == '-';
        if (negativo || parola.front() == '+') parola.remove_prefix(1);
        if (parola.empty() || parola.find_first_not_of("0123456789") != std::string_view::npos) return false;
        long n = 0;
        for (const char c : parola) n = std::min(n * 10 + (c - '0'), 100'000L);
        if (n > (negativo ? 32768 : 32767)) return false;
        numeri.push_back(static_cast<Valore>(negativo ? -n : n));
        qualcosa = true;
    }
    return true;
}

/// The file read again, line by line; nothing where it is refused.
std::optional<Numeri> riletto(std::string_view testo) {
    testo = testo.substr(0, testo.find('\x1A'));
    Numeri numeri;
    while (!testo.empty()) {
        const std::size_t fine = std::min(testo.find_first_of("\r\n"), testo.size());
        std::string_view riga = testo.substr(0, fine);
        testo.remove_prefix(std::min(fine + 1, testo.size()));
        for (bool ancora = true; ancora;) {
            const std::size_t virgola = riga.find(',');
            ancora = virgola != std::string_view::npos;
            bool qualcosa = false;
            if (!parole(riga.substr(0, virgola), numeri, qualcosa) || (ancora && !qualcosa))
                return std::nullopt;
            if (ancora) riga.remove_prefix(virgola + 1);
        }
    }
    return numeri;
}

/// What the reader makes of the file when so many numbers are asked for at a time.
std::optional<Numeri> letto(const std::filesystem::path& file, std::size_t alla_volta) {
    auto lettore = LettoreSistema::apri(file);
    if (!lettore) std::abort();
    Numeri numeri;
    Numeri posto(alla_volta);
    while (true) {
        const auto n = lettore->leggi(posto);
        if (!n) {
            if (n.error().motivo.find("trovato") == std::string::npos) std::abort();
            return std::nullopt;
        }
        numeri.insert(numeri.end(), posto.begin(), posto.begin() + static_cast<std::ptrdiff_t>(*n));
        if (*n < posto.size()) return numeri;
    }
}

}  // namespace

/// Any bytes as the combinations of a saved system: refused with a message, or the numbers that a plain
/// reader finds, however many are asked for at a time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const fuzz::Cartella cartella;
    const std::string_view testo{reinterpret_cast<const char*>(dati), n};
    cartella.scrivi("xsya.txt", testo);
    const auto atteso = riletto(testo);
    for (const std::size_t alla_volta : {std::size_t{1}, std::size_t{5}, std::size_t{4096}})
        if (letto(cartella.percorso() / "xsya.txt", alla_volta) != atteso) std::abort();
    return 0;
}
