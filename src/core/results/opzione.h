#pragma once

#include "results/domanda.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// One option of a search, told once: the command line, its help and its errors, the completions and the
/// memory of a screen read it here. A subject lists its options beside its parameters.
struct Opzione {
    std::string_view nome;                       ///< "--tipo"
    std::string_view meta{};                     ///< what follows it in the help, "TIPO"; empty for a switch
    std::string_view atteso{};                   ///< what it takes, as an error says it: "ambata|ambo"
    std::string_view frase{};                    ///< what it does, for the help
    std::span<const std::string_view> parole{};  ///< the words that it takes, for near misses
    /// Puts the value (empty for a switch) in its place; false if it is none.
    bool (*leggi)(std::string_view valore, Domanda& domanda) = nullptr;
    /// The value as `leggi` takes it back; nothing where it is the untouched one ("" for a switch that is
    /// on).
    std::optional<std::string> (*scrivi)(const Domanda& domanda) = nullptr;
};

/// The options of a search, in the order of its help.
using Opzioni = std::span<const Opzione* const>;

// ---- reading values ----

/// A whole number, digits with a sign before them or none; one too large for its type becomes the largest, as
/// a box brings it back. Nothing for any other text.
[[nodiscard]] std::optional<std::int32_t> intero_opzione(std::string_view testo);
[[nodiscard]] std::optional<std::int32_t> intero_opzione(std::string_view testo, std::int32_t minimo,
                                                         std::int32_t massimo);
/// The pieces of a list joined by ",", blanks at their ends removed; an empty list has one empty piece.
[[nodiscard]] std::vector<std::string_view> pezzi_opzione(std::string_view elenco);
/// Whole numbers joined by ","; nothing if one of them is none or outside its range.
[[nodiscard]] std::optional<std::vector<int>> interi_opzione(std::string_view elenco, std::int32_t minimo,
                                                             std::int32_t massimo);
/// The same numbers, each kept where it stands first.
[[nodiscard]] std::vector<int> senza_doppi(const std::vector<int>& numeri);
[[nodiscard]] std::string testo_interi(const std::vector<int>& numeri);
/// Place of a word in a list, without regard to case.
[[nodiscard]] std::optional<int> posto_parola(std::string_view parola,
                                              std::span<const std::string_view> parole);

// ---- the usual kinds, by the field that they fill ----

namespace dettaglio {
template <class>
struct DiCampo;
template <class G, class T>
struct DiCampo<T G::*> {
    using Gruppo = G;
    using Tipo = T;
};
template <auto Campo>
using GruppoDi = typename DiCampo<decltype(Campo)>::Gruppo;

template <auto Campo>
[[nodiscard]] auto& campo(Domanda& domanda) {
    return domanda.parametri.per<GruppoDi<Campo>>().*Campo;
}
template <auto Campo>
[[nodiscard]] const auto& campo(const Domanda& domanda) {
    return domanda.di<GruppoDi<Campo>>().*Campo;
}
template <auto Campo>
[[nodiscard]] bool intatto(const Domanda& domanda) {
    return campo<Campo>(domanda) == GruppoDi<Campo>{}.*Campo;
}
}  // namespace dettaglio

inline constexpr std::int32_t kInteroMassimo = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t kInteroMinimo = std::numeric_limits<std::int32_t>::min();

/// A switch: a bool that is false untouched.
template <auto Campo>
[[nodiscard]] constexpr Opzione interruttore(Opzione o) {
    o.leggi = [](std::string_view, Domanda& d) { return dettaglio::campo<Campo>(d) = true; };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        return dettaglio::campo<Campo>(d) ? std::optional{std::string{}} : std::nullopt;
    };
    return o;
}

/// A whole number in a range (an int, or an optional one that is absent untouched).
template <auto Campo, std::int32_t Minimo = kInteroMinimo, std::int32_t Massimo = kInteroMassimo>
[[nodiscard]] constexpr Opzione intero(Opzione o) {
    o.leggi = [](std::string_view valore, Domanda& d) {
        const auto n = intero_opzione(valore, Minimo, Massimo);
        if (!n) return false;
        const std::int32_t letto = *n;
        dettaglio::campo<Campo>(d) = letto;
        return true;
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        if (dettaglio::intatto<Campo>(d)) return std::nullopt;
        const auto& valore = dettaglio::campo<Campo>(d);
        if constexpr (requires { *valore; })
            return std::to_string(*valore);
        else
            return std::to_string(valore);
    };
    return o;
}

/// One of some words; the field (an int) holds its place.
template <auto Campo, auto& Parole>
[[nodiscard]] constexpr Opzione parola(Opzione o) {
    o.parole = Parole;
    o.leggi = [](std::string_view valore, Domanda& d) {
        const auto p = posto_parola(valore, Parole);
        if (p) dettaglio::campo<Campo>(d) = *p;
        return p.has_value();
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        const auto p = static_cast<std::size_t>(dettaglio::campo<Campo>(d));
        if (dettaglio::intatto<Campo>(d) || p >= std::size(Parole)) return std::nullopt;
        return std::string{Parole[p]};
    };
    return o;
}

enum class Doppi : std::uint8_t { restano, contano_una_volta };

/// A list of at most `Quanti` whole numbers in a range.
template <auto Campo, std::int32_t Minimo, std::int32_t Massimo, std::size_t Quanti = 0,
          Doppi Ripetuti = Doppi::restano>
[[nodiscard]] constexpr Opzione elenco(Opzione o) {
    o.leggi = [](std::string_view valore, Domanda& d) {
        auto numeri = interi_opzione(valore, Minimo, Massimo);
        if (!numeri || (Quanti != 0 && numeri->size() > Quanti)) return false;
        if (Ripetuti == Doppi::contano_una_volta) numeri = senza_doppi(*numeri);
        dettaglio::campo<Campo>(d) = std::move(*numeri);
        return true;
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        if (dettaglio::intatto<Campo>(d)) return std::nullopt;
        return testo_interi(dettaglio::campo<Campo>(d));
    };
    return o;
}

}  // namespace sortimetra
