#pragma once

#include "draws/gioco.h"
#include "lunghette/misuratore.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// What an entry of `Combo1` asks for: delay or frequency, and how many numbers must come.
struct VoceLunghette {
    TipoRicerca tipo = TipoRicerca::ritardo;
    int k = 2;
};

/// By the game: the four entries of the Lotto, the twenty-two by points. An index beyond them reads as the
/// nearest.
[[nodiscard]] VoceLunghette voce_lunghette(Gioco gioco, int ricerca);
/// Numbers that the personal boxes take: three, or five by points.
[[nodiscard]] std::size_t caselle_personali(Gioco gioco);
/// The numbers of the boxes up to the first that is blank, no number of the game, or there already.
[[nodiscard]] std::vector<int> numeri_personali(Gioco gioco, std::span<const int> caselle);
/// Whether `opzione` can be chosen beside an entry on the command line; the reason where it cannot.
[[nodiscard]] std::optional<std::string> opzione_estranea(Gioco gioco, int ricerca, int opzione);

// ---- the texts of the screens, which reports share ----

/// The entries of `Combo1`; the blanks are as they stand.
[[nodiscard]] std::string testo_ricerca(Gioco gioco, int ricerca);
/// The caption of an `Option1` button.
[[nodiscard]] std::string testo_opzione(Gioco gioco, int ricerca, int opzione);
/// `lbldesc`, beside the terno: what it is worked out from.
[[nodiscard]] std::string testo_dal_terno(Gioco gioco, int ricerca);
/// `Label8`, the name of the score; with `Check2` that is a frequency, whatever the entry.
[[nodiscard]] std::string testo_punteggio(Gioco gioco, int ricerca, bool frequente = false);
/// `Check1`.
inline constexpr std::string_view kConPosizione = "Analisi con Posizione";
/// `Check2`.
[[nodiscard]] std::string_view testo_frequente(Gioco gioco);
/// What the second option says as long as `Check2` is set.
[[nodiscard]] std::string_view testo_opzione_frequente(Gioco gioco);
/// Shown where `Check1` meets a length above ten.
inline constexpr std::string_view kPosizioneDieci =
    "Con l'analisi per posizione la lunghetta può essere al massimo di 10 numeri.";
inline constexpr int kLunghezzaPosizione = 10;

}  // namespace sortimetra
