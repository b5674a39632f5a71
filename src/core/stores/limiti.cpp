#include "stores/limiti.h"

#include "stores/celle.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace sortimetra {

namespace {

template <class Riga>
std::optional<std::string> oltre(std::string_view gioco, const std::vector<Riga>& righe) {
    if (righe.size() > kRigheMassime)
        return fmt::format("{}: {} righe, un archivio ne contiene al massimo {}", gioco,
                           migliaia(static_cast<std::int64_t>(righe.size())),
                           migliaia(static_cast<std::int64_t>(kRigheMassime)));
    const auto fuori = std::find_if(righe.begin(), righe.end(), [](const Riga& r) {
        return r.data < kPrimaData || r.data > kUltimaData;
    });
    if (fuori == righe.end()) return std::nullopt;
    return fmt::format("{}: trovata un'estrazione del {}, un archivio ne contiene dal {} al {}", gioco,
                       testo_data(fuori->data), testo_data(kPrimaData), testo_data(kUltimaData));
}

}  // namespace

std::optional<std::string> oltre_i_limiti(const RigheArchivio& righe) {
    if (auto perche = oltre("Lotto", righe.lotto)) return perche;
    if (auto perche = oltre("Lotto, Nazionale", righe.nazionale)) return perche;
    if (auto perche = oltre("SuperEnalotto", righe.superenalotto)) return perche;
    return oltre("Win for Life", righe.winforlife);
}

}  // namespace sortimetra
