#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/risultato_fwd.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The index of the outcome that five numbers, in drawing order, give; `limite` is that of Under/Over. An
/// empty cell is 0.
using Classifica = std::size_t (*)(const Numero* numeri, float limite);

/// Under if the sum is below the limit, else Over.
[[nodiscard]] std::size_t under_over(const Numero* numeri, float limite);
/// Ultimo if the fifth number is not below the first, else Primo.
[[nodiscard]] std::size_t primo_vs_ultimo(const Numero* numeri, float limite);
/// Alti if three or more are above 45, else Bassi.
[[nodiscard]] std::size_t bassi_vs_alti(const Numero* numeri, float limite);
/// Dispari if three or more are odd, else Pari.
[[nodiscard]] std::size_t dispari_vs_pari(const Numero* numeri, float limite);
/// The third of the 90 in which the n-th number falls.
template <std::size_t N>
[[nodiscard]] std::size_t sub1_5_estratti(const Numero* numeri, float /*limite*/) {
    const Numero n = numeri[N - 1];
    return n < 31 ? 0 : n < 61 ? 1 : 2;
}

/// One bet: an entry of `Combo1`, the title of its grid, its outcomes and what the columns of the last draws
/// show for each.
struct Scommessa {
    std::string_view voce;
    std::string_view titolo;
    std::span<const std::string_view> esiti;
    std::span<const std::string_view> lettere;
    Classifica classifica;
};

/// The nine bets, in the order of `Combo1`.
[[nodiscard]] std::span<const Scommessa> scommesse();

/// The one that a question asks for.
[[nodiscard]] const Scommessa& scommessa_chiesta(const Domanda& domanda);

/// Draws whose outcomes are shown one by one.
inline constexpr std::size_t kUltimiConcorsi = 10;

/// The three title rows of a bet's grid with so many draws shown; the concorsi of the second row are left to
/// fill in.
[[nodiscard]] std::vector<std::vector<std::string>> titoli_scommessa(const Scommessa& scommessa,
                                                                     std::size_t ultimi);

/// "scommesse lotto": for each wheel and outcome of a bet how often it came (F), how many draws ago (R) and
/// the longest it stayed away (RS), then the outcomes of the last ten draws, the newest first. Always the ten
/// wheels, then Nazionale, whatever wheels are chosen; without a draw the figures are 0.
///
/// The rows of the ten wheels are dealt out by counting: every tenth is Bari's, whatever its wheel says.
[[nodiscard]] Risultato scommesse_lotto(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);

/// Reads the limit in force from `uo.dat`; without one the limit stays where it starts.
[[nodiscard]] std::expected<void, Messaggio> carica_limite(const std::filesystem::path& cartella,
                                                           Domanda& domanda);

}  // namespace sortimetra
