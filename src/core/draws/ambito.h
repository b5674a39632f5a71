#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

/// Shown, in every search, when no draw is left by wheels, range and calendar.
inline constexpr std::string_view kNessunaEstrazione = "Non ci sono estrazioni per l'intervallo selezionato";

/// The twelve check boxes `CheckRuota` as a value: 0 to 9 the wheels, 10 "TUTTE", 11 "NAZIONALE".
class SelezioneRuote {
  public:
    /// A new screen has Bari ticked.
    constexpr SelezioneRuote() = default;

    [[nodiscard]] static constexpr SelezioneRuote nessuna() { return SelezioneRuote{0}; }
    [[nodiscard]] static constexpr SelezioneRuote tutte() { return SelezioneRuote{1U << kTutte}; }
    [[nodiscard]] static constexpr SelezioneRuote nazionale() { return SelezioneRuote{1U << kNazionale}; }

    /// The click on one box, with what it does to the others: TUTTE and NAZIONALE stand alone, and any of the
    /// ten wheels takes both of them away.
    void clic(int casella, bool spuntata);

    [[nodiscard]] constexpr bool spuntata(int casella) const { return (caselle_ >> casella & 1U) != 0; }
    [[nodiscard]] constexpr bool e_nazionale() const { return spuntata(kNazionale); }

    /// Bits 0 to 9 of the wheels whose rows are read. With no box ticked a search runs on Bari; for NAZIONALE
    /// the mask is 0, since its rows stand in a table of their own.
    [[nodiscard]] std::uint16_t ruote_lette() const;

    /// How many wheels are chosen, 0 with no box ticked although Bari is read then: T stays 0 in that case.
    [[nodiscard]] int n_ruote() const;

    /// The chosen wheels' codes joined by `separatore`, "Tutte" for all ten; what a report's head shows.
    [[nodiscard]] std::string nomi(std::string_view separatore = ", ") const;

    friend constexpr bool operator==(SelezioneRuote, SelezioneRuote) = default;

  private:
    explicit constexpr SelezioneRuote(unsigned caselle) : caselle_{static_cast<std::uint16_t>(caselle)} {}
    std::uint16_t caselle_ = 1;
};

/// First and last concorso, both included. The default spans any archive.
struct TrattoConcorsi {
    Concorso da = 1;
    Concorso a = std::numeric_limits<Concorso>::max();

    /// Each end is brought into 1 to `ultimo` on its own; the first may stay above the last (an empty scope).
    [[nodiscard]] constexpr TrattoConcorsi riportato(Concorso ultimo) const {
        const auto stringi = [ultimo](Concorso c) { return c > ultimo ? ultimo : c < 1 ? 1 : c; };
        return {stringi(da), stringi(a)};
    }
    [[nodiscard]] constexpr bool contiene(Concorso c) const { return c >= da && c <= a; }
    friend constexpr bool operator==(TrattoConcorsi, TrattoConcorsi) = default;
};

/// An entry of `ComboIntervallo` for the games with a calendar: which years and months it lets through.
struct VoceIntervallo {
    std::string_view testo;
    int resto_anno = -1;  ///< year mod 2, -1 for any
    int resto_mese = -1;  ///< month mod 2, -1 for any
    int mese = 0;         ///< 1 to 12, 0 for any
};

inline constexpr std::array<VoceIntervallo, 21> kIntervalli{{
    {"Tutti i Concorsi"},
    {"Tutti i Concorsi - Mesi Pari", -1, 0},
    {"Tutti i Concorsi - Mesi Dispari", -1, 1},
    {"Anni Pari", 0},
    {"Anni Pari - Mesi Pari", 0, 0},
    {"Anni Pari - Mesi Dispari", 0, 1},
    {"Anni Dispari", 1},
    {"Anni Dispari - Mesi Pari", 1, 0},
    {"Anni Dispari - Mesi Dispari", 1, 1},
    {"Gennaio", -1, -1, 1},
    {"Febbraio", -1, -1, 2},
    {"Marzo", -1, -1, 3},
    {"Aprile", -1, -1, 4},
    {"Maggio", -1, -1, 5},
    {"Giugno", -1, -1, 6},
    {"Luglio", -1, -1, 7},
    {"Agosto", -1, -1, 8},
    {"Settembre", -1, -1, 9},
    {"Ottobre", -1, -1, 10},
    {"Novembre", -1, -1, 11},
    {"Dicembre", -1, -1, 12},
}};

/// The entries of `ComboIntervallo` for Win for Life: all hours, then the full hours that are offered.
/// Draws at 7:00 and 23:00 exist and are reached by "Tutti" alone.
inline constexpr std::array<std::string_view, 16> kOre{"Tutti", "8:00",  "9:00",  "10:00", "11:00", "12:00",
                                                       "13:00", "14:00", "15:00", "16:00", "17:00", "18:00",
                                                       "19:00", "20:00", "21:00", "22:00"};

[[nodiscard]] bool accetta(const VoceIntervallo& voce, Data data);
/// A draw passes if its trimmed `ora` is the entry, or its `ora` as it stands is "0" and the entry.
[[nodiscard]] bool accetta_ora(std::size_t voce, std::string_view ora);

/// Position of a text in `kIntervalli` or `kOre`, without regard to case.
[[nodiscard]] std::optional<std::size_t> trova_intervallo(std::string_view testo);
[[nodiscard]] std::optional<std::size_t> trova_ora(std::string_view testo);

/// What a search runs over: wheels, range of concorsi, and calendar (or hour, for Win for Life).
struct AmbitoRicerca {
    SelezioneRuote ruote;
    std::size_t intervallo = 0;  ///< index into `kIntervalli`
    std::size_t ora = 0;         ///< index into `kOre`; only Win for Life looks at it
    TrattoConcorsi tratto;
};

/// Quotient rounded to the nearest whole number, ties to the even one. A divisor of 0 gives 0: the count T of
/// a scope without wheels stays where it started.
[[nodiscard]] constexpr int quoziente_pari(std::size_t righe, int ruote) {
    if (ruote <= 0) return 0;
    const auto d = static_cast<std::size_t>(ruote);
    const std::size_t q = righe / d;
    const std::size_t doppio = righe % d * 2;
    const bool su = doppio > d || (doppio == d && q % 2 == 1);
    return static_cast<int>(q + (su ? 1 : 0));
}

/// The rows of the chosen wheels in a scope: one entry per draw that has at least one of them, ascending.
///
/// A view: it points into the archive, which must outlive it, and copies no number.
class VistaEstrazioni {
  public:
    VistaEstrazioni(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);

    /// Draws in the view: the last value of C.
    [[nodiscard]] std::size_t concorsi() const { return record_.size(); }
    /// Rows in the view: one per wheel and draw.
    [[nodiscard]] std::size_t righe() const { return righe_; }
    [[nodiscard]] bool vuota() const { return righe_ == 0; }
    [[nodiscard]] int n_ruote() const { return n_ruote_; }
    /// T, the draws in scope as every measure counts them: rows over wheels, rounded. Where wheels lack rows
    /// it is smaller than `concorsi()`, and delays come out smaller than the true count. That is meant.
    [[nodiscard]] Estrazioni t() const { return Estrazioni{quoziente_pari(righe_, n_ruote_)}; }

    /// The five numbers of each wheel of the i-th draw (from 0), wheel w at 5w; NAZIONALE stands at 0.
    [[nodiscard]] const Numero* numeri(std::size_t i) const { return base_ + record_[i] * passo_; }
    /// Bits of the wheels that have a row in the i-th draw and are chosen.
    [[nodiscard]] unsigned maschera(std::size_t i) const {
        return presenti_ == nullptr ? 1U : presenti_[record_[i]] & ruote_;
    }
    [[nodiscard]] Concorso concorso(std::size_t i) const { return concorso_[record_[i]]; }
    /// Index of the i-th draw in its archive table.
    [[nodiscard]] std::size_t record(std::size_t i) const { return record_[i]; }

  private:
    const Numero* base_ = nullptr;
    std::size_t passo_ = 0;
    const std::uint16_t* presenti_ = nullptr;
    const Concorso* concorso_ = nullptr;
    unsigned ruote_ = 0;
    int n_ruote_ = 0;
    std::size_t righe_ = 0;
    std::vector<std::uint32_t> record_;
};

/// Calls `riga(c, numeri)` for each row of the view in concorso and wheel order, C counted from 1, and tells
/// `avanzamento` every thousand draws. Returns false if the user cancelled.
template <class Riga>
bool percorri(const VistaEstrazioni& vista, Avanzamento& avanzamento, Riga&& riga) {
    constexpr unsigned kTutteLeRuote = (1U << kRuote) - 1;
    constexpr std::size_t kBlocco = 1024;
    const std::size_t n = vista.concorsi();
    for (std::size_t inizio = 0; inizio < n; inizio += kBlocco) {
        const std::size_t fine = std::min(n, inizio + kBlocco);
        for (std::size_t i = inizio; i < fine; ++i) {
            const int c = static_cast<int>(i) + 1;
            const Numero* numeri = vista.numeri(i);
            unsigned m = vista.maschera(i);
            if (m == kTutteLeRuote) {
                for (int w = 0; w < kRuote; ++w) riga(c, numeri + w * kEstratti);
            } else {
                for (; m != 0; m &= m - 1) riga(c, numeri + std::countr_zero(m) * kEstratti);
            }
        }
        if (!avanzamento.procedi(fine, n)) return false;
    }
    return true;
}

/// Calls `riga(c, indice)` for rows of a table with one row per draw (or per hour): C, from 1, goes up where
/// the concorso changes.
template <class Riga>
void percorri_righe(const std::vector<std::uint32_t>& righe, std::span<const Concorso> concorso,
                    Avanzamento& avanzamento, Riga&& riga) {
    int c = 0;
    Concorso tenuto = 0;
    for (const std::uint32_t i : righe) {
        if (concorso[i] != tenuto) ++c;
        tenuto = concorso[i];
        riga(c, i);
    }
    avanzamento.procedi(righe.size(), righe.size());
}

/// Row indexes of SuperEnalotto in scope (range and calendar; wheels have no meaning there).
[[nodiscard]] std::vector<std::uint32_t> vista_superenalotto(const ArchivioEstrazioni& archivio,
                                                             const AmbitoRicerca& ambito);
/// Row indexes of Win for Life in scope (range and hour).
[[nodiscard]] std::vector<std::uint32_t> vista_winforlife(const ArchivioEstrazioni& archivio,
                                                          const AmbitoRicerca& ambito);

}  // namespace sortimetra
