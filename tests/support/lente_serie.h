#pragma once

#include "support/lente.h"

#include <array>
#include <map>
#include <string>
#include <vector>

// The series and capogioco searches told step by step, with each row as a text of the form 00-00-00-00-00 and
// each number sought in it as two digits.

namespace sortimetra::prove {

inline std::string testo_riga(const std::vector<int>& n) {
    std::string testo;
    for (std::size_t p = 0; p < 5; ++p) testo += (p == 0 ? "" : "-") + due(n[p]);
    return testo;
}

inline bool trovato(const std::string& riga, int n) {
    return riga.find(due(n)) != std::string::npos;
}

/// "frequenza ritardo storico" of each member, one line each; "" for an empty scope.
inline std::string serie_lenta(const std::vector<RigaPiana>& righe, int ruote,
                               const std::vector<std::vector<int>>& membri, int soglia) {
    const int t = arrotonda(righe.size(), ruote);
    std::vector<Conti> conti(membri.size(), Conti{1, 0, t, 0});
    cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] <= 0) return;
        const std::string riga = testo_riga(n);
        for (std::size_t i = 0; i < membri.size(); ++i) {
            int quanti = 0;
            for (const int m : membri[i]) quanti += trovato(riga, m) ? 1 : 0;
            if (quanti >= soglia) conti[i].esce(c, t);
        }
    });
    std::string testo;
    for (const Conti& x : conti) testo += x.testo();
    return righe.empty() ? "" : testo;
}

using Terno = std::array<int, 3>;

inline Terno in_ordine(int a, int b, int c) {
    Terno t{a, b, c};
    std::sort(t.begin(), t.end());
    return t;
}

/// All 117,480 terni with the ones that a search of two head numbers writes, "05-12-77 frequenza …" a line.
inline std::string ambo_capogioco_lento(const std::vector<RigaPiana>& righe, int ruote, int k1, int k2,
                                        bool all_ambata) {
    const int t = arrotonda(righe.size(), ruote);
    std::map<Terno, Conti> tavola;
    const auto aggiorna = [&](const Terno& terno, int c) {
        tavola.try_emplace(terno, Conti{t - 1, 0, t, 0}).first->second.esce(c, t);
    };
    cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] <= 0) return;
        const std::string riga = testo_riga(n);
        if (!all_ambata) {
            for (int x = 1; x <= 90; ++x) {
                const Terno terno = in_ordine(k1, k2, x);
                int quanti = 0;
                for (const int y : terno) quanti += trovato(riga, y) ? 1 : 0;
                if (quanti >= 2) aggiorna(terno, c);
            }
        } else if (!trovato(riga, k1) && !trovato(riga, k2)) {
            for (const int x : n) aggiorna(in_ordine(k1, k2, x), c);
        } else {
            for (int x = 1; x <= 90; ++x)
                if (x != k1 && x != k2) aggiorna(in_ordine(k1, k2, x), c);
        }
    });
    std::string testo;
    const auto scrivi = [&](int a, int b, int c) {
        const auto it = tavola.find({a, b, c});
        const Conti x = it == tavola.end() ? Conti{t - 1, 0, t, 0} : it->second;
        testo += due(a) + "-" + due(b) + "-" + due(c) + " " + x.testo();
    };
    if (k1 == k2) {
        for (int c = 1; c <= 90; ++c)
            if (c != k1) scrivi(std::min(c, k1), k1, std::max(c, k1));
        return testo;
    }
    for (int a = 1; a <= 88; ++a)
        for (int b = a + 1; b <= 89; ++b)
            for (int c = b + 1; c <= 90; ++c) {
                const std::string nome = due(a) + "-" + due(b) + "-" + due(c);
                const bool primo = trovato(nome, k1);
                const bool secondo = trovato(nome, k2);
                if (all_ambata ? primo || secondo : primo && secondo) scrivi(a, b, c);
            }
    return testo;
}

/// The ambi that hold the head number, from a table of all ambi.
inline std::string ambata_capogioco_lenta(const std::vector<RigaPiana>& righe, int ruote, int k) {
    const int t = arrotonda(righe.size(), ruote);
    std::vector<std::vector<Conti>> tavola(91, std::vector<Conti>(91, Conti{t - 1, 0, t, 0}));
    cammina(righe, [&](int c, const std::vector<int>& n) {
        if (n[0] <= 0) return;
        for (std::size_t i = 0; i < 4; ++i)
            for (std::size_t j = i + 1; j < 5; ++j)
                tavola[static_cast<std::size_t>(std::min(n[i], n[j]))]
                      [static_cast<std::size_t>(std::max(n[i], n[j]))]
                          .esce(c, t);
    });
    std::string testo;
    for (int a = 1; a <= 89; ++a)
        for (int b = a + 1; b <= 90; ++b)
            if (a == k || b == k)
                testo += due(a) + "-" + due(b) + " " +
                         tavola[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)].testo();
    return testo;
}

}  // namespace sortimetra::prove
