#pragma once

#include "files/modulo.h"
#include "printing/rapporto.h"

namespace sortimetra {

// The door of the module that draws PDFs. Module and program are always built together.

using ScriviPdf = std::expected<void, ErroreArchivio> (*)(const Rapporto&, const std::filesystem::path&,
                                                          Avanzamento&, PagineScelte);

/// The module, and the C function that it exports: returns its `ScriviPdf`.
inline constexpr Modulo kModuloStampa{"libsortimetra-pdf.so", "sortimetra_scrivi_pdf", "il modulo di stampa"};

}  // namespace sortimetra
