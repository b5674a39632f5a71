#pragma once

#include <string>
#include <string_view>

namespace sortimetra {

// The small text files that older installations share (`ric.ini`, groups, systems) hold Windows-1252 bytes;
// inside the program all text is UTF-8.

/// UTF-8 of Windows-1252 bytes. Every byte has a character: the five that the code page leaves open become
/// the control characters of the same number, so that any bytes come back unchanged.
[[nodiscard]] std::string da_windows_1252(std::string_view byte);

/// Windows-1252 bytes of UTF-8 text. A character that the code page lacks, and each byte that is not UTF-8,
/// becomes "?".
[[nodiscard]] std::string in_windows_1252(std::string_view testo);

}  // namespace sortimetra
