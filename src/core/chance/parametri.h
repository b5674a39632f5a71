#pragma once

#include "draws/ruote.h"
#include "results/opzione.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What a story takes: the event whose hits are told.
struct ParametriStoria {
    std::vector<int> numeri{};   ///< each once
    int presenti = 1;            ///< how many of them must come together
    std::optional<int> posto{};  ///< 1 to 5: only there, nothing for anywhere
    int gioco = 0;               ///< place in `kGiochiStoria`, the order of `Gioco`
};

inline constexpr std::array<std::string_view, 4> kGiochiStoria{"lotto", "superenalotto", "10elotto",
                                                               "winforlife"};

inline constexpr Opzione kOpzNumeriStoria =
    elenco<&ParametriStoria::numeri, 1, kNumeri, 20, Doppi::contano_una_volta>(
        {.nome = "--numeri",
         .meta = "ELENCO",
         .atteso = "al più venti numeri da 1 a 90 uniti da virgole",
         .frase = "I numeri di cui raccontare le uscite, uniti da virgole: --numeri 5,17. È necessaria."});
inline constexpr Opzione kOpzPresenti = intero<&ParametriStoria::presenti, 1, 20>(
    {.nome = "--presenti",
     .meta = "K",
     .atteso = "un numero da 1 a quanti sono i numeri",
     .frase = "Quanti dei numeri devono uscire insieme: 2 per gli ambi. Se manca: 1."});
inline constexpr Opzione kOpzPosto = intero<&ParametriStoria::posto, 1, kEstratti>(
    {.nome = "--posto",
     .meta = "P",
     .atteso = "un numero da 1 a 5",
     .frase = "Soltanto se il numero esce a quel posto, da 1 a 5; per il Lotto. Se manca: a ogni posto."});
inline constexpr Opzione kOpzGiocoStoria = parola<&ParametriStoria::gioco, kGiochiStoria>(
    {.nome = "--gioco",
     .meta = "GIOCO",
     .atteso = "lotto|superenalotto|10elotto|winforlife",
     .frase = "Il gioco: lotto, superenalotto, 10elotto, winforlife. Se manca: lotto."});

inline constexpr std::array kOpzioniStoria{&kOpzNumeriStoria, &kOpzPresenti, &kOpzPosto, &kOpzGiocoStoria};

}  // namespace sortimetra
