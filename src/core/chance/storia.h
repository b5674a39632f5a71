#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/percorso.h"
#include "results/domanda.h"
#include "results/evento.h"
#include "results/risultato_fwd.h"
#include "text/data.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

/// One wheel (or, in the other games, one draw) where the numbers came. At most twenty of them.
struct UscitaStoria {
    int ruota = -1;  ///< 0 to 9 or `kNazionale`; -1 for the games without wheels
    std::uint8_t quanti = 0;
    std::array<Numero, kNumeriEvento> numeri{};  ///< those of the event that came, ascending
};

/// A draw with at least one hit.
struct ColpoStoria {
    std::int32_t estrazione = 0;  ///< ordinal C of the draw in scope, from 1
    Concorso concorso = 0;
    Data data{};
    /// The closed delay: draws between this one and the hit before it. Nothing for the first.
    std::optional<std::int32_t> ritardo{};
    std::uint32_t prima_uscita = 0;  ///< its wheels are `Storia::uscite` from here
    std::uint32_t uscite = 0;        ///< how many
};

/// First and last draw of a stretch of time.
struct EstremoStoria {
    Concorso concorso = 0;
    Data data{};
};

/// All hits of an event in a scope, oldest first, and its measures as those of the 90 numbers are taken.
struct Storia {
    Evento evento;
    Percorso percorso;
    std::int32_t t = 0;          ///< T of the scope
    std::int32_t frequenza = 0;  ///< one per wheel, as the event counts
    std::int32_t ritardo = 0;
    std::int32_t storico = 0;
    EstremoStoria inizio{};  ///< first and last draw walked, hit or not
    EstremoStoria fine{};
    std::vector<ColpoStoria> colpi{};
    std::vector<UscitaStoria> uscite{};
    /// Frequency, and rows walked, of each year from the first on: what came and what it is to be held
    /// against.
    struct Anno {
        int anno = 0;
        std::int32_t colpi = 0;
        std::int32_t righe = 0;
    };
    std::vector<Anno> anni{};
    bool vuota = true;  ///< no draw in scope
};

/// Walks the scope once. 10eLotto takes all ten wheels, whatever the scope names.
[[nodiscard]] Storia storia(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                            const Evento& evento, Avanzamento& avanzamento);

/// The event's numbers as grids show them: "07-45-67", with "2 su" before them where fewer must come than
/// there are, and the place: "07 al 1° posto".
[[nodiscard]] std::string nome_evento(const Evento& evento);

/// The tables of a story: "risultati" ("N.", "Concorso", "Data", "Ruote", "Numeri", "Ritardo") and "sintesi".
[[nodiscard]] Tabella tabella_colpi(const Storia& storia);
[[nodiscard]] Tabella tabella_sintesi(const Storia& storia);

}  // namespace sortimetra
