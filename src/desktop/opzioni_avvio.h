#pragma once

#include "results/opzione.h"

#include <array>

namespace sortimetra {

/// What `sortimetra` takes on its command line: its help, its manual page and its completions are made of
/// these rows. No Qt here, so that what makes the pages needs none.
inline constexpr std::array<Opzione, 4> kOpzioniAvvio{
    {{.nome = "--cartella",
      .meta = "DIR",
      .frase = "La cartella del programma, che contiene la cartella \"archivio\". Se manca: quella scelta "
               "l'ultima volta nella finestra; altrimenti la cartella dell'eseguibile, se contiene "
               "\"archivio\", o la cartella dei dati dell'utente."},
     {.nome = "--senza-copia",
      .frase =
          "Legge l'archivio dai suoi file, riga per riga, e non dalla copia pronta che ne tiene accanto."},
     {.nome = "--aiuto", .frase = "Mostra come si usa."},
     {.nome = "--versione", .frase = "Mostra la versione."}}};

}  // namespace sortimetra
