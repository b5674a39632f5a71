#pragma once

#include "results/messaggio.h"
#include "statistics/serie_corrente.h"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// The named groups of lunghette. `grup.dat` stands in the program's folder and holds any number of groups,
// three lines each: the name in quotes; L and N; the L x N numbers, lunghetta after lunghetta.

inline constexpr std::string_view kFileGruppi = "grup.dat";
/// Where the groups that are left go when one is deleted. Nothing brings them back from there.
inline constexpr std::string_view kFileGruppiRimasti = "tgrup.dat";

inline constexpr std::string_view kNessunGruppo = "Nessun gruppo di lunghette è stato ancora salvato.";
inline constexpr std::string_view kNomeInUso = "Il nome scelto è già in uso. Impossibile salvare";

/// A saved group as the list shows it.
struct VoceGruppo {
    std::string nome;
    int lunghette = 0;
    int numeri = 0;
    friend bool operator==(const VoceGruppo&, const VoceGruppo&) = default;
};

/// The groups in the order of the file.
[[nodiscard]] std::expected<std::vector<VoceGruppo>, Messaggio> elenca_gruppi(
    const std::filesystem::path& cartella);

/// The lunghette of the group of that name. The file is looked through by reading one field, then the rest of
/// its line: between two names the first number of a third line is compared too, so that a name such as "12"
/// can meet it. What stands behind must be a group, else nothing is opened.
[[nodiscard]] std::expected<SerieCorrente, Messaggio> apri_gruppo(const std::filesystem::path& cartella,
                                                                  std::string_view nome);

/// Adds a group behind the others; the first one makes the file. A name that the same walk finds is in use,
/// one with a quote, a line break or a character outside Windows-1252 is refused, and nothing is written.
[[nodiscard]] std::expected<void, Messaggio> salva_gruppo(const std::filesystem::path& cartella,
                                                          std::string_view nome, const SerieCorrente& gruppo);

/// Deletes the group at a place of the list: writes the others to `tgrup.dat`, whole, then removes
/// `grup.dat`. Until the next save there are no saved groups any more.
[[nodiscard]] std::expected<void, Messaggio> elimina_gruppo(const std::filesystem::path& cartella,
                                                            std::size_t posto);

}  // namespace sortimetra
