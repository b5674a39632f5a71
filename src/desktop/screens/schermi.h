#pragma once

#include "results/ricerca.h"

#include <cstdint>
#include <string_view>

namespace sortimetra {

/// The screens, one entry per class. Each exists once and is set on a search by its row below.
enum class Schermo : std::uint8_t {
    stat,           ///< Form_stat
    posizione,      ///< Form_posizione
    tab_pos,        ///< form_tab_pos
    tab_pos_wfl,    ///< form_tab_posWFL
    tab_pos2,       ///< form_tab_pos2
    segnalimite,    ///< FrameSegnalimite of the catalogue window
    spia,           ///< form_spia
    som_dis_ciclo,  ///< Form_som_dis_ciclo
    lunghette,      ///< Form_lunghette
    lunghette10,    ///< Form_lunghette10Lotto
    lunghette_wfl,  ///< Form_lunghetteWFL
    lunghette5,     ///< Form_Lunghette5
    personali,      ///< Form_Personali
    gruppi2,        ///< Form_Gruppi2
    piramide,       ///< Form_Piramide
    filtri,         ///< Form_filtri
    ultimi,         ///< Form_Ultimi
    scommesse,      ///< Form_scommesse
    nessuno,        ///< reached from the command line alone
};

/// Which screen hosts a search.
[[nodiscard]] Schermo schermo_di(const Ricerca& ricerca);

/// The column that the sort button of index 1 over a search's grid sorts; every other button sorts its own.
[[nodiscard]] int colonna_del_pulsante_1(const Ricerca& ricerca);

/// The chapter of the manual that tells of a search, as `FinestraManuale` names chapters.
[[nodiscard]] const char* capitolo_di(const Ricerca& ricerca);

/// The screen's mode, its `Tag`: the key where the table tells no other.
[[nodiscard]] std::string_view tag_di(const Ricerca& ricerca);

}  // namespace sortimetra
