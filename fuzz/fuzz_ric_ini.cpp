#include "text/testo_ini.h"
#include "text/windows1252.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// Any bytes as `ric.ini`: reading may find nothing but may not fall, a written value is read back, a second
/// writing changes nothing, and no other key is touched.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    using namespace sortimetra;
    const std::string testo{dati, dati + n};
    const std::string_view nome = std::string_view{testo}.substr(0, testo.find('\n'));

    const auto altro = valore_ini(testo, "TipoRic", "index");
    const std::string dopo = con_valore_ini(testo, "NomeRIC", "0", "Ambata capogioco");
    if (valore_ini(dopo, "nomeric", "0") != "Ambata capogioco") std::abort();
    if (valore_ini(dopo, "TIPORIC", "INDEX") != altro) std::abort();
    if (con_valore_ini(dopo, "NomeRIC", "0", "Ambata capogioco") != dopo) std::abort();

    // A name of any bytes: what is read back, written again, is the same file.
    const std::string una = con_valore_ini(testo, "NomeRIC", "3t", nome);
    const auto letto = valore_ini(una, "NomeRIC", "3t");
    if (!letto || con_valore_ini(una, "NomeRIC", "3t", *letto) != una) std::abort();

    if (in_windows_1252(da_windows_1252(testo)) != testo) std::abort();
    (void)in_windows_1252(testo);
    return 0;
}
