#pragma once

#include "catalogue/ricerche.h"
#include "cli/comandi.h"

#include <string>

namespace sortimetra {

/// The program's own help: commands, options of every command, exit codes.
[[nodiscard]] std::string aiuto_generale();
/// A command's help; with a search (for `ricerca` and `stampa`) only the options that it knows.
[[nodiscard]] std::string aiuto_comando(const Comando& comando, const Ricerca* ricerca = nullptr);

}  // namespace sortimetra
