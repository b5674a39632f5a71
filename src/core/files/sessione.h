#pragma once

#include "files/errore.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace sortimetra {

/// The folders of one run, and the few things that outlive a screen. `main` makes one and hands it down.
struct Sessione {
    std::filesystem::path
        percorso_programma;     ///< holds `archivio`, `ric.ini`, the small files of each search
    bool copia = true;          ///< packed copies of the archive are used and made
    int scheda_corrente = 1;    ///< catalogue tab to come back to, from 1
    int indice_combo_rit = -1;  ///< entry of `ComboRit` as the statistics screen was left, -1 for none

    [[nodiscard]] std::filesystem::path percorso_archivio() const { return percorso_programma / "archivio"; }
    [[nodiscard]] std::filesystem::path percorso_ridotti() const { return percorso_programma / "ridotti"; }
    [[nodiscard]] std::filesystem::path percorso_skin() const { return percorso_programma / "skin"; }
};

/// The folder of the running program.
[[nodiscard]] std::filesystem::path cartella_eseguibile();

/// The user's settings that belong to no archive: one small text of sections and keys, UTF-8, that the window
/// writes and both programs read ($XDG_CONFIG_HOME/sortimetra/impostazioni.ini, or under ~/.config).
[[nodiscard]] std::filesystem::path file_impostazioni();

/// Their text; nothing where there is none, or where it cannot be read.
[[nodiscard]] std::optional<std::string> leggi_impostazioni();

/// Puts what `cambia` makes of that text ("" where there is none yet) in its place. Settings that are there
/// but cannot be read are not written over: that is an error.
[[nodiscard]] std::expected<void, ErroreArchivio> cambia_impostazioni(
    const std::function<std::string(std::string)>& cambia);

/// The user's folder for what can be made anew at any time.
[[nodiscard]] std::filesystem::path cartella_cache();

/// The folder chosen in the window last; nothing if none was, or if it holds no `archivio` any more (a disk
/// that is not there today is remembered for tomorrow).
[[nodiscard]] std::optional<std::filesystem::path> cartella_ricordata();

/// Makes a folder the one that both programs start in; all else in the settings stays. A relative folder is
/// taken from where the program runs.
[[nodiscard]] std::expected<void, ErroreArchivio> ricorda_cartella(const std::filesystem::path& cartella);

/// The program's folder: `scelta` if given, else the one chosen in the window, else the executable's folder
/// if it holds `archivio`, else the user's data folder, since an installed program's folder cannot be
/// written.
[[nodiscard]] std::filesystem::path cartella_programma(
    const std::optional<std::filesystem::path>& scelta = {});

/// Why there is no such folder, in words for the user: nothing was chosen and the user has none. Nothing
/// where there is one.
[[nodiscard]] std::optional<std::string> senza_cartella_programma(
    const std::optional<std::filesystem::path>& scelta = {});

}  // namespace sortimetra
