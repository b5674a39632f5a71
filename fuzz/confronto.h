#pragma once

#include "draws/archivio.h"

namespace sortimetra::fuzz {

/// Whether two archives hold the same draws.
inline bool stesse_estrazioni(const ArchivioEstrazioni& a, const ArchivioEstrazioni& b) {
    return a.lotto().concorso == b.lotto().concorso && a.lotto().data == b.lotto().data &&
           a.lotto().presenti == b.lotto().presenti && a.lotto().numeri == b.lotto().numeri &&
           a.nazionale().concorso == b.nazionale().concorso && a.nazionale().data == b.nazionale().data &&
           a.nazionale().numeri == b.nazionale().numeri &&
           a.superenalotto().concorso == b.superenalotto().concorso &&
           a.superenalotto().data == b.superenalotto().data &&
           a.superenalotto().numeri == b.superenalotto().numeri &&
           a.winforlife().concorso == b.winforlife().concorso && a.winforlife().data == b.winforlife().data &&
           a.winforlife().ora == b.winforlife().ora && a.winforlife().numeri == b.winforlife().numeri;
}

}  // namespace sortimetra::fuzz
