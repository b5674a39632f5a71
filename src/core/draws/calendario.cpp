#include "draws/calendario.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <iterator>

namespace sortimetra {

namespace {

using std::chrono::April;
using std::chrono::August;
using std::chrono::day;
using std::chrono::days;
using std::chrono::December;
using std::chrono::Friday;
using std::chrono::January;
using std::chrono::June;
using std::chrono::March;
using std::chrono::May;
using std::chrono::month_day;
using std::chrono::November;
using std::chrono::Saturday;
using std::chrono::Sunday;
using std::chrono::Thursday;
using std::chrono::Tuesday;
using std::chrono::Wednesday;
using std::chrono::weekday;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr Data kPrimaEstrazione{year{1990} / 12 / 22};

constexpr unsigned bit(weekday g) {
    return 1U << g.c_encoding();
}

/// From a day on, the Lotto was drawn on these days of the week.
struct Regime {
    Data da;
    unsigned giorni;
};
constexpr unsigned kMartedi = bit(Tuesday) | bit(Thursday) | bit(Saturday);
constexpr std::array<Regime, 6> kRegimi{{
    {Data{year{1990} / 1 / 1}, bit(Saturday)},
    {Data{year{1997} / 3 / 6}, bit(Wednesday) | bit(Saturday)},
    {Data{year{2002} / 12 / 1}, kMartedi},  // tried for one month
    {Data{year{2003} / 1 / 1}, bit(Wednesday) | bit(Saturday)},
    {Data{year{2005} / 6 / 20}, kMartedi},
    {Data{year{2023} / 7 / 3}, kMartedi | bit(Friday)},
}};

/// No games were drawn in the spring of 2020.
constexpr Data kInizioSospensione{year{2020} / 3 / 22};
constexpr Data kFineSospensione{year{2020} / 5 / 3};
/// Drawn besides the regular days, on the eve of the new currency.
constexpr Data kStraordinaria{year{2001} / 12 / 31};

bool regolare(Data data) {
    const auto dopo = std::upper_bound(kRegimi.begin(), kRegimi.end(), data,
                                       [](Data d, const Regime& r) { return d < r.da; });
    return (std::prev(dopo)->giorni & bit(weekday{data})) != 0;
}

bool festivo(Data data) {
    static constexpr std::array<month_day, 9> kFeste{{January / 1, January / 6, April / 25, May / 1,
                                                      August / 15, November / 1, December / 8, December / 25,
                                                      December / 26}};
    const year_month_day g{data};
    const month_day festa{g.month(), g.day()};
    if (std::find(kFeste.begin(), kFeste.end(), festa) != kFeste.end()) return true;
    // The Republic's day became a holiday again in 2001; unity was celebrated once on a weekday.
    if (festa == June / 2) return g.year() >= year{2001};
    return data == Data{year{2011} / March / 17};
}

/// Where the draw of a holiday goes: to the next weekday that is neither a holiday nor has a draw of its own.
/// Christmas goes to its eve instead, unless the eve has its own draw or Christmas is a Saturday.
Data spostata(Data festa) {
    const year_month_day g{festa};
    const Data vigilia = festa - days{1};
    if (g.month() == December && g.day() == day{25} && weekday{festa} != Saturday && !regolare(vigilia))
        return vigilia;
    Data data = festa + days{1};
    while (weekday{data} == Sunday || festivo(data) || regolare(data)) data += days{1};
    return data;
}

// ---- the hours ----

constexpr int kPrimaOra = 7 * 60;
constexpr int kUltimaOra = 23 * 60;
constexpr int kOgniOra = 60;

Appuntamento ora_seguente(Appuntamento a) {
    const int minuti = std::max(kPrimaOra, (a.minuti / kOgniOra + 1) * kOgniOra);
    return minuti > kUltimaOra ? Appuntamento{a.data + days{1}, kPrimaOra} : Appuntamento{a.data, minuti};
}

std::vector<Appuntamento> ore_fra(Appuntamento dopo, Appuntamento prima) {
    std::vector<Appuntamento> tutte;
    for (Appuntamento a = ora_seguente(dopo); a < prima; a = ora_seguente(a)) tutte.push_back(a);
    return tutte;
}

std::vector<Appuntamento> giorni_fra(Appuntamento dopo, Appuntamento prima) {
    std::vector<Appuntamento> tutti;
    const std::vector<Data> date = calendario_lotto(prima.data - days{1});
    for (auto it = std::upper_bound(date.begin(), date.end(), dopo.data); it != date.end(); ++it)
        tutti.push_back({.data = *it});
    return tutti;
}

}  // namespace

std::vector<Data> calendario_lotto(Data ultima) {
    std::vector<Data> date;
    // Two weeks beyond the end: a holiday's draw may come back from there, as Christmas does.
    for (Data d = kPrimaEstrazione; d <= ultima + days{14}; d += days{1}) {
        if (d >= kInizioSospensione && d <= kFineSospensione) continue;
        if (d == kStraordinaria) date.push_back(d);
        if (regolare(d)) date.push_back(festivo(d) ? spostata(d) : d);
    }
    std::sort(date.begin(), date.end());
    date.erase(std::unique(date.begin(), date.end()), date.end());
    date.erase(std::upper_bound(date.begin(), date.end(), ultima), date.end());
    return date;
}

std::vector<Appuntamento> appuntamenti_fra(Gioco gioco, Appuntamento dopo, Appuntamento prima) {
    // Nobody waits for more: a slip of the pen in a date must not cost minutes.
    if (dopo.data < kPrimaEstrazione || prima.data > dopo.data + std::chrono::years{100}) return {};
    return gioco == Gioco::win_for_life ? ore_fra(dopo, prima) : giorni_fra(dopo, prima);
}

int estrazioni_mancanti(Gioco gioco, Appuntamento ultima, Data oggi) {
    return static_cast<int>(appuntamenti_fra(gioco, ultima, {.data = oggi}).size());
}

Appuntamento prossima_estrazione(Gioco gioco, Appuntamento dopo) {
    if (gioco == Gioco::win_for_life) return ora_seguente(dopo);
    // Easter and Christmas together move no draw further than this.
    const auto prossime = giorni_fra(dopo, {.data = dopo.data + days{30}});
    // Before the calendar begins, or in a pause of it, the next day is as good as any.
    return prossime.empty() ? Appuntamento{.data = dopo.data + days{1}} : prossime.front();
}

}  // namespace sortimetra
