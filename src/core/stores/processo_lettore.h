#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <string>

namespace sortimetra {

/// How long the reader of Jet files is waited for and how much it may say.
struct LimitiLettore {
    /// From its start to the end of its output. The real archive takes a twentieth of a second.
    std::chrono::milliseconds tempo{10'000};
    /// From the end of its output to its own end.
    std::chrono::milliseconds congedo{2'000};
    /// Bytes of its output; the real archive makes less than 2 MB.
    std::size_t uscita = std::size_t{64} << 20;
};

/// The limits for a file of so many bytes. A row takes more room in the file than an eighth of what is said
/// of it: a cell of a number two bytes and five, an empty one a bit and a byte, of a row of which every cell
/// is empty there are its offset and its lengths too.
[[nodiscard]] LimitiLettore limiti_lettore(std::uint64_t grandezza_file);

/// Starts `programma`, gives it the open `file` as its standard input and `tabelle` as its argument, and
/// takes what it writes until it ends, which is within the limits: afterwards it is gone, whatever happened,
/// and while it runs this program cannot be traced or written into by others of the same user. What it wrote
/// may be anything; the error is one Italian sentence: it does not start, it has no memory, it cannot be
/// confined, it does not end.
[[nodiscard]] std::expected<std::string, std::string> esegui_lettore(const std::filesystem::path& programma,
                                                                     int file, unsigned tabelle,
                                                                     const LimitiLettore& limiti = {});

}  // namespace sortimetra
