#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

// Slow, plain second implementations: the walk told step by step over single rows, with nothing shared with
// the fast searches but the archive's tables and the calendar rule.

namespace sortimetra::prove {

/// One row of a cursor: its concorso, and its numbers in drawing order (0 for an empty cell).
struct RigaPiana {
    int concorso = 0;
    std::vector<int> n;
};

/// The rows of the chosen wheels in concorso and wheel order.
inline std::vector<RigaPiana> righe_piane(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito) {
    std::vector<RigaPiana> righe;
    const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso());
    const auto tieni = [&](int concorso, Data data) {
        return concorso >= tratto.da && concorso <= tratto.a && accetta(kIntervalli[ambito.intervallo], data);
    };
    if (ambito.ruote.e_nazionale()) {
        const auto& t = archivio.nazionale();
        for (std::size_t i = 0; i < t.concorso.size(); ++i)
            if (tieni(t.concorso[i], t.data[i]))
                righe.push_back({t.concorso[i], {t.numeri[i].begin(), t.numeri[i].end()}});
        return righe;
    }
    const auto& t = archivio.lotto();
    for (std::size_t i = 0; i < t.concorso.size(); ++i)
        for (std::size_t w = 0; w < 10; ++w) {
            const bool scelta = ambito.ruote.spuntata(kTutte) || ambito.ruote.spuntata(static_cast<int>(w)) ||
                                (ambito.ruote.n_ruote() == 0 && w == 0);
            if (!scelta || (t.presenti[i] >> w & 1) == 0 || !tieni(t.concorso[i], t.data[i])) continue;
            RigaPiana r{t.concorso[i], {}};
            for (std::size_t p = 0; p < 5; ++p) r.n.push_back(t.numeri[i][w * 5 + p]);
            righe.push_back(r);
        }
    return righe;
}

/// The SuperEnalotto rows in scope: six numbers, Jolly, SuperStar.
inline std::vector<RigaPiana> righe_superenalotto(const ArchivioEstrazioni& archivio,
                                                  const AmbitoRicerca& ambito) {
    std::vector<RigaPiana> righe;
    const TrattoConcorsi tratto = ambito.tratto.riportato(archivio.ultimo_concorso());
    const auto& t = archivio.superenalotto();
    for (std::size_t i = 0; i < t.concorso.size(); ++i)
        if (t.concorso[i] >= tratto.da && t.concorso[i] <= tratto.a &&
            accetta(kIntervalli[ambito.intervallo], t.data[i]))
            righe.push_back({t.concorso[i], {t.numeri[i].begin(), t.numeri[i].end()}});
    return righe;
}

inline int arrotonda(std::size_t righe, int ruote) {
    return ruote == 0 ? 0 : static_cast<int>(std::nearbyint(static_cast<double>(righe) / ruote));
}

/// The four counters of one object.
struct Conti {
    int ultimo = 0;
    int frequenza = 0;
    int ritardo = 0;
    int storico = 0;

    void esce(int c, int t) {
        frequenza += 1;
        ritardo = t - c;
        vuoto(c);
    }
    void vuoto(int c) {
        if (c - ultimo - 1 > storico) storico = c - ultimo - 1;
        ultimo = c;
    }
    [[nodiscard]] std::string testo() const {
        return std::to_string(frequenza) + " " + std::to_string(ritardo) + " " + std::to_string(storico) +
               "\n";
    }
};

inline std::string due(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

/// Walks rows, counting draws by the change of concorso, and calls `riga(c, numbers)`.
inline void cammina(const std::vector<RigaPiana>& righe,
                    const std::function<void(int, const std::vector<int>&)>& f) {
    int c = 0;
    int tenuto = 0;
    for (const RigaPiana& r : righe) {
        if (r.concorso != tenuto) ++c;
        tenuto = r.concorso;
        f(c, r.n);
    }
}

}  // namespace sortimetra::prove
