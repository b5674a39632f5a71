// prova-rovina-nativo [ROWS]
//
// Damages a native file page by page, in the ways that SQLite does not notice because it believes its pages:
// each page says one cell fewer than it has; each page stands in the place of another one; each bit of the
// head of each page and of the list of its cells is turned. The file is read again each time, whole and table
// by table: it must be refused, or give the very same rows. With ROWS the archive of the demonstration
// has only so many rows of the Lotto, and fewer still of the others.

#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/dimostrazione.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace sortimetra;

constexpr std::size_t kPagina = 4096;
/// So many copies of pages over others; of a large file, which has a hundred times as many pairs, those at
/// even distances.
constexpr std::size_t kCopie = 2000;
/// Bits are turned in at most so many pages.
constexpr std::size_t kPagineConBit = 20;
/// The head of a page and the places of its first cells.
constexpr std::size_t kTesta = 12 + 8;

auto campi(const RigaLotto& r) {
    return std::tuple{r.concorso, r.data, r.ruota, r.numeri};
}
auto campi(const RigaSuperEnalotto& r) {
    return std::tuple{r.concorso, r.data, r.numeri, r.jolly, r.superstar};
}
auto campi(const RigaWinForLife& r) {
    return std::tuple{r.concorso, r.data, r.ora, r.numeri};
}
template <class Riga>
bool uguali(const std::vector<Riga>& a, const std::vector<Riga>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Riga& x, const Riga& y) { return campi(x) == campi(y); });
}

/// Whether what was read of the wanted tables is what was written.
bool uguali(const LettiNativo& letti, const RigheArchivio& righe, bool simulato, unsigned tabelle) {
    const auto voluta = [&](unsigned bit) { return (tabelle & bit) != 0; };
    if (letti.confini && *letti.confini != confini_lotto(righe.lotto)) return false;
    if (voluta(kConfiniLotto) && !letti.confini && !uguali(letti.righe.lotto, righe.lotto)) return false;
    return letti.simulato == simulato && (!voluta(kTabellaLotto) || uguali(letti.righe.lotto, righe.lotto)) &&
           (!voluta(kTabellaNazionale) || uguali(letti.righe.nazionale, righe.nazionale)) &&
           (!voluta(kTabellaSuperEnalotto) || uguali(letti.righe.superenalotto, righe.superenalotto)) &&
           (!voluta(kTabellaWinForLife) || uguali(letti.righe.winforlife, righe.winforlife));
}

struct Conto {
    int file = 0;
    int letture = 0;
    int accettate = 0;
    int diverse = 0;
};

/// A sound file, and the same with some bytes changed, tried and put right again.
class Prova {
  public:
    Prova(std::filesystem::path file, const RigheArchivio& righe, std::vector<unsigned> tabelle)
        : file_{std::move(file)}, righe_{righe}, tabelle_{std::move(tabelle)} {
        byte_ = leggi_file(file_).value();
        descrittore_ = open(file_.c_str(), O_RDWR | O_CLOEXEC);
        if (descrittore_ < 0) std::abort();
    }
    Prova(const Prova&) = delete;
    Prova& operator=(const Prova&) = delete;
    ~Prova() { close(descrittore_); }

    [[nodiscard]] const std::string& byte() const { return byte_; }
    [[nodiscard]] std::size_t pagine() const { return byte_.size() / kPagina; }

    void cambia(Conto& conto, std::size_t dove, std::string_view nuovi, const std::string& come) {
        if (std::string_view{byte_}.substr(dove, nuovi.size()) == nuovi) return;
        scrivi(dove, nuovi);
        ++conto.file;
        for (const unsigned tabelle : tabelle_) {
            ++conto.letture;
            const auto letti = leggi_nativo(file_, tabelle);
            if (!letti) continue;
            ++conto.accettate;
            if (uguali(*letti, righe_, true, tabelle)) continue;
            ++conto.diverse;
            fmt::print("  {}: {}, tabelle {}: altre righe\n", file_.filename().string(), come, tabelle);
        }
        scrivi(dove, std::string_view{byte_}.substr(dove, nuovi.size()));
    }

  private:
    void scrivi(std::size_t dove, std::string_view byte) const {
        if (pwrite(descrittore_, byte.data(), byte.size(), static_cast<off_t>(dove)) !=
            static_cast<ssize_t>(byte.size()))
            std::abort();
    }
    std::filesystem::path file_;
    const RigheArchivio& righe_;
    std::vector<unsigned> tabelle_;
    std::string byte_;
    int descrittore_ = -1;
};

/// Where the head of a page begins: the first one has that of the file before it.
std::size_t testa(std::size_t pagina) {
    return pagina == 0 ? 100 : pagina * kPagina;
}

Conto meno_una_cella(Prova& prova) {
    Conto conto;
    for (std::size_t p = 0; p < prova.pagine(); ++p) {
        const std::size_t t = testa(p);
        const auto tipo = static_cast<unsigned char>(prova.byte()[t]);
        if (tipo != 2 && tipo != 5 && tipo != 10 && tipo != 13) continue;
        const unsigned celle = static_cast<unsigned char>(prova.byte()[t + 3]) * 256U +
                               static_cast<unsigned char>(prova.byte()[t + 4]);
        if (celle == 0) continue;
        const std::array<char, 2> meno{static_cast<char>((celle - 1) / 256),
                                       static_cast<char>((celle - 1) % 256)};
        prova.cambia(conto, t + 3, {meno.data(), 2},
                     fmt::format("pagina {}, {} celle invece di {}", p + 1, celle - 1, celle));
    }
    return conto;
}

Conto una_per_l_altra(Prova& prova) {
    Conto conto;
    const std::size_t coppie = prova.pagine() * prova.pagine();
    // (No multiple of the pages: that would be one page over all others.)
    std::size_t passo = std::max<std::size_t>(1, coppie / kCopie);
    if (passo % prova.pagine() == 0) ++passo;
    for (std::size_t coppia = 0; coppia < coppie; coppia += passo) {
        const std::size_t da = coppia / prova.pagine();
        const std::size_t a = coppia % prova.pagine();
        if (da == a) continue;
        prova.cambia(conto, a * kPagina, std::string_view{prova.byte()}.substr(da * kPagina, kPagina),
                     fmt::format("pagina {} sulla {}", da + 1, a + 1));
    }
    return conto;
}

Conto un_bit(Prova& prova) {
    Conto conto;
    const std::size_t passo = std::max<std::size_t>(1, prova.pagine() / kPagineConBit);
    for (std::size_t p = 0; p < prova.pagine(); p += passo)
        for (std::size_t i = p == 0 ? 0 : testa(p); i < testa(p) + kTesta; ++i)
            for (unsigned bit = 0; bit < 8; ++bit) {
                const char nuovo = static_cast<char>(prova.byte()[i] ^ static_cast<char>(1U << bit));
                prova.cambia(conto, i, {&nuovo, 1},
                             fmt::format("byte {} della pagina {}, bit {}", i % kPagina, p + 1, bit));
            }
    return conto;
}

int prova_file(const std::filesystem::path& file, const RigheArchivio& righe, std::vector<unsigned> tabelle) {
    Prova prova{file, righe, std::move(tabelle)};
    int diversi = 0;
    const auto dillo = [&](std::string_view come, const Conto& c) {
        fmt::print("{} ({} pagine), {}: {} file, {} letture, {} accettate, {} diverse\n",
                   file.filename().string(), prova.pagine(), come, c.file, c.letture, c.accettate, c.diverse);
        diversi += c.diverse;
    };
    dillo("una cella in meno", meno_una_cella(prova));
    dillo("una pagina per l'altra", una_per_l_altra(prova));
    dillo("un bit", un_bit(prova));
    return diversi;
}

}  // namespace

int main(int argc, char** argv) {
    RigheArchivio righe = archivio_dimostrativo();
    if (const int quante = argc > 1 ? std::atoi(argv[1]) : 0; quante > 0) {
        const auto n = static_cast<std::size_t>(quante);
        righe.lotto.resize(std::min(righe.lotto.size(), n));
        righe.nazionale.resize(std::min(righe.nazionale.size(), n / 4));
        righe.superenalotto.resize(std::min(righe.superenalotto.size(), n / 4));
        righe.winforlife.resize(std::min(righe.winforlife.size(), n / 4));
    }
    const prove::CartellaProva cartella;
    const auto drawit = cartella.percorso() / "drawit.db";
    const auto drawit2 = cartella.percorso() / "drawit2.db";
    if (!scrivi_drawit(drawit, righe, true) || !scrivi_drawit2(drawit2, righe, true)) return 2;
    constexpr unsigned kTutte = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;
    std::vector<unsigned> letture{kTutte};
    // A table may also be read alone; of a small file there is time for it.
    if (argc > 1)
        letture.insert(letture.end(), {kTabellaLotto, kTabellaNazionale, kTabellaSuperEnalotto,
                                       kTabellaSuperEnalotto | kConfiniLotto});
    const int diversi =
        prova_file(drawit, righe, std::move(letture)) + prova_file(drawit2, righe, {kTabellaWinForLife});
    return diversi == 0 ? 0 : 1;
}
