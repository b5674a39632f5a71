#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/ricerca.h"
#include "results/risposta.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace sortimetra {

/// The dispatch table: one row per search, those of the named series made from the table of families. A key
/// stands once, every name of a list has its row, and every row that the catalogue lists its name: anything
/// else does not compile.
[[nodiscard]] std::span<const Ricerca> ricerche();

/// The search of a list name or key, without regard to case, accents and the number of blanks between words;
/// null if there is none.
[[nodiscard]] const Ricerca* trova_ricerca(std::string_view nome);

/// The options of all searches, each once, in the order of the help.
[[nodiscard]] const std::vector<const Opzione*>& opzioni_ricerche();

/// The question that a screen or a command begins with: the row, its wheels, nothing else chosen.
[[nodiscard]] Domanda domanda_intatta(const Ricerca& ricerca);

/// The archive tables that the answer to a question is made from: of those of its row no more than it takes.
/// `con_estremi`: an end of the range is still to be put into it.
[[nodiscard]] unsigned tabelle_lette(const Domanda& domanda, bool con_estremi);

/// Runs a search: reads what it needs from the program's folder, then the draws. The archive must hold the
/// tables that the question asks for.
[[nodiscard]] Risposta rispondi(Domanda domanda, const ArchivioEstrazioni& archivio,
                                const std::filesystem::path& cartella, Avanzamento& avanzamento);

/// What a question is of, as reports and files tell it; nothing for a search that needs no archive.
[[nodiscard]] std::optional<AmbitoDetto> ambito_detto(const Domanda& domanda,
                                                      const ArchivioEstrazioni& archivio);

// ---- the lists of the catalogue window ----

/// A list of search names, as the user reads them.
struct Elenco {
    std::string_view nome;  ///< the group button's caption, or the tab's
    std::span<const std::string_view> voci;
};

/// A tab of the catalogue. The first has the seven groups of the Lotto, the others one list each.
struct Scheda {
    std::string_view nome;
    std::span<const Elenco> elenchi;
};

[[nodiscard]] std::span<const Scheda> schede();

/// Index of the group button that opens `nomi::kMiglioriRitardi` at once instead of showing a list.
inline constexpr std::size_t kGruppoTabellaRitardi = 6;

}  // namespace sortimetra
