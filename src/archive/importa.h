#pragma once

#include "archive/archivio.h"
#include "archive/avanzamento.h"
#include "archive/errore.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// The published result files that an archive is built from; at least one of them.
struct FilePubblicati {
    std::optional<std::filesystem::path> lotto{};
    std::optional<std::filesystem::path> superenalotto{};
    std::optional<std::filesystem::path> winforlife{};
    /// Keep all Lotto draws and count from the first. Otherwise the numbering starts so that the draw of
    /// 3 December 1997 has concorso 402, and earlier draws than number 1 are left out.
    bool tutto = false;
};

struct LettiPubblicati {
    RigheArchivio righe;
    /// Draws that found no concorso and were left out, one Italian sentence each.
    std::vector<std::string> avvisi;
};

/// Reads and numbers the draws of published files. The first line that cannot be read ends it, with file,
/// line number and reason in the error.
///
/// Lotto: "yyyy/mm/dd TAB wheel TAB five numbers", wheel `RN` or `NZ` for NAZIONALE. SuperEnalotto:
/// "data;n1;…;n6;jolly;superstar" with a title line, dates "yyyy-mm-dd". Win for Life:
/// "concorso;data;ora;n1;…;n10;numerone" with a title line; draws are counted from 1 in file order.
[[nodiscard]] std::expected<LettiPubblicati, ErroreArchivio> leggi_pubblicati(const FilePubblicati& file,
                                                                              Avanzamento& avanzamento);

}  // namespace sortimetra
