#pragma once

#include "chance/legge.h"
#include "draws/percorso.h"
#include "results/risposta.h"
#include "results/risultato_fwd.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// What chance alone would give, beside what is: six columns for a table whose rows measure one event each,
// and the sentences under it.

/// The columns that stand behind the first one of the answer, in this order.
enum class ColonnaCaso : std::uint8_t { attesa, scarto, ritardo, probabilita, in_tabella, record_atteso };
inline constexpr std::array<std::string_view, 6> kTitoliCaso{"Attesa",      "Scarto",     "Ritardo",
                                                             "Probabilità", "In tabella", "Record atteso"};

/// Where a table of measures has its three measures; nothing where one is missing.
struct ColonneMisure {
    std::size_t frequenza = 0;
    std::size_t ritardo = 0;
    std::size_t storico = 0;
};
[[nodiscard]] std::optional<ColonneMisure> colonne_misure(const Tabella& tabella);

/// Whether the rows of a table measure one event each (with a frequency and a delay): those alone can be held
/// against chance.
[[nodiscard]] bool misura_eventi(const Tabella& tabella);
/// The same of an answer's first table.
[[nodiscard]] bool misura_eventi(const Risposta& risposta);

/// The table "caso": the first column of `tabella`, then `kTitoliCaso`, in the same row order. Columns are
/// typed so that each sorts by its values, not by its texts; row r of it is row r of `tabella`. Empty cells:
/// a row without an event has none but its first; a delay below 0 or that is no number has no
/// "Probabilità" and no "In tabella"; a frequency that cannot vary has no "Scarto".
/// `tabella` measures events.
[[nodiscard]] Tabella tabella_caso(const Tabella& tabella, Percorso percorso);

/// What chance makes of one measured event, as `tabella_caso` tells it in texts; the column "Ritardo" is
/// left to who knows how it is shown. `in_tabella` is asked about `m` such events.
struct TestiCaso {
    std::string attesa{}, scarto{}, probabilita{}, in_tabella{}, record_atteso{};
};
[[nodiscard]] TestiCaso testi_caso(const Legge& legge, Percorso percorso, std::int32_t frequenza,
                                   std::optional<std::int32_t> ritardo, std::int64_t m);

/// The row whose delay chance gives most rarely (the first of equals), read aloud: "67 manca da 152 concorsi:
/// succede per caso a uno dei 90 numeri circa una volta su 66." "" where no row has a delay.
[[nodiscard]] std::string frase_insolita(const Tabella& tabella, Percorso percorso);

/// How even the frequencies of all numbers of a game are, by chi-squared: "le frequenze sono quelle del caso
/// (p = 0,43)". Only for a table that has every number of the game once, in any of the places; "" for others.
[[nodiscard]] std::string frase_chi_quadro(const Tabella& tabella);
/// The p-value behind it: how often chance alone gives frequencies as uneven as these or more. The numbers of
/// a row come without being put back, so the usual statistic is taken times (N - 1) / (N - K).
[[nodiscard]] std::optional<double> p_chi_quadro(const Tabella& tabella);

// ---- texts ----

/// Three significant digits, half away from zero: 0.000169 gives "0,0169%", 0.154 "15,4%", 1 "100%". What is
/// less than one in 10^14 is "<0,000000000001%".
[[nodiscard]] std::string testo_percentuale(double probabilita);
/// Two decimals and always a sign: "+1,23", "-0,40", "0,00".
[[nodiscard]] std::string testo_scarto(double scarto);

}  // namespace sortimetra
