#include "positional/form_tab_pos_etichette.h"

#include <algorithm>
#include <array>

namespace sortimetra {

namespace {

struct Riga {
    std::string_view carica;
    std::array<std::size_t, 3> gruppi;
    std::array<std::size_t, 3> ritardi;
    std::size_t quante;
};

constexpr auto kRighe = std::to_array<Riga>({
    {"carica_vertibili", {{0, 1, 2}}, {{3, 4, 5}}, 3},
    {"carica_simmetrici", {{6, 7, 8}}, {{9, 10, 11}}, 3},
    {"carica_complementari", {{12, 13, 14}}, {{15, 16, 17}}, 3},
    {"carica_distanza45", {{18, 19, 20}}, {{21, 22, 23}}, 3},
    {"carica_consecutivi", {{24, 25, 26}}, {{27, 28, 29}}, 3},
    {"carica_terzine_coesione", {{30, 31, 32}}, {{33, 34, 35}}, 3},
    {"carica_tricifriche", {{36, 38, 58}}, {{37, 39, 59}}, 3},
    {"carica_sestine_circolari", {{40, 42, 44}}, {{41, 43, 45}}, 3},
    {"carica_sestine_esagonali", {{46, 48, 50}}, {{47, 49, 51}}, 3},
    {"carica_sestine_somma", {{52, 54, 56}}, {{53, 55, 57}}, 3},
    {"carica_decine", {{60, 61, 62}}, {{63, 64, 65}}, 3},
    {"carica_cadenze", {{66, 67, 68}}, {{69, 70, 71}}, 3},
    {"carica_figure", {{72, 73, 74}}, {{75, 76, 77}}, 3},
    {"carica_gemelli", {{78, 79, 80}}, {{81, 82, 83}}, 3},
    {"carica_cifre", {{84, 85, 86}}, {{87, 88, 89}}, 3},
    {"carica_radicali", {{90, 92}}, {{91, 93}}, 2},
    {"carica_cifra_composta", {{94, 96}}, {{95, 97}}, 2},
    {"carica_renard", {{98, 100}}, {{99, 101}}, 2},
    {"carica_decine_simmetriche", {{102, 104}}, {{103, 105}}, 2},
    {"carica_controfigure", {{106, 108, 110}}, {{107, 109, 111}}, 3},
    {"carica_sestine_consecutive", {{113, 116, 118}}, {{114, 117, 119}}, 3},
    {"carica_sestine_multiple", {{120, 122, 124}}, {{121, 123, 125}}, 3},
    {"carica_terzine_correlative", {{126, 128, 130}}, {{127, 129, 131}}, 3},
    {"carica_grattacielo", {{132, 134, 136}}, {{133, 135, 137}}, 3},
    {"carica_cinquine_dei90", {{138, 140, 142}}, {{139, 141, 143}}, 3},
    {"carica_cinquine_coesione", {{144, 146}}, {{145, 147}}, 2},
    {"Carica_cinquine_consecutive", {{148, 150}}, {{149, 151}}, 2},
    {"carica_cinquine_correlative", {{152, 154}}, {{153, 155}}, 2},
    {"carica_cinquine_dispari", {{156}}, {{157}}, 1},
    {"carica_cinquine_pari", {{158}}, {{159}}, 1},
    {"carica_cinquine_pentagonali", {{160, 162}}, {{161, 163}}, 2},
    {"carica_cinquine_sun", {{164, 166}}, {{165, 167}}, 2},
});

constexpr auto kEtichette = [] {
    std::array<EtichetteFamiglia, kRighe.size()> tutte;
    for (std::size_t i = 0; i < kRighe.size(); ++i)
        tutte[i] = {kRighe[i].carica, std::span{kRighe[i].gruppi}.first(kRighe[i].quante),
                    std::span{kRighe[i].ritardi}.first(kRighe[i].quante)};
    return tutte;
}();

}  // namespace

std::span<const EtichetteFamiglia> etichette_famiglie() {
    return kEtichette;
}

EtichetteFamiglia etichette_di(std::string_view carica) {
    const auto it = std::find_if(kEtichette.begin(), kEtichette.end(),
                                 [&](const EtichetteFamiglia& e) { return e.carica == carica; });
    return it == kEtichette.end() ? EtichetteFamiglia{} : *it;
}

}  // namespace sortimetra
