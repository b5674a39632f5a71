#include "text/data.h"

#include <fmt/core.h>

#include <ctime>

namespace sortimetra {

namespace {

std::optional<int> cifre(std::string_view testo) {
    int valore = 0;
    for (const char c : testo) {
        if (c < '0' || c > '9') return std::nullopt;
        valore = valore * 10 + (c - '0');
    }
    return valore;
}

std::optional<Data> componi(std::optional<int> anno, std::optional<int> mese, std::optional<int> giorno) {
    if (!anno || !mese || !giorno) return std::nullopt;
    const std::chrono::year_month_day data{std::chrono::year{*anno},
                                           std::chrono::month{static_cast<unsigned>(*mese)},
                                           std::chrono::day{static_cast<unsigned>(*giorno)}};
    if (!data.ok()) return std::nullopt;
    return Data{data};
}

}  // namespace

Data oggi() {
    const std::time_t adesso = std::time(nullptr);
    std::tm qui{};
    localtime_r(&adesso, &qui);
    return std::chrono::year{qui.tm_year + 1900} / (qui.tm_mon + 1) / qui.tm_mday;
}

std::string testo_data(Data data) {
    const std::chrono::year_month_day g{data};
    return fmt::format("{:02}/{:02}/{:04}", unsigned{g.day()}, unsigned{g.month()}, int{g.year()});
}

std::string testo_data_iso(Data data) {
    const std::chrono::year_month_day g{data};
    return fmt::format("{:04}-{:02}-{:02}", int{g.year()}, unsigned{g.month()}, unsigned{g.day()});
}

std::optional<Data> leggi_data_iso(std::string_view testo, char separatore) {
    if (testo.size() != 10 || testo[4] != separatore || testo[7] != separatore) return std::nullopt;
    return componi(cifre(testo.substr(0, 4)), cifre(testo.substr(5, 2)), cifre(testo.substr(8, 2)));
}

std::optional<Data> leggi_data_italiana(std::string_view testo) {
    if (testo.size() != 10 || testo[2] != '/' || testo[5] != '/') return std::nullopt;
    return componi(cifre(testo.substr(6, 4)), cifre(testo.substr(3, 2)), cifre(testo.substr(0, 2)));
}

MeseAnno mese_anno(Data data) {
    const std::chrono::year_month_day g{data};
    return {static_cast<int>(unsigned{g.month()}), int{g.year()}};
}

}  // namespace sortimetra
