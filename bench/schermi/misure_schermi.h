#pragma once

#include <filesystem>
#include <optional>

namespace sortimetra::misure {

/// Program's folders to measure with, filled with the real draws where they stand beside the project.
struct Cartelle {
    std::filesystem::path nativa;  ///< `drawit.db` and `drawit2.db`, simulated if there is nothing else
    std::optional<std::filesystem::path> jet;  ///< `drawit.mdb` and `drawit2.mdb`
    std::filesystem::path casa;  ///< home folder of the programs started, so that none of the user's is read
};

void registra_avvio(const Cartelle& cartelle);
void registra_catalogo(const Cartelle& cartelle);
void registra_griglia(const Cartelle& cartelle);
void registra_storia(const Cartelle& cartelle);

}  // namespace sortimetra::misure
