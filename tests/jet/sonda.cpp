// sonda-lettore MODE < file
//
// Started in the place of sortimetra-lettore-jet by the code that starts it. In the first modes it does what
// a reader that belongs to a hostile file would like to do, within the fence or a part of it, and writes for
// each attempt a line: its name, and "riuscito" or the system's error. In the others it does not behave.

#include "jet/sonda.h"

#include "jet/recinto.h"
#include "stores/protocollo.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <latch>
#include <string>
#include <thread>

namespace {

using sortimetra::prove::Sonda;

void scrivi(const std::string& testo) {
    if (write(STDOUT_FILENO, testo.data(), testo.size()) != static_cast<ssize_t>(testo.size())) _exit(1);
}

/// `esito` is what the call gave: negative for an error, which stands in errno.
void tenta(const char* nome, long esito) {
    const int codice = errno;
    scrivi(std::string{nome} + ' ' + (esito >= 0 ? "riuscito" : strerrorname_np(codice)) + '\n');
}

/// In a process of its own where there may be one, so that the probe itself goes on.
long esegui_altro() {
    std::array<char, 10> nome{"/bin/true"};
    std::array<char*, 2> argomenti{nome.data(), nullptr};
    const pid_t figlio = fork();
    if (figlio > 0) {
        int stato = 0;
        waitpid(figlio, &stato, 0);
        errno = EIO;
        return WIFEXITED(stato) && WEXITSTATUS(stato) == 0 ? 0 : -1;
    }
    execve(nome.data(), argomenti.data(), argomenti.data() + 1);
    if (figlio == 0) _exit(1);
    return -1;
}

long biforca() {
    const pid_t figlio = fork();
    if (figlio == 0) _exit(0);
    if (figlio > 0) waitpid(figlio, nullptr, 0);
    return figlio;
}

/// An address at which nobody has to answer: a datagram's other end is only remembered.
long connetti(int presa) {
    sockaddr_in dove{};
    dove.sin_family = AF_INET;
    dove.sin_port = htons(9);
    dove.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connect(presa, reinterpret_cast<const sockaddr*>(&dove), sizeof dove);
}

/// Into memory of its own, by the call that reaches the memory of others too.
long scrivi_memoria(pid_t di_chi) {
    char da = 'x';
    char a = 'y';
    const iovec locale{&da, 1};
    const iovec altrui{&a, 1};
    return process_vm_writev(di_chi, &locale, 1, &altrui, 1, 0);
}

void tenta_file() {
    tenta("open", open("/etc/passwd", O_RDONLY));
    tenta("openat2", syscall(SYS_openat2, AT_FDCWD, "/etc/passwd", nullptr, 0));
    tenta("open-scrittura", open("/proc/self/fd/0", O_RDWR));
    tenta("memoria-padre", open(("/proc/" + std::to_string(getppid()) + "/mem").c_str(), O_RDWR));
    tenta("ftruncate", ftruncate(STDIN_FILENO, 3));
    tenta("truncate", truncate("/proc/self/fd/0", 2));
    tenta("write-file", write(STDIN_FILENO, "x", 1));
    tenta("rename", rename("/proc/self/fd/0", "/proc/self/fd/1"));
    tenta("unlink", unlink("/proc/self/fd/0"));
    tenta("read", read(STDIN_FILENO, std::array<char, 1>{}.data(), 1));
    tenta("mmap-file", mmap(nullptr, 1, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0) == MAP_FAILED ? -1 : 0);
}

void tenta_rete(int presa) {
    const int nuova = socket(AF_INET, SOCK_DGRAM, 0);
    tenta("socket", nuova);
    tenta("connect", connetti(nuova >= 0 ? nuova : presa));
    tenta("socket-unix", socket(AF_UNIX, SOCK_STREAM, 0));
}

void tenta_processi() {
    tenta("process_vm_writev", scrivi_memoria(static_cast<pid_t>(syscall(SYS_gettid))));
    tenta("kill", kill(getppid(), 0));
    tenta("tgkill", syscall(SYS_tgkill, getppid(), getppid(), 0));
    tenta("fork", biforca());
    tenta("vfork-clone3", syscall(SYS_clone3, nullptr, 0) < 0 && errno != EPERM ? 0 : -1);
    tenta("exec", esegui_altro());
    tenta("prctl", prctl(PR_GET_DUMPABLE, 0, 0, 0, 0));
    tenta("io_uring", syscall(SYS_io_uring_setup, 0, nullptr) < 0 && errno != EPERM ? 0 : -1);
    tenta("mmap-programma",
          mmap(nullptr, 1, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED ? -1 : 0);
    // Last: a process that is traced stops at its next signal.
    tenta("ptrace", ptrace(PTRACE_TRACEME, 0, nullptr, nullptr));
}

/// How many descriptors are open, of those that may have come from the program that started this one.
void conta_descrittori() {
    int aperti = 0;
    for (int d = 0; d < 1024; ++d)
        if (fcntl(d, F_GETFD) >= 0) ++aperti;
    scrivi("descrittori " + std::to_string(aperti) + '\n');
}

void chiudi_e_conta() {
    // The filter holds for the thread that asks for it, descriptors belong to all: another can still count
    // them.
    std::latch chiuso{1};
    std::thread conta{[&] {
        chiuso.wait();
        conta_descrittori();
    }};
    if (!sortimetra::jet::chiudi_recinto()) _exit(sortimetra::jet::kUscitaSenzaRecinto);
    chiuso.count_down();
    conta.join();
}

void tenta_tutto(Sonda modo) {
    namespace jet = sortimetra::jet;
    // Opened before the fence, as an attempt has to be made on something.
    const int presa = socket(AF_INET, SOCK_DGRAM, 0);
    if (modo == Sonda::Recinto) {
        chiudi_e_conta();
    } else {
        conta_descrittori();
    }
    if (modo == Sonda::SoloFiltro && !jet::filtra_chiamate()) _exit(jet::kUscitaSenzaRecinto);
    if (modo == Sonda::SoloLandlock) scrivi(jet::isola_file_system() ? "landlock sì\n" : "landlock no\n");
    tenta_file();
    tenta_rete(presa);
    tenta_processi();
}

[[noreturn]] void per_sempre() {
    for (;;) pause();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    switch (static_cast<Sonda>(std::atoi(argv[1]))) {
        case Sonda::ChiudeEVive:
            scrivi("sjet1\n");
            close(STDOUT_FILENO);
            per_sempre();
        case Sonda::SenzaFine:
            for (const std::string pezzo(1 << 16, 'R');;) scrivi(pezzo);
        case Sonda::Tace:
            per_sempre();
        case Sonda::SenzaMemoria:
            _exit(sortimetra::jet::kUscitaSenzaMemoria);
        case Sonda::SenzaRecinto:
            _exit(sortimetra::jet::kUscitaSenzaRecinto);
        case Sonda::Uccisa:
            raise(SIGKILL);
            break;
        default:
            tenta_tutto(static_cast<Sonda>(std::atoi(argv[1])));
    }
    _exit(0);
}
