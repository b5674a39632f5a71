#include "stores/processo_lettore.h"

#include "files/descrittore.h"
#include "files/file_sicuro.h"
#include "stores/protocollo.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <poll.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace sortimetra {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Output comes in pieces of at most this size.
constexpr std::size_t kPezzo = std::size_t{1} << 20;

constexpr std::string_view kNonFinisce = "il file è danneggiato: la lettura non finisce";
constexpr std::string_view kSenzaMemoria = "la memoria non basta per leggere il file";

/// While one lives, no other process of the user's can trace this one or reach its memory: who has taken the
/// reader over finds nothing to hold on to even before the fence is closed. (No core is dumped meanwhile.)
class NonTracciabile {
  public:
    NonTracciabile() {
        const std::lock_guard chiave{serratura()};
        if (vivi()++ > 0) return;
        prima() = prctl(PR_GET_DUMPABLE, 0, 0, 0, 0);
        if (prima() == 1) (void)prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
    }
    NonTracciabile(const NonTracciabile&) = delete;
    NonTracciabile& operator=(const NonTracciabile&) = delete;
    ~NonTracciabile() {
        const std::lock_guard chiave{serratura()};
        if (--vivi() == 0 && prima() == 1) (void)prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
    }

  private:
    static std::mutex& serratura() {
        static std::mutex m;
        return m;
    }
    static int& vivi() {
        static int n = 0;
        return n;
    }
    static int& prima() {
        static int p = 0;
        return p;
    }
};

std::string non_si_avvia(const std::filesystem::path& programma, int codice) {
    const auto perche = codice == EAGAIN   ? std::string_view{"il sistema non concede altri processi"}
                        : codice == ENOMEM ? std::string_view{"la memoria non basta"}
                                           : motivo_sistema(codice);
    return fmt::format("il programma {} non si avvia: {}", programma.filename().string(), perche);
}

/// What the new process is given: three descriptors, signals as at the start of a session.
class Preparazione {
  public:
    Preparazione(int file, int uscita) {
        posix_spawn_file_actions_init(&azioni_);
        posix_spawnattr_init(&attributi_);
        posix_spawn_file_actions_adddup2(&azioni_, file, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&azioni_, uscita, STDOUT_FILENO);
        // The library tells its troubles to standard error, in English and by the thousand.
        posix_spawn_file_actions_addopen(&azioni_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        sigset_t segnali;
        sigfillset(&segnali);
        posix_spawnattr_setsigdefault(&attributi_, &segnali);
        sigemptyset(&segnali);
        posix_spawnattr_setsigmask(&attributi_, &segnali);
        posix_spawnattr_setflags(&attributi_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    Preparazione(const Preparazione&) = delete;
    Preparazione& operator=(const Preparazione&) = delete;
    ~Preparazione() {
        posix_spawn_file_actions_destroy(&azioni_);
        posix_spawnattr_destroy(&attributi_);
    }

    /// The code of the system, 0 if it runs.
    int avvia(pid_t& pid, std::string programma, std::string argomento) const {
        std::array<char*, 3> argomenti{programma.data(), argomento.data(), nullptr};
        // Nothing of the user's surroundings changes how the file is read; only where libraries are found.
        std::string lingua = "LC_ALL=C";
        std::string librerie;
        std::array<char*, 3> ambiente{lingua.data(), nullptr, nullptr};
        if (const char* percorso = std::getenv("LD_LIBRARY_PATH")) {
            librerie = std::string{"LD_LIBRARY_PATH="} + percorso;
            ambiente[1] = librerie.data();
        }
        return posix_spawn(&pid, programma.c_str(), &azioni_, &attributi_, argomenti.data(), ambiente.data());
    }

  private:
    posix_spawn_file_actions_t azioni_{};
    posix_spawnattr_t attributi_{};
};

struct Processo {
    pid_t pid = -1;
    Descrittore uscita{-1};
};

std::expected<Processo, std::string> avvia(const std::filesystem::path& programma, int file,
                                           unsigned tabelle) {
    const auto fallito = [&](int codice) { return std::unexpected(non_si_avvia(programma, codice)); };
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0) return fallito(errno);
    Descrittore legge{tubo[0]};
    Descrittore scrive{tubo[1]};
    if (!legge.alza() || !scrive.alza()) return fallito(errno);
    // Room for most of the output, so that the two processes seldom wait for each other; no harm if refused.
    (void)fcntl(legge.numero(), F_SETPIPE_SZ, static_cast<int>(kPezzo));
    Processo processo;
    const int codice =
        Preparazione{file, scrive.numero()}.avvia(processo.pid, programma.string(), std::to_string(tabelle));
    if (codice != 0) return fallito(codice);
    processo.uscita = std::move(legge);
    return processo;
}

/// Waits until there is something to read; false at the deadline.
std::expected<bool, int> attendi(int descrittore, steady_clock::time_point scadenza) {
    for (;;) {
        const auto resta = std::chrono::ceil<milliseconds>(scadenza - steady_clock::now()).count();
        if (resta <= 0) return false;
        pollfd attesa{descrittore, POLLIN, 0};
        const int pronti = poll(&attesa, 1, static_cast<int>(std::min<std::int64_t>(resta, 60'000)));
        if (pronti > 0) return true;
        if (pronti < 0 && errno != EINTR) return std::unexpected(errno);
    }
}

std::expected<std::string, std::string> raccogli(const Processo& processo, const LimitiLettore& limiti) {
    const auto scadenza = steady_clock::now() + limiti.tempo;
    std::string byte;
    std::size_t letti = 0;
    for (;;) {
        const auto pronto = attendi(processo.uscita.numero(), scadenza);
        if (!pronto) return std::unexpected(std::string{motivo_sistema(pronto.error())});
        if (!*pronto) return std::unexpected(std::string{kNonFinisce});
        // One byte beyond the limit is enough to know.
        if (letti == byte.size()) byte.resize(std::min(letti * 2 + kPezzo, limiti.uscita + 1));
        const ssize_t n = read(processo.uscita.numero(), byte.data() + letti, byte.size() - letti);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return std::unexpected(std::string{motivo_sistema(errno)});
        if (n == 0) break;
        letti += static_cast<std::size_t>(n);
        if (letti > limiti.uscita)
            return std::unexpected("il file è danneggiato: contiene più righe di quante vi stiano");
    }
    byte.resize(letti);
    return byte;
}

/// How the process ended; nothing where it still runs after `tempo`.
std::optional<int> finito(pid_t pid, milliseconds tempo) {
    const auto scadenza = steady_clock::now() + tempo;
    for (auto pausa = std::chrono::microseconds{50};; pausa = std::min(pausa * 2, decltype(pausa){10'000})) {
        int stato = 0;
        const pid_t chi = waitpid(pid, &stato, WNOHANG);
        if (chi == pid) return stato;
        // (Nobody else waits for it: if there is nothing to wait for, it is gone.)
        if (chi < 0 && errno != EINTR) return 0;
        if (steady_clock::now() >= scadenza) return std::nullopt;
        std::this_thread::sleep_for(pausa);
    }
}

/// What its end alone tells; nothing where what it wrote is to be judged.
std::optional<std::string> errore_della_fine(const std::filesystem::path& programma, int stato) {
    constexpr int kNonCaricato = 127;  // the loader: a library is missing, or has no room
    if (WIFEXITED(stato)) {
        switch (WEXITSTATUS(stato)) {
            case jet::kUscitaSenzaMemoria:
                return std::string{kSenzaMemoria};
            case jet::kUscitaSenzaRecinto:
                return fmt::format("il programma {} non legge: il sistema non permette di isolarlo (seccomp)",
                                   programma.filename().string());
            case kNonCaricato:
                return fmt::format(
                    "il programma {} non si avvia: manca una libreria, oppure la memoria non basta",
                    programma.filename().string());
            default:
                return std::nullopt;
        }
    }
    // Not by us: the system takes the largest process when memory ends.
    if (WIFSIGNALED(stato) && WTERMSIG(stato) == SIGKILL) return std::string{kSenzaMemoria};
    if (WIFSIGNALED(stato) && WTERMSIG(stato) == SIGXCPU) return std::string{kNonFinisce};
    return std::nullopt;
}

}  // namespace

LimitiLettore limiti_lettore(std::uint64_t grandezza_file) {
    constexpr std::uint64_t kAlmeno = 1U << 16;
    LimitiLettore limiti;
    limiti.uscita = static_cast<std::size_t>(std::min<std::uint64_t>(
        limiti.uscita, std::min(grandezza_file, std::uint64_t{1} << 40) * 8 + kAlmeno));
    return limiti;
}

std::expected<std::string, std::string> esegui_lettore(const std::filesystem::path& programma, int file,
                                                       unsigned tabelle, const LimitiLettore& limiti) {
    const NonTracciabile chiuso;
    const auto processo = avvia(programma, file, tabelle);
    if (!processo) return std::unexpected(processo.error());
    auto byte = raccogli(*processo, limiti);
    const auto stato = byte ? finito(processo->pid, limiti.congedo) : std::nullopt;
    if (!stato) {
        (void)kill(processo->pid, SIGKILL);
        // It is gone at once, unless it hangs in a disk that does not answer: that is not waited for either.
        (void)finito(processo->pid, limiti.congedo);
        return byte ? std::unexpected(std::string{kNonFinisce}) : std::move(byte);
    }
    if (auto errore = errore_della_fine(programma, *stato)) return std::unexpected(std::move(*errore));
    return byte;
}

}  // namespace sortimetra
