#pragma once

#include "draws/archivio.h"
#include "draws/avanzamento.h"
#include "results/domanda.h"
#include "results/risultato_fwd.h"

#include <array>
#include <string>

namespace sortimetra {

/// The three cabalistic segnalimite of each number: element n - 1 is that of number n. Handed down by
/// tradition, not counted; read in this order (that of 88 is not ascending).
inline constexpr std::array<std::array<Numero, 3>, 90> kSegnalimite{{
    // clang-format off
    {4, 7, 70}, {8, 46, 80}, {9, 12, 90}, {1, 10, 16}, {2, 11, 20},  // 1
    {3, 12, 24}, {13, 28, 31}, {14, 32, 41}, {15, 36, 51}, {16, 40, 61},  // 6
    {17, 44, 61}, {18, 48, 81}, {10, 19, 52}, {2, 20, 56}, {12, 21, 60},  // 11
    {4, 22, 64}, {23, 62, 68}, {24, 42, 72}, {25, 52, 76}, {26, 62, 80},  // 16
    {27, 72, 84}, {28, 82, 88}, {1, 11, 29}, {3, 5, 30}, {9, 13, 31},  // 21
    {13, 23, 32}, {17, 33, 43}, {21, 34, 43}, {25, 35, 59}, {29, 36, 63},  // 26
    {33, 37, 73}, {37, 38, 73}, {12, 39, 41}, {4, 20, 45}, {14, 41, 49},  // 31
    {24, 42, 53}, {34, 43, 47}, {8, 44, 61}, {35, 53, 85}, {46, 64, 69},  // 36
    {47, 73, 75}, {48, 77, 84}, {13, 49, 81}, {5, 50, 85}, {16, 61, 89},  // 41
    {2, 45, 54}, {6, 35, 53}, {10, 45, 54}, {10, 14, 65}, {18, 56, 65},  // 46
    {22, 57, 75}, {26, 58, 85}, {13, 30, 69}, {6, 34, 60}, {16, 38, 61},  // 51
    {26, 42, 62}, {36, 46, 63}, {46, 50, 64}, {54, 56, 65}, {12, 58, 66},  // 56
    {62, 67, 76}, {66, 68, 86}, {15, 70, 79}, {17, 70, 74}, {17, 71, 78},  // 61
    {27, 72, 82}, {37, 73, 86}, {47, 74, 90}, {3, 12, 75}, {7, 67, 76},  // 66
    {11, 14, 77}, {15, 78, 87}, {16, 19, 79}, {8, 23, 80}, {18, 27, 81},  // 71
    {28, 31, 82}, {35, 38, 83}, {39, 48, 84}, {43, 58, 85}, {47, 68, 86},  // 76
    {51, 78, 87}, {16, 55, 88}, {17, 59, 89}, {9, 63, 90}, {1, 19, 67},  // 81
    {2, 20, 71}, {3, 39, 67}, {4, 82, 79}, {5, 50, 83}, {6, 60, 87},  // 86
    // clang-format on
}};

/// The segnalimite of `numero` (1 to 90) as they are shown: "04 - 07 - 70".
[[nodiscard]] std::string testo_segnalimite(int numero);

/// The fixed table of the 90 numbers: columns "N.", "Segnalimiti". Reads no draws.
[[nodiscard]] Risultato segnalimite(const ArchivioEstrazioni& archivio, const Domanda& domanda,
                                    Avanzamento& avanzamento);

}  // namespace sortimetra
