#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

// The classic sections-and-keys text: "[Section]", then "key=value" lines. Section and key names are matched
// without regard to case (ASCII); blanks round names and values do not count; a value may stand in single or
// double quotes. Bytes in, bytes out: no encoding is known here.
//
// Any bytes are a valid text. A line that is neither a section nor a key is nobody's and stays where it is.

/// The value of the first `chiave` of the section; sections of the same name count as one. Nothing where the
/// key is not there; an empty text where it has no value. The value ends at a NUL.
[[nodiscard]] std::optional<std::string_view> valore_ini(std::string_view testo, std::string_view sezione,
                                                         std::string_view chiave);

/// The text with that key set, all else byte for byte as it was. A new key follows the last key of the
/// first section of that name, a new section the end of the text; new lines end with CR LF. A value is cut at
/// a line end or NUL and quoted where it would not be read back otherwise.
[[nodiscard]] std::string con_valore_ini(std::string_view testo, std::string_view sezione,
                                         std::string_view chiave, std::string_view valore);

}  // namespace sortimetra
