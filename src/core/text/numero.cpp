#include "text/numero.h"

#include "text/testi.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>

namespace sortimetra {

namespace {

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

/// The digits of a whole part without its points; nothing where a point stands amiss.
std::optional<std::string> cifre_intere(std::string_view testo, bool& punti) {
    std::string cifre;
    punti = testo.find('.') != std::string_view::npos;
    if (punti && testo.size() % 4 == 0) return std::nullopt;  // more than three digits before the first point
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const bool posto_di_punto = punti && i > 0 && (testo.size() - i) % 4 == 0;
        if (posto_di_punto != (testo[i] == '.')) return std::nullopt;
        if (posto_di_punto) continue;
        if (!cifra(testo[i])) return std::nullopt;
        cifre += testo[i];
    }
    if (cifre.empty()) return std::nullopt;
    return cifre;
}

}  // namespace

std::optional<NumeroScritto> leggi_numero(std::string_view testo) {
    NumeroScritto n;
    testo = rifila(testo);
    if (testo.ends_with('%')) {
        n.percento = true;
        testo = rifila(testo.substr(0, testo.size() - 1));
    }
    const bool negativo = testo.starts_with('-');
    if (negativo || testo.starts_with('+')) testo.remove_prefix(1);
    const std::size_t virgola = std::min(testo.find(','), testo.size());
    auto cifre = cifre_intere(testo.substr(0, virgola), n.punti);
    if (!cifre) return std::nullopt;
    n.zero_davanti = cifre->size() > 1 && cifre->front() == '0';
    if (virgola < testo.size()) {
        const std::string_view decimali = testo.substr(virgola + 1);
        if (decimali.empty() || !std::all_of(decimali.begin(), decimali.end(), cifra)) return std::nullopt;
        n.decimali = static_cast<int>(decimali.size());
        cifre->append(".").append(decimali);
    }
    const auto [fine, errore] = std::from_chars(cifre->data(), cifre->data() + cifre->size(), n.valore);
    if (errore != std::errc{} || fine != cifre->data() + cifre->size()) return std::nullopt;
    if (negativo) n.valore = -n.valore;
    return n;
}

}  // namespace sortimetra
