#pragma once

#include "results/risultato.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <span>

class QWidget;

namespace sortimetra {

/// Asks for a file and writes the result there: CSV, a workbook or JSON, by the file's ending (CSV without a
/// known one). `ordine` is the first table's order on the screen. The file is written whole or not at all; a
/// failure is told in a box. Gives the file's name, nothing if none was written.
std::optional<QString> esporta_risultato(QWidget* finestra, const Risultato& risultato,
                                         std::span<const std::uint32_t> ordine);

}  // namespace sortimetra
