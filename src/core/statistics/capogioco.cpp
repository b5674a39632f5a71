#include "statistics/capogioco.h"

#include "draws/ambito.h"
#include "results/risultato.h"
#include "statistics/misure.h"
#include "statistics/parametri.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// The measures of the games made of the head numbers and one more number, by that number. Only these are
/// ever touched; all other ambi and terni keep their start values.
MisureNumeri misure_iniziali(Estrazioni t) {
    MisureNumeri misure;
    misure.fill({.ultimo = inizio_ambata(t)});
    return misure;
}

bool valido(int capo) {
    return capo >= 1 && capo <= kNumeri;
}

/// The i-th head number as typed; a missing one reads 0.
int capo(const Domanda& domanda, std::size_t i) {
    const auto& capi = domanda.di<ParametriStatistica>().capogioco;
    return i < capi.size() ? capi[i] : 0;
}

bool contiene(const Numero* riga, int n) {
    return std::find(riga, riga + kEstratti, n) != riga + kEstratti;
}

/// A row hits (a, b, c) when two of the three stand in it. A head number given twice counts twice.
void conta_all_ambo(const VistaEstrazioni& vista, Avanzamento& avanzamento, int a, int b,
                    MisureNumeri& misure) {
    percorri(vista, avanzamento, [&](int c, const Numero* riga) {
        if (riga[0] == 0) return;
        const int capi = contiene(riga, a) + contiene(riga, b);
        if (capi == 0) return;
        for (int n = 1; n <= kNumeri; ++n)
            if (capi == 2 || contiene(riga, n)) esce(misure[static_cast<std::size_t>(n)], c);
    });
}

/// A row hits (a, b, c) when any of the three stands in it. Where neither head number does, each of the
/// row's places counts.
void conta_all_ambata(const VistaEstrazioni& vista, Avanzamento& avanzamento, int a, int b,
                      MisureNumeri& misure) {
    percorri(vista, avanzamento, [&](int c, const Numero* riga) {
        if (riga[0] == 0) return;
        if (contiene(riga, a) || contiene(riga, b)) {
            for (std::size_t n = 1; n <= kNumeri; ++n) esce(misure[n], c);
        } else {
            for (int p = 0; p < kEstratti; ++p) esce(misure[riga[p]], c);
        }
    });
}

/// The rows of a result: games of `K` numbers, each with its measures.
template <std::size_t K>
class Righe {
  public:
    /// `presenti` of a row's numbers make a hit.
    Righe(std::size_t quante, int presenti) : eventi_{.presenti = static_cast<std::uint8_t>(presenti)} {
        numeri_.numeri.reserve(quante * K);
        misure_.reserve(quante);
    }
    void riga(std::array<int, K> numeri, const Misura& m) {
        std::sort(numeri.begin(), numeri.end());
        for (const int n : numeri) numeri_.numeri.push_back(static_cast<Numero>(n));
        misure_.push_back(m);
    }
    /// A row that is written although no draw could touch it.
    void riga_intatta(std::array<int, K> numeri, const Misura& m) {
        riga(numeri, m);
        eventi_.senza.resize(misure_.size());
        eventi_.senza.back() = true;
    }
    [[nodiscard]] Risultato risultato(Estrazioni t) && {
        if (!eventi_.senza.empty()) eventi_.senza.resize(misure_.size());
        return tabella_misure(std::move(numeri_), misure_, t, std::move(eventi_));
    }

  private:
    ColonnaGruppi numeri_{.quanti = K, .separatore = '-', .numeri = {}};
    std::vector<Misura> misure_;
    Eventi eventi_;
};

}  // namespace

Risultato ambatacapogioco(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                          Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    const int k = capo(domanda, 0);
    if (!valido(k)) return non_avviata({Avviso::capogioco, std::string{kCapogiocoNonValido}});

    const Estrazioni t = vista.t();
    MisureNumeri misure = misure_iniziali(t);
    percorri(vista, avanzamento, [&](int c, const Numero* riga) {
        if (riga[0] == 0 || !contiene(riga, k)) return;
        for (int i = 0; i < kEstratti; ++i)
            for (int j = i + 1; j < kEstratti; ++j)
                if (riga[i] == k || riga[j] == k) esce(misure[riga[i] == k ? riga[j] : riga[i]], c);
    });

    Righe<2> righe{kNumeri - 1, 2};
    for (int n = 1; n <= kNumeri; ++n)
        if (n != k) righe.riga({k, n}, misure[static_cast<std::size_t>(n)]);
    return std::move(righe).risultato(t);
}

Risultato ambo_capogioco(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                         Avanzamento& avanzamento) {
    const VistaEstrazioni vista{archivio, domanda.ambito};
    if (vista.vuota()) return senza_estrazioni();
    const int k1 = capo(domanda, 0);
    const int k2 = capo(domanda, 1);
    if (!valido(k1) || !valido(k2)) return non_avviata({Avviso::capigioco, std::string{kCapigiocoNonValidi}});

    const Estrazioni t = vista.t();
    const bool all_ambata = domanda.di<ParametriStatistica>().tipo == 0;
    MisureNumeri misure = misure_iniziali(t);
    if (all_ambata)
        conta_all_ambata(vista, avanzamento, k1, k2, misure);
    else
        conta_all_ambo(vista, avanzamento, k1, k2, misure);

    if (k1 == k2 || !all_ambata) {
        Righe<3> righe{kNumeri - 1, all_ambata ? 1 : 2};
        for (int c = 1; c <= kNumeri; ++c)
            if (c != k1 && c != k2) righe.riga({k1, k2, c}, misure[static_cast<std::size_t>(c)]);
        return std::move(righe).risultato(t);
    }

    // Every terno whose text holds a head number is written, also those that no row could touch.
    const Misura intatta{.ultimo = inizio_ambata(t)};
    const auto e_capo = [=](int n) { return n == k1 || n == k2 ? 1 : 0; };
    constexpr std::size_t kTerniDiDueCapi = 7744;
    Righe<3> righe{kTerniDiDueCapi, 1};
    for (int a = 1; a <= kNumeri - 2; ++a)
        for (int b = a + 1; b <= kNumeri - 1; ++b)
            for (int c = b + 1; c <= kNumeri; ++c) {
                const int capi = e_capo(a) + e_capo(b) + e_capo(c);
                if (capi == 0) continue;
                const auto terzo = static_cast<std::size_t>(a + b + c - k1 - k2);
                if (capi == 2)
                    righe.riga({a, b, c}, misure[terzo]);
                else
                    righe.riga_intatta({a, b, c}, intatta);
            }
    Risultato r = std::move(righe).risultato(t);
    r.note.emplace_back(
        "La griglia ha tutti i 7.744 terni con almeno un capogioco; misurati sono gli 88 che li hanno "
        "entrambi.");
    return r;
}

}  // namespace sortimetra
