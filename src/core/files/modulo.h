#pragma once

#include "files/errore.h"

#include <expected>

namespace sortimetra {

/// The C function `porta` of a module of ours that stands beside the program or in `../lib/sortimetra`: what
/// only some users pay for (Qt costs a process 6 to 10 ms at start) is loaded when it is first asked for.
/// Never unloaded, as Qt is not made for that.
[[nodiscard]] std::expected<void*, ErroreArchivio> porta_modulo(const char* modulo, const char* porta);

}  // namespace sortimetra
