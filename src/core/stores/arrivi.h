#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/gioco.h"
#include "files/errore.h"
#include "stores/apertura.h"

#include <chrono>
#include <cstddef>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// Draws that arrived from outside: a file, the clipboard, standard input, a download. Whole histories or
/// only the newest lines, in one of the three published forms (pubblicati.h); plain, gzip or zip.
struct Arrivo {
    std::string nome;  ///< as messages call it: the file as typed, "appunti", an address
    std::string byte;
};

/// No arrival is larger than this, as it comes and once it is unpacked: twenty times the whole history.
inline constexpr std::size_t kArrivoMassimo = std::size_t{50} << 20U;

/// Reads a file that may be dropped on a window or named on the command line. "-" is standard input.
[[nodiscard]] std::expected<Arrivo, ErroreArchivio> leggi_arrivo(const std::filesystem::path& file);

/// How far a transfer goes.
struct ModoScarico {
    std::size_t massimo = kArrivoMassimo;
    std::chrono::milliseconds tempo{60'000};  ///< for all of it
    /// Certificates of the authorities to be believed, PEM; empty: those of the system, as it is always but
    /// for a server within the house.
    std::string autorita{};
};

/// Fetches a published file by its address: over HTTPS only, also where the server sends us elsewhere, with
/// its certificate checked. It goes into a temporary that has no name and comes back as a file would.
/// `avanzamento` counts bytes.
[[nodiscard]] std::expected<Arrivo, ErroreArchivio> scarica_arrivo(const std::string& indirizzo,
                                                                   Avanzamento& avanzamento,
                                                                   const ModoScarico& modo = {});

/// What one text turned out to be.
struct TestoArrivato {
    std::string nome;  ///< of the arrival; in a zip followed by the name within, "storico.zip: lotto.txt"
    Gioco gioco = Gioco::lotto;
    std::size_t estrazioni = 0;
    Data prima{};
    Data ultima{};
};

/// The draws of all arrivals, read and checked but not numbered: `concorso` stays 0. Who has draws without a
/// text (typed by hand) fills `righe`, and `testi` with one entry a game that says where from.
struct Arrivate {
    /// By date (and wheel, and hour), no draw twice. NAZIONALE stands among the wheels of `lotto`, as it is
    /// published; `nazionale` stays empty.
    RigheArchivio righe;
    /// Bits of `Tabelle`: games of which the whole history is here, so that an archive could be begun with
    /// it. For the Lotto it holds the draw that the numbering hangs on; the other texts have their title
    /// line.
    unsigned intere = 0;
    std::vector<TestoArrivato> testi;
    std::vector<std::string> avvisi;  ///< what was passed over: a file in a zip that is no text of draws
};

/// Which game a text is of, by its first line with something in it: nothing where it is none of the three.
[[nodiscard]] std::optional<Gioco> riconosci_gioco(std::string_view testo);

/// Unpacks (all together to `kArrivoMassimo` bytes an arrival), tells the games apart by the content, reads.
/// Lines may stand in any order; what stands in two arrivals counts once. The first thing that cannot be read
/// ends it, with arrival, line and reason in the error; so does a draw that two arrivals tell differently,
/// and a number twice in a wheel.
[[nodiscard]] std::expected<Arrivate, ErroreArchivio> leggi_arrivi(std::span<const Arrivo> arrivi,
                                                                   Avanzamento& avanzamento);

}  // namespace sortimetra
