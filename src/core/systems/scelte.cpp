#include "systems/scelte.h"

#include <algorithm>

namespace sortimetra {

Dieci alle_posizioni(const Combinazione& combinazione, std::span<const int> posizioni) {
    Dieci numeri{};
    if (posizioni.size() != numeri.size()) return numeri;
    for (std::size_t i = 0; i < numeri.size(); ++i)
        numeri[i] = combinazione[static_cast<std::size_t>(posizioni[i])];
    return numeri;
}

Dieci primi_dieci(const Combinazione& combinazione) {
    Dieci numeri{};
    std::copy_n(combinazione.begin() + 1, numeri.size(), numeri.begin());
    return numeri;
}

bool passa(const Combinazione& combinazione, const ParametriSistemi& parametri) {
    const auto primo = combinazione.begin() + 1;
    const auto ultimo = primo + kDieci;
    for (const int n : parametri.contenenti)
        if (n != 0 && std::find(primo, ultimo, n) == ultimo) return false;
    for (std::size_t j = 0; j < std::min(parametri.nelle_posizioni.size(), kDieci); ++j)
        if (const int n = parametri.nelle_posizioni[j]; n != 0 && combinazione[j + 1] != n) return false;
    return true;
}

std::optional<Messaggio> scelta_senza_numeri(const ParametriSistemi& parametri) {
    for (const auto& scelti : {parametri.contenenti, parametri.nelle_posizioni})
        if (!scelti.empty() && std::all_of(scelti.begin(), scelti.end(), [](int n) { return n == 0; }))
            return Messaggio{Avviso::numero_mancante, std::string{kInserireUnNumero}};
    return std::nullopt;
}

std::optional<std::string> controlla_scelte(const ParametriSistemi& parametri, int dieci) {
    if (parametri.sistema == dieci && parametri.posizioni.size() != kDieci)
        return "--posizioni: con il 10eLotto servono dieci posizioni diverse da 1 a 20, unite da virgole.";
    if (!parametri.contenenti.empty() && !parametri.nelle_posizioni.empty())
        return "--contenenti e --nelle-posizioni sono due scelte diverse: ne vale una sola.";
    return std::nullopt;
}

std::optional<std::vector<int>> leggi_posizioni(std::string_view elenco) {
    auto posizioni = interi_opzione(elenco, 1, static_cast<int>(kListaMassima));
    if (!posizioni) return std::nullopt;
    std::sort(posizioni->begin(), posizioni->end());
    if (posizioni->size() != kDieci ||
        std::adjacent_find(posizioni->begin(), posizioni->end()) != posizioni->end())
        return std::nullopt;
    return posizioni;
}

std::optional<std::vector<int>> leggi_scelti(std::string_view elenco) {
    std::vector<int> scelti;
    for (const std::string_view pezzo : pezzi_opzione(elenco)) {
        const auto n = pezzo.empty() ? std::optional{0} : intero_opzione(pezzo);
        if (!n || *n < 0 || *n > kNumeriWinForLife) return std::nullopt;
        scelti.push_back(*n);
    }
    if (scelti.size() > kDieci) return std::nullopt;
    return scelti;
}

}  // namespace sortimetra
