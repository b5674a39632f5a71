#include "lunghette/scomposizione.h"

#include "lunghette/righe_gioco.h"
#include "results/ricerca.h"
#include "results/risultato.h"
#include "statistics/misura_combinazioni.h"
#include "statistics/misure.h"
#include "statistics/serie_speciali.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// More combinations than this nobody reads.
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
using Insieme = std::bitset<kIndiciCella>;

Insieme insieme(std::span<const Numero> numeri) {
    Insieme i;
    for (const Numero n : numeri)
        if (n != kNessunNumero) i.set(n);
    return i;
}

/// All combinations over all rows.
std::vector<Misura> misura(const RigheGioco& righe, std::span<const Numero> numeri,
                           const SerieCorrente& serie, int soglia, Avanzamento& avanzamento) {
    if (auto combinazioni = Combinazioni::di(numeri, static_cast<int>(serie.colonne), soglia)) {
        for (std::size_t r = 0; r < righe.righe(); ++r) combinazioni->riga(righe.c[r], righe.riga(r));
        return combinazioni->misura(avanzamento);
    }
    // A number was told twice: a combination that has it twice has it once.
    std::vector<Insieme> membri;
    membri.reserve(serie.righe());
    for (std::size_t i = 0; i < serie.righe(); ++i) membri.push_back(insieme(serie.membro(i)));
    std::vector<Misura> misure(membri.size(), Misura{.ultimo = kInizioSerie});
    constexpr std::size_t kGiro = 64;  // draws between two reports
    for (std::size_t r = 0; r < righe.righe(); ++r) {
        const Insieme estratti = insieme(righe.riga(r));
        for (std::size_t i = 0; i < membri.size(); ++i)
            if (static_cast<int>((membri[i] & estratti).count()) >= soglia) esce(misure[i], righe.c[r]);
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
    const auto misure = misura(righe, numeri, serie, p.tipo + 1, avanzamento);
    const Eventi eventi{.gioco = gioco, .presenti = static_cast<std::uint8_t>(p.tipo + 1)};
    return tabella_misure(ColonnaGruppi{serie.colonne, '.', std::move(serie.numeri)}, misure,
                          Estrazioni{righe.t}, eventi, titoli_serie(nullptr));
}

}  // namespace sortimetra
