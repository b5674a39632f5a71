#include "cli/comandi.h"

namespace sortimetra {

int esegui_comando(const std::vector<std::string>&, std::ostream&, std::ostream&) {
    return 2;
}

}  // namespace sortimetra
