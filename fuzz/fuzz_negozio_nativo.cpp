#include "cartella.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/impronta.h"
#include "stores/negozio_nativo.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

namespace {

using namespace sortimetra;

constexpr std::size_t kMassimo = 1U << 20;

/// A few draws of every game; enough that a table takes more than one page.
RigheArchivio poche_righe() {
    RigheArchivio righe;
    for (int c = 1; c <= 16; ++c) {
        const Data data{std::chrono::days{10000 + c}};
        for (int w = 0; w < kRuote; ++w)
            righe.lotto.push_back({.concorso = c, .data = data, .ruota = w, .numeri = {1, 2, 3, 44, 90}});
        righe.nazionale.push_back(
            {.concorso = c, .data = data, .ruota = kNazionale, .numeri = {5, 0, 7, 8, 9}});
        righe.superenalotto.push_back(
            {.concorso = c, .data = data, .numeri = {1, 2, 3, 4, 5, 6}, .jolly = 7, .superstar = 8});
        righe.winforlife.push_back(
            {.concorso = c, .data = data, .ora = "8:00", .numeri = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
    }
    return righe;
}

/// `drawit.db` and `drawit2.db` as our own writer writes them.
std::array<std::string, 2> sani(const std::filesystem::path& cartella) {
    const RigheArchivio righe = poche_righe();
    if (!scrivi_drawit(cartella / "drawit.db", righe, false)) std::abort();
    if (!scrivi_drawit2(cartella / "drawit2.db", righe, true)) std::abort();
    auto primo = leggi_file(cartella / "drawit.db", kMassimo);
    auto secondo = leggi_file(cartella / "drawit2.db", kMassimo);
    if (!primo || !secondo) std::abort();
    return {std::move(*primo), std::move(*secondo)};
}

/// A sound file with some of its bytes changed: two bytes of place, one of value, and so on. No input of a
/// few bytes would ever become a database.
std::string rovinato(std::string byte, const std::uint8_t* dati, std::size_t n) {
    for (std::size_t i = 0; i + 2 < n; i += 3)
        byte[(dati[i] + std::size_t{dati[i + 1]} * 256) % byte.size()] = static_cast<char>(dati[i + 2]);
    return byte;
}

/// Whether the header names us. Without that, and without all that goes with it, a file is one from before.
bool ha_marchio(const std::string& byte) {
    return byte.size() >= 72 && byte.substr(68, 4) == "SMTR";
}

}  // namespace

/// Any bytes, or a sound file that was damaged, as `drawit.db` and as `drawit2.db`: opening may refuse but
/// may not fall or hang, nor give other draws than the sound file has.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const fuzz::Cartella cartella;
    static const std::array<std::string, 2> interi = sani(cartella.percorso());
    static const RigheArchivio righe = poche_righe();
    static const std::filesystem::path file = cartella.percorso() / "prova.db";
    if (n == 0) return 0;
    const unsigned modo = dati[0] % 3U;
    ++dati;
    --n;
    const std::string byte = modo == 2 ? std::string{dati, dati + n} : rovinato(interi.at(modo), dati, n);
    cartella.scrivi("prova.db", byte);
    for (const unsigned tabelle : {kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto,
                                   kTabellaSuperEnalotto | kConfiniLotto, 0U + kTabellaWinForLife}) {
        auto letti = leggi_nativo(file, tabelle);
        if (!letti && letti.error().motivo.empty()) std::abort();
        // A reader that refuses everything would learn nothing here.
        if (n == 0 && modo == (tabelle == kTabellaWinForLife ? 1 : 0) && !letti) std::abort();
        if (!letti) continue;
        // What was written with digests and still has their mark is refused, or is what was written.
        if (modo != 2 && ha_marchio(byte)) {
            const bool simulato = modo == 1;
            for (unsigned bit = 1; bit <= kTabellaWinForLife; bit *= 2)
                if ((tabelle & bit) != 0 &&
                    impronta(letti->righe, bit, letti->simulato) != impronta(righe, bit, simulato))
                    std::abort();
            if (letti->confini && *letti->confini != confini_lotto(righe.lotto)) std::abort();
        }
        (void)ArchivioEstrazioni::componi(std::move(letti->righe));
    }
    return 0;
}
