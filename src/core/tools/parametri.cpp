#include "tools/parametri.h"

#include "draws/ruote.h"
#include "text/testi.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace sortimetra {

bool leggi_numeri_spia(std::string_view valore, Domanda& domanda) {
    auto& numeri = domanda.parametri.per<ParametriSpia>().numeri;
    if (posto_parola(valore, kParoleSpia)) {
        numeri.resize(kNumeri);
        std::iota(numeri.begin(), numeri.end(), 1);
        return true;
    }
    const auto letti = interi_opzione(valore, 1, kNumeri);
    if (!letti) return false;
    numeri = senza_doppi(*letti);
    std::sort(numeri.begin(), numeri.end());
    return true;
}

std::optional<std::string> scrivi_numeri_spia(const Domanda& domanda) {
    const auto& numeri = domanda.di<ParametriSpia>().numeri;
    if (numeri.empty()) return std::nullopt;
    return numeri.size() == kNumeri ? std::string{kParoleSpia[0]} : testo_interi(numeri);
}

bool leggi_data_ciclometria(std::string_view valore, Domanda& domanda) {
    const auto data = leggi_data_italiana(rifila(valore));
    if (data) domanda.parametri.per<ParametriCiclometria>().data = data;
    return data.has_value();
}

std::optional<std::string> scrivi_data_ciclometria(const Domanda& domanda) {
    const auto& data = domanda.di<ParametriCiclometria>().data;
    return data ? std::optional{testo_data(*data)} : std::nullopt;
}

}  // namespace sortimetra
