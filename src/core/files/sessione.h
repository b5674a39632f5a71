#pragma once

#include <filesystem>
#include <optional>

namespace sortimetra {

/// The folders of one run, and the few things that outlive a screen. `main` makes one and hands it down.
struct Sessione {
    std::filesystem::path
        percorso_programma;     ///< holds `archivio`, `ric.ini`, the small files of each search
    int scheda_corrente = 1;    ///< catalogue tab to come back to, from 1
    int indice_combo_rit = -1;  ///< entry of `ComboRit` as the statistics screen was left, -1 for none

    [[nodiscard]] std::filesystem::path percorso_archivio() const { return percorso_programma / "archivio"; }
    [[nodiscard]] std::filesystem::path percorso_ridotti() const { return percorso_programma / "ridotti"; }
    [[nodiscard]] std::filesystem::path percorso_skin() const { return percorso_programma / "skin"; }
};

/// The folder of the running program.
[[nodiscard]] std::filesystem::path cartella_eseguibile();

/// The program's folder: `scelta` if given, else the executable's folder if it holds `archivio`, else the
/// user's data folder, since an installed program's folder cannot be written.
[[nodiscard]] std::filesystem::path cartella_programma(
    const std::optional<std::filesystem::path>& scelta = {});

}  // namespace sortimetra
