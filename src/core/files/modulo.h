#pragma once

#include "files/errore.h"

#include <expected>
#include <string_view>

namespace sortimetra {

/// Loads a module of the program at run time (a heavy library that only some pay for) from beside the program
/// or from `../lib/sortimetra`, and gives the function of that name in it. `nome` is how messages call it:
/// "di stampa". A module is never unloaded.
[[nodiscard]] std::expected<void*, ErroreArchivio> porta_modulo(const char* file, const char* porta,
                                                                std::string_view nome);

}  // namespace sortimetra
