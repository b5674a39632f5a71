#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "files/file_sicuro.h"

#include <cstddef>
#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra {

// The published result files as text: read and checked line by line, not yet numbered (`concorso` stays 0). A
// byte order mark at the front, CR LF, blank lines and blanks round a field are fine. The first line that
// cannot be read ends the reading; the error names line number, what was found and what would be right. A
// cancelled reading ends with `kAnnullata`.

/// "yyyy/mm/dd TAB wheel TAB five numbers", wheel `RN` or `NZ` for NAZIONALE; a number that is empty or 0 is
/// none. Rows of the ten wheels and of NAZIONALE come out in one list, by date, then wheel, whatever the
/// order in the file. The same wheel twice on one date is an error.
[[nodiscard]] std::expected<std::vector<RigaLotto>, std::string> leggi_testo_lotto(std::string_view testo,
                                                                                   Avanzamento& avanzamento);

/// Gives a text of `totale` bytes piece by piece: what follows the first `usati` bytes of the piece before. A
/// byte order mark stands whole in the first one.
using FonteTesto = std::function<PezzoFile(std::size_t usati)>;
/// The same of a text that need not stand in memory as a whole: that takes longer than to read it.
[[nodiscard]] std::expected<std::vector<RigaLotto>, std::string> leggi_lotto_a_pezzi(
    const FonteTesto& fonte, std::size_t totale, Avanzamento& avanzamento);

/// "data;n1;n2;n3;n4;n5;n6;jolly;superstar" with a title line, dates "yyyy-mm-dd"; in file order. A date
/// twice is an error.
[[nodiscard]] std::expected<std::vector<RigaSuperEnalotto>, std::string> leggi_testo_superenalotto(
    std::string_view testo, Avanzamento& avanzamento);

/// "concorso;data;ora;n1;…;n10;numerone" with a title line; in file order, `concorso` counted from 1. The
/// published concorso and the numerone are checked and left. The same hour twice on a date is an error.
[[nodiscard]] std::expected<std::vector<RigaWinForLife>, std::string> leggi_testo_winforlife(
    std::string_view testo, Avanzamento& avanzamento);

// The newest lines alone: the title line may be missing, all else is as above.
[[nodiscard]] std::expected<std::vector<RigaSuperEnalotto>, std::string> leggi_righe_superenalotto(
    std::string_view testo, Avanzamento& avanzamento);
[[nodiscard]] std::expected<std::vector<RigaWinForLife>, std::string> leggi_righe_winforlife(
    std::string_view testo, Avanzamento& avanzamento);

/// In which line (from 1) a text of any of the three forms has a draw: that of its date and, where `segno` is
/// not empty, of this wheel code or hour as the text has it. Nothing where there is none.
[[nodiscard]] std::optional<std::size_t> riga_di(std::string_view testo, Data data, std::string_view segno);

/// The title lines of these two forms, in lower case.
inline constexpr std::string_view kTitoliSuperEnalotto = "data;n1;n2;n3;n4;n5;n6;jolly;superstar";
inline constexpr std::string_view kTitoliWinForLife =
    "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone";

}  // namespace sortimetra
