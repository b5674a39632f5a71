#pragma once

namespace sortimetra::prove {

/// What `sonda-lettore` does, as its argument says it (where the reader takes a sum of `Tabelle`).
enum class Sonda : unsigned {
    Libera = 0,        ///< tries everything without a fence: what the fence is compared with
    Recinto = 1,       ///< within the fence, as the reader closes it
    SoloFiltro = 2,    ///< as on a kernel without Landlock, and whoever started it may limit what it likes
    SoloLandlock = 3,  ///< says first whether this kernel has it
    ChiudeEVive = 10,  ///< closes its output and lives on
    SenzaFine = 11,    ///< writes for ever
    Tace = 12,         ///< neither writes nor ends
    SenzaMemoria = 13,
    SenzaRecinto = 14,
    Uccisa = 15,  ///< killed by somebody else
};

}  // namespace sortimetra::prove
