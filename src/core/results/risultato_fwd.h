#pragma once

#include <cstdint>

namespace sortimetra {

// For headers that hand answers on without looking into them: results/risultato.h has what they are.
struct Etichetta;
struct Risultato;
struct Tabella;
enum class Verso : std::uint8_t;

}  // namespace sortimetra
