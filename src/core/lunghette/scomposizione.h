#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/opzione.h"
#include "results/risultato_fwd.h"
#include "statistics/parametri.h"

#include <array>

namespace sortimetra {

/// The decomposition of a lunghetta by points: all combinations of `sorte` of its numbers, measured as a
/// series on the draws of the game itself, which the row of the question names.
[[nodiscard]] Risultato scomposizione_a_punti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                              Avanzamento& avanzamento);

inline constexpr Opzione kOpzNumeriWinForLife = elenco<&ParametriStatistica::numeri, 1, kNumeriWinForLife>(
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "numeri da 1 a 20 uniti da virgole",
     .frase = "I tuoi numeri, uniti da virgole: --numeri 5,17,20."});

inline constexpr std::array kOpzioniScomposizioneWinForLife{&kOpzTipoTerno, &kOpzNumeriWinForLife,
                                                            &kOpzSorte};

}  // namespace sortimetra
