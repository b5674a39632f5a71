#include "cli/simili.h"

#include "text/testi.h"

#include <algorithm>
#include <utility>

namespace sortimetra {

std::size_t distanza(std::string_view uno, std::string_view altro) {
    const std::string a = minuscolo(uno);
    const std::string b = minuscolo(altro);
    // Three rows of the table are all that a swap of neighbours looks back to.
    std::vector<std::size_t> due(b.size() + 1);
    std::vector<std::size_t> una(b.size() + 1);
    std::vector<std::size_t> questa(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) una[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        questa[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t cambio = una[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            questa[j] = std::min({una[j] + 1, questa[j - 1] + 1, cambio});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                questa[j] = std::min(questa[j], due[j - 2] + 1);
        }
        std::swap(due, una);
        std::swap(una, questa);
    }
    return una[b.size()];
}

std::vector<std::string_view> simili(std::string_view testo, std::span<const std::string_view> candidati,
                                     std::size_t massimo) {
    // A text of thousands of letters is near nothing, and the table would be large.
    constexpr std::size_t kLungo = 200;
    constexpr std::size_t kPezzo = 3;
    const std::string cercato = minuscolo(rifila(testo));
    std::vector<std::string_view> trovati;
    if (cercato.empty() || cercato.size() > kLungo) return trovati;
    std::vector<std::pair<std::size_t, std::string_view>> vicini;
    for (const std::string_view c : candidati) {
        const std::size_t d = distanza(cercato, c);
        if (d <= std::max<std::size_t>(1, cercato.size() / 3) && d < std::max(cercato.size(), c.size()))
            vicini.emplace_back(d, c);
    }
    const auto prendi = [&](std::string_view c) {
        if (trovati.size() < massimo && std::find(trovati.begin(), trovati.end(), c) == trovati.end())
            trovati.push_back(c);
    };
    std::stable_sort(vicini.begin(), vicini.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    // A slip of one or two letters beats a text that happens to contain the word.
    for (const auto& [d, c] : vicini)
        if (d <= 2) prendi(c);
    if (cercato.size() >= kPezzo)
        for (const std::string_view c : candidati)
            if (minuscolo(c).find(cercato) != std::string::npos) prendi(c);
    for (const auto& [d, c] : vicini) prendi(c);
    return trovati;
}

std::string volevi_dire(std::string_view testo, std::span<const std::string_view> candidati,
                        std::size_t massimo) {
    std::string frase;
    for (const std::string_view c : simili(testo, candidati, massimo)) {
        frase += frase.empty() ? " Volevi dire \"" : "\" oppure \"";
        frase += c;
    }
    if (!frase.empty()) frase += "\"?";
    return frase;
}

}  // namespace sortimetra
