#include "draws/ambito.h"
#include "statistics/misure.h"

// Compiled, never linked or run: as it stands it must pass, and with each of the slips below it must not.

namespace sortimetra {

struct Prova {
    VistaEstrazioni vista;
    Misura misura;
    MisureNumeri misure;
};

inline void giusto(const Prova& p) {
    const Estrazioni t = p.vista.t();
    (void)inizio_ambata(t);
    (void)ritardo(p.misura, t);
    (void)tabella_numeri(p.misure, kNumeri, t, Gioco::lotto);
}

#if defined(CONCORSO_COME_T)
// The last concorso in place of the number of draws.
inline void scambio(const Prova& p) {
    const Concorso ultimo = p.vista.concorso(p.vista.concorsi() - 1);
    (void)ritardo(p.misura, ultimo);
}
#elif defined(CONCORSO_COME_INIZIO)
inline void scambio(const Prova& p) {
    (void)inizio_ambata(p.vista.concorso(0));
}
#elif defined(NUMERI_ED_ESTRAZIONI)
// How many numbers, and over how many draws.
inline void scambio(const Prova& p) {
    (void)tabella_numeri(p.misure, p.vista.t(), kNumeri, Gioco::lotto);
}
#elif defined(CONCORSO_DETTO_T)
inline void scambio(const Prova& p) {
    const Estrazioni t = p.vista.concorso(0);
    (void)t;
}
#endif

}  // namespace sortimetra
