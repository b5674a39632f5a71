#pragma once

#include "results/opzione.h"

#include <span>
#include <string>

namespace sortimetra {

// Manual pages (section 1, in the language of `man`), made from the tables that the programs read their lines
// with.

[[nodiscard]] std::string manuale_cli();
/// The page of the program with the windows, which takes options alone.
[[nodiscard]] std::string manuale_finestra(std::span<const Opzione> opzioni);

}  // namespace sortimetra
