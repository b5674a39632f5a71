#pragma once

#include "catalogue/ricerche.h"
#include "draws/ambito.h"
#include "draws/archivio.h"
#include "results/risposta.h"
#include "results/risultato.h"
#include "statistics/famiglie.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra::prove {

/// A tiny archive written the way a player would: one row a line, "CONCORSO RUOTA n1 n2 n3 n4 n5", ruota a
/// code or "NZ", a number "-" for an empty cell. Draw c is dated c - 1 days after 1 January 2000, unless the
/// line begins with a date "yyyy-mm-dd" before the concorso.
[[nodiscard]] ArchivioEstrazioni da_testo(std::string_view testo);

/// SuperEnalotto: "CONCORSO n1..n6 jolly superstar"; Win for Life: "CONCORSO ora n1..n10". Lotto rows may be
/// given beside them, since the range of every game but Win for Life ends at the Lotto's last concorso.
[[nodiscard]] ArchivioEstrazioni da_testi(std::string_view lotto, std::string_view superenalotto,
                                          std::string_view winforlife);

/// A random archive of all games from a seed: sometimes with missing wheels, empty cells, gaps in the
/// concorsi, few draws, one draw or none.
[[nodiscard]] ArchivioEstrazioni archivio_casuale(std::uint32_t seme);

/// A random scope (wheels of every kind, range, calendar, hour) for the same seed's archive.
[[nodiscard]] AmbitoRicerca ambito_casuale(std::uint32_t seme);

/// A question with the given scope and nothing else chosen. A key that is in no row leaves the question
/// without one: for functions that are called directly and do not look at it.
[[nodiscard]] Domanda domanda(std::string_view chiave, AmbitoRicerca ambito = {});

/// The answer to a question; `cartella` is the program's folder, for a search that reads a file of the
/// user's.
[[nodiscard]] Risposta rispondi(Domanda domanda, const ArchivioEstrazioni& archivio,
                                const std::filesystem::path& cartella = {});
/// Its result alone.
[[nodiscard]] Risultato esegui(Domanda domanda, const ArchivioEstrazioni& archivio,
                               const std::filesystem::path& cartella = {});
/// A made-up answer of the search of the 90 numbers, to be written or printed.
[[nodiscard]] Risposta risposta_da(Risultato risultato);

/// What message boxes would say.
[[nodiscard]] std::vector<std::string> messaggi(const Risultato& risultato);

/// The folder of what is shipped beside the programs: a program's folder with its list of cinquine.
[[nodiscard]] std::filesystem::path cartella_dati();
/// The family of a search; null if the search measures none. Its members, also those that stand in a file.
[[nodiscard]] const Famiglia* famiglia(std::string_view chiave);
[[nodiscard]] SerieCorrente serie(const Famiglia& famiglia);

/// The row of the first table whose first cell is `prima`, its cells joined by blanks; "" if there is none.
[[nodiscard]] std::string riga(const Risultato& risultato, std::string_view prima);
/// All rows of a table, cells joined by blanks, one line each.
[[nodiscard]] std::string righe(const Tabella& tabella);

/// The folder shared with the project (real draws under archivio/, worked examples under examples/), where
/// it exists.
[[nodiscard]] std::optional<std::filesystem::path> cartella_condivisa();

/// The real archive read from the published files, once per process; null where they are not there.
[[nodiscard]] const ArchivioEstrazioni* archivio_vero();

/// A fresh, empty folder under the system's temporary folder, removed with everything in it at the end.
class CartellaProva {
  public:
    CartellaProva();
    CartellaProva(const CartellaProva&) = delete;
    CartellaProva& operator=(const CartellaProva&) = delete;
    ~CartellaProva();
    [[nodiscard]] const std::filesystem::path& percorso() const { return percorso_; }

  private:
    std::filesystem::path percorso_;
};

}  // namespace sortimetra::prove
