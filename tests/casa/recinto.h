#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra::casa {

// The rules of the house that no compiler knows. Each takes source texts and says what breaks it, one line
// per finding; an empty answer is a sound house. They read texts, not folders, so that each can be shown a
// house that breaks it.

struct Sorgente {
    std::string percorso;  ///< from the root of the project: "src/core/text/data.h"
    std::string testo;
};
using Sorgenti = std::vector<Sorgente>;
using Rilievi = std::vector<std::string>;

/// The C++ files below a folder of the project, by path.
[[nodiscard]] Sorgenti leggi_sorgenti(const std::filesystem::path& radice, std::string_view cartella);

/// The room of a file: "core/text", "stampa", "desktop/screens", "cli". Empty for a file outside of `src/`.
[[nodiscard]] std::string stanza(std::string_view percorso);

/// Includes that go up or across: a room knows itself and the rooms on lower floors. Also files in a room
/// that has no floor yet, and an include that two rooms could answer.
[[nodiscard]] Rilievi inclusioni_vietate(const Sorgenti& sorgenti);

/// Pairs of rooms that include each other, whatever their floors.
[[nodiscard]] Rilievi stanze_a_vicenda(const Sorgenti& sorgenti);

/// Headers of Qt, or of what is built on it, in the core, the command line or the Jet reader.
[[nodiscard]] Rilievi qt_dove_non_deve(const Sorgenti& sorgenti);

/// Which test file stands in for the mirror of a core file: one may cover several.
using Coperture = std::map<std::string, std::string, std::less<>>;

/// Files `src/core/ROOM/NAME.cpp` without `tests/core/ROOM/test_NAME.cpp`. Where `coperture` names another
/// test file, that one must include the header of what it covers, and the mirror itself must not be there.
[[nodiscard]] Rilievi senza_specchio(const Sorgenti& sorgenti, const Sorgenti& prove,
                                     const Coperture& coperture);

/// Types of one full name that two files define: with external linkage the program is undefined, and the
/// linker does not say so. A type of an unnamed namespace is its file's own and may have namesakes there, but
/// not one that other files know.
[[nodiscard]] Rilievi tipi_doppi(const Sorgenti& sorgenti);

}  // namespace sortimetra::casa
