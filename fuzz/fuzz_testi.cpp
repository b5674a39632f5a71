#include "draws/archivio.h"
#include "stores/pubblicati.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>

/// Any bytes as a published file: the first says which of the three. Reading may refuse but may not fall, and
/// what it lets through is fit for the archive.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    using namespace sortimetra;
    if (n == 0) return 0;
    const std::string_view testo{reinterpret_cast<const char*>(dati) + 1, n - 1};
    SenzaAvanzamento nessuno;
    RigheArchivio righe;
    std::string errore;
    const auto prendi = [&](auto letti, auto& dove) {
        if (letti) {
            dove = std::move(*letti);
        } else if (letti.error().empty()) {
            std::abort();
        }
    };
    switch (dati[0] % 3) {
        case 0: {
            std::vector<RigaLotto> tutte;
            prendi(leggi_testo_lotto(testo, nessuno), tutte);
            Data precedente{};
            Concorso concorso = 0;
            for (RigaLotto& r : tutte) {
                // By date, then wheel: one concorso per date.
                if (concorso == 0 || r.data != precedente) ++concorso;
                if (concorso > 1 && r.data < precedente) std::abort();
                precedente = r.data;
                r.concorso = concorso;
                (r.ruota == kNazionale ? righe.nazionale : righe.lotto).push_back(r);
            }
            break;
        }
        case 1: {
            prendi(leggi_testo_superenalotto(testo, nessuno), righe.superenalotto);
            Concorso concorso = 0;
            for (RigaSuperEnalotto& r : righe.superenalotto) r.concorso = ++concorso;
            break;
        }
        default:
            prendi(leggi_testo_winforlife(testo, nessuno), righe.winforlife);
    }
    if (!ArchivioEstrazioni::componi(std::move(righe))) std::abort();
    return 0;
}
