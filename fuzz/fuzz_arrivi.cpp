#include "cartella.h"
#include "draws/esame.h"
#include "stores/aggiorna.h"
#include "stores/apertura.h"
#include "stores/arrivi.h"
#include "stores/negozio_nativo.h"
#include "text/ora.h"
#include "text/testi.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace sortimetra;
using std::chrono::year;

constexpr unsigned kDue = 1U;          ///< of the first byte: two arrivals
constexpr unsigned kSostituisci = 2U;  ///< what arrived differently takes the old one's place

/// Three Lotto draws of a week, the wheel of Firenze of the second one missing; SuperEnalotto without the
/// middle one; two hours of Win for Life, and a third two hours later.
RigheArchivio poche_righe() {
    constexpr Data kPrima{year{2001} / 6 / 2};
    constexpr int kFirenze = 2;
    RigheArchivio righe;
    for (int c = 1; c <= 3; ++c) {
        const Data data = kPrima + std::chrono::days{4 * (c - 1)};
        for (int w = 0; w < kRuote; ++w)
            if (c != 2 || w != kFirenze)
                righe.lotto.push_back({.concorso = c, .data = data, .ruota = w, .numeri = {1, 2, 3, 44, 90}});
        righe.nazionale.push_back(
            {.concorso = c, .data = data, .ruota = kNazionale, .numeri = {5, 0, 7, 8, 9}});
        if (c != 2)
            righe.superenalotto.push_back(
                {.concorso = c, .data = data, .numeri = {1, 2, 3, 4, 5, 6}, .jolly = 7, .superstar = 8});
        constexpr std::array<std::string_view, 3> kOre{"08:00", "09:00", "11:00"};
        righe.winforlife.push_back({.concorso = c,
                                    .data = kPrima,
                                    .ora = std::string{kOre.at(static_cast<std::size_t>(c - 1))},
                                    .numeri = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
    }
    return righe;
}

/// An archive that something arrives for, and what of it may never be lost.
struct Archivio {
    std::filesystem::path cartella;
    RigheArchivio righe{};
};

/// A real one, none, a simulated one.
struct Archivi {
    fuzz::Cartella cartella;
    std::array<Archivio, 3> tutti{{{cartella.percorso() / "vero", poche_righe()},
                                   {cartella.percorso() / "nessuno"},
                                   {cartella.percorso() / "simulato"}}};

    Archivi() {
        for (const std::size_t i : {0U, 2U}) {
            const auto& dove = tutti.at(i).cartella;
            std::filesystem::create_directory(dove);
            if (!scrivi_drawit(dove / "drawit.db", poche_righe(), i == 2) ||
                !scrivi_drawit2(dove / "drawit2.db", poche_righe(), i == 2))
                std::abort();
        }
    }
};

/// Whether `segue(a, b)` holds for each row and the next, and no number is above `massimo`.
template <class Riga, class Segue>
void guarda(const std::vector<Riga>& righe, int massimo, Segue segue) {
    for (std::size_t i = 0; i < righe.size(); ++i) {
        if (i > 0 && !segue(righe[i - 1], righe[i])) std::abort();
        if (righe[i].data < kPrimaData || righe[i].data > kUltimaData) std::abort();
        for (const Numero n : righe[i].numeri)
            if (n > massimo) std::abort();
    }
}

int minuti(const RigaWinForLife& r) {
    const auto letta = leggi_ora(rifila(r.ora));
    if (!letta) std::abort();
    return *letta;
}

/// What was taken is by date, each draw once, with numbers that can be.
void guarda(const Arrivate& a) {
    const RigheArchivio& r = a.righe;
    if (a.testi.empty() || !r.nazionale.empty()) std::abort();
    if (r.lotto.empty() && r.superenalotto.empty() && r.winforlife.empty()) std::abort();
    for (const TestoArrivato& t : a.testi)
        if (t.estrazioni == 0 || t.prima > t.ultima) std::abort();
    guarda(r.lotto, kNumeri, [](const RigaLotto& x, const RigaLotto& y) {
        return std::pair{x.data, x.ruota} < std::pair{y.data, y.ruota};
    });
    for (const RigaLotto& x : r.lotto)
        if (x.ruota < 0 || (x.ruota >= kRuote && x.ruota != kNazionale)) std::abort();
    guarda(r.superenalotto, kNumeri,
           [](const RigaSuperEnalotto& x, const RigaSuperEnalotto& y) { return x.data < y.data; });
    for (const RigaSuperEnalotto& x : r.superenalotto)
        if (x.jolly > kNumeri || x.superstar > kNumeri) std::abort();
    guarda(r.winforlife, kNumeriWinForLife, [](const RigaWinForLife& x, const RigaWinForLife& y) {
        return std::pair{x.data, minuti(x)} < std::pair{y.data, minuti(y)};
    });
}

bool stesse(const RigheArchivio& a, const RigheArchivio& b) {
    return a.lotto == b.lotto && a.superenalotto == b.superenalotto && a.winforlife == b.winforlife;
}

template <class Riga>
void guarda_restano(const std::vector<Riga>& prima, const std::vector<Riga>& dopo) {
    for (const Riga& r : prima)
        if (std::find(dopo.begin(), dopo.end(), r) == dopo.end()) std::abort();
}

/// What would be written can be an archive, and has all that stands.
void guarda(Proposta p, const Archivio& archivio) {
    for (const std::string& riga : racconta(p))
        if (riga.empty()) std::abort();
    if (p.modo.differenze == Differenze::elenca) {
        if (p.nuovo.drawit == Destino::Nuovo) {
            guarda_restano(archivio.righe.lotto, p.nuovo.righe.lotto);
            guarda_restano(archivio.righe.nazionale, p.nuovo.righe.nazionale);
            guarda_restano(archivio.righe.superenalotto, p.nuovo.righe.superenalotto);
        }
        if (p.nuovo.drawit2 == Destino::Nuovo)
            guarda_restano(archivio.righe.winforlife, p.nuovo.righe.winforlife);
        // A real file that stands never goes.
        if (!archivio.righe.lotto.empty() &&
            (p.nuovo.drawit == Destino::Tolto || p.nuovo.drawit2 == Destino::Tolto))
            std::abort();
    }
    const auto composto = ArchivioEstrazioni::componi(std::move(p.nuovo.righe));
    if (!composto) std::abort();
    // What is proposed can be done: nothing that an opening would call damage.
    if (primo_danno(*composto)) std::abort();
}

void guarda(const ErroreArchivio& errore) {
    if (errore.motivo.empty() || errore.testo().empty()) std::abort();
}

}  // namespace

/// Any bytes as what arrived, in one piece or two: refused with a reason, or draws that can be, which an
/// update puts to an archive without taking anything from it. The first byte says how, and to which archive;
/// of two pieces the next two say how long the first is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const Archivi archivi;
    if (n < 3) return 0;
    const unsigned modo = dati[0];
    const Archivio& archivio = archivi.tutti.at((modo >> 2U) % archivi.tutti.size());
    const std::size_t primo = dati[1] + std::size_t{dati[2]} * 256;
    const std::string_view byte{reinterpret_cast<const char*>(dati) + 3, n - 3};
    std::vector<Arrivo> arrivi{{"uno", std::string{byte}}};
    if ((modo & kDue) != 0) {
        const std::size_t lungo = std::min(primo, byte.size());
        arrivi = {{"uno", std::string{byte.substr(0, lungo)}}, {"due", std::string{byte.substr(lungo)}}};
    }
    SenzaAvanzamento nessuno;
    const auto arrivate = leggi_arrivi(arrivi, nessuno);
    if (!arrivate) {
        guarda(arrivate.error());
        return 0;
    }
    guarda(*arrivate);
    std::vector<Arrivo> ancora = arrivi;
    ancora.insert(ancora.end(), arrivi.begin(), arrivi.end());
    const auto due_volte = leggi_arrivi(ancora, nessuno);
    if (!due_volte || !stesse(due_volte->righe, arrivate->righe)) std::abort();

    const ModoAggiorna come{
        .oggi = Data{year{2030} / 12 / 31},
        .differenze = (modo & kSostituisci) != 0 ? Differenze::sostituisci : Differenze::elenca};
    auto proposta = proponi(archivio.cartella, *arrivate, come, nessuno);
    if (proposta)
        guarda(std::move(*proposta), archivio);
    else
        guarda(proposta.error());
    return 0;
}
