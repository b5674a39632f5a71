#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

// The door of the module that draws PDFs. Module and program are always built together.

using ScriviPdf = std::expected<void, ErroreArchivio> (*)(const Rapporto&, const std::filesystem::path&,
                                                          Avanzamento&, PagineScelte);

/// The module's file name, beside the program or in `../lib/sortimetra`.
inline constexpr const char* kModuloStampa = "libsortimetra-pdf.so";
/// The C function that it exports: returns its `ScriviPdf`.
inline constexpr const char* kPortaModuloStampa = "sortimetra_scrivi_pdf";

}  // namespace sortimetra
