#pragma once

#include "draws/avanzamento.h"
#include "lunghette/lunghetta.h"
#include "lunghette/misuratore.h"

#include <cstddef>

namespace sortimetra {

// The stages that a search of lunghette is made of. Each reads the lunghetta as it stands and writes what it
// found into it; one that finds nothing above 0 leaves slots and score, and still sets the length.

/// The strongest single number, the lowest on ties: `semi[0]`, slot 0, length 1, score.
void Ric_ambata(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo);
/// The strongest pair that holds the number in slot 0: slots 0 and 1, length 2.
void ric_ambata_capogioco(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo);
/// The strongest pair of all: slots 0 and 1, `semi[1]`; the length stays.
void ric_ambi_lotto(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo);
/// The strongest triple that holds the numbers in slots 0 and 1, hit by `k` of its three: length 3.
void ric_ambo_capogioco(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo, int k);
/// The strongest triple, hit by all three, that holds the number in slot 0: length 3.
void ric_terni_lotto(BancoLunghette& banco, Lunghetta& lunghetta, TipoRicerca tipo);

/// What a lunghetta grows by, and how far.
struct Crescita {
    TipoRicerca tipo = TipoRicerca::ritardo;
    int k = 2;  ///< how many of its numbers must come
    int fino_a = 5;
};

/// The growth, one number a step. It asks `avanzamento` at each candidate and ends at once when told to,
/// with what the step had found so far; `osserva` is told of every step.
void ric_lunga(BancoLunghette& banco, Lunghetta& lunghetta, const Crescita& crescita,
               Avanzamento& avanzamento, const OsservaPasso& osserva);

}  // namespace sortimetra
