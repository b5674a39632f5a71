#include "results/opzione.h"

#include "text/testi.h"

#include <algorithm>
#include <charconv>

namespace sortimetra {

std::optional<std::int32_t> intero_opzione(std::string_view testo) {
    testo = rifila(testo);
    if (testo.starts_with('+')) {
        testo.remove_prefix(1);
        if (testo.starts_with('-')) return std::nullopt;
    }
    std::int32_t n = 0;
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), n);
    if (fine != testo.data() + testo.size() || errore == std::errc::invalid_argument) return std::nullopt;
    if (errore == std::errc::result_out_of_range)
        return testo.starts_with('-') ? kInteroMinimo : kInteroMassimo;
    return n;
}

std::optional<std::int32_t> intero_opzione(std::string_view testo, std::int32_t minimo,
                                           std::int32_t massimo) {
    const auto n = intero_opzione(testo);
    return n && *n >= minimo && *n <= massimo ? n : std::nullopt;
}

std::vector<std::string_view> pezzi_opzione(std::string_view elenco) {
    std::vector<std::string_view> pezzi;
    while (true) {
        const auto virgola = elenco.find(',');
        pezzi.push_back(rifila(elenco.substr(0, virgola)));
        if (virgola == std::string_view::npos) return pezzi;
        elenco.remove_prefix(virgola + 1);
    }
}

std::optional<std::vector<int>> interi_opzione(std::string_view elenco, std::int32_t minimo,
                                               std::int32_t massimo) {
    std::vector<int> numeri;
    for (const std::string_view pezzo : pezzi_opzione(elenco)) {
        const auto n = intero_opzione(pezzo, minimo, massimo);
        if (!n) return std::nullopt;
        numeri.push_back(*n);
    }
    return numeri;
}

std::vector<int> senza_doppi(const std::vector<int>& numeri) {
    std::vector<int> unici;
    for (const int n : numeri)
        if (std::find(unici.begin(), unici.end(), n) == unici.end()) unici.push_back(n);
    return unici;
}

std::string testo_interi(const std::vector<int>& numeri) {
    std::string testo;
    for (const int n : numeri) {
        if (!testo.empty()) testo += ',';
        aggiungi_intero(testo, n);
    }
    return testo;
}

std::optional<int> posto_parola(std::string_view parola, std::span<const std::string_view> parole) {
    const std::string cercata = minuscolo(rifila(parola));
    for (std::size_t i = 0; i < parole.size(); ++i)
        if (minuscolo(parole[i]) == cercata) return static_cast<int>(i);
    return std::nullopt;
}

}  // namespace sortimetra
