#include "lunghette/scomposte.h"

#include "lunghette/parametri.h"
#include "lunghette/righe_gioco.h"
#include "results/risultato.h"
#include "statistics/misure.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::size_t kNumeriMeta = 15;  ///< numbers that a half can hold
constexpr std::size_t kPostiMeta = 5;
constexpr std::size_t kCinquine = 3003;
constexpr std::uint32_t kUltimoPrimo = 6;  ///< lowest number of the upper half

/// What one cinquina did, by the ordinals of the draws in scope, from 0.
struct Cinquina {
    std::int32_t frequenza = 0;
    std::int32_t prima = 0;    ///< draw of the first match
    std::int32_t ultima = -1;  ///< draw of the last
    std::int32_t vuoto = 0;    ///< longest run of draws without it, up to the last match
};

/// All cinquine of fifteen numbers in ascending order, as sets of bits, and the place of each set.
struct ElencoCinquine {
    std::array<std::uint16_t, kCinquine> insiemi{};
    std::array<std::uint16_t, std::size_t{1} << kNumeriMeta> posti{};

    ElencoCinquine() {
        std::uint16_t n = 0;
        for (unsigned i = 0; i < 11; ++i)
            for (unsigned j = i + 1; j < 12; ++j)
                for (unsigned k = j + 1; k < 13; ++k)
                    for (unsigned l = k + 1; l < 14; ++l)
                        for (unsigned m = l + 1; m < 15; ++m) {
                            insiemi[n] =
                                static_cast<std::uint16_t>(1U << i | 1U << j | 1U << k | 1U << l | 1U << m);
                            posti[insiemi[n]] = n;
                            ++n;
                        }
    }
};

const ElencoCinquine& elenco() {
    static const ElencoCinquine tutte;
    return tutte;
}

/// The five cells as a set of bits from `primo`; 0 unless they are five different numbers of that half.
std::uint32_t insieme_meta(const Numero* celle, std::uint32_t primo) {
    std::uint32_t insieme = 0;
    for (std::size_t p = 0; p < kPostiMeta; ++p) {
        const std::uint32_t bit = celle[p] - primo;
        if (bit >= kNumeriMeta) return 0;
        insieme |= 1U << bit;
    }
    return std::popcount(insieme) == static_cast<int>(kPostiMeta) ? insieme : 0;
}

std::vector<Cinquina> conta(const RigheGioco& righe, std::size_t primo_posto, std::uint32_t primo_numero) {
    std::vector<Cinquina> cinquine(kCinquine);
    const ElencoCinquine& tutte = elenco();
    const std::size_t n = righe.righe();
    for (std::size_t r = 0; r < n; ++r) {
        const std::uint32_t insieme =
            insieme_meta(righe.celle.data() + r * righe.posti + primo_posto, primo_numero);
        if (insieme == 0) continue;
        Cinquina& c = cinquine[tutte.posti[insieme]];
        const auto ordinale = static_cast<std::int32_t>(r);
        if (c.frequenza++ == 0) c.prima = ordinale;
        c.vuoto = std::max(c.vuoto, ordinale - c.ultima - 1);
        c.ultima = ordinale;
    }
    return cinquine;
}

}  // namespace

std::optional<std::string> controlla_scomposte(const Domanda& domanda) {
    if (domanda.di<ParametriScomposte>().meta >= 0) return std::nullopt;
    return "manca --meta, atteso primi|ultimi.";
}

std::expected<void, Messaggio> ogni_ora(const std::filesystem::path& /*cartella*/, Domanda& domanda) {
    domanda.ambito.ora = 0;
    return {};
}

Risultato lunghette_scomposte(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                              Avanzamento& avanzamento) {
    const auto& p = domanda.di<ParametriScomposte>();
    AmbitoRicerca ambito = domanda.ambito;
    ambito.ora = 0;
    const RigheGioco righe = righe_winforlife(archivio, ambito);
    if (righe.righe() == 0) return nessuna_lunghetta(std::string{kNessunaEstrazione} + ".");
    if (p.meta < 0) return nessuna_lunghetta("Scegliere quale metà dell'estrazione.");
    const bool ultimi = p.meta == 1;
    const auto primo = ultimi ? kUltimoPrimo : std::uint32_t{1};
    const auto cinquine = conta(righe, ultimi ? kPostiMeta : 0, primo);

    const auto n = static_cast<std::int32_t>(righe.righe());
    std::size_t scritte = 0;
    // What is written when the user has had enough stays.
    for (bool avanti = true; avanti && scritte < kCinquine;) {
        ++scritte;
        avanti = avanzamento.procedi(scritte, kCinquine);
    }
    ScrittoreMisure scrittore{scritte};
    ColonnaGruppi gruppi{.quanti = kPostiMeta, .separatore = '-', .numeri = {}};
    gruppi.numeri.reserve(scritte * kPostiMeta);
    for (std::size_t i = 0; i < scritte; ++i) {
        for (std::uint32_t m = elenco().insiemi[i]; m != 0; m &= m - 1)
            gruppi.numeri.push_back(
                static_cast<std::uint8_t>(static_cast<std::uint32_t>(std::countr_zero(m)) + primo));
        const Cinquina& c = cinquine[i];
        // Without a match, all draws at either end.
        const std::int32_t davanti = c.frequenza == 0 ? n : c.prima;
        const std::int32_t dietro = n - 1 - c.ultima;
        scrittore.riga(c.frequenza, p.ordine == 0 ? davanti : dietro, std::max(c.vuoto, dietro));
    }
    constexpr Posti kPrimiPosti = 0b11111;
    return std::move(scrittore).risultato(std::move(gruppi),
                                          {.gioco = Gioco::win_for_life,
                                           .presenti = kPostiMeta,
                                           .posti = ultimi ? kPrimiPosti << kPostiMeta : kPrimiPosti});
}

}  // namespace sortimetra
