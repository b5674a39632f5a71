#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sortimetra {

/// Runs `sortimetra-cli` with the arguments after the program's name. Returns the exit code: 0 a result was
/// produced, 1 no data or not started, 2 wrong usage, 3 the archive cannot be opened.
int esegui_comando(const std::vector<std::string>& argomenti, std::ostream& uscita, std::ostream& errori);

}  // namespace sortimetra
