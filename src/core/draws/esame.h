#pragma once

#include "draws/archivio.h"
#include "draws/cursore.h"
#include "files/errore.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// What the draws themselves say of the archive that holds them, whatever store or text they came from. Some
// things cannot be true of draws (a number twice on a wheel, dates that run back): that is damage, and an
// archive that has it gives wrong answers. Others are allowed and only worth knowing (an empty cell, a wheel
// without a row): searches skip what is not there.

/// One thing found. `concorso` to `fino`: a run of concorsi in which the same is to be said; mostly one.
struct Rilievo {
    TabellaArchivio tabella{};
    Concorso concorso = 0;
    Concorso fino = 0;
    /// What is the matter with it, without table and concorso: "ruota FI: il numero 45 …".
    std::string testo{};
    int ruota = -1;  ///< of the wheels' table, where it is about one

    /// "tabella archivio, concorso 812, ruota FI: il numero 45 …"
    [[nodiscard]] std::string frase() const;
};

/// All that was found, in the order of the tables; of each list the first `kRilieviElencati`, and how many
/// there are.
struct Esame {
    std::vector<Rilievo> danni;
    std::vector<Rilievo> avvisi;
    std::size_t quanti_danni = 0;
    std::size_t quanti_avvisi = 0;
};
inline constexpr std::size_t kRilieviElencati = 1000;

/// Goes through all draws. `oggi`, where it is given, is the day behind which no draw can lie; it is not held
/// against a simulated archive. Draws of another day than today's are a warning, not damage: the clock of the
/// machine may be wrong.
///
/// Damage: a concorso of the Lotto or of Win for Life that is missing; a concorso that another row of Win for
/// Life has with the same hour; a date that does not follow the one before it; NAZIONALE with another date
/// than the Lotto's, or SuperEnalotto more than `kGiorniVicini` days from it; a concorso that the Lotto does
/// not have; a number twice in a combination; an hour that is none.
///
/// Warnings: a wheel, NAZIONALE or SuperEnalotto without its row, from its first row on; empty cells (the
/// SuperStar from its first one on); an hour that is blank; a concorso of Win for Life with two hours; a date
/// after `oggi`.
///
/// A table that was not read is empty and says nothing; without the Lotto the others are only held to
/// themselves, and to its last concorso where that is known.
[[nodiscard]] Esame esamina(const ArchivioEstrazioni& archivio, std::optional<Data> oggi = std::nullopt);

/// The first damage with the file that has it, nothing if there is none. For every opening: on the real
/// archive it takes a quarter of a millisecond.
[[nodiscard]] std::optional<ErroreArchivio> primo_danno(const ArchivioEstrazioni& archivio);

/// Of `esamina` only the warnings about dates after `oggi`: one a table at most, at no cost.
[[nodiscard]] std::vector<Rilievo> oltre_oggi(const ArchivioEstrazioni& archivio, Data oggi);

/// Name of the table in its file, of its game, and where it was read from.
[[nodiscard]] std::string_view nome_tabella(TabellaArchivio tabella);
[[nodiscard]] std::string_view nome_gioco(TabellaArchivio tabella);
[[nodiscard]] const Fonte& fonte(const ArchivioEstrazioni& archivio, TabellaArchivio tabella);

/// A SuperEnalotto draw on a day without the Lotto belongs to a concorso at most this many days away.
inline constexpr std::chrono::days kGiorniVicini{5};

}  // namespace sortimetra
