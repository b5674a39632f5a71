#pragma once

#include "draws/archivio.h"

namespace sortimetra {

/// The simulated archive that the program ships in place of real draws: always the same one, drawn from a
/// fixed seed, in the shape and on the calendar of the real games (4,655 concorsi from 22 December 1990,
/// NAZIONALE from 1182, SuperEnalotto from 402, Win for Life at every hour from 7:00 to 23:00).
[[nodiscard]] RigheArchivio archivio_dimostrativo();

}  // namespace sortimetra
