#include "cartella.h"
#include "confronto.h"
#include "conti.h"
#include "files/file_sicuro.h"
#include "morsi.h"
#include "stores/apertura.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace sortimetra;

constexpr std::size_t kPagina = 4096;
/// First byte of a page: rows of a table, its definition, an index, which pages are whose.
constexpr char kRighe = 1;
constexpr char kDefinizione = 2;
constexpr char kMappa = 5;

/// A real file, where there is one: nobody here can write a Jet file.
struct Sano {
    fuzz::Cartella cartella;
    std::string byte;
    std::optional<ArchivioEstrazioni> archivio;

    Sano() {
        auto letto = leggi_file(SORTIMETRA_ARCHIVIO_VERO "/drawit2.mdb");
        if (!letto) return;
        byte = std::move(*letto);
        cartella.scrivi("drawit2.mdb", byte);
        auto aperto = apri_archivio(cartella.percorso(), kTabellaWinForLife);
        if (!aperto) std::abort();
        archivio = std::move(*aperto);
    }
    [[nodiscard]] std::vector<std::size_t> pagine(char genere) const {
        std::vector<std::size_t> trovate;
        for (std::size_t p = kPagina; p + kPagina <= byte.size(); p += kPagina)
            if (byte[p] == genere) trovate.push_back(p);
        return trovate;
    }
};

/// Changes what the file says of its rows, never a row: whatever then is another answer could have been
/// known.
void guasta(std::string& byte, const Sano& sano, fuzz::Morsi& morsi) {
    static const auto definizioni = sano.pagine(kDefinizione);
    static const auto righe = sano.pagine(kRighe);
    static const auto mappe = sano.pagine(kMappa);
    const auto una = [&](const std::vector<std::size_t>& p) {
        return p.empty() ? 0 : p[morsi.sotto(p.size())];
    };
    const auto cambia = [&](std::size_t dove) {
        const std::uint8_t valore = morsi.byte();
        if (morsi.byte() % 2 == 0)
            byte[dove] = static_cast<char>(valore);
        else
            byte[dove] ^= static_cast<char>(1U << (valore % 8U));
    };
    switch (morsi.byte() % 6) {
        case 0:
        case 1:  // columns: type, number, place, length, name; rows declared; where the maps are
            return cambia(una(definizioni) + morsi.sotto(600));
        case 2:  // free room, owner, number of rows, where each begins
            return cambia(una(righe) + morsi.sotto(64));
        case 3:
            return cambia(una(mappe) + morsi.sotto(200));
        case 4: {
            const std::size_t da = una(righe);
            const std::size_t a = una(righe);
            byte.replace(a, kPagina, sano.byte.substr(da, kPagina));
            return;
        }
        default:
            return cambia(morsi.sotto(kPagina));  // what the file says of itself
    }
}

}  // namespace

/// A real `drawit2.mdb` with damaged definitions, read by the real road: refused, or the sound file's draws.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const Sano sano;
    static fuzz::Conti conti{"fuzz_struttura_jet"};
    if (!sano.archivio) return 0;
    std::string byte = sano.byte;
    fuzz::Morsi morsi{dati, n};
    while (!morsi.finiti()) guasta(byte, sano, morsi);
    sano.cartella.scrivi("drawit2.mdb", byte);
    const auto letto = apri_archivio(sano.cartella.percorso(), kTabellaWinForLife);
    if (!letto) {
        if (letto.error().motivo.empty() || n == 0) std::abort();
        conti.rifiutato();
    } else if (fuzz::stesse_estrazioni(*letto, *sano.archivio)) {
        conti.uguale();
    } else {
        conti.diverso("definizioni");
    }
    return 0;
}
