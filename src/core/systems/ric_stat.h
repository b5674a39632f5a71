#pragma once

#include "files/errore.h"
#include "files/insieme_file.h"
#include "results/risposta.h"
#include "text/data.h"

#include <array>
#include <cstddef>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sortimetra {

// A result grid becomes the number system `ric_stat`, which the slip printing program goes on with. Its files
// keep the bytes that this program has always read: fields parted by a comma, text in double quotes, dates as
// #yyyy-mm-dd#, lines ended by CR LF.

/// Numbers of one combination in order of first appearance; slots that were not filled hold 0.
using CombinazioneSistema = std::array<int, 10>;

/// A system on its way to disk. All its files share the base `cartella` / `nome_file_sistema`, where
/// `cartella` is the program's folder.
struct Sistema {
    std::string nome_file_sistema;  ///< "ambo/ric_stat"
    std::string lettera_sistema;    ///< "a" to "d", or "f" for six and more numbers
    std::size_t k = 0;              ///< numbers per line, 2 to 10; that of the first combination
    std::vector<CombinazioneSistema> combinazioni;
};

/// The system of an answer's grid: every data row is a combination, in the order of writing. Nothing for a
/// grid that has no slips.
[[nodiscard]] std::optional<Sistema> sistema_da_griglia(const Risposta& risposta);

/// The numbers of a row as a system takes them: equal ones take one slot, an eleventh none.
[[nodiscard]] CombinazioneSistema combinazione_sistema(std::span<const Numero> numeri);

// The five routines, in the order in which `scrivi_schedina` runs them. What they write and remove happens
// together in the end: a full disk leaves the system that was there.

/// Marks the system as in unregistered development (".nn") and removes what an earlier one left.
void azzera_files_sistema(InsiemeFile& insieme, const std::filesystem::path& cartella,
                          const Sistema& sistema);
/// "in": how many different numbers the system uses, then one a line, ascending.
void scrivi_numeri_sistema(InsiemeFile& insieme, const std::filesystem::path& cartella,
                           const Sistema& sistema);
/// The marker again, an empty "sy", and neither ".rr" nor the slip program's scratch file.
void prepara_sistema(InsiemeFile& insieme, const std::filesystem::path& cartella, const Sistema& sistema);
/// "nu": the date, and the number of combinations twice. Without combinations a ".rr" that is still there is
/// removed and the message on it returned; after `prepara_sistema` there is none, so no user has seen it.
[[nodiscard]] std::optional<std::string> scrivi_conteggio_sistema(InsiemeFile& insieme,
                                                                  const std::filesystem::path& cartella,
                                                                  const Sistema& sistema, Data oggi);
/// "sy": a line of k numbers per combination.
void scrivi_sistema(InsiemeFile& insieme, const std::filesystem::path& cartella, const Sistema& sistema);

/// What the hand-over left.
struct Consegna {
    std::string file;  ///< base path of the system relative to the program's folder
    bool programma_aperto =
        false;  ///< the slip program runs already ("sch" is there): "trans" was not written
};

/// Whether an answer's grid can be handed over at all: not one of single numbers, nor one whose rows name
/// more numbers than a slip has room for, nor the table of all wheels.
[[nodiscard]] bool ammette_schedina(const Risposta& risposta);

/// Writes the system `ric_stat` of the whole grid, as it stood before any sorting, and the file "trans" that
/// names it to the slip program: all of them or none, and "trans" never beside half of the others. Folders
/// are made as needed. Nothing is started.
[[nodiscard]] std::expected<Consegna, ErroreArchivio> scrivi_schedina(const std::filesystem::path& cartella,
                                                                      const Risposta& risposta, Data oggi);

}  // namespace sortimetra
