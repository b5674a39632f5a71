#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace sortimetra {

/// The name of a search: as its screen and its result bear it, and in the small letters of its key.
struct NomeRicerca {
    std::string_view titolo{};
    std::string_view chiave{};
};

namespace dettaglio {

/// Small letters of the alphabet without accents; names have no capital with one.
constexpr char minuscola(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

template <std::size_t N>
struct Testo {
    std::array<char, N> lettere{};
    consteval Testo(const char (&testo)[N]) {  // NOLINT(*-explicit-*, *-c-arrays): a literal
        std::copy_n(testo, N, lettere.begin());
    }
    [[nodiscard]] constexpr std::string_view vista() const { return {lettere.data(), N - 1}; }
};

template <Testo T>
inline constexpr auto kTitolo = T.lettere;
template <Testo T>
inline constexpr auto kMinuscole = [] {
    auto lettere = T.lettere;
    std::transform(lettere.begin(), lettere.end(), lettere.begin(), minuscola);
    return lettere;
}();

template <std::size_t N>
constexpr std::string_view vista(const std::array<char, N>& lettere) {
    return {lettere.data(), N - 1};
}

}  // namespace dettaglio

/// A name whose key is the title in small letters: nome<"Ambi Vertibili">.
template <dettaglio::Testo Titolo>
inline constexpr NomeRicerca nome{.titolo = dettaglio::vista(dettaglio::kTitolo<Titolo>),
                                  .chiave = dettaglio::vista(dettaglio::kMinuscole<Titolo>)};

/// The same for a search that its screen calls otherwise than the lists do.
template <dettaglio::Testo Elencata, dettaglio::Testo Titolo>
inline constexpr NomeRicerca nome_e_titolo{.titolo = dettaglio::vista(dettaglio::kTitolo<Titolo>),
                                           .chiave = dettaglio::vista(dettaglio::kMinuscole<Elencata>)};

/// Whether a name of a list is that of a key: its letters, small.
[[nodiscard]] constexpr bool stessa_chiave(std::string_view nome, std::string_view chiave) {
    return std::equal(nome.begin(), nome.end(), chiave.begin(), chiave.end(),
                      [](char a, char b) { return dettaglio::minuscola(a) == b; });
}

}  // namespace sortimetra
