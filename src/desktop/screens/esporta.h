#pragma once

#include "results/risposta.h"

#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace sortimetra {

/// Asks for the file of a document: `titolo` of the dialog, `documento` for the name that it offers (in the
/// folder of the last one), `filtri` as QFileDialog has them, `filtro` the one in use. The name that comes
/// back has the ending that `finale` makes of it; where that is another name than the user saw, and such a
/// file is there, the user is asked once more.
std::optional<QString> chiedi_file(QWidget* finestra, const QString& titolo, const QString& documento,
                                   const QString& filtri, QString* filtro,
                                   const std::function<QString(QString scelto)>& finale);

/// The same for a PDF.
std::optional<QString> chiedi_pdf(QWidget* finestra, const QString& documento);

/// Asks for a file and writes an answer there: CSV, a workbook or JSON, by the file's ending (CSV without a
/// known one). The first table stands in the order on show. The file is written whole or not at all; a
/// failure is told in a box. Gives the file's name, nothing if none was written.
std::optional<QString> esporta_risultato(QWidget* finestra, const Risposta& risposta);

}  // namespace sortimetra
