#pragma once

#include "jet/lettura.h"
#include "jet/recinto.h"

#include <fcntl.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>

namespace sortimetra::prove {

/// What the reader of Jet files wrote, and how its process ended.
struct LettoAParte {
    std::string byte;
    int stato = 0;
};

/// Reads a file that stands in memory in a process of its own, within the fence, as the programs do, but
/// without starting a program: a damaged file may fell that process, or is stopped after `tempo`.
inline LettoAParte leggi_a_parte(std::string& file, unsigned tabelle, const itimerval& tempo) {
    constexpr std::size_t kMemoria = std::size_t{1} << 30;
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0) std::abort();
    const pid_t pid = fork();
    if (pid < 0) std::abort();
    if (pid == 0) {
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        jet::limita(kMemoria, static_cast<unsigned>(tempo.it_value.tv_sec) + 1);
        setitimer(ITIMER_REAL, &tempo, nullptr);
        dup2(tubo[1], STDOUT_FILENO);
        if (!jet::chiudi_recinto()) _exit(1);
        jet::leggi(file.data(), file.size(), tabelle, [](std::string_view pezzo) {
            while (!pezzo.empty()) {
                const ssize_t n = write(STDOUT_FILENO, pezzo.data(), pezzo.size());
                if (n <= 0) _exit(1);
                pezzo.remove_prefix(static_cast<std::size_t>(n));
            }
        });
        _exit(0);
    }
    close(tubo[1]);
    LettoAParte letto;
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

}  // namespace sortimetra::prove
