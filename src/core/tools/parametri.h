#pragma once

#include "draws/archivio.h"
#include "results/opzione.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What the spy numbers take.
struct ParametriSpia {
    std::vector<int> numeri;  ///< the numbers to examine, ascending
};

/// What the cyclometric board takes: the draw of a concorso, or that of a day; neither means the last.
struct ParametriCiclometria {
    std::optional<Concorso> concorso;
    std::optional<Data> data;
};

/// "tutti", or a list of numbers, which are examined in their order whatever the list's.
[[nodiscard]] bool leggi_numeri_spia(std::string_view valore, Domanda& domanda);
[[nodiscard]] std::optional<std::string> scrivi_numeri_spia(const Domanda& domanda);
[[nodiscard]] bool leggi_data_ciclometria(std::string_view valore, Domanda& domanda);
[[nodiscard]] std::optional<std::string> scrivi_data_ciclometria(const Domanda& domanda);

inline constexpr std::array<std::string_view, 1> kParoleSpia{"tutti"};

inline constexpr Opzione kOpzNumeriSpia{
    .nome = "--numeri",
    .meta = "ELENCO",
    .atteso = "numeri da 1 a 90 uniti da virgole, oppure tutti",
    .frase = "I numeri da esaminare, uniti da virgole (--numeri 5,17,90), oppure tutti. È necessaria.",
    .parole = kParoleSpia,
    .leggi = leggi_numeri_spia,
    .scrivi = scrivi_numeri_spia};
inline constexpr Opzione kOpzConcorsoCiclometria = intero<&ParametriCiclometria::concorso>(
    {.nome = "--concorso",
     .meta = "N",
     .atteso = "un numero",
     .frase = "Il concorso da guardare. Se mancano questa e --data: l'ultimo."});
inline constexpr Opzione kOpzDataCiclometria{
    .nome = "--data",
    .meta = "GG/MM/AAAA",
    .atteso = "una data gg/mm/aaaa",
    .frase = "Il giorno da guardare, o l'ultima estrazione prima di esso. Non insieme a --concorso.",
    .leggi = leggi_data_ciclometria,
    .scrivi = scrivi_data_ciclometria};

inline constexpr std::array kOpzioniSpia{&kOpzNumeriSpia};
inline constexpr std::array kOpzioniCiclometria{&kOpzConcorsoCiclometria, &kOpzDataCiclometria};

}  // namespace sortimetra
