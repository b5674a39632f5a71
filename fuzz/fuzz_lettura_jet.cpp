#include "stores/apertura.h"
#include "stores/negozio_jet.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// Any bytes as the output of the Jet reader, which a damaged file may make it write.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    using namespace sortimetra;
    if (n == 0) return 0;
    const std::string_view byte{reinterpret_cast<const char*>(dati) + 1, n - 1};
    auto righe = interpreta_lettura_jet(byte, dati[0] % 16U);
    if (!righe) {
        if (righe.error().empty()) std::abort();
        return 0;
    }
    (void)ArchivioEstrazioni::componi(std::move(*righe));
    return 0;
}
