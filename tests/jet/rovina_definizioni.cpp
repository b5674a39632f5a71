// prova-rovina-definizioni [STEP]
//
// Turns, one at a time, the bits of the definitions of the tables in good Jet files: every STEP-th one (1:
// all, which takes minutes). What is then read must be refused or be the very rows of the good file. A
// definition that is read otherwise gives other values without a fault: an empty first place, one date for
// all draws.
//
// Without the real archive at hand there is nothing to turn.

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "jet/lettura_a_parte.h"
#include "stores/apertura.h"
#include "stores/impronta.h"
#include "stores/negozio_jet.h"
#include "support/archivi.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>

namespace {

using namespace sortimetra;

constexpr std::size_t kPagina = 4096;
constexpr itimerval kTempo{{0, 0}, {10, 0}};

std::uint32_t u32(const std::string& byte, std::size_t dove) {
    std::uint32_t n = 0;
    for (std::size_t i = 4; i-- > 0;) n = n << 8U | static_cast<unsigned char>(byte[dove + i]);
    return n;
}

/// The rows, if the archive opens with them.
std::optional<RigheArchivio> apri(std::string& byte, unsigned tabella) {
    const auto letto = prove::leggi_a_parte(byte, tabella, kTempo);
    auto righe = interpreta_lettura_jet(letto.byte, tabella);
    if (!righe) return std::nullopt;
    const auto archivio = ArchivioEstrazioni::componi(*righe);
    if (!archivio || primo_danno(*archivio)) return std::nullopt;
    return std::move(*righe);
}

/// Where the definition of the table stands that has so many rows: of the page's 4,096 bytes, those in use.
std::optional<std::pair<std::size_t, std::size_t>> definizione(const std::string& byte, std::uint64_t righe) {
    for (std::size_t p = kPagina; p + kPagina <= byte.size(); p += kPagina)
        if (byte[p] == 2 && u32(byte, p + 16) == righe)
            return std::pair{p, p + std::min<std::size_t>(kPagina, u32(byte, p + 8) + 8)};
    return std::nullopt;
}

struct Conto {
    int provati = 0;
    int accettati = 0;
    int diversi = 0;
};

Conto rovina(std::string& byte, unsigned tabella, std::size_t passo, std::string_view nome) {
    Conto conto;
    const auto sano = apri(byte, tabella);
    if (!sano) {
        fmt::print("{}: il file sano non si apre\n", nome);
        std::exit(2);
    }
    const ImprontaTabella attesa = impronta(*sano, tabella, false);
    const auto dove = definizione(byte, attesa.righe);
    if (!dove) std::exit(2);
    for (std::size_t b = dove->first * 8; b < dove->second * 8; b += passo) {
        const char bit = static_cast<char>(1U << b % 8);
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ bit);
        ++conto.provati;
        if (const auto righe = apri(byte, tabella)) {
            ++conto.accettati;
            if (impronta(*righe, tabella, false) != attesa) {
                ++conto.diversi;
                fmt::print("  {}: byte {} della definizione, bit {}: altre righe\n", nome,
                           b / 8 - dove->first, b % 8);
            }
        }
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ bit);
    }
    fmt::print("{}: {} provati, {} accettati, {} diversi\n", nome, conto.provati, conto.accettati,
               conto.diversi);
    return conto;
}

/// Rows of Win for Life that are not the same in both.
std::size_t righe_diverse(const RigheArchivio& a, const RigheArchivio& b) {
    const auto campi = [](const RigaWinForLife& r) { return std::tie(r.concorso, r.data, r.ora, r.numeri); };
    if (a.winforlife.size() != b.winforlife.size()) return a.winforlife.size();
    std::size_t diverse = 0;
    for (std::size_t i = 0; i < a.winforlife.size(); ++i)
        if (campi(a.winforlife[i]) != campi(b.winforlife[i])) ++diverse;
    return diverse;
}

/// Returns how many files were accepted in which more rows are other ones than a bit can touch.
int rovina_ovunque(std::string& byte, int bit) {
    // The end of a row is the beginning of the next.
    constexpr std::size_t kRigheDiUnBit = 2;
    const auto sano = apri(byte, kTabellaWinForLife);
    std::mt19937 caso{1};
    std::uniform_int_distribution<std::size_t> dove{0, byte.size() * 8 - 1};
    Conto conto;
    std::map<std::size_t, int> per_righe;
    for (int i = 0; i < bit; ++i) {
        const std::size_t b = dove(caso);
        const char quale = static_cast<char>(1U << b % 8);
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ quale);
        ++conto.provati;
        if (const auto righe = apri(byte, kTabellaWinForLife)) {
            ++conto.accettati;
            if (const std::size_t diverse = righe_diverse(*sano, *righe); diverse > 0) {
                ++conto.diversi;
                ++per_righe[diverse];
            }
        }
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ quale);
    }
    fmt::print("drawit2, un bit ovunque: {} provati, {} accettati, {} diversi\n", conto.provati,
               conto.accettati, conto.diversi);
    int troppe = 0;
    for (const auto& [quante, volte] : per_righe) {
        fmt::print("  {} righe diverse: {} volte\n", quante, volte);
        if (quante > kRigheDiUnBit) troppe += volte;
    }
    return troppe;
}

}  // namespace

int main(int argc, char** argv) {
    const auto passo = static_cast<std::size_t>(argc > 1 ? std::max(1, std::atoi(argv[1])) : 1);
    const auto condivisa = prove::cartella_condivisa();
    if (!condivisa) return 0;
    auto drawit = leggi_file(*condivisa / "archivio" / "drawit.mdb");
    auto drawit2 = leggi_file(*condivisa / "archivio" / "drawit2.mdb");
    if (!drawit || !drawit2) return 0;
    int diversi = rovina(*drawit2, kTabellaWinForLife, passo, "archivio di drawit2").diversi;
    diversi += rovina(*drawit, kTabellaNazionale, passo * 3, "archivion").diversi;
    diversi += rovina(*drawit, kTabellaSuperEnalotto, passo * 3, "archivios").diversi;
    // Ten times as long as the others.
    diversi += rovina(*drawit, kTabellaLotto, passo * 10, "archivio").diversi;
    diversi += rovina_ovunque(*drawit2, argc > 2 ? std::atoi(argv[2]) : 0);
    return diversi == 0 ? 0 : 1;
}
