#include "catalogue/form_ricerche_schermi.h"

namespace sortimetra {

std::span<const RigaSchermo> schermi_del_programma() {
    return {};
}

}  // namespace sortimetra
