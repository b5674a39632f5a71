#include "jet/recinto.h"

#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <initializer_list>
#include <memory>

namespace sortimetra::jet {

namespace {

/// Built with the address sanitizer, which GCC and clang tell each in its own way.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSorvegliato = true;
#elif defined(__has_feature)
constexpr bool kSorvegliato = __has_feature(address_sanitizer);
#else
constexpr bool kSorvegliato = false;
#endif

// ---- the filter ----

struct Libera {
    void operator()(void* filtro) const { seccomp_release(filtro); }
};
using Filtro = std::unique_ptr<void, Libera>;

/// The argument's bits under `maschera` are `valore`. The kernel passes 64 bits of which an int has 32 to
/// say.
constexpr scmp_arg_cmp argomento(unsigned quale, std::uint64_t maschera, std::uint64_t valore) {
    return {.arg = quale, .op = SCMP_CMP_MASKED_EQ, .datum_a = maschera, .datum_b = valore};
}

bool consenti(const Filtro& filtro, int chiamata, std::initializer_list<scmp_arg_cmp> se = {}) {
    return seccomp_rule_add_array(filtro.get(), SCMP_ACT_ALLOW, chiamata, static_cast<unsigned>(se.size()),
                                  se.begin()) == 0;
}

bool consenti_tutte(const Filtro& filtro, std::initializer_list<int> chiamate) {
    return std::ranges::all_of(chiamate, [&](int chiamata) { return consenti(filtro, chiamata); });
}

/// Memory of its own, never a file's, never to be run as a program.
bool consenti_memoria(const Filtro& filtro) {
    const auto mai_eseguita = argomento(2, PROT_EXEC, 0);
    const auto di_nessun_file = argomento(3, MAP_ANONYMOUS, MAP_ANONYMOUS);
    // (32-bit machines map by mmap2; a call that the machine has not is no rule.)
    for (const int mappa : {SCMP_SYS(mmap), SCMP_SYS(mmap2)})
        if (!consenti(filtro, mappa, {mai_eseguita, di_nessun_file})) return false;
    if (!consenti(filtro, SCMP_SYS(mprotect), {mai_eseguita})) return false;
    return consenti_tutte(
        filtro, {SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise), SCMP_SYS(futex)});
}

/// To its output and to its errors, which lead nowhere.
bool consenti_scrittura(const Filtro& filtro) {
    return std::ranges::all_of(
        std::initializer_list<unsigned>{STDOUT_FILENO, STDERR_FILENO},
        [&](unsigned d) { return consenti(filtro, SCMP_SYS(write), {argomento(0, UINT32_MAX, d)}); });
}

bool consenti_fine(const Filtro& filtro) {
    const bool fine = consenti_tutte(filtro, {SCMP_SYS(exit), SCMP_SYS(exit_group), SCMP_SYS(rt_sigreturn),
                                              SCMP_SYS(rt_sigprocmask), SCMP_SYS(restart_syscall)});
    if constexpr (!kSorvegliato) return fine;
    // What the sanitizer's own allocator and its reports ask of the kernel about this process.
    return fine && consenti_tutte(filtro, {SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(sched_yield),
                                           SCMP_SYS(sigaltstack), SCMP_SYS(rt_sigaction), SCMP_SYS(getrusage),
                                           SCMP_SYS(clock_gettime)});
}

// ---- Landlock ----

// The headers know of it what their kernel knew, so what is asked for is written out here. Numbers and bits
// are the same on every machine.
constexpr long kCreaRegole = 444;
constexpr long kApplicaRegole = 446;
constexpr unsigned kChiediVersione = 1;

struct Regole {
    std::uint64_t file;     ///< what is forbidden in the file system
    std::uint64_t rete;     ///< from version 4
    std::uint64_t portata;  ///< from version 6: sockets without a file, signals to the outside
};

/// All that a version can forbid; no rule gives any of it back.
Regole tutto_vietato(long versione) {
    unsigned diritti = 13;
    if (versione >= 2) diritti = 14;  // another folder
    if (versione >= 3) diritti = 15;  // truncation
    if (versione >= 5) diritti = 16;  // commands to devices
    return {(std::uint64_t{1} << diritti) - 1, versione >= 4 ? 3U : 0U, versione >= 6 ? 3U : 0U};
}

}  // namespace

void limita(std::size_t memoria, unsigned secondi) {
    const auto limite = [](int cosa, rlim_t quanto) {
        const auto risorsa = static_cast<__rlimit_resource>(cosa);
        rlimit l{quanto, quanto};
        if (rlimit ora{}; getrlimit(risorsa, &ora) == 0)
            l = {std::min(ora.rlim_cur, quanto), std::min(ora.rlim_max, quanto)};
        (void)setrlimit(risorsa, &l);
    };
    // The address sanitizer reserves terabytes of addresses that it never uses.
    if constexpr (!kSorvegliato) limite(RLIMIT_AS, memoria);
    limite(RLIMIT_CPU, secondi);
    limite(RLIMIT_CORE, 0);
    limite(RLIMIT_FSIZE, 0);
    limite(RLIMIT_NPROC, 0);
    // Not to outlive a program that was killed while it waited for us.
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
}

bool isola_file_system() {
    const long versione = syscall(kCreaRegole, nullptr, 0, kChiediVersione);
    if (versione < 1) return false;
    const Regole regole = tutto_vietato(versione);
    // An older kernel takes the beginning of the structure only.
    std::size_t grandezza = sizeof regole.file;
    if (versione >= 4) grandezza += sizeof regole.rete;
    if (versione >= 6) grandezza += sizeof regole.portata;
    const long insieme = syscall(kCreaRegole, &regole, grandezza, 0);
    if (insieme < 0) return false;
    const bool fatto =
        prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && syscall(kApplicaRegole, insieme, 0) == 0;
    close(static_cast<int>(insieme));
    return fatto;
}

bool filtra_chiamate() {
    // An error rather than the end: a library that asks for its time zone is told no, and goes on.
    const Filtro filtro{seccomp_init(SCMP_ACT_ERRNO(EPERM))};
    return filtro && consenti_memoria(filtro) && consenti_scrittura(filtro) && consenti_fine(filtro) &&
           seccomp_load(filtro.get()) == 0;
}

bool chiudi_recinto() {
    closefrom(STDERR_FILENO + 1);
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0) return false;
    (void)isola_file_system();
    return filtra_chiamate();
}

}  // namespace sortimetra::jet
