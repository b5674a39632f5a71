#pragma once

#include "draws/ruote.h"
#include "lunghette/lunghetta.h"
#include "results/opzione.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What the lunghette take beside the scope: those of the Lotto and those by points alike.
struct ParametriLunghette {
    int ricerca = 0;            ///< `Combo1`
    int opzione = 0;            ///< the index of the chosen `Option1`
    int lunghezza = 5;          ///< `ComboLunga`, 5 to 20
    std::vector<int> numeri{};  ///< the boxes `txtnumpers`, from the first
    bool posizione = false;     ///< `Check1`: one number of each place of the draw
    bool frequente = false;     ///< `Check2`: the draw that most others resemble
    /// A lunghetta that stands and is only to be made longer; null for a search from its beginning.
    std::shared_ptr<const Lunghetta> partenza{};
    /// Told of every step while the search runs.
    OsservaPasso a_ogni_passo{};
};

/// Which half of a Win for Life draw the scattered cinquine stand in, and how they are measured.
struct ParametriScomposte {
    int meta = -1;   ///< `Option2`: 0 the first five places, 1 the last five; -1 none chosen
    int ordine = 0;  ///< `Option1`: 0 most frequent, 1 most delayed
};

inline constexpr int kLunghezzaMinima = 5;
inline constexpr int kLunghezzaMassima = 20;

namespace dettaglio {

/// The personal boxes from a list: what no box takes is refused; a blank stands for an empty box.
template <int Massimo, std::size_t Quante>
[[nodiscard]] bool leggi_caselle(std::string_view valore, Domanda& domanda) {
    std::vector<int> caselle;
    for (const std::string_view pezzo : pezzi_opzione(valore)) {
        const auto n = pezzo.empty() ? std::optional{0} : intero_opzione(pezzo, 0, Massimo);
        if (!n) return false;
        caselle.push_back(*n);
    }
    if (caselle.size() > Quante) return false;
    domanda.parametri.per<ParametriLunghette>().numeri = std::move(caselle);
    return true;
}

template <int Massimo, std::size_t Quante>
[[nodiscard]] constexpr Opzione caselle(Opzione o) {
    o.leggi = leggi_caselle<Massimo, Quante>;
    o.scrivi = [](const Domanda& d) -> std::optional<std::string> {
        const auto& numeri = d.di<ParametriLunghette>().numeri;
        return numeri.empty() ? std::nullopt : std::optional{testo_interi(numeri)};
    };
    return o;
}

}  // namespace dettaglio

inline constexpr std::array<std::string_view, 2> kMeta{"primi", "ultimi"};
inline constexpr std::array<std::string_view, 2> kOrdini{"frequenti", "ritardo"};

inline constexpr Opzione kOpzRicercaLunghette = intero<&ParametriLunghette::ricerca, 0, 3>(
    {.nome = "--ricerca",
     .meta = "N",
     .atteso = "un numero da 0 a 3",
     .frase = "0 più in ritardo per ambo, 1 più in ritardo per terno, 2 più frequenti per ambo, 3 più "
              "frequenti per terno. Se manca: 0."});
inline constexpr Opzione kOpzOpzioneLunghette = intero<&ParametriLunghette::opzione, 0, 4>(
    {.nome = "--opzione",
     .meta = "N",
     .atteso = "un numero da 0 a 4",
     .frase =
         "Da che cosa si comincia: 0 ambata, 1 ambo (ricerche 0 e 2), 2 i numeri di --numeri, 3 ciascuno "
         "dei 90 numeri (ricerca 0), 4 terno (ricerche 1 e 3). Se manca: 0."});
inline constexpr Opzione kOpzLunghezza =
    intero<&ParametriLunghette::lunghezza, kLunghezzaMinima, kLunghezzaMassima>(
        {.nome = "--lunghezza",
         .meta = "N",
         .atteso = "un numero da 5 a 20",
         .frase = "Di quanti numeri è la lunghetta. Se manca: 5."});
inline constexpr Opzione kOpzNumeriLunghette = dettaglio::caselle<kNumeri, 3>(
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "al più tre numeri da 1 a 90 uniti da virgole",
     .frase = "I numeri da cui cominciare con --opzione 2; uno ripetuto chiude l'elenco."});

inline constexpr Opzione kOpzRicercaPunti = intero<&ParametriLunghette::ricerca, 0, 21>(
    {.nome = "--ricerca",
     .meta = "N",
     .atteso = "un numero da 0 a 21",
     .frase = "Da 0 a 10: più in ritardo per 0 - 10 punti; da 11 a 21: più frequenti per 0 - 10 punti. Se "
              "manca: 0."});
inline constexpr Opzione kOpzOpzionePunti = intero<&ParametriLunghette::opzione, 0, 2>(
    {.nome = "--opzione",
     .meta = "N",
     .atteso = "un numero da 0 a 2",
     .frase = "Da che cosa si comincia: 0 un numero, 1 tanti numeri quanti sono i punti, 2 i numeri di "
              "--numeri. Se manca: 0."});
inline constexpr Opzione kOpzNumeriPunti10 = dettaglio::caselle<kNumeri, 5>(
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "al più cinque numeri da 1 a 90 uniti da virgole",
     .frase = "I numeri da cui cominciare con --opzione 2; uno ripetuto chiude l'elenco."});
inline constexpr Opzione kOpzNumeriPuntiWFL = dettaglio::caselle<kNumeriWinForLife, 5>(
    {.nome = "--numeri",
     .meta = "ELENCO",
     .atteso = "al più cinque numeri da 1 a 20 uniti da virgole",
     .frase = "I numeri da cui cominciare con --opzione 2; uno ripetuto chiude l'elenco."});
inline constexpr Opzione kOpzPosizione = interruttore<&ParametriLunghette::posizione>(
    {.nome = "--posizione",
     .frase = "Un numero per ciascun posto dell'estrazione, in luogo della crescita: al più dieci numeri."});
inline constexpr Opzione kOpzFrequente10 = interruttore<&ParametriLunghette::frequente>(
    {.nome = "--frequente",
     .frase = "La ventina estratta che ha esattamente 5 numeri in comune con più altre; lunghezza 20."});
inline constexpr Opzione kOpzFrequenteWFL = interruttore<&ParametriLunghette::frequente>(
    {.nome = "--frequente",
     .frase = "La decina estratta che ha esattamente 3 numeri in comune con più altre; lunghezza 20."});

inline constexpr Opzione kOpzMeta = parola<&ParametriScomposte::meta, kMeta>(
    {.nome = "--meta",
     .meta = "META",
     .atteso = "primi|ultimi",
     .frase = "Quale metà dell'estrazione ordinata: i primi cinque numeri o gli ultimi cinque. Va detta."});
inline constexpr Opzione kOpzOrdine = parola<&ParametriScomposte::ordine, kOrdini>(
    {.nome = "--ordine",
     .meta = "ORDINE",
     .atteso = "frequenti|ritardo",
     .frase = "Da quale capo si conta il ritardo: dalla prima estrazione (frequenti) o dall'ultima "
              "(ritardo). Se manca: frequenti."});

inline constexpr std::array kOpzioniLunghette{&kOpzRicercaLunghette, &kOpzOpzioneLunghette, &kOpzLunghezza,
                                              &kOpzNumeriLunghette};
inline constexpr std::array kOpzioniPunti10{&kOpzRicercaPunti,  &kOpzOpzionePunti, &kOpzLunghezza,
                                            &kOpzNumeriPunti10, &kOpzPosizione,    &kOpzFrequente10};
inline constexpr std::array kOpzioniPuntiWFL{&kOpzRicercaPunti,   &kOpzOpzionePunti, &kOpzLunghezza,
                                             &kOpzNumeriPuntiWFL, &kOpzPosizione,    &kOpzFrequenteWFL};
inline constexpr std::array kOpzioniScomposte{&kOpzMeta, &kOpzOrdine};

}  // namespace sortimetra
