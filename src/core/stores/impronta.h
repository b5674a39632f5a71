#pragma once

#include "draws/archivio.h"

#include <cstdint>

namespace sortimetra {

/// What a table of the archive held when it was written: how many rows, and a digest of all that stands in
/// them, in their order. Two tables that differ anywhere have the same digest once in 2^64; it guards against
/// damage, not against somebody who means to deceive.
struct ImprontaTabella {
    std::uint64_t righe = 0;
    std::uint64_t somma = 0;
    friend bool operator==(const ImprontaTabella&, const ImprontaTabella&) = default;
};

/// Of the table with that bit (`Tabelle`, one of them). `simulato` goes into the digest: a simulated archive
/// that lost its mark must not pass for a real one. Depends on the values alone, not on the machine.
[[nodiscard]] ImprontaTabella impronta(const RigheArchivio& righe, unsigned tabella, bool simulato);

/// Of what a store says of the Lotto without its rows, together with the digest of those: it fits no others,
/// and nothing else that could be said of them.
[[nodiscard]] std::uint64_t sigillo(const ConfiniLotto& confini, const ImprontaTabella& lotto);

}  // namespace sortimetra
