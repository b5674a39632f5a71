#include "screens/corrispondenza.h"

#include "results/risultato.h"
#include "text/testi.h"

#include <algorithm>
#include <span>
#include <variant>

namespace sortimetra {

namespace {

/// Longer numbers are no numbers of a draw.
constexpr std::size_t kCifre = 6;

/// The numbers of a text made of digits and what stands between numbers; nothing for any other text.
std::vector<int> numeri_di(std::string_view testo) {
    std::vector<int> numeri;
    while (!testo.empty()) {
        const std::size_t salto = testo.find_first_not_of(" .-,/");
        if (salto == std::string_view::npos) break;
        testo.remove_prefix(salto);
        const std::size_t cifre = std::min(testo.find_first_not_of("0123456789"), testo.size());
        if (cifre == 0 || cifre > kCifre) return {};
        int n = 0;
        for (const char cifra : testo.substr(0, cifre)) n = 10 * n + (cifra - '0');
        numeri.push_back(n);
        testo.remove_prefix(cifre);
    }
    return numeri;
}

bool contiene_tutti(std::span<const std::uint8_t> gruppo, const std::vector<int>& numeri) {
    return std::all_of(numeri.begin(), numeri.end(), [&](int n) {
        return std::any_of(gruppo.begin(), gruppo.end(), [n](std::uint8_t g) { return g == n; });
    });
}

}  // namespace

Cercato::Cercato(std::string_view scritto) : testo_{minuscolo(rifila(scritto))}, numeri_{numeri_di(testo_)} {}

Cercato::Grado Cercato::grado(const Tabella& tabella, std::size_t riga, std::size_t colonna) const {
    const Colonna& dati = tabella.colonne[colonna];
    const bool uno = numeri_.size() == 1;
    if (const auto* gruppi = std::get_if<ColonnaGruppi>(&dati); gruppi != nullptr && !numeri_.empty())
        return contiene_tutti({gruppi->numeri.data() + riga * gruppi->quanti, gruppi->quanti}, numeri_)
                   ? Grado::numeri
                   : Grado::no;
    if (const auto* interi = std::get_if<ColonnaInteri>(&dati);
        interi != nullptr && uno && interi->valori[riga] == numeri_[0])
        return colonna == 0 ? Grado::numeri : Grado::intero;
    std::string cella;
    tabella.aggiungi_testo(cella, riga, colonna);
    const bool cifre =
        std::holds_alternative<ColonnaInteri>(dati) || std::holds_alternative<ColonnaGruppi>(dati);
    if (!cifre) cella = minuscolo(rifila(cella));
    if (cella == testo_) return Grado::intero;
    if (numeri_.size() > 1) {
        std::vector<std::uint8_t> gruppo;
        for (const int n : numeri_di(cella))
            if (n <= 255) gruppo.push_back(static_cast<std::uint8_t>(n));
        if (!gruppo.empty() && contiene_tutti(gruppo, numeri_)) return Grado::numeri;
    }
    return cella.find(testo_) == std::string::npos ? Grado::no : Grado::parte;
}

bool Cercato::uguale(const Tabella& tabella, std::size_t riga, std::size_t colonna) const {
    const std::string cella = minuscolo(rifila(tabella.testo(riga, colonna)));
    if (cella == testo_) return true;
    return !numeri_.empty() && numeri_di(cella) == numeri_;
}

}  // namespace sortimetra
