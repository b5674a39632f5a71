#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "files/errore.h"
#include "stores/arrivi.h"
#include "stores/cambio.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sortimetra {

// The way of an update: `leggi_arrivi` (arrivi.h) reads what came, `proponi` compares it with the archive and
// says what would be done, `applica` does it. The proposal is a plain value to be shown in between; nothing
// is written before `applica`.

/// What happens to what the archive has otherwise, or has no place for.
enum class Differenze : std::uint8_t {
    elenca,      ///< it is told, and the archive keeps what it has
    sostituisci  ///< differing draws become those that arrived, missing older ones go in between
};

/// How an update is meant.
struct ModoAggiorna {
    Data oggi{};  ///< no draw is later than this day
    Differenze differenze = Differenze::elenca;
};

/// One draw as it stands, or would stand, in the archive.
struct EstrazioneDetta {
    Concorso concorso{};
    Data data{};
    std::string ora{};  ///< of Win for Life, else ""
};

/// A draw (of the Lotto: a wheel of a draw) that the archive has otherwise.
struct EstrazioneDiversa {
    EstrazioneDetta estrazione;
    std::string ruota;        ///< code of the wheel, "NZ" for NAZIONALE; "" in the other games
    std::string in_archivio;  ///< "01.02.03.04.05", "manca" where the archive has no row
    std::string arrivata;     ///< the same of what arrived
};

/// Draws that ought to stand between two that follow each other.
struct Lacuna {
    EstrazioneDetta dopo;   ///< the draw before the gap
    EstrazioneDetta prima;  ///< the one behind it
    int circa = 0;          ///< how many are missing, by the calendar or by the concorsi
};

/// What was found of one game.
struct PropostaGioco {
    Gioco gioco = Gioco::lotto;
    /// The archive's last draw before the update; nothing where there is none (or only simulated ones).
    std::optional<EstrazioneDetta> ultima{};
    std::vector<EstrazioneDetta> nuove{};      ///< go in, with the concorso that they get
    std::vector<EstrazioneDiversa> diverse{};  ///< listed; replaced with `Differenze::sostituisci`
    /// Older than the archive's last draw, not in it, and without a free number there: only
    /// `Differenze::sostituisci` puts them in (then they stand in `nuove`), which gives all later draws
    /// higher concorsi. `concorso` is the one they would get.
    std::vector<EstrazioneDetta> fuori_posto{};
    /// SuperEnalotto draws of days for which the Lotto, by which they are numbered, is not there yet.
    std::vector<EstrazioneDetta> in_attesa{};
    std::size_t uguali = 0;      ///< arrived and stand in the archive alike
    std::size_t precedenti = 0;  ///< before the archive's first draw: left out, as an import leaves them out
    std::vector<Lacuna> lacune{};  ///< round the new draws
    bool rinumera = false;         ///< later draws of the archive get other concorsi
};

/// A file of the archive as it was when the proposal was made.
struct ImprontaFile {
    std::filesystem::path file;
    std::uintmax_t grandezza = 0;
    std::filesystem::file_time_type scritto{};
    bool operator==(const ImprontaFile&) const = default;
};

/// What an update would do: a value to show.
struct Proposta {
    ModoAggiorna modo;
    std::vector<TestoArrivato> testi{};  ///< what arrived
    std::vector<PropostaGioco>
        giochi{};  ///< those of which something arrived: Lotto, SuperEnalotto, Win for Life
    std::vector<std::string> avvisi{};  ///< remarks, one Italian sentence each
    /// The archive is read from Jet files: all their draws go into the native store first, and they stay as
    /// they are.
    bool da_jet = false;
    /// The demonstration archive gives way to the whole history, all of it: simulated draws never stand
    /// beside real ones.
    bool sostituisce_simulato = false;

    // What `applica` needs; nothing here is to be shown.
    NuovoArchivio nuovo{};
    std::vector<ImprontaFile> visti{};

    /// Nothing would be written.
    [[nodiscard]] bool niente_di_nuovo() const;
    /// Something arrived that does not go in unless it is asked for: differing or displaced draws, or such
    /// as wait for the Lotto.
    [[nodiscard]] bool qualcosa_resta_fuori() const;
};

/// Compares with the archive in `percorso_archivio`. An error where nothing could be done at all: newest
/// lines without an archive, or beside a simulated one ("serve la storia intera"), a draw of the future, an
/// archive that cannot be read.
///
/// Numbering: a Lotto or Win for Life draw newer than the last takes the next concorso, the archive's
/// numbering stands. An older one goes in where concorsi are free for exactly the draws that lack there. A
/// SuperEnalotto draw takes the concorso of the Lotto draw of its date, or as an import does the nearest free
/// one within five days.
[[nodiscard]] std::expected<Proposta, ErroreArchivio> proponi(const std::filesystem::path& percorso_archivio,
                                                              const Arrivate& arrivate,
                                                              const ModoAggiorna& modo,
                                                              Avanzamento& avanzamento);

/// Does what the proposal says, all or nothing, with one lock for all who write the archive; the archive
/// before it is kept and comes back with `importa --annulla`. An error if the archive is not any more the one
/// that the proposal was made for; then propose again. A proposal with `niente_di_nuovo` writes nothing.
[[nodiscard]] std::expected<void, ErroreArchivio> applica(const std::filesystem::path& percorso_archivio,
                                                          const Proposta& proposta, Avanzamento& avanzamento);

/// The proposal in Italian, a line each: what arrived, new draws with their dates, equal ones, differing
/// ones, gaps. The command line prints it, a window may show it.
[[nodiscard]] std::vector<std::string> racconta(const Proposta& proposta);

}  // namespace sortimetra
