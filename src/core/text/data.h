#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

/// A calendar day of the Gregorian calendar, without time or zone.
using Data = std::chrono::sys_days;

/// Today where the user is. Nothing that counts draws asks for it.
[[nodiscard]] Data oggi();

/// "dd/mm/yyyy", the way dates are shown everywhere.
[[nodiscard]] std::string testo_data(Data data);
/// "yyyy-mm-dd", the way dates are stored.
[[nodiscard]] std::string testo_data_iso(Data data);

/// Reads exactly `yyyy?mm?dd` with the given separator; nothing for any other text or an impossible day.
[[nodiscard]] std::optional<Data> leggi_data_iso(std::string_view testo, char separatore = '-');
/// Reads exactly "dd/mm/yyyy".
[[nodiscard]] std::optional<Data> leggi_data_italiana(std::string_view testo);

/// Month 1 to 12 and year of a day: what the calendar filter asks.
struct MeseAnno {
    int mese;
    int anno;
};
[[nodiscard]] MeseAnno mese_anno(Data data);

}  // namespace sortimetra
