#include "lunghette/voci.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace sortimetra {

namespace {

constexpr int kPunti = 11;  ///< 0 to 10

constexpr std::array<std::string_view, 4> kRicerche{
    "più  in  Ritardo  per  Ambo", "più  in  Ritardo  per  Terno", "più  Frequenti   per  Ambo",
    "più  Frequenti   per  Terno"};

bool lotto(Gioco gioco) {
    return gioco == Gioco::lotto;
}
bool a_ritardo(Gioco gioco, int ricerca) {
    return voce_lunghette(gioco, ricerca).tipo == TipoRicerca::ritardo;
}
std::string_view sorte(int k) {
    return k == 2 ? "Ambo" : "Terno";
}

}  // namespace

VoceLunghette voce_lunghette(Gioco gioco, int ricerca) {
    if (lotto(gioco)) {
        const int r = std::clamp(ricerca, 0, static_cast<int>(kRicerche.size()) - 1);
        return {.tipo = r < 2 ? TipoRicerca::ritardo : TipoRicerca::frequenza, .k = r % 2 == 0 ? 2 : 3};
    }
    const int r = std::clamp(ricerca, 0, 2 * kPunti - 1);
    return {.tipo = r < kPunti ? TipoRicerca::ritardo : TipoRicerca::frequenza, .k = r % kPunti};
}

std::size_t caselle_personali(Gioco gioco) {
    return lotto(gioco) ? 3 : 5;
}

std::vector<int> numeri_personali(Gioco gioco, std::span<const int> caselle) {
    const int massimo = gioco == Gioco::win_for_life ? kNumeriWinForLife : kNumeri;
    std::vector<int> numeri;
    for (const int n : caselle.first(std::min(caselle.size(), caselle_personali(gioco)))) {
        if (n < 1 || n > massimo || std::find(numeri.begin(), numeri.end(), n) != numeri.end()) break;
        numeri.push_back(n);
    }
    return numeri;
}

std::optional<std::string> opzione_estranea(Gioco gioco, int ricerca, int opzione) {
    if (!lotto(gioco)) return std::nullopt;
    const auto vale_con = [&](std::string_view quali) {
        return fmt::format("--opzione {} vale soltanto con --ricerca {} (trovato --ricerca {}).", opzione,
                           quali, ricerca);
    };
    if (opzione == 1 && ricerca % 2 != 0) return vale_con("0 o 2");
    if (opzione == 3 && ricerca != 0) return vale_con("0");
    if (opzione == 4 && ricerca % 2 == 0) return vale_con("1 o 3");
    return std::nullopt;
}

std::string testo_ricerca(Gioco gioco, int ricerca) {
    if (lotto(gioco)) return std::string{kRicerche[static_cast<std::size_t>(ricerca)]};
    const VoceLunghette voce = voce_lunghette(gioco, ricerca);
    return fmt::format("più  {}  per  punti {}",
                       voce.tipo == TipoRicerca::ritardo ? "in  Ritardo" : "Frequenti", voce.k);
}

std::string testo_opzione(Gioco gioco, int ricerca, int opzione) {
    const bool ritardo = a_ritardo(gioco, ricerca);
    const std::string_view piu = ritardo ? "più in Ritardo" : "più Frequente";
    switch (opzione) {
        case 0:
            if (!lotto(gioco)) return ritardo ? "Dal numero + in ritardo" : "Dal numero + frequente";
            return fmt::format("Ambata {}", piu);
        case 1:
            if (!lotto(gioco))
                return fmt::format("Da punti {} {}", voce_lunghette(gioco, ricerca).k,
                                   ritardo ? "+ in ritardo" : "+ frequenti");
            return fmt::format("Ambo {}", piu);
        case 2:
            return "Numeri Personali";
        case 3:
            return "Analisi Automatica sui 90 numeri";
        default:
            return fmt::format("Terno {}", piu);
    }
}

std::string testo_dal_terno(Gioco gioco, int ricerca) {
    if (a_ritardo(gioco, ricerca))
        return lotto(gioco) ? "(Ottenuto dall'ambo + in Ritardo)" : "(Ottenuto dall'ambo + in ritardo)";
    return lotto(gioco) ? "(Ottenuto dall'ambo + Frequente)" : "(Ottenuto dall'ambo + frequente)";
}

std::string testo_punteggio(Gioco gioco, int ricerca, bool frequente) {
    const VoceLunghette voce = voce_lunghette(gioco, ricerca);
    const std::string_view misura = voce.tipo == TipoRicerca::ritardo && !frequente ? "Ritardo" : "Frequenza";
    if (lotto(gioco)) return fmt::format("{} per {} della lunghetta finora ricavata", misura, sorte(voce.k));
    return fmt::format("{} per punti {} della lunghetta ricavata", misura, voce.k);
}

std::string_view testo_opzione_frequente(Gioco gioco) {
    return gioco == Gioco::win_for_life ? "Più frequente x punti 3" : "Più frequente x punti 5";
}

std::string_view testo_frequente(Gioco gioco) {
    return gioco == Gioco::win_for_life ? "Trova decina più frequente per punti 3"
                                        : "Trova ventina più frequente per punti 5";
}

}  // namespace sortimetra
