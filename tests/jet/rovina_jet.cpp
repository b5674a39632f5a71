// prova-rovina-jet [ROUNDS] [SEED]
//
// Damages good Jet files in memory, some thousand different ways, and reads each with the code of
// sortimetra-lettore-jet in a process of its own, as the programs do, but without starting a program per
// file. What the readers write is checked by the code that the programs use. A reader may fall or be stopped,
// that is what it is for; this process may not, and no damaged file may pass with another number of rows.
//
// Without the real archive at hand it damages the little that can be made by hand: a header and empty pages.

#include "files/file_sicuro.h"
#include "jet/lettura_a_parte.h"
#include "stores/apertura.h"
#include "stores/negozio_jet.h"
#include "support/archivi.h"

#include <fmt/core.h>
#include <sys/time.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace sortimetra;

constexpr int kGiri = 20'000;
constexpr std::size_t kPagina = 4096;
/// A reader of a damaged file that takes longer is stopped. The largest of the files takes a tenth of it.
constexpr itimerval kTempo{{0, 0}, {0, 400'000}};
/// A sound file is read to its end, however slow the machine.
constexpr itimerval kTempoSano{{0, 0}, {60, 0}};

/// A good file, what to read of it, and how many rows that gives (0: it is not good, and must not pass).
struct Campione {
    std::string byte;
    unsigned tabelle;
    std::size_t righe;
};

std::size_t conta(const RigheArchivio& r) {
    return r.lotto.size() + r.nazionale.size() + r.superenalotto.size() + r.winforlife.size();
}

class Rovina {
  public:
    explicit Rovina(std::uint32_t seme) : caso_{seme} {}

    std::size_t fra(std::size_t da, std::size_t a) {
        return std::uniform_int_distribution<std::size_t>{da, a}(caso_);
    }

    void rovina(std::string& byte) {
        switch (fra(0, 9)) {
            case 0:  // cut at a page
                byte.resize(fra(1, byte.size() / kPagina) * kPagina);
                break;
            case 1:  // cut anywhere
                byte.resize(fra(1, byte.size()));
                break;
            case 2:  // one page in the place of another
                byte.replace(pagina(byte), kPagina, byte.substr(pagina(byte), kPagina));
                break;
            case 3:  // a page of zeroes
                byte.replace(pagina(byte), kPagina, std::string(kPagina, '\0'));
                break;
            default:
                break;
        }
        for (std::size_t n = fra(0, 2) == 0 ? fra(20, 200) : fra(1, 8); n > 0 && !byte.empty(); --n)
            cambia(byte);
    }

  private:
    std::size_t pagina(const std::string& byte) {
        return byte.size() < kPagina ? 0 : fra(0, byte.size() / kPagina - 1) * kPagina;
    }
    void cambia(std::string& byte) {
        // The head of a page says how the rest is to be read: half of the changes go there.
        std::size_t dove = fra(0, byte.size() - 1);
        if (fra(0, 1) == 0) dove = std::min(pagina(byte) + fra(0, 80), byte.size() - 1);
        switch (fra(0, 3)) {
            case 0:
                byte[dove] = static_cast<char>(0xFF);
                break;
            case 1:
                byte[dove] = static_cast<char>(byte[dove] ^ static_cast<char>(1U << fra(0, 7)));
                break;
            default:
                byte[dove] = static_cast<char>(fra(0, 255));
        }
    }
    std::mt19937 caso_;
};

using prove::leggi_a_parte;
using prove::LettoAParte;

std::vector<Campione> campioni() {
    std::vector<Campione> tutti;
    if (const auto condivisa = prove::cartella_condivisa()) {
        for (const auto& [nome, tabelle] :
             {std::pair{"drawit2.mdb", unsigned{kTabellaWinForLife}},
              std::pair{"drawit.mdb", unsigned{kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto}}}) {
            auto byte = leggi_file(*condivisa / "archivio" / nome);
            if (!byte) continue;
            const LettoAParte letto = leggi_a_parte(*byte, tabelle, kTempoSano);
            const auto righe = interpreta_lettura_jet(letto.byte, tabelle);
            if (!righe) {
                fmt::print("{}: {}\n", nome, righe.error());
                std::exit(1);
            }
            tutti.push_back({std::move(*byte), tabelle, conta(*righe)});
        }
    }
    if (tutti.empty()) {
        std::string byte{"\0\1\0\0Standard Jet DB\0\1\0\0\0", 24};
        byte.resize(30 * kPagina);
        for (std::size_t p = 1; p < 30; ++p) byte[p * kPagina] = static_cast<char>(p % 6);
        tutti.push_back({std::move(byte), kTabellaWinForLife, 0});
    }
    return tutti;
}

}  // namespace

int main(int argc, char** argv) {
    const int giri = argc > 1 ? std::atoi(argv[1]) : kGiri;
    const auto seme = static_cast<std::uint32_t>(argc > 2 ? std::atoi(argv[2]) : 1);
    const auto inizio = std::chrono::steady_clock::now();
    const std::vector<Campione> tutti = campioni();
    std::map<std::string, int> esiti;
    int sbagliati = 0;
    for (int giro = 0; giro < giri; ++giro) {
        // The large file takes twenty times as long: one round in five hundred.
        const Campione& buono = tutti[giro % 500 == 499 ? tutti.size() - 1 : 0];
        Rovina rovina{seme * 1'000'003U + static_cast<std::uint32_t>(giro)};
        std::string byte = buono.byte;
        rovina.rovina(byte);
        const LettoAParte letto = leggi_a_parte(byte, buono.tabelle, kTempo);
        auto righe = interpreta_lettura_jet(letto.byte, buono.tabelle);
        if (WIFSIGNALED(letto.stato))
            ++esiti[WTERMSIG(letto.stato) == SIGALRM || WTERMSIG(letto.stato) == SIGXCPU ? "lettori fermati"
                                                                                         : "lettori caduti"];
        if (!righe) {
            ++esiti["file rifiutati"];
            if (righe.error().empty()) ++sbagliati;
            continue;
        }
        ++esiti["file letti per intero"];
        if (WIFSIGNALED(letto.stato) || conta(*righe) != buono.righe) {
            ++sbagliati;
            fmt::print("seme {}, giro {}: {} righe invece di {}\n", seme, giro, conta(*righe), buono.righe);
        }
        (void)ArchivioEstrazioni::componi(std::move(*righe));
    }
    const auto secondi = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
    fmt::print("{} giri in {:.1f} s\n", giri, secondi);
    for (const auto& [esito, quanti] : esiti) fmt::print("  {}: {}\n", esito, quanti);
    return sbagliati == 0 ? 0 : 1;
}
