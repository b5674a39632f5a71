#pragma once

#include "files/sessione.h"

#include <QSettings>
#include <string_view>

namespace sortimetra {

/// What the windows remember: `schermi.ini` of the program's folder, a section for each.
///
/// A file that this program cannot have written (larger than a megabyte, with values that Qt would build
/// objects of) is set aside as `schermi.ini.guasto`, and a new one begun. Where no file can stand (a folder
/// or a pipe has the name, permission is missing, another program holds the lock) nothing is remembered:
/// values are the usual ones, and writing does nothing.
class MemoriaSchermi final : public QSettings {
  public:
    explicit MemoriaSchermi(const Sessione& sessione);
};

/// Whether a text is safe to be read by QSettings: it makes of some values whatever objects they name, as
/// large and as deep as they say. Also no where Qt and we might disagree on where a line ends.
[[nodiscard]] bool innocuo(std::string_view testo);

}  // namespace sortimetra
