#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/messaggio.h"
#include "results/risultato_fwd.h"
#include "statistics/serie_corrente.h"

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

inline constexpr std::string_view kGruppoIncompleto = "Completare l'inserimento del gruppo da analizzare.";

/// What is asked of a group.
struct AnalisiGruppo {
    const SerieCorrente& gruppo;  ///< must outlive the analysis
    int sorte = 1;                ///< numbers of one lunghetta that make a draw a positive outcome
    std::optional<int> entro{};   ///< draws of which the probability is asked
};

/// Walks the draws in scope: a wheel's row with at least `sorte` numbers of a lunghetta is an outcome, one
/// for each such lunghetta. A number that stands twice in a lunghetta counts twice. Every cell counts, also
/// behind an empty first one.
///
/// Tables: "risultati" the delays between outcomes up to 1000 with their frequency, "esiti" the outcomes in
/// draw order, "lunghette" the measures of each, "sintesi" those of the group. Labels: `lblfasce`, `lblprob`.
[[nodiscard]] Risultato analisi_gruppo(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                                       const AnalisiGruppo& analisi, Avanzamento& avanzamento);

/// The same over the draws of Win for Life, ten numbers each; T is the number of records.
[[nodiscard]] Risultato analisi_gruppo_winforlife(const ArchivioEstrazioni& archivio,
                                                  const AmbitoRicerca& ambito, const AnalisiGruppo& analisi,
                                                  Avanzamento& avanzamento);

/// The measures of all combinations of `sorte` (1 to 3) numbers of one lunghetta, taken in ascending order;
/// those that never came are listed too.
[[nodiscard]] Tabella dettaglio_scomposta(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito,
                                          std::span<const Numero> lunghetta, int sorte,
                                          Avanzamento& avanzamento);

/// "(choice + current delay) x 100 / longest delay", 100 at most: "30,03%". Empty where the current delay has
/// reached the longest.
[[nodiscard]] std::string probabilita_gruppo(int entro, int ritardo, int storico);

/// Row of the most frequent delay in "risultati", the first of equal ones; nothing without outcomes.
[[nodiscard]] std::optional<std::size_t> ritardo_piu_frequente(const Tabella& ritardi);

/// "ricerche per gruppi".
[[nodiscard]] Risultato ricerche_per_gruppi(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                            Avanzamento& avanzamento);
/// Opens the saved group that the question names.
[[nodiscard]] std::expected<void, Messaggio> carica_gruppo(const std::filesystem::path& cartella,
                                                           Domanda& domanda);
/// The bet is at most the lunghetta's length, the row of the detail is there, and one group is asked for.
[[nodiscard]] std::optional<std::string> controlla_gruppo(const Domanda& domanda);

}  // namespace sortimetra
