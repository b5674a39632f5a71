#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "printing/rapporto.h"
#include "results/domanda.h"
#include "results/risultato.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace sortimetra {

enum class Gioco : std::uint8_t { lotto, superenalotto, dieci_e_lotto, win_for_life, sistemi };

/// The screen that hosts a search.
enum class Schermo : std::uint8_t {
    stat,           ///< Form_stat
    posizione,      ///< Form_posizione
    tab_pos,        ///< form_tab_pos
    tab_pos_wfl,    ///< form_tab_posWFL
    tab_pos2,       ///< form_tab_pos2
    segnalimite,    ///< FrameSegnalimite of the catalogue window
    spia,           ///< form_spia
    som_dis_ciclo,  ///< Form_som_dis_ciclo
    lunghette,      ///< Form_lunghette
    lunghette10,    ///< Form_lunghette10Lotto
    lunghette_wfl,  ///< Form_lunghetteWFL
    lunghette5,     ///< Form_Lunghette5
    personali,      ///< Form_Personali
    gruppi2,        ///< Form_Gruppi2
    piramide,       ///< Form_Piramide
    filtri,         ///< Form_filtri
    ultimi,         ///< Form_Ultimi
    scommesse,      ///< Form_scommesse
    nessuno,        ///< reached from the command line alone
};

/// What a search takes beside the scope, one bit each; the command line refuses any other option.
enum Opzione : unsigned {
    kOpzTipo = 1U << 0U,          ///< `ComboRit`: ambata, ambo
    kOpzCapogioco = 1U << 1U,     ///< one capo
    kOpzAmboCapo = 1U << 2U,      ///< two capi
    kOpzTutteLeRuote = 1U << 3U,  ///< the wheel-by-wheel table of a series
    kOpzSchedina = 1U << 4U,      ///< a grid row goes to the slip program
    kOpzEstratto = 1U << 5U,      ///< place 1 to 5 of the drawn number
    kOpzConcorso = 1U << 6U,      ///< the concorso box of the boards
    kOpzPagina = 1U << 7U,        ///< page 1 or 2 of the best delays
    kOpzIndiceCombo = 1U << 8U,   ///< `ComboRit` as the statistics screen left it
    kOpzNumeri = 1U << 9U,        ///< numbers that the user brings
    kOpzSorte = 1U << 10U,        ///< numbers per combination of a decomposition
    kOpzTipoTerno = 1U << 11U,    ///< beside `kOpzTipo`: `ComboRit` has terno too
};

using FunzioneRicerca = Risultato (*)(const ArchivioEstrazioni&, const Domanda&, Avanzamento&);

/// One row of the dispatch table: all that the desktop, the command line, `elenco` and the tests need to know
/// of a search. Adding a search is a row here and a function in its room.
struct Ricerca {
    std::string_view chiave{};  ///< lower case: what a list entry's name becomes
    std::string_view titolo{};  ///< the screen's caption and the result's title
    Gioco gioco = Gioco::lotto;
    Schermo schermo = Schermo::stat;
    unsigned tabelle = 0;              ///< archive tables that it walks (apertura.h); 0 needs no archive
    unsigned opzioni = 0;              ///< bits of `Opzione`
    FunzioneRicerca esegui = nullptr;  ///< null until the search is built: listed, but disabled
    std::string_view frase{};          ///< what it counts, in one sentence for the user
    std::string_view tag{};            ///< the screen's mode where it differs from the key
    SelezioneRuote ruote{};            ///< wheels ticked when it opens
    /// How its result is printed.
    FunzioneRapporto rapporto = rapporto_griglia;

    [[nodiscard]] constexpr bool pronta() const { return esegui != nullptr; }
    [[nodiscard]] constexpr bool ammette(Opzione o) const { return (opzioni & o) != 0; }
};

/// The dispatch table, in the order in which keys are compared: where a key stands twice the first row wins.
[[nodiscard]] std::span<const Ricerca> ricerche();

/// The search of a list name or key, without regard to case; null if there is none.
[[nodiscard]] const Ricerca* trova_ricerca(std::string_view nome);

/// Runs a search and names its result after it. The archive must hold the tables that the row asks for.
[[nodiscard]] Risultato esegui(const Ricerca& ricerca, const ArchivioEstrazioni& archivio, Domanda domanda,
                               Avanzamento& avanzamento);

// ---- the lists of the catalogue window ----

/// A list of search names, as the user reads them.
struct Elenco {
    std::string_view nome;  ///< the group button's caption, or the tab's
    std::span<const std::string_view> voci;
};

/// A tab of the catalogue. The first has the seven groups of the Lotto, the others one list each.
struct Scheda {
    std::string_view nome;
    std::span<const Elenco> elenchi;
};

[[nodiscard]] std::span<const Scheda> schede();

/// Index of the group button that opens a screen at once instead of showing a list.
inline constexpr std::size_t kGruppoTabellaRitardi = 6;
/// The search that this button opens.
inline constexpr std::string_view kChiaveTabellaRitardi = "tabellone migliori ritardi";

}  // namespace sortimetra
