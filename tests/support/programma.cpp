#include "support/programma.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace sortimetra::prove {

namespace {

/// A pipe whose ends close themselves.
struct Tubo {
    std::array<int, 2> capi{-1, -1};
    Tubo() {
        if (::pipe2(capi.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe");
    }
    Tubo(const Tubo&) = delete;
    Tubo& operator=(const Tubo&) = delete;
    ~Tubo() {
        chiudi(0);
        chiudi(1);
    }
    void chiudi(std::size_t capo) {
        if (capi[capo] >= 0) ::close(capi[capo]);
        capi[capo] = -1;
    }
};

/// Reads both pipes to their ends, whichever has something: a full one must not stop the program.
void leggi(Tubo& uscita, Tubo& errori, Esito& esito) {
    std::array<pollfd, 2> attese{{{uscita.capi[0], POLLIN, 0}, {errori.capi[0], POLLIN, 0}}};
    std::array<std::string*, 2> testi{&esito.uscita, &esito.errori};
    std::array<char, 65536> blocco{};
    while (attese[0].fd >= 0 || attese[1].fd >= 0) {
        if (::poll(attese.data(), attese.size(), -1) < 0 && errno != EINTR) return;
        for (std::size_t i = 0; i < attese.size(); ++i) {
            if (attese[i].fd < 0 || attese[i].revents == 0) continue;
            const ssize_t n = ::read(attese[i].fd, blocco.data(), blocco.size());
            if (n > 0)
                testi[i]->append(blocco.data(), static_cast<std::size_t>(n));
            else if (n == 0 || errno != EINTR)
                attese[i].fd = -1;
        }
    }
}

}  // namespace

Esito esegui_programma(const std::string& programma, const std::vector<std::string>& argomenti,
                       const Avvio& avvio) {
    const std::string percorso = std::filesystem::path{SORTIMETRA_BIN} / programma;
    std::vector<std::string> parole{programma};
    parole.insert(parole.end(), argomenti.begin(), argomenti.end());
    std::vector<std::string> ambiente{"LC_ALL=C", "PATH=/usr/bin:/bin", "HOME=" + avvio.cartella.string(),
                                      "QT_QPA_PLATFORM=offscreen"};
    // Under the sanitizers a program started here obeys the same settings as the one that starts it.
    for (const char* nome : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
        if (const char* valore = std::getenv(nome)) ambiente.push_back(std::string{nome} + "=" + valore);
    const auto puntatori = [](std::vector<std::string>& testi) {
        std::vector<char*> p;
        for (std::string& t : testi) p.push_back(t.data());
        p.push_back(nullptr);
        return p;
    };

    Tubo uscita;
    Tubo errori;
    if (avvio.uscita_rotta) uscita.chiudi(0);
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    posix_spawn_file_actions_addchdir_np(&azioni, avvio.cartella.c_str());
    posix_spawn_file_actions_addopen(&azioni, 0, avvio.ingresso_da.c_str(), O_RDONLY, 0);
    if (avvio.senza_uscita)
        posix_spawn_file_actions_addclose(&azioni, 1);
    else if (!avvio.uscita_in.empty())
        posix_spawn_file_actions_addopen(&azioni, 1, avvio.uscita_in.c_str(), O_WRONLY, 0);
    else
        posix_spawn_file_actions_adddup2(&azioni, uscita.capi[1], 1);
    posix_spawn_file_actions_adddup2(&azioni, errori.capi[1], 2);
    // As a shell would start it: a broken pipe kills whoever does not say otherwise.
    posix_spawnattr_t attributi;
    posix_spawnattr_init(&attributi);
    sigset_t normali;
    sigemptyset(&normali);
    sigaddset(&normali, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributi, &normali);
    posix_spawnattr_setflags(&attributi, POSIX_SPAWN_SETSIGDEF);

    pid_t figlio = 0;
    const int avviato = posix_spawn(&figlio, percorso.c_str(), &azioni, &attributi, puntatori(parole).data(),
                                    puntatori(ambiente).data());
    posix_spawn_file_actions_destroy(&azioni);
    posix_spawnattr_destroy(&attributi);
    if (avviato != 0) throw std::runtime_error("cannot start " + percorso);

    uscita.chiudi(1);
    errori.chiudi(1);
    Esito esito;
    leggi(uscita, errori, esito);
    int stato = 0;
    while (waitpid(figlio, &stato, 0) < 0 && errno == EINTR) {
    }
    esito.codice = WIFEXITED(stato) ? WEXITSTATUS(stato) : 128 + WTERMSIG(stato);
    return esito;
}

}  // namespace sortimetra::prove
