#include "statistics/ambata.h"

#include "draws/ambito.h"
#include "results/risultato.h"
#include "statistics/misure.h"

namespace sortimetra {

namespace {

/// The loop is instantiated for each count, so that the numbers of a row unroll.
template <int K>
void conta(const VistaEstrazioni& vista, Avanzamento& avanzamento, MisureNumeri& misure) {
    percorri(vista, avanzamento, [&misure](int c, const Numero* numeri) {
        for (int p = 0; p < K; ++p)
            if (numeri[p] != 0) esce(misure[numeri[p]], c);
    });
}

}  // namespace

Risultato ambatalotto(const ArchivioEstrazioni& archivio, const Domanda& domanda, Avanzamento& avanzamento,
                      int numeri_per_estrazione) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();

    const Estrazioni t = vista.t();
    MisureNumeri misure;
    misure.fill({.ultimo = inizio_ambata(t)});
    if (numeri_per_estrazione == 1)
        conta<1>(vista, avanzamento, misure);
    else
        conta<kEstratti>(vista, avanzamento, misure);

    constexpr Posti kPrimo = 1;
    return tabella_numeri(misure, kNumeri, t, Gioco::lotto, numeri_per_estrazione == 1 ? kPrimo : kOgniPosto);
}

Risultato novanta_numeri(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    return ambatalotto(archivio, domanda, avanzamento, kEstratti);
}

Risultato primo_estratto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    return ambatalotto(archivio, domanda, avanzamento, 1);
}

}  // namespace sortimetra
