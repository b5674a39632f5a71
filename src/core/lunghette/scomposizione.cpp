#include "lunghette/scomposizione.h"

#include "lunghette/righe_gioco.h"
#include "results/ricerca.h"
#include "statistics/misure.h"
#include "statistics/serie_speciali.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// More combinations than this nobody reads: each is looked for in every draw.
constexpr std::size_t kCombinazioniMassime = 200'000;

/// How many combinations there are, or one more than the limit where there are more.
std::size_t quante(std::size_t n, std::size_t k) {
    if (k > n) return 0;
    std::size_t q = 1;
    for (std::size_t i = 1; i <= k; ++i) {
        q = q * (n - k + i) / i;
        if (q > kCombinazioniMassime) return kCombinazioniMassime + 1;
    }
    return q;
}

/// Numbers as bits.
using Insieme = std::array<std::uint64_t, 2>;

void metti(Insieme& insieme, Numero n) {
    insieme[n / 64U] |= std::uint64_t{1} << (n % 64U);
}
int comuni(const Insieme& a, const Insieme& b) {
    return std::popcount(a[0] & b[0]) + std::popcount(a[1] & b[1]);
}

std::vector<Misura> misura(const RigheGioco& righe, const std::vector<Insieme>& membri, int soglia,
                           Avanzamento& avanzamento) {
    constexpr std::size_t kGiro = 64;  // draws between two reports
    std::vector<Misura> misure(membri.size(), Misura{.ultimo = kInizioSerie});
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        Insieme estratti{};
        for (const Numero n : righe.riga(r))
            if (n != kNessunNumero) metti(estratti, n);
        for (std::size_t i = 0; i < membri.size(); ++i)
            if (comuni(membri[i], estratti) >= soglia) esce(misure[i], righe.c[r]);
        if (r % kGiro == 0 && !avanzamento.procedi(r, righe.righe())) break;
    }
    return misure;
}

}  // namespace

Risultato scomposizione_a_punti(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriStatistica>();
    const Gioco gioco = domanda.ricerca->gioco;
    const RigheGioco righe = righe_a_punti(gioco, archivio, domanda.ambito);
    if (righe.righe() == 0) return senza_estrazioni();
    std::vector<Numero> numeri;
    for (const int n : p.numeri)
        if (n >= 1 && n <= righe.massimo) numeri.push_back(static_cast<Numero>(n));
    if (p.sorte >= 1 && quante(numeri.size(), static_cast<std::size_t>(p.sorte)) > kCombinazioniMassime)
        return non_avviata({Avviso::troppe_combinazioni, "Troppe combinazioni: scegliere meno numeri"});
    SerieCorrente serie = scomposizione_gruppo(numeri, p.sorte);
    std::vector<Insieme> membri(serie.righe());
    for (std::size_t i = 0; i < membri.size(); ++i)
        for (const Numero n : serie.membro(i)) metti(membri[i], n);
    const auto misure = misura(righe, membri, p.tipo + 1, avanzamento);
    const Eventi eventi{.gioco = gioco, .presenti = static_cast<std::uint8_t>(p.tipo + 1)};
    return tabella_misure(ColonnaGruppi{serie.colonne, '.', std::move(serie.numeri)}, misure,
                          Estrazioni{righe.t}, eventi, titoli_serie(nullptr));
}

}  // namespace sortimetra
