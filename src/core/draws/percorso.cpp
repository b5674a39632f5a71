#include "draws/percorso.h"

namespace sortimetra {

namespace {

bool ha_numeri(std::span<const Numero> celle, Posti posti) {
    for (std::size_t p = 0; p < celle.size(); ++p)
        if (celle[p] != 0 && (posti >> p & 1U) != 0) return true;
    return false;
}

}  // namespace

Percorso percorso_di(const ArchivioEstrazioni& archivio, Gioco gioco, const AmbitoRicerca& ambito,
                     Posti posti, PassoDieciELotto passo) {
    const Posti contati = posti_contati(gioco, posti);
    SenzaAvanzamento quieto;
    Percorso percorso;
    int ultimo = 0;
    percorri_gioco(archivio, gioco, ambito, passo, quieto, [&](const RigaGioco& riga) {
        if (!ha_numeri(riga.celle, contati)) return;
        ++percorso.righe;
        percorso.concorsi += riga.c != ultimo ? 1 : 0;
        ultimo = riga.c;
    });
    return percorso;
}

}  // namespace sortimetra
