#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// Draws that the table shows, the newest first. One more is read: the oldest shown is compared with it.
inline constexpr std::size_t kUltimi = 20;

/// Where each kind of row stands in the table of the last draws, by how many numbers a combination has.
struct RigheUltimi {
    std::size_t numeri;
    [[nodiscard]] constexpr std::size_t ripetizione_filtri() const { return 5 + numeri + 7 + numeri + 9 + 1; }
    [[nodiscard]] constexpr std::size_t vuota() const { return ripetizione_filtri() + 1; }
    [[nodiscard]] constexpr std::size_t decine() const { return vuota() + 1; }
    [[nodiscard]] constexpr std::size_t ripetizione_gruppi() const { return decine() + 19; }
    [[nodiscard]] constexpr std::size_t quante() const { return ripetizione_gruppi() + 1; }
};

/// The titles of the rows for combinations of so many numbers.
[[nodiscard]] std::vector<std::string> titoli_ultimi(std::size_t numeri);

/// Numbers of a combination of each game of the screen: Lotto, SuperEnalotto, 10eLotto, Win for Life.
inline constexpr std::array<std::size_t, 4> kNumeriUltimi{5, 6, 10, 10};

/// Every measure of the last twenty draws of a scope, draw by draw. Tables "risultati" (a row per measure, a
/// column per draw) and "lista" (concorso and combination).
[[nodiscard]] Risultato ultimi_concorsi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                        Avanzamento& avanzamento);

[[nodiscard]] std::optional<std::string> controlla_ultimi(const Domanda& domanda);
/// The game that the ticked box of `CheckSistema` stands for.
[[nodiscard]] Gioco gioco_ultimi(const Domanda& domanda);

}  // namespace sortimetra
