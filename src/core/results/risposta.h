#pragma once

#include "draws/percorso.h"
#include "results/domanda.h"
#include "results/ricerca.h"
#include "results/risultato_fwd.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// First and last draw of a game's own table.
struct PeriodoProprio {
    TrattoConcorsi tratto{};
    Data dal{};
    Data al{};
};

/// What an answer is of, in the words of a report's head: taken down when the search ran, so that neither
/// paper nor files need the archive again.
struct AmbitoDetto {
    std::string ruote{};       ///< names of the wheels joined by ", ", "Tutte", or the game's name
    std::string intervallo{};  ///< the entry of `ComboIntervallo`, or "ore 9:00"
    TrattoConcorsi tratto{};   ///< within the archive
    std::optional<Data> dal{};
    std::optional<Data> al{};
    /// The draws in scope of a game with draws of its own, whose range is told by the Lotto's concorsi or cut
    /// by the hour; nothing for the Lotto and 10eLotto, and where no draw is left.
    std::optional<PeriodoProprio> proprio{};
    std::int32_t t = 0;      ///< T, the draws in scope
    std::string archivio{};  ///< name of the file that was read
    bool simulato = false;
};

/// A search that was run: its row of the dispatch table, the question as answered, the result and the order
/// on show. The one value that goes from the run to grid, paper, files and slips.
struct Risposta {
    Domanda domanda;
    std::shared_ptr<const Risultato> risultato;
    /// Rows of the first table as the screen shows them (see `ordina`); empty for the order of writing.
    std::vector<std::uint32_t> ordine{};
    /// Nothing for a search that needs no archive.
    std::optional<AmbitoDetto> ambito{};
    /// The rows that its first table's events were looked for in; nothing where its rows measure none.
    std::optional<Percorso> percorso{};

    [[nodiscard]] const Ricerca& ricerca() const { return *domanda.ricerca; }
    /// What the result calls itself, else the search's title.
    [[nodiscard]] std::string_view titolo() const;
    [[nodiscard]] bool prodotta() const;
};

/// What an answer is of, line by line, as files and terminals tell it: "Ricerca", "Ruote", "Concorsi" … with
/// their values. Its title alone for a search without a scope.
struct VoceAmbito {
    std::string_view nome;
    std::string valore;
};
[[nodiscard]] std::vector<VoceAmbito> voci_ambito(const Risposta& risposta);

/// What stands beside every result of the demonstration archive.
inline constexpr std::string_view kArchivioSimulato = "Archivio simulato";

}  // namespace sortimetra
