#pragma once

#include <cstddef>
#include <limits>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

struct Richiesta;
struct Ricerca;

/// What the program tells its caller.
enum Codice : int {
    kRiuscito = 0,        ///< a result was produced
    kSenzaDati = 1,       ///< the search did not start or has no data
    kUsoErrato = 2,       ///< the line itself is wrong
    kArchivioChiuso = 3,  ///< the archive cannot be opened or is damaged
};

/// Where a command speaks.
struct Canali {
    std::ostream& uscita;
    std::ostream& errori;
    /// `errori` is a terminal with somebody in front of it: progress may be shown there.
    bool terminale = false;
    /// Columns of the terminal that `uscita` is, as many as one likes where it is none.
    std::size_t larghezza = std::numeric_limits<std::size_t>::max();
    /// `errori` for the one line that draws over itself: all else passes through there without control
    /// characters.
    std::ostream* disegno = nullptr;
};

/// What is known of the terminals at the other ends.
struct Terminale {
    bool errori = false;  ///< somebody sits in front of the channel of errors
    bool uscita = false;  ///< the output is shown, and not kept or read on
    std::size_t larghezza = std::numeric_limits<std::size_t>::max();  ///< columns of the output
};

/// One command, as `--aiuto` shows it. Adding a command is a row in comandi.cpp and a function.
struct Comando {
    std::string_view nome;
    std::string_view argomenti{};  ///< what follows the name, "CHIAVE [opzioni]"
    std::string_view frase{};      ///< what it does, for the list of commands
    std::string_view dettaglio{};  ///< further paragraphs of its own help
    unsigned bit = 0;              ///< its bit of `Comandi`
    bool parole = false;           ///< takes any words after its name
    std::string_view chiave{};     ///< the search that it runs, where the line names none
    int (*esegui)(Richiesta&, const Canali&) = nullptr;  ///< null until the command is built: not listed
};

[[nodiscard]] std::span<const Comando> comandi();

/// Runs `sortimetra-cli` with the arguments after the program's name. Returns the exit code.
int esegui_comando(const std::vector<std::string>& argomenti, std::ostream& uscita, std::ostream& errori,
                   const Terminale& terminale = {});

// ---- what the commands share ----

/// Says on `errori` why nothing was done: "sortimetra-cli: …".
void lamenta(const Canali& canali, std::string_view frase);
/// The same for a line that is wrong, with a pointer to the help. Returns `kUsoErrato`.
int uso_errato(const Canali& canali, std::string_view frase, std::string_view aiuto_di = {});
/// Writes a command's whole output at once. Returns `codice`, or `kSenzaDati` if it cannot be written.
int consegna(const Canali& canali, std::string_view testo, int codice = kRiuscito);

// ---- the commands ----

int comando_elenco(Richiesta& richiesta, const Canali& canali);
int comando_sistemi(Richiesta& richiesta, const Canali& canali);
int comando_ricerca(Richiesta& richiesta, const Canali& canali);
int comando_archivio(Richiesta& richiesta, const Canali& canali);
int comando_gruppi(Richiesta& richiesta, const Canali& canali);
int comando_importa(Richiesta& richiesta, const Canali& canali);
int comando_dimostrazione(Richiesta& richiesta, const Canali& canali);
int comando_stampa(Richiesta& richiesta, const Canali& canali);
int comando_aggiorna(Richiesta& richiesta, const Canali& canali);
/// The search that is told by its command's own row.
[[nodiscard]] const Ricerca* ricerca_propria(const Comando& comando);

}  // namespace sortimetra
