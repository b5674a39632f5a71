#pragma once

#include "printing/rapporto.h"

namespace sortimetra {

/// Writes a report as a PDF, whole or not at all. Where no Qt application runs yet, one without a display is
/// started, and stays for the life of the process.
///
/// Errors: the file cannot be written, Qt's part for drawing without a display is not installed, cancelled.
[[nodiscard]] std::expected<void, ErroreArchivio> scrivi_pdf(const Rapporto& rapporto,
                                                             const std::filesystem::path& percorso,
                                                             Avanzamento& avanzamento,
                                                             PagineScelte pagine = {});

}  // namespace sortimetra
