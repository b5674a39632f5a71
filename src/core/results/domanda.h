#pragma once

#include "draws/ambito.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What the user chose besides the scope. A form fills it from its controls, the command line from its
/// options; a search reads the fields that it knows. Each default is what an untouched screen has.
struct Parametri {
    int combo_rit = 0;            ///< list index of `ComboRit`: 0 "all'Ambata", 1 "all'Ambo", 2 "al Terno"
    std::vector<int> capogioco;   ///< one or two capi as typed; a missing one reads 0
    std::vector<int> numeri;      ///< numbers that the user brings, in the given order
    int sorte = 2;                ///< numbers per combination of a decomposition, 1 to 5
    int estratto = 1;             ///< place 1 to 5 chosen in `cmbEstratto`
    bool tutte_le_ruote = false;  ///< the wheel-by-wheel table of a series
    std::optional<Concorso> concorso;  ///< concorso box of the boards; none typed means the last
    int pagina = 1;                    ///< page 1 or 2 of the best delays
    int indice_combo = -1;             ///< `ComboRit` as the statistics screen left it, -1 no selection
    std::optional<int> schedina;       ///< 1-based grid row whose system is handed to the slip program
};

/// A search as asked: frozen values, no control, no file.
struct Domanda {
    std::string_view chiave;  ///< key of the search, lower case
    AmbitoRicerca ambito;
    Parametri parametri;
    /// The program's folder, for the one search whose numbers come from a file of its own.
    std::filesystem::path cartella;
};

}  // namespace sortimetra
