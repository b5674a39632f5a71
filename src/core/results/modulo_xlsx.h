#pragma once

#include "results/scrittori.h"

namespace sortimetra {

// The door of the module that writes workbooks. Module and program are always built together.

using ScriviXlsx = std::expected<void, ErroreArchivio> (*)(const std::filesystem::path&, const Risposta&,
                                                           std::size_t);

/// The module's file name, beside the program or in `../lib/sortimetra`.
inline constexpr const char* kModuloXlsx = "libsortimetra-xlsx.so";
/// The C function that it exports: returns its `ScriviXlsx`.
inline constexpr const char* kPortaModuloXlsx = "sortimetra_scrivi_xlsx";

}  // namespace sortimetra
