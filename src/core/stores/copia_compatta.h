#pragma once

#include "draws/archivio.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

// The packed copy of a store: its tables as the program holds them in memory, in a file that is mapped and
// checked at the next opening instead of being read row by row. It stands beside the store
// (".drawit.db.cache"), or in the user's cache folder where nothing can be written beside it.
//
// It is never trusted. It names the store and the state in which that was read, and carries a checksum of all
// of it; one that does not fit in any point is as good as none. What it gives is what the store would give,
// or nothing; no failure here is an error of anybody's.

/// A moment of the system's clock since 1970.
struct Istante {
    std::int64_t s = 0;
    std::int64_t ns = 0;
    friend bool operator==(const Istante&, const Istante&) = default;
};

/// A store in the state in which it was read. Whoever changes a store changes this.
struct IdentitaNegozio {
    std::uint64_t dispositivo = 0;
    std::uint64_t inode = 0;
    std::uint64_t grandezza = 0;
    /// When its content was written, and when anything of it was changed last: the second is the system's own
    /// and nobody can set it back.
    Istante scritto{};
    Istante cambiato{};
    /// Digest of its first bytes, which in a native store hold the counter of its changes.
    std::uint64_t inizio = 0;

    friend bool operator==(const IdentitaNegozio&, const IdentitaNegozio&) = default;
};

/// The state of a store now. Nothing where no copy could stand for it: it cannot be read, or has a file of
/// changes beside it that belong to it.
[[nodiscard]] std::optional<IdentitaNegozio> identita_negozio(const std::filesystem::path& negozio);

/// Whether at `ora` a store was changed so lately that its times could not tell a further change from that
/// one.
[[nodiscard]] bool appena_cambiato(const IdentitaNegozio& identita, Istante ora);
/// The same now.
[[nodiscard]] bool appena_cambiato(const IdentitaNegozio& identita);

/// What a copy holds: the wanted tables of one store. `tabelle` are bits of `Tabelle`; of the Lotto's rows
/// and its ends it has one.
struct ContenutoCopia {
    unsigned tabelle = 0;
    bool simulato = false;
    TabelleArchivio contenuto{};
};

/// How the bytes of a copy are held. A program that lives long keeps its own: a mapped file that somebody
/// cuts or writes over in its place would take the numbers away from under it.
enum class Tenuta : std::uint8_t { mappata, propria };

/// The copy of a store in that state: the one that has all of `tabelle`, else one that fits, else nothing.
[[nodiscard]] std::optional<ContenutoCopia> leggi_copia(const std::filesystem::path& negozio,
                                                        const IdentitaNegozio& identita, unsigned tabelle,
                                                        Tenuta tenuta);

/// Makes the copy anew, whole or not at all. False where it can be written in neither place.
bool scrivi_copia(const std::filesystem::path& negozio, const IdentitaNegozio& identita,
                  const ContenutoCopia& contenuto);

/// Where a store's copy stands: beside it, or in the user's cache folder.
[[nodiscard]] std::filesystem::path copia_accanto(const std::filesystem::path& negozio);
[[nodiscard]] std::filesystem::path copia_in_disparte(const std::filesystem::path& negozio);

// ---- its bytes ----

/// The file as it is written.
[[nodiscard]] std::string byte_copia(const IdentitaNegozio& identita, const ContenutoCopia& contenuto);

/// The tables in the bytes of a file; nothing unless all of it fits. They view `byte`, which `custode` keeps.
[[nodiscard]] std::optional<ContenutoCopia> interpreta_copia(std::span<const std::byte> byte,
                                                             const IdentitaNegozio& identita,
                                                             Custode custode);

/// The checksum that a file of these bytes would have to carry, and where in it; for the tests of what comes
/// behind the checksum.
inline constexpr std::size_t kPostoSomma = 24;
[[nodiscard]] std::uint64_t somma_copia(std::span<const std::byte> byte);

}  // namespace sortimetra
