#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sortimetra {

// Texts of numbers and small text helpers. All output is Italian whatever the machine's locale: decimal sign
// ",", thousands ".".

/// Without the blanks (space, tab, CR, LF) at both ends.
[[nodiscard]] std::string_view rifila(std::string_view testo);

/// Lower case of UTF-8 text, including the accented letters of Latin-1 ("PIÙ" gives "più"); other bytes stay.
[[nodiscard]] std::string minuscolo(std::string_view testo);

/// The text in which names are looked for: lower case, without accents ("Più" gives "piu").
[[nodiscard]] std::string piega(std::string_view testo);
/// The same with one blank between words and none at the ends: "  Più   in ritardo" gives "piu in ritardo".
[[nodiscard]] std::string piega_nome(std::string_view testo);

/// The number that a text begins with, blanks before and between digits skipped as the archive's own reader
/// does: "12", " 07", "12abc" give 12, 7, 12; no digit gives 0. Stops growing at `std::int64_t`'s middle, so
/// that a very long run of digits cannot overflow.
[[nodiscard]] std::int64_t valore_iniziale(std::string_view testo);

/// Two digits with a leading zero: "07", "12". `numero` is 0 to 99.
void aggiungi_due_cifre(std::string& testo, int numero);
/// Plain decimal.
void aggiungi_intero(std::string& testo, std::int64_t numero);

/// With a point between groups of three digits: "4.005", "-1.234".
[[nodiscard]] std::string migliaia(std::int64_t numero);

/// `numeratore / denominatore` with two decimals, rounded exactly, half away from zero: 25/8 gives "3,13".
/// With `punti` the whole part is grouped: "1.443,33". A denominator of 0 gives the empty text: the cell of
/// an undefined mean or percentage stays empty. Exact for values up to 10^16 in size.
[[nodiscard]] std::string quoziente_due_decimali(std::int64_t numeratore, std::int64_t denominatore,
                                                 bool punti = false);

}  // namespace sortimetra
