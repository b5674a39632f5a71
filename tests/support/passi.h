#pragma once

#include "files/passi_disco.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <functional>

namespace sortimetra::prove {

/// The steps on the disk that are left until the one that does not happen; below 0: all happen.
inline std::atomic<int> passi_rimasti{-1};

/// Runs a job in a process of its own that stops dead before its n-th step on the disk (from 1). Whether it
/// came to its end.
inline bool fino_al_passo(int n, const std::function<void()>& cosa) {
    const pid_t pid = fork();
    if (pid == 0) {
        passi_rimasti = n;
        guarda_passi([](PassoDisco, const std::filesystem::path&) {
            if (--passi_rimasti == 0) _exit(9);
            return 0;
        });
        cosa();
        _exit(0);
    }
    int stato = 0;
    waitpid(pid, &stato, 0);
    return WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
}

/// As long as it lives the steps on the disk from the n-th on fail, `quanti` of them.
class DiscoGuasto {
  public:
    explicit DiscoGuasto(int n, int quanti = 1) {
        passi_rimasti = n;
        quanti_guasti = quanti;
        guarda_passi([](PassoDisco, const std::filesystem::path&) {
            const int rimasti = --passi_rimasti;
            return rimasti <= 0 && -rimasti < quanti_guasti ? EIO : 0;
        });
    }
    DiscoGuasto(const DiscoGuasto&) = delete;
    DiscoGuasto& operator=(const DiscoGuasto&) = delete;
    ~DiscoGuasto() { guarda_passi(nullptr); }
    /// Whether that step was ever reached.
    [[nodiscard]] static bool toccato() { return passi_rimasti <= 0; }

  private:
    inline static std::atomic<int> quanti_guasti{0};
};

}  // namespace sortimetra::prove
