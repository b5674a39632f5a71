#pragma once

#include <cstdint>
#include <string_view>

namespace sortimetra::jet {

// What `sortimetra-lettore-jet` writes to its standard output, byte by byte. Numbers are little-endian.
//
//   firma
//   for each wanted table, in the order of `tabelle_drawit` (or `tabelle_drawit2`):
//     kTabella, u8 bit of the table
//     for each row: kRiga, then one cell per column of the table's form
//     kFineTabella, u32 number of rows
//   kFine
//
// A cell is one of the marks of `Marca`, followed by its value. In the place of any mark the reader may write
// kErrore, u8 `Errore`, u32 first detail, u32 second detail; nothing follows.

inline constexpr std::string_view kFirma = "sjet1\n";

inline constexpr std::uint8_t kTabella = 'T';
inline constexpr std::uint8_t kRiga = 'R';
inline constexpr std::uint8_t kFineTabella = 'E';
inline constexpr std::uint8_t kFine = 'F';
inline constexpr std::uint8_t kErrore = 'X';

enum Marca : std::uint8_t {
    kVuota = 0,
    kIntero = 1,     ///< i32
    kReale = 2,      ///< f64
    kMomento = 3,    ///< f64, days from 30 December 1899
    kGuasta = 4,     ///< something stands there, but not what the column can hold
    kTesto = 0x80U,  ///< the low seven bits are the length; ASCII bytes follow
};
/// Longer texts are cut: no cell that is read needs more.
inline constexpr std::size_t kTestoMassimo = 0x7F;

enum class Errore : std::uint8_t {
    NonApre = 1,       ///< the library refuses the file
    Password = 2,      ///< a password is set
    MancaTabella = 3,  ///< first detail: bit of the table
    MancaColonna = 4,  ///< bit of the table, index of the column
    TipoColonna = 5,   ///< bit of the table, index of the column: a type that holds no such value
    Righe = 6,         ///< rows as the table declares them, rows found
    Definizione = 7,   ///< bit of the table: its definition cannot be read
    Troncato = 8,      ///< a table of the file has pages behind its end
    Colonna = 9,       ///< bit of the table, index of the column (or none): its definition contradicts itself
    Intestazione = 10,  ///< the header of the file holds what cannot be
};

/// How the reader ends where it writes nothing: it was started wrongly, it has no memory to work in, the
/// kernel refused the fence within which alone it reads.
inline constexpr int kUscitaErrata = 2;
inline constexpr int kUscitaSenzaMemoria = 3;
inline constexpr int kUscitaSenzaRecinto = 4;

}  // namespace sortimetra::jet
