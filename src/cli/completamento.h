#pragma once

#include "results/opzione.h"

#include <span>
#include <string>

namespace sortimetra {

// What a shell needs to complete a line with Tab, made from the tables that the programs read their lines
// with: commands, keys, options, the words that an option takes, files and folders.

[[nodiscard]] std::string completamento_bash_cli();
[[nodiscard]] std::string completamento_zsh_cli();
/// The same for the program with the windows, which takes options alone.
[[nodiscard]] std::string completamento_bash_finestra(std::span<const Opzione> opzioni);
[[nodiscard]] std::string completamento_zsh_finestra(std::span<const Opzione> opzioni);

}  // namespace sortimetra
