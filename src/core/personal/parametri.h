#pragma once

#include "draws/ruote.h"
#include "personal/poste.h"
#include "results/opzione.h"
#include "statistics/parametri.h"
#include "statistics/serie_corrente.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// ---- personal numbers ----

/// What the searches on the user's own numbers take.
struct ParametriPersonali {
    std::vector<int> numeri{};  ///< the numbers marked on the grid; none: the search does not start
    int estratto = 0;           ///< `cmbEstratto`: 0 "Tutti", 1 to 5 that place alone
    bool chiusura = false;      ///< `Check1`: only the draws up to the closing of the series
};

inline constexpr std::array<std::string_view, 6> kParoleEstratto{"tutti", "1", "2", "3", "4", "5"};

inline constexpr Opzione kOpzNumeriPersonali =
    elenco<&ParametriPersonali::numeri, 1, kNumeri, kNumeri, Doppi::contano_una_volta>(
        {.nome = "--numeri",
         .meta = "ELENCO",
         .atteso = "numeri da 1 a 90 uniti da virgole",
         .frase = "I tuoi numeri, uniti da virgole: --numeri 5,17,90."});
inline constexpr Opzione kOpzNumeriPersonaliWinForLife =
    elenco<&ParametriPersonali::numeri, 1, kNumeriWinForLife, kNumeriWinForLife, Doppi::contano_una_volta>(
        {.nome = "--numeri",
         .meta = "ELENCO",
         .atteso = "numeri da 1 a 20 uniti da virgole",
         .frase = "I tuoi numeri, uniti da virgole: --numeri 5,17,20."});
inline constexpr Opzione kOpzEstrattoPersonali = parola<&ParametriPersonali::estratto, kParoleEstratto>(
    {.nome = "--estratto",
     .meta = "K",
     .atteso = "tutti|1|2|3|4|5",
     .frase = "Il posto al quale guardare: il primo, secondo … quinto estratto, oppure tutti. Se manca: "
              "tutti."});
inline constexpr Opzione kOpzChiusura = interruttore<&ParametriPersonali::chiusura>(
    {.nome = "--chiusura",
     .frase = "Soltanto le estrazioni più recenti che bastano a incontrare tutti i numeri, con la tabella "
              "di quelle che le precedono."});

inline constexpr std::array kOpzioniPersonaliLotto{&kOpzNumeriPersonali, &kOpzEstrattoPersonali,
                                                   &kOpzChiusura};
inline constexpr std::array kOpzioniPersonali{&kOpzNumeriPersonali};
inline constexpr std::array kOpzioniPersonaliWinForLife{&kOpzNumeriPersonaliWinForLife};

// ---- groups ----

inline constexpr std::size_t kLunghetteGruppo = 50;  ///< lunghette that a group has at most
inline constexpr std::size_t kNumeriLunghetta = 20;  ///< numbers that each of them has at most
/// The largest bet for which the combinations of one lunghetta are listed.
inline constexpr int kSorteDettaglio = 3;

/// What the analysis of a group takes.
struct ParametriGruppi {
    std::string gruppo{};  ///< name of a saved group; "" for none
    SerieCorrente
        lunghette{};  ///< the group to analyse: its lunghette, in the order in which they were typed
    int sorte = 1;    ///< numbers of one lunghetta that must come together, 1 to 5
    std::optional<int> entro{};      ///< `Combo1`: draws within which an outcome is asked for
    std::optional<int> dettaglio{};  ///< row of the lunghette's table, from 1, whose combinations are listed
};

/// Lunghette as a line tells them, "1 2 3;4 5 6"; nothing if they are too many, too long or of unequal
/// length.
[[nodiscard]] std::optional<SerieCorrente> leggi_lunghette(std::string_view testo);
[[nodiscard]] std::string testo_lunghette(const SerieCorrente& gruppo);

[[nodiscard]] constexpr Opzione opzione_gruppo(Opzione o) {
    o.leggi = [](std::string_view valore, Domanda& d) {
        auto& p = d.parametri.per<ParametriGruppi>();
        p.gruppo = valore;
        // One group is analysed: a saved one or a typed one.
        return !valore.empty() && p.lunghette.numeri.empty();
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        const std::string& nome = d.di<ParametriGruppi>().gruppo;
        return nome.empty() ? std::nullopt : std::optional{nome};
    };
    return o;
}
[[nodiscard]] constexpr Opzione opzione_lunghette(Opzione o) {
    o.leggi = [](std::string_view valore, Domanda& d) {
        auto& p = d.parametri.per<ParametriGruppi>();
        auto gruppo = leggi_lunghette(valore);
        if (gruppo) p.lunghette = std::move(*gruppo);
        return gruppo.has_value() && p.gruppo.empty();
    };
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        const auto& p = d.di<ParametriGruppi>();
        // A saved group is asked for again by its name.
        if (!p.gruppo.empty() || p.lunghette.numeri.empty()) return std::nullopt;
        return testo_lunghette(p.lunghette);
    };
    return o;
}

inline constexpr Opzione kOpzGruppo =
    opzione_gruppo({.nome = "--gruppo",
                    .meta = "NOME",
                    .atteso = "il nome di un gruppo salvato, senza --lunghette",
                    .frase = "Il gruppo salvato con questo nome."});
inline constexpr Opzione kOpzLunghette = opzione_lunghette(
    {.nome = "--lunghette",
     .meta = "ELENCO",
     .atteso =
         "da 1 a 50 lunghette divise da \";\", ognuna di altrettanti numeri (al più 20) da 1 a 90 divisi "
         "da spazi, senza --gruppo",
     .frase = "Le lunghette del gruppo, divise da punti e virgola: --lunghette \"1 2 3;4 5 6\"."});
inline constexpr Opzione kOpzSorteGruppo = intero<&ParametriGruppi::sorte, 1, kEstratti>(
    {.nome = "--sorte",
     .meta = "K",
     .atteso = "un numero da 1 a 5",
     .frase = "Quanti numeri di una stessa lunghetta devono uscire insieme. Se manca: 1."});
inline constexpr Opzione kOpzEntroGruppo = intero<&ParametriGruppi::entro, 1>(
    {.nome = "--entro",
     .meta = "N",
     .atteso = "un numero di concorsi, da 1",
     .frase = "Chiede la probabilità statistica di un esito positivo entro i prossimi N concorsi."});
inline constexpr Opzione kOpzDettaglio = intero<&ParametriGruppi::dettaglio, 1>(
    {.nome = "--dettaglio",
     .meta = "I",
     .atteso = "il numero di una lunghetta, da 1",
     .frase = "Elenca le combinazioni della lunghetta I, una per una; --sorte al più 3."});

inline constexpr std::array kOpzioniGruppi{&kOpzGruppo, &kOpzLunghette, &kOpzSorteGruppo, &kOpzEntroGruppo,
                                           &kOpzDettaglio};

/// What the analysis of the ambi of one number takes, in the draws of Win for Life.
struct ParametriAmbiWinForLife {
    std::vector<int> capogioco{};  ///< the head number as typed; none reads 0
    /// `ComboRit`: 0 "all'Ambata", 1 "all'Ambo". By the ambata every draw of ten out of twenty numbers is an
    /// outcome, so the ambo is what one wants to see first.
    int tipo = 1;
    std::optional<int> entro{};  ///< draws within which an outcome is asked for
};

inline constexpr Opzione kOpzCapogiocoWinForLife =
    elenco<&ParametriAmbiWinForLife::capogioco, 0, kInteroMassimo, 1>(
        {.nome = "--capogioco", .meta = "K", .atteso = "un numero", .frase = "Il capogioco, da 1 a 20."});
inline constexpr Opzione kOpzTipoAmbiWinForLife = parola<&ParametriAmbiWinForLife::tipo, kTipi>(
    {.nome = "--tipo",
     .meta = "TIPO",
     .atteso = "ambata|ambo",
     .frase = "Che cosa conta come esito: un numero di un ambo (ambata) o tutti e due (ambo). Se manca: "
              "ambo."});
inline constexpr Opzione kOpzEntroAmbiWinForLife = intero<&ParametriAmbiWinForLife::entro, 1>(
    {.nome = "--entro",
     .meta = "N",
     .atteso = "un numero di concorsi, da 1",
     .frase = "Chiede la probabilità statistica di un esito positivo entro i prossimi N concorsi."});
inline constexpr std::array kOpzioniAmbiWinForLife{&kOpzCapogiocoWinForLife, &kOpzTipoAmbiWinForLife,
                                                   &kOpzEntroAmbiWinForLife};

// ---- the pyramid ----

/// What the statistical pyramid takes.
struct ParametriPiramide {
    int opzione = 0;  ///< `OptionP`: 0 and 1 by delay, 2 and 3 by frequency; 0 and 3 from `numero`
    std::optional<int> numero{};  ///< the box of options 0 and 3; none typed: the search does not start

    [[nodiscard]] bool personale() const { return opzione == 0 || opzione == 3; }
    [[nodiscard]] bool per_frequenza() const { return opzione >= 2; }
};

inline constexpr Opzione kOpzOpzionePiramide = intero<&ParametriPiramide::opzione, 0, 3>(
    {.nome = "--opzione",
     .meta = "I",
     .atteso = "un numero da 0 a 3",
     .frase = "Da dove parte la piramide: per ritardo da un numero tuo (0) o dall'ambata più in ritardo (1), "
              "per frequenza dall'ambata più frequente (2) o da un numero tuo (3). Se manca: 0."});
inline constexpr Opzione kOpzNumeroPiramide =
    intero<&ParametriPiramide::numero, 1, kNumeri>({.nome = "--numero",
                                                    .meta = "N",
                                                    .atteso = "un numero da 1 a 90",
                                                    .frase = "Il numero tuo delle opzioni 0 e 3."});

inline constexpr std::array kOpzioniPiramide{&kOpzOpzionePiramide, &kOpzNumeroPiramide};

/// The stakes as `impir.dat` gives them; the defaults where there is none.
struct ParametriSchedine {
    Poste poste = poste_predefinite();
};

}  // namespace sortimetra
