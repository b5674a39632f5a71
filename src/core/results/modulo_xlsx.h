#pragma once

#include "files/modulo.h"
#include "results/scrittori.h"

namespace sortimetra {

// The door of the module that writes workbooks. Module and program are always built together.

using ScriviXlsx = std::expected<void, ErroreArchivio> (*)(const std::filesystem::path&, const Risposta&,
                                                           std::size_t);

/// The module, and the C function that it exports: returns its `ScriviXlsx`.
inline constexpr Modulo kModuloXlsx{"libsortimetra-xlsx.so", "sortimetra_scrivi_xlsx",
                                    "il modulo delle cartelle di lavoro"};

}  // namespace sortimetra
