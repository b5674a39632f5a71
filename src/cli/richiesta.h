#pragma once

#include "catalogue/ricerche.h"
#include "chance/per_ruota.h"
#include "results/domanda.h"
#include "stores/importa.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// How a table leaves the program.
enum class Formato : std::uint8_t { Tabella, Csv, Json, Xlsx };

/// `--da` or `--a`: a concorso, or a date that becomes one once the archive is open.
struct EstremoTratto {
    std::optional<Concorso> concorso;
    std::optional<Data> data;
};

/// A command line that has been read: every option as a value.
struct Richiesta {
    std::vector<std::string> argomenti;  ///< what stands after the command and is no option
    std::string aiuto_di{};              ///< what a pointer to the help names: "ricerca 'cadenze'"
    const Ricerca* ricerca = nullptr;  ///< the search of `ricerca` and `stampa`, set before options are read
    Domanda domanda;
    std::optional<std::filesystem::path> cartella;
    std::optional<std::filesystem::path> file;  ///< `-o`; "-" is standard output
    std::optional<Formato> formato;             ///< none: what the ending of `-o` says, else the table
    bool json = false;
    bool esame = false;  ///< `archivio --esame`
    EstremoTratto da;
    EstremoTratto a;
    bool senza_ruote = false;  ///< `--ruote nessuna`
    // What is printed of the first table, as typed: titles are known once the search has run.
    std::optional<std::string> ordina;
    std::optional<std::string> dove;
    std::optional<std::string> colonne;
    bool intestazione = false;
    std::optional<std::size_t> prime;
    std::optional<int> sistema;   ///< the kind of saved systems that `sistemi` lists
    std::optional<int> schedina;  ///< 1-based grid row whose system is handed to the slip program
    FilePubblicati pubblicati;
    bool senza_copia = false;
    std::optional<std::filesystem::path> jet;  ///< `importa --jet`: the folder of the old files
    std::optional<std::string> indirizzo;      ///< `aggiorna --indirizzo`
    bool prova = false;                        ///< `aggiorna --prova`: only says what it would do
    bool annulla = false;  ///< `importa --annulla`: no file, the archive before the last change
    // What is added to the tables.
    bool caso = false;
    bool per_ruota = false;
    std::optional<MisuraRuote> misura;
    /// A sheet shows one table: what is added comes into the first, as on a screen.
    bool su_carta = false;
    std::optional<std::filesystem::path> grafico;
    bool aiuto = false;
    bool versione = false;
};

/// The commands, one bit each: which of them know an option.
enum Comandi : unsigned {
    kComElenco = 1U << 0U,
    kComRicerca = 1U << 1U,
    kComArchivio = 1U << 2U,
    kComImporta = 1U << 3U,
    kComDimostrazione = 1U << 4U,
    kComGruppi = 1U << 5U,
    kComSistemi = 1U << 6U,
    kComStampa = 1U << 7U,
    kComAggiorna = 1U << 8U,
    kComStoria = 1U << 9U,
    kOgniComando = ~0U,
};

/// One option of a command: what the parser, the errors and the help know of it. Those of a search stand in
/// its row of the dispatch table.
struct VoceOpzione {
    std::string_view nome;      ///< "--ruote"
    std::string_view meta{};    ///< what follows it in the help, "ELENCO"; empty for a switch
    std::string_view atteso{};  ///< what it takes, as an error says it: "tabella|csv|json"
    std::string_view frase{};   ///< what it does, for the help
    unsigned comandi = 0;       ///< bits of `Comandi`
    std::span<const std::string_view> parole{};  ///< the words that it takes, for near misses
    bool (*ammessa)(const Ricerca&) = nullptr;   ///< the searches that know it; null for all
    /// Puts the value (empty for a switch) in its place; false if it is none.
    bool (*leggi)(std::string_view valore, Richiesta& richiesta) = nullptr;
    /// Says in place of `atteso` what a value that is none should have been: a whole sentence.
    std::string (*spiega)(std::string_view valore, const Richiesta& richiesta) = nullptr;
};

/// For the predicates of lists: an option that every command has.
[[nodiscard]] inline bool di_ogni_comando(const VoceOpzione& voce) {
    return voce.comandi == kOgniComando;
}

/// The options of the commands, in the order of the help.
[[nodiscard]] std::span<const VoceOpzione> opzioni();

/// Whether a command (and, for those that run one, a search) knows an option.
[[nodiscard]] bool conosce(const VoceOpzione& voce, unsigned comando, const Ricerca* ricerca);

/// An option as it stood on the line.
struct OpzioneData {
    std::string nome;
    std::optional<std::string> valore;
};

/// The words of a command line, told apart but not yet understood.
struct Parole {
    std::vector<std::string> argomenti;
    std::vector<OpzioneData> date;
};

/// Tells options from arguments. "--nome valore", "--nome=valore", "-o FILE"; after "--" nothing is
/// an option any more. The error is a sentence about an option that lacks its value, or has one too many.
[[nodiscard]] std::expected<Parole, std::string> separa(std::span<const std::string> parole);

/// Reads the options into `richiesta`, whose `ricerca` is already set. The error is a sentence for the user.
[[nodiscard]] std::expected<void, std::string> leggi_opzioni(const Parole& parole, unsigned comando,
                                                             std::string_view nome_comando,
                                                             Richiesta& richiesta);

}  // namespace sortimetra
