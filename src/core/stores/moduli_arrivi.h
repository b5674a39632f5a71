#pragma once

#include "draws/avanzamento.h"
#include "files/modulo.h"

#include <cstddef>
#include <cstdio>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// The doors of the two modules that arrivals need now and then. Errors are one Italian sentence.

/// One file out of a packed one.
struct Spacchettato {
    std::string nome;  ///< within a zip; "" for gzip
    std::string byte;
};

/// Unpacks a whole gzip or zip file. All files together may become `massimo` bytes, and not one more is made.
using Spacchetta = std::expected<std::vector<Spacchettato>, std::string> (*)(std::string_view byte,
                                                                             std::size_t massimo);
inline constexpr Modulo kModuloSpacchetta{"libsortimetra-spacchetta.so", "sortimetra_spacchetta",
                                          "il modulo che apre i file compressi"};

/// A file to be fetched.
struct Scarico {
    std::string indirizzo;
    std::size_t massimo;
    long millisecondi;  ///< for all of it
    /// The certificates of the authorities that are trusted, PEM; empty: those of the system.
    std::string autorita{};
};

/// Fetches over HTTPS into `dove`. `avanzamento` counts bytes, of as many as the server announces, and
/// cancels.
using Scarica = std::expected<void, std::string> (*)(const Scarico& scarico, std::FILE* dove,
                                                     Avanzamento& avanzamento);
inline constexpr Modulo kModuloScarica{"libsortimetra-scarica.so", "sortimetra_scarica",
                                       "il modulo che scarica i file"};

}  // namespace sortimetra
