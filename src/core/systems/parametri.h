#pragma once

#include "results/opzione.h"
#include "systems/misure_combinazione.h"
#include "systems/sistemi_salvati.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// Numbers that a choice of positions or of numbers is about.
inline constexpr std::size_t kDieci = 10;

/// What the searches on conditioned systems take beside the scope.
struct ParametriSistemi {
    int sistema = 0;     ///< the ticked box of `CheckSistema`
    int statistica = 0;  ///< the entry of `Combo1`, a `Statistica`
    /// 10eLotto: the ten places 1 to 20 that make a combination, ascending; empty until they are chosen.
    std::vector<int> posizioni{};
    /// Win for Life: numbers that a draw must hold, and those that must stand in its places 1 to 10; 0 is an
    /// empty box. At most one of the two lists is filled.
    std::vector<int> contenenti{};
    std::vector<int> nelle_posizioni{};
    std::string nome{};  ///< the saved system that is looked at
    /// That system as it was found on disk; null where there is none of the name.
    std::shared_ptr<const VoceSistema> salvato{};
};

/// Exactly ten different places of the twenty, ascending; nothing for any other list.
[[nodiscard]] std::optional<std::vector<int>> leggi_posizioni(std::string_view elenco);
/// At most ten numbers of Win for Life, an empty piece for an empty box; nothing for any other list.
[[nodiscard]] std::optional<std::vector<int>> leggi_scelti(std::string_view elenco);

namespace dettaglio {

using Lettura = std::optional<std::vector<int>> (*)(std::string_view);

/// A list of numbers that `Leggi` checks.
template <auto Campo, Lettura Leggi>
[[nodiscard]] constexpr Opzione elenco_scelto(Opzione o) {
    o.leggi = [](std::string_view valore, Domanda& d) {
        auto numeri = Leggi(valore);
        if (numeri) campo<Campo>(d) = std::move(*numeri);
        return numeri.has_value();
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        if (intatto<Campo>(d)) return std::nullopt;
        return testo_interi(campo<Campo>(d));
    };
    return o;
}

}  // namespace dettaglio

inline constexpr Opzione kOpzSistema = intero<&ParametriSistemi::sistema, 0, kSistemaWinForLife>(
    {.nome = "--sistema",
     .meta = "I",
     .atteso = "un numero da 0 a 6",
     .frase = "Il tipo di sistema: 0 Ambo, 1 Terno, 2 Quaterna, 3 Cinquina, 4 SuperEnalotto, 5 10eLotto, "
              "6 Win for Life. Se manca: 0."});
inline constexpr Opzione kOpzGiocoUltimi = intero<&ParametriSistemi::sistema, 0, 3>(
    {.nome = "--sistema",
     .meta = "I",
     .atteso = "un numero da 0 a 3",
     .frase = "Il gioco: 0 Lotto, 1 SuperEnalotto, 2 10eLotto, 3 Win for Life. Se manca: 0."});
inline constexpr Opzione kOpzStatistica = parola<&ParametriSistemi::statistica, kStatistiche>(
    {.nome = "--statistica",
     .meta = "TESTO",
     .atteso = "il nome di una statistica: \"Posizione\", \"Distanza\", \"Simm. - Parall. - Simm.+Parall. - "
               "Interr. - Pari - Dettaglio Pari\", \"Somma Generale - Somma S1 - Somma S2\", \"Codomino - "
               "Resto - SiS 1 - SiS 2\", \"Consecutività\" o \"Gruppi Numerici\"",
     .frase = "La statistica, con il nome che ha nell'elenco della finestra. Se manca: Posizione."});
inline constexpr Opzione kOpzPosizioni =
    dettaglio::elenco_scelto<&ParametriSistemi::posizioni, leggi_posizioni>(
        {.nome = "--posizioni",
         .meta = "ELENCO",
         .atteso = "dieci posizioni diverse da 1 a 20, unite da virgole",
         .frase = "Per il 10eLotto: le dieci posizioni da analizzare, da 1 a 20."});
inline constexpr Opzione kOpzContenenti =
    dettaglio::elenco_scelto<&ParametriSistemi::contenenti, leggi_scelti>(
        {.nome = "--contenenti",
         .meta = "ELENCO",
         .atteso = "al più dieci numeri da 1 a 20, uniti da virgole",
         .frase = "Per Win for Life: soltanto le combinazioni che contengono questi numeri."});
inline constexpr Opzione kOpzNellePosizioni =
    dettaglio::elenco_scelto<&ParametriSistemi::nelle_posizioni, leggi_scelti>(
        {.nome = "--nelle-posizioni",
         .meta = "ELENCO",
         .atteso = "al più dieci numeri da 1 a 20 uniti da virgole, 0 o niente dove la posizione è libera",
         .frase = "Per Win for Life: soltanto le combinazioni che hanno questi numeri in queste posizioni: "
                  "--nelle-posizioni \",,7\" vuole il 7 in terza posizione."});
inline constexpr Opzione kOpzNomeSistema = {
    .nome = "--nome",
    .meta = "NOME",
    .atteso = "il nome di un sistema salvato",
    .frase = "Il sistema salvato: \"sortimetra-cli sistemi\" li elenca.",
    .leggi =
        [](std::string_view valore, Domanda& d) {
            d.parametri.per<ParametriSistemi>().nome = valore;
            return true;
        },
    .scrivi = [](const Domanda& d) -> std::optional<std::string> {
        const auto& nome = d.di<ParametriSistemi>().nome;
        return nome.empty() ? std::nullopt : std::optional{nome};
    }};

inline constexpr std::array kOpzioniFiltri{&kOpzSistema, &kOpzStatistica, &kOpzPosizioni, &kOpzContenenti,
                                           &kOpzNellePosizioni};
inline constexpr std::array kOpzioniSalvati{&kOpzSistema, &kOpzStatistica, &kOpzNomeSistema};
inline constexpr std::array kOpzioniUltimi{&kOpzGiocoUltimi, &kOpzPosizioni, &kOpzContenenti,
                                           &kOpzNellePosizioni};

}  // namespace sortimetra
