#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

// The comma-and-quote form of the small text files that older installations share: fields parted by ",", text
// in double quotes, numbers bare, records ended by CR LF. Bytes are Windows-1252; what a field holds is told
// as it stands in the file.

/// Reads fields one after the other. A record may be read over several calls; a field that ends its line
/// takes the line's end along.
class LettoreCampi {
  public:
    explicit LettoreCampi(std::string_view byte) : byte_{byte} {}

    /// The next field: what stands between quotes, or a bare text without the blanks at its ends. Nothing at
    /// the end of the file. A quote that is never closed runs to the end.
    [[nodiscard]] std::optional<std::string_view> campo();
    /// The next field as a whole number without sign; nothing for any other text.
    [[nodiscard]] std::optional<int> intero();
    /// The next field as a number with a point before its decimals; nothing for any other text.
    [[nodiscard]] std::optional<float> decimale();
    /// What is left of the line, whose end is taken along.
    std::string_view resto();

    /// Whether nothing is left, or only empty lines.
    [[nodiscard]] bool finito() const;
    /// Line, from 1, in which the next byte stands.
    [[nodiscard]] int riga() const { return riga_; }

  private:
    void salta_bianchi();
    void salta_fine_riga();

    std::string_view byte_;
    std::size_t posto_ = 0;
    int riga_ = 1;
};

/// Appends the record's parts: `"testo"`, a number in the shortest form (".5" for a half).
void aggiungi_campo(std::string& record, std::string_view testo);
void aggiungi_campo(std::string& record, float numero);

/// What ends a record.
inline constexpr std::string_view kFineRecord = "\r\n";

}  // namespace sortimetra
