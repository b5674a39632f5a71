#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sortimetra::prove {

/// What a program did.
struct Esito {
    int codice = -1;  ///< exit code; 128 + signal if it was killed
    std::string uscita;
    std::string errori;
};

/// How a program is started.
struct Avvio {
    std::filesystem::path cartella;  ///< where it runs; also its home folder, so that nothing of ours is read
    bool senza_uscita = false;       ///< standard output is closed
    bool uscita_rotta = false;       ///< standard output is a pipe that nobody reads
    std::filesystem::path uscita_in{};               ///< standard output goes to this file or device
    std::filesystem::path ingresso_da{"/dev/null"};  ///< standard input comes from this file
};

/// Starts a program of the build by its name (or any by its whole path), without a shell, in the C locale and
/// with nothing else in its environment, and waits for it.
[[nodiscard]] Esito esegui_programma(const std::string& programma, const std::vector<std::string>& argomenti,
                                     const Avvio& avvio);

}  // namespace sortimetra::prove
