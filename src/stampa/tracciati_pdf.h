#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QSvgRenderer>
#include <optional>
#include <string>
#include <string_view>

namespace sortimetra {

// Outlines as the content of a PDF page: the operators that draw them, as text.

/// Appends a number, to a ten-thousandth, without zeros that say nothing.
void aggiungi_numero(std::string& contenuto, double numero);
/// Appends "r g b" and the operator that makes it the colour of what follows.
void aggiungi_colore(std::string& contenuto, const QColor& colore, std::string_view operatore);
/// Appends what makes `penna` the pen of what follows.
void aggiungi_penna(std::string& contenuto, const QPen& penna);
/// Appends the way of a path, not yet drawn.
void aggiungi_percorso(std::string& contenuto, const QPainterPath& percorso);

/// What draws a picture in a square of one unit, y downward. Nothing where it has more than plain outlines:
/// gradients, transparency, letters, dots.
[[nodiscard]] std::optional<std::string> tracciati(QSvgRenderer& disegno);

}  // namespace sortimetra
