// prova-rovina-definizioni [STEP [BITS2 [BITS]]]
//
// Turns, one at a time, the bits of the definitions of the tables in good Jet files: every STEP-th one (1:
// all, which takes minutes; 0: none). What is then read must be refused or be the very rows of the good file.
// A definition that is read otherwise gives other values without a fault: an empty first place, one date for
// all draws.
//
// Then so many bits anywhere in drawit2.mdb and in drawit.mdb. One that makes of one cell another that could
// be is past remedy, for the file carries no digest of its rows; whatever more is another is a fault.
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
#include <array>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace sortimetra;

constexpr std::size_t kPagina = 4096;
constexpr itimerval kTempo{{0, 0}, {10, 0}};

std::uint32_t u32(const std::string& byte, std::size_t dove) {
    std::uint32_t n = 0;
    for (std::size_t i = 4; i-- > 0;) n = n << 8U | static_cast<unsigned char>(byte[dove + i]);
    return n;
}

/// The rows that a reader wrote, if the archive opens with them.
std::optional<RigheArchivio> interpretate(std::string_view scritte, unsigned tabelle) {
    auto righe = interpreta_lettura_jet(scritte, tabelle);
    if (!righe) return std::nullopt;
    const auto archivio = ArchivioEstrazioni::componi(*righe);
    if (!archivio || primo_danno(*archivio)) return std::nullopt;
    return std::move(*righe);
}
std::optional<RigheArchivio> apri(std::string& byte, unsigned tabelle) {
    return interpretate(prove::leggi_a_parte(byte, tabelle, kTempo).byte, tabelle);
}

std::vector<ImprontaTabella> impronte(const RigheArchivio& righe, unsigned tabelle) {
    std::vector<ImprontaTabella> tutte;
    for (unsigned bit = 1; bit <= kTabellaWinForLife; bit *= 2)
        if ((tabelle & bit) != 0) tutte.push_back(impronta(righe, bit, false));
    return tutte;
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

// ---- one bit anywhere ----

/// The cells of a row, each with what it is.
using Celle = std::vector<std::pair<std::string_view, std::string>>;

template <std::size_t N>
void metti_numeri(Celle& celle, const std::array<Numero, N>& numeri) {
    for (const Numero n : numeri) celle.emplace_back("numero", n == 0 ? "" : std::to_string(n));
}
template <class Riga>
Celle celle(const Riga& r) {
    Celle c{{"concorso", std::to_string(r.concorso)}, {"data", testo_data(r.data)}};
    if constexpr (std::is_same_v<Riga, RigaLotto>) c.emplace_back("ruota", std::to_string(r.ruota));
    if constexpr (std::is_same_v<Riga, RigaWinForLife>) c.emplace_back("ora", r.ora);
    metti_numeri(c, r.numeri);
    if constexpr (std::is_same_v<Riga, RigaSuperEnalotto>) metti_numeri(c, std::array{r.jolly, r.superstar});
    return c;
}

/// A cell that is different.
struct CellaDiversa {
    std::size_t riga;
    std::size_t colonna;
    std::string_view cosa;
    std::string prima;
    std::string dopo;

    [[nodiscard]] std::string classe() const {
        const bool vuota = dopo.find_first_not_of(' ') == std::string::npos;
        return fmt::format("{} {}", cosa, vuota ? "che sparisce" : "in altro");
    }
};
struct Differenze {
    std::vector<CellaDiversa> celle;
    bool righe = false;  ///< not as many rows
};

template <class Riga>
void confronta(const std::vector<Riga>& sane, const std::vector<Riga>& lette, Differenze& d) {
    if (sane.size() != lette.size()) {
        d.righe = true;
        return;
    }
    for (std::size_t i = 0; i < sane.size(); ++i) {
        if (sane[i] == lette[i]) continue;
        const Celle prima = celle(sane[i]);
        const Celle dopo = celle(lette[i]);
        for (std::size_t k = 0; k < prima.size(); ++k) {
            if (prima[k] != dopo[k])
                d.celle.push_back({i, k, prima[k].first, prima[k].second, dopo[k].second});
        }
    }
}

/// Whether two numbers that stand as texts beside each other were parted at another place: "7", "45" for
/// "74", "5". One may be left without a letter, or with "0" alone, which is no number.
bool confine(const std::vector<CellaDiversa>& celle) {
    if (celle.size() != 2 || celle[0].riga != celle[1].riga || celle[0].colonna + 1 != celle[1].colonna)
        return false;
    const std::string prima = celle[0].prima + celle[1].prima;
    const std::string& primo = celle[0].dopo;
    const std::string& secondo = celle[1].dopo;
    return prima == primo + secondo ||
           prima == (primo.empty() ? "0" : primo) + (secondo.empty() ? "0" : secondo);
}
constexpr std::string_view kConfine = "due celle: altro confine fra due testi";

/// In which class a file with a wrong bit belongs that was accepted with other rows.
std::string classe(const RigheArchivio& sane, const RigheArchivio& lette) {
    Differenze d;
    confronta(sane.lotto, lette.lotto, d);
    confronta(sane.nazionale, lette.nazionale, d);
    confronta(sane.superenalotto, lette.superenalotto, d);
    confronta(sane.winforlife, lette.winforlife, d);
    if (d.righe) return "altro numero di righe";
    if (d.celle.size() == 1) return "una cella: " + d.celle.front().classe();
    if (confine(d.celle)) return std::string{kConfine};
    std::string tutte;
    for (std::size_t i = 0; i < std::min<std::size_t>(d.celle.size(), 4); ++i)
        tutte += (i == 0 ? "" : ", ") + d.celle[i].classe();
    return fmt::format("{} celle: {}", d.celle.size(), tutte);
}

/// One cell that is another that could be, or where one ends and the next begins: the file carries nothing by
/// which to know it. (An empty one is told by the examination.)
bool senza_rimedio(std::string_view classe) {
    return classe.starts_with("una cella: ") || classe == kConfine;
}

/// Returns how many files were accepted in which more is another than one cell.
int rovina_ovunque(std::string& byte, unsigned tabelle, int bit, std::string_view nome) {
    const auto sano = apri(byte, tabelle);
    if (!sano) std::exit(2);
    const std::string scritte = prove::leggi_a_parte(byte, tabelle, kTempo).byte;
    std::mt19937 caso{1};
    std::uniform_int_distribution<std::size_t> dove{0, byte.size() * 8 - 1};
    Conto conto;
    std::map<std::string, int> classi;
    int di_troppo = 0;
    for (int i = 0; i < bit; ++i) {
        const std::size_t b = dove(caso);
        const char quale = static_cast<char>(1U << b % 8);
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ quale);
        ++conto.provati;
        const auto letto = prove::leggi_a_parte(byte, tabelle, kTempo);
        byte[b / 8] = static_cast<char>(byte[b / 8] ^ quale);
        const auto righe = letto.byte == scritte ? sano : interpretate(letto.byte, tabelle);
        if (!righe) continue;
        ++conto.accettati;
        if (letto.byte == scritte || impronte(*righe, tabelle) == impronte(*sano, tabelle)) continue;
        ++conto.diversi;
        const std::string quale_classe = classe(*sano, *righe);
        ++classi[quale_classe];
        if (senza_rimedio(quale_classe)) continue;
        fmt::print("  byte {}, bit {}: {}\n", b / 8, b % 8, quale_classe);
        ++di_troppo;
    }
    fmt::print("{}, un bit ovunque: {} provati, {} accettati, {} diversi, {} che si potevano sapere\n", nome,
               conto.provati, conto.accettati, conto.diversi, di_troppo);
    for (const auto& [quale_classe, volte] : classi) fmt::print("  {}: {} volte\n", quale_classe, volte);
    return di_troppo;
}

}  // namespace

int main(int argc, char** argv) {
    const auto passo = static_cast<std::size_t>(argc > 1 ? std::max(0, std::atoi(argv[1])) : 1);
    const auto condivisa = prove::cartella_condivisa();
    if (!condivisa) return 0;
    auto drawit = leggi_file(*condivisa / "archivio" / "drawit.mdb");
    auto drawit2 = leggi_file(*condivisa / "archivio" / "drawit2.mdb");
    if (!drawit || !drawit2) return 0;
    int diversi = 0;
    if (passo > 0) {
        diversi += rovina(*drawit2, kTabellaWinForLife, passo, "archivio di drawit2").diversi;
        diversi += rovina(*drawit, kTabellaNazionale, passo * 3, "archivion").diversi;
        diversi += rovina(*drawit, kTabellaSuperEnalotto, passo * 3, "archivios").diversi;
        // Ten times as long as the others.
        diversi += rovina(*drawit, kTabellaLotto, passo * 10, "archivio").diversi;
    }
    constexpr unsigned kDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;
    if (argc > 2) diversi += rovina_ovunque(*drawit2, kTabellaWinForLife, std::atoi(argv[2]), "drawit2");
    if (argc > 3) diversi += rovina_ovunque(*drawit, kDrawit, std::atoi(argv[3]), "drawit");
    return diversi == 0 ? 0 : 1;
}
