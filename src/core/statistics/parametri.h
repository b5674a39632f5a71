#pragma once

#include "draws/ruote.h"
#include "results/opzione.h"
#include "statistics/serie_corrente.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What the searches of the statistics screen take beside the scope; each reads what its options name.
struct ParametriStatistica {
    int tipo = 0;                  ///< `ComboRit`: 0 "all'Ambata", 1 "all'Ambo", 2 "al Terno"
    std::vector<int> capogioco{};  ///< one or two capi as typed; a missing one reads 0
    int estratto = 1;              ///< place 1 to 5 chosen in `cmbEstratto`
    bool tutte_le_ruote = false;   ///< the wheel-by-wheel table of a series
    std::vector<int> numeri{};     ///< numbers of a decomposition, as typed
    int sorte = 2;                 ///< numbers per combination of a decomposition, 1 to 5
    /// The members of the one family whose numbers stand in a file; null where it cannot be read.
    std::shared_ptr<const SerieCorrente> cinquine{};
    bool analisi = false;  ///< the analysis of the group that the grid shows, in place of the grid
    std::optional<int> combinazioni{};  ///< `ComboComb`: rows of the grid that make the group; none for all
    std::optional<int> entro{};         ///< draws within which an outcome is asked for
    std::vector<std::uint32_t>
        ordine{};  ///< rows of the grid as a screen shows them; empty for that of writing
};

inline constexpr std::array<std::string_view, 2> kTipi{"ambata", "ambo"};
inline constexpr std::array<std::string_view, 3> kTipiTerno{"ambata", "ambo", "terno"};

inline constexpr Opzione kOpzTipo = parola<&ParametriStatistica::tipo, kTipi>(
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo",
     .frase =
         "Che cosa conta come uscita: basta un numero della serie (ambata) oppure ne servono due (ambo). "
         "Se manca: ambata."});
inline constexpr Opzione kOpzTipoTerno = parola<&ParametriStatistica::tipo, kTipiTerno>(
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo|terno",
     .frase = "Quanti numeri di una combinazione devono uscire insieme: uno, due o tre. Se manca: ambata."});

/// Of the search whose grid needs no choice of what an outcome is.
inline constexpr Opzione kOpzTipoCapogioco = parola<&ParametriStatistica::tipo, kTipi>(
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo",
     .frase = "Con --analisi-gruppo: che cosa conta come esito, un numero di un ambo (ambata) o tutti e due "
              "(ambo). Se manca: ambata."});

inline constexpr Opzione kOpzAnalisiGruppo = interruttore<&ParametriStatistica::analisi>(
    {.nome = "--analisi-gruppo",
     .frase = "Analizza le combinazioni della griglia come un gruppo: esiti, ritardi, probabilità."});
inline constexpr Opzione kOpzCombinazioni = intero<&ParametriStatistica::combinazioni, 1>(
    {.nome = "--combinazioni",
     .meta = "N",
     .atteso = "un numero di righe, da 1",
     .frase = "Con --analisi-gruppo, per l'ambo capogioco: soltanto le prime N righe. Se manca: tutte."});
inline constexpr Opzione kOpzEntro = intero<&ParametriStatistica::entro, 1>(
    {.nome = "--entro",
     .meta = "N",
     .atteso = "un numero di concorsi, da 1",
     .frase = "Con --analisi-gruppo: la probabilità statistica di un esito positivo entro i prossimi N "
              "concorsi."});

// Digits only: what the boxes let one type. Whether it is a number of the game, the search tells.
inline constexpr Opzione kOpzCapogioco = elenco<&ParametriStatistica::capogioco, 0, kInteroMassimo, 1>(
    {.nome = "--capogioco", .meta = "K", .atteso = "un numero", .frase = "Il capogioco, da 1 a 90."});
inline constexpr Opzione kOpzAmboCapo = elenco<&ParametriStatistica::capogioco, 0, kInteroMassimo, 2>(
    {.nome = "--capogioco",
     .meta = "A,B",
     .atteso = "due numeri uniti da una virgola",
     .frase = "I due capigioco, da 1 a 90: --capogioco 12,45."});
inline constexpr Opzione kOpzTutteLeRuote = interruttore<&ParametriStatistica::tutte_le_ruote>(
    {.nome = "--tutte-le-ruote",
     .frase = "La tabella dei ritardi ruota per ruota, in luogo di quella delle ruote scelte."});
inline constexpr Opzione kOpzNumeri = elenco<&ParametriStatistica::numeri, 1, kNumeri>(
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "numeri del gioco uniti da virgole",
     .frase = "I tuoi numeri, uniti da virgole: --numeri 5,17,90."});
inline constexpr Opzione kOpzSorte = intero<&ParametriStatistica::sorte, 1, 5>(
    {.nome = "--sorte",
     .meta = "K",
     .atteso = "un numero da 1 a 5",
     .frase = "Di quanti numeri è ogni combinazione. Se manca: 2."});
inline constexpr Opzione kOpzEstratto = intero<&ParametriStatistica::estratto, 1, kEstratti>(
    {.nome = "--estratto",
     .meta = "K",
     .atteso = "un numero da 1 a 5",
     .frase = "Il posto in cui i dieci numeri sono usciti, da 1 a 5. Se manca: 1."});

inline constexpr std::array kOpzioniTerni{&kOpzTipo};
inline constexpr std::array kOpzioniAmbataCapogioco{&kOpzCapogioco, &kOpzAnalisiGruppo, &kOpzTipoCapogioco,
                                                    &kOpzCombinazioni, &kOpzEntro};
inline constexpr std::array kOpzioniAmboCapogioco{&kOpzTipo, &kOpzAmboCapo, &kOpzAnalisiGruppo,
                                                  &kOpzCombinazioni, &kOpzEntro};
inline constexpr std::array kOpzioniSerie{&kOpzTipo, &kOpzAnalisiGruppo, &kOpzCombinazioni, &kOpzEntro};
inline constexpr std::array kOpzioniSerieConRuote{&kOpzTipo, &kOpzTutteLeRuote, &kOpzAnalisiGruppo,
                                                  &kOpzCombinazioni, &kOpzEntro};
inline constexpr std::array kOpzioniDieciRuote{&kOpzEstratto};
inline constexpr std::array kOpzioniScomposizione{&kOpzTipoTerno, &kOpzNumeri, &kOpzSorte};

}  // namespace sortimetra
