#pragma once

#include "bets/limite.h"
#include "results/opzione.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

/// What the analyses of the bets take.
struct ParametriScommesse {
    int analisi = 0;                     ///< entry of `Combo1`, 0 to 8
    std::optional<float> limite;         ///< of Under/Over, as asked for
    float archiviato = kLimiteIniziale;  ///< the same where none was asked for

    [[nodiscard]] float in_vigore() const { return limite.value_or(archiviato); }
};

[[nodiscard]] bool leggi_opzione_limite(std::string_view valore, Domanda& domanda);
[[nodiscard]] std::optional<std::string> scrivi_opzione_limite(const Domanda& domanda);

inline constexpr Opzione kOpzAnalisi = intero<&ParametriScommesse::analisi, 0, 8>(
    {.nome = "--analisi",
     .meta = "I",
     .atteso = "un numero da 0 a 8",
     .frase = "La scommessa: 0 Under/Over, 1 Primo Vs Ultimo, 2 Bassi Vs Alti, 3 Dispari vs Pari, da 4 a 8 "
              "dal 1° al 5° Estratto. Se manca: 0."});
inline constexpr Opzione kOpzLimite{
    .nome = "--limite",
    .meta = "X",
    .atteso = "un numero da 0 in su, con la virgola o il punto prima dei decimali",
    .frase = "Il limite di Under/Over, con un decimale. Se manca: quello di uo.dat, o 227,5.",
    .leggi = leggi_opzione_limite,
    .scrivi = scrivi_opzione_limite};

inline constexpr std::array kOpzioniScommesse{&kOpzAnalisi, &kOpzLimite};

}  // namespace sortimetra
