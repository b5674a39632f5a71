#pragma once

#include "files/errore.h"

#include <expected>
#include <string_view>

namespace sortimetra {

/// A part of the program that is loaded when it is used, so that who does not need it does not pay for its
/// libraries at each start. Module and program are always built together.
struct Modulo {
    const char* file;       ///< its name, beside the program or in `../lib/sortimetra`
    const char* porta;      ///< the C function that it exports
    std::string_view cosa;  ///< as messages call it: "il modulo di stampa"
};

/// Loads the module, at the first call, and finds its door. It is never unloaded: the libraries behind it are
/// not made for that.
[[nodiscard]] std::expected<void*, ErroreArchivio> apri_modulo(const Modulo& modulo);

}  // namespace sortimetra
