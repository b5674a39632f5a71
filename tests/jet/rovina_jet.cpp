// prova-rovina-jet [ROUNDS] [SEED]
//
// Damages good Jet files in memory, some thousand different ways, and reads each with the code of
// sortimetra-lettore-jet in a process of its own, as the programs do, but without starting a program per
// file. What the readers write is checked by the code that the programs use. A reader may fall or be stopped,
// that is what it is for; this process may not, and no damaged file may pass with another number of rows.
//
// Without the real archive at hand it damages the little that can be made by hand: a header and empty pages.

#include "files/file_sicuro.h"
#include "jet/lettura.h"
#include "jet/recinto.h"
#include "stores/apertura.h"
#include "stores/negozio_jet.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <poll.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
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
constexpr std::size_t kMemoria = std::size_t{1} << 30;

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

[[noreturn]] void leggi_nel_figlio(std::string& byte, unsigned tabelle, int uscita, const itimerval& tempo) {
    const int nulla = open("/dev/null", O_WRONLY);
    dup2(nulla, STDERR_FILENO);
    jet::limita(kMemoria, static_cast<unsigned>(tempo.it_value.tv_sec) + 1);
    setitimer(ITIMER_REAL, &tempo, nullptr);
    // Within the fence, as in the program: what the library needs of the system shows here.
    dup2(uscita, STDOUT_FILENO);
    if (!jet::chiudi_recinto()) _exit(1);
    jet::leggi(byte.data(), byte.size(), tabelle, [](std::string_view pezzo) {
        while (!pezzo.empty()) {
            const ssize_t n = write(STDOUT_FILENO, pezzo.data(), pezzo.size());
            if (n <= 0) _exit(1);
            pezzo.remove_prefix(static_cast<std::size_t>(n));
        }
    });
    _exit(0);
}

struct Letto {
    std::string byte;
    int stato = 0;
};

Letto leggi(std::string& byte, unsigned tabelle, const itimerval& tempo) {
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0) std::abort();
    const pid_t pid = fork();
    if (pid < 0) std::abort();
    if (pid == 0) leggi_nel_figlio(byte, tabelle, tubo[1], tempo);
    close(tubo[1]);
    Letto letto;
    std::array<char, 1 << 16> pezzo;
    for (;;) {
        const ssize_t n = read(tubo[0], pezzo.data(), pezzo.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        letto.byte.append(pezzo.data(), static_cast<std::size_t>(n));
    }
    close(tubo[0]);
    waitpid(pid, &letto.stato, 0);
    return letto;
}

std::vector<Campione> campioni() {
    std::vector<Campione> tutti;
    if (const auto condivisa = prove::cartella_condivisa()) {
        for (const auto& [nome, tabelle] :
             {std::pair{"drawit2.mdb", unsigned{kTabellaWinForLife}},
              std::pair{"drawit.mdb", unsigned{kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto}}}) {
            auto byte = leggi_file(*condivisa / "archivio" / nome);
            if (!byte) continue;
            const Letto letto = leggi(*byte, tabelle, kTempoSano);
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
        const Letto letto = leggi(byte, buono.tabelle, kTempo);
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
