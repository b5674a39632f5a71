#pragma once

#include "catalogue/ricerche.h"

#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// A search as the catalogue lists it.
struct VoceElenco {
    std::string_view nome;             ///< as the user reads it
    const Ricerca* ricerca = nullptr;  ///< never null: every name of a list has its row in the dispatch table
    std::string_view gioco;            ///< name of the game
    std::string_view gruppo;           ///< first group of the Lotto that lists it; empty elsewhere
};

/// The game's name, as it is told to the user.
[[nodiscard]] std::string_view nome_gioco(Gioco gioco);

/// A list of the catalogue, in its order.
[[nodiscard]] std::vector<VoceElenco> voci(const Elenco& elenco);

/// Every search that a window can open, once: those of the lists in the order of the tabs, then those that
/// stand in no list.
[[nodiscard]] const std::vector<VoceElenco>& tutte_le_voci();

/// The searches of all games that hold every word of `testo`, in any order and without regard to case and
/// accents. Those that hold them in their name and place (game, group) come first, then those that need their
/// sentence. A text without words finds nothing.
[[nodiscard]] std::vector<VoceElenco> cerca(std::string_view testo);

}  // namespace sortimetra
