#pragma once

#include "results/nome.h"
#include "statistics/serie_corrente.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

/// What the grid's first column shows for a member.
enum class EtichettaMembro : std::uint8_t {
    numeri,        ///< all its numbers, two digits each, joined by "."
    primo_ultimo,  ///< "1/81"
    decina,        ///< "1/9 (90)" for the first, then "10/19"
    cifra,         ///< "1" to "8", "9/0"
};

/// A named family of numbers: the members, and how they are told to the user.
struct Famiglia {
    NomeRicerca nome{};         ///< its search, as its screen and its key call it
    std::string_view frase{};   ///< who its members are, in one sentence for the user
    std::string_view carica{};  ///< name of its loader
    std::size_t righe = 0;
    std::size_t colonne = 0;
    bool titoli_brevi = false;                               ///< the grid of a wide series has short titles
    std::string_view scritta{};                              ///< members written out, ";" between them; or
    void (*regola)(SerieCorrente&) = [](SerieCorrente&) {};  ///< the rule that makes them; or
    bool su_file = false;                                    ///< members told by a file of the user's
    EtichettaMembro etichetta = EtichettaMembro::numeri;
    std::string_view descrizione{};  ///< the fixed text on the eight families that have a table of all wheels
};

/// The 42 families.
[[nodiscard]] std::span<const Famiglia> famiglie();

/// The family of a loader's name; null if there is none.
[[nodiscard]] const Famiglia* trova_caricatore(std::string_view carica);

/// The members of a family; none of the one whose members stand in a file (statistics/cinquine_dei_90.h).
[[nodiscard]] SerieCorrente carica_serie(const Famiglia& famiglia);

/// The short label of member `i` (from 0) as the grid shows it; empty where it lists the numbers.
[[nodiscard]] std::string etichetta_membro(const Famiglia& famiglia, const SerieCorrente& serie,
                                           std::size_t i);

}  // namespace sortimetra
