#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "draws/dieci_e_lotto.h"
#include "draws/gioco.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/nome.h"
#include "results/opzione.h"
#include "results/risultato_fwd.h"

#include <algorithm>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

struct Famiglia;
struct MaterialeRapporto;
struct Rapporto;

using FunzioneRicerca = Risultato (*)(const ArchivioEstrazioni&, const Domanda&, Avanzamento&);
/// How the report of one kind of search is made (printing/rapporto.h).
using FunzioneRapporto = Rapporto (*)(const MaterialeRapporto&);
/// Reads what a search needs from the user's files (`cartella` is the program's folder) into the parameters.
/// The error is the message with which the search does not start.
using FunzioneCarica = std::expected<void, Messaggio> (*)(const std::filesystem::path& cartella,
                                                          Domanda& domanda);

/// Why a question is none, where that takes more than one option to see; nothing if it can be asked. The
/// sentence names the option, what it got and what it takes.
using FunzioneControlla = std::optional<std::string> (*)(const Domanda&);

/// Where the user finds a search.
enum class Dove : std::uint8_t {
    negli_elenchi,  ///< in a list of the catalogue, or behind its button
    fuori_elenco,   ///< by its name alone, in the box over the lists
    solo_comandi    ///< from the command line alone
};

/// One row of the dispatch table: all that the desktop, the command line, `elenco` and the tests need to know
/// of a search. It says what the search is; which screen hosts it is the desktop's own affair.
struct Ricerca {
    NomeRicerca nome{};
    Gioco gioco = Gioco::lotto;
    unsigned tabelle = 0;  ///< archive tables that it walks (stores/apertura.h); 0 needs no archive
    Opzioni opzioni{};     ///< what it takes beside the scope
    FunzioneRicerca esegui = nullptr;       ///< null until the search is built: listed, but disabled
    FunzioneCarica carica = nullptr;        ///< null where nothing but the archive is read
    FunzioneControlla controlla = nullptr;  ///< null where each option stands by itself
    std::string_view frase{};               ///< what it counts, in one sentence for the user
    SelezioneRuote ruote{};                 ///< wheels ticked when it opens
    FunzioneRapporto rapporto = nullptr;    ///< how its result is printed; null: as a grid of measures
    const Famiglia* famiglia = nullptr;     ///< the named series that it measures
    bool schedine = false;                  ///< its grid can be handed to the slip program
    Dove dove = Dove::negli_elenchi;        ///< how the user comes to it
    /// Each row of its grid measures one event, with a frequency and a delay: it can be held against chance.
    bool un_evento = false;
    /// How a search of 10eLotto walks the draws.
    PassoDieciELotto passo = PassoDieciELotto::concorso;
    Gioco (*gioco_scelto)(const Domanda&) = nullptr;  ///< null where `gioco` is the game

    [[nodiscard]] constexpr std::string_view chiave() const { return nome.chiave; }
    [[nodiscard]] constexpr std::string_view titolo() const { return nome.titolo; }
    /// The game that a question of this row asks about: where the user chooses it, the choice tells.
    [[nodiscard]] Gioco gioco_di(const Domanda& domanda) const {
        return gioco_scelto == nullptr ? gioco : gioco_scelto(domanda);
    }
    [[nodiscard]] constexpr bool pronta() const { return esegui != nullptr; }
    [[nodiscard]] bool ammette(const Opzione& o) const {
        return std::find(opzioni.begin(), opzioni.end(), &o) != opzioni.end();
    }
};

}  // namespace sortimetra
