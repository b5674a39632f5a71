// sortimetra-lettore-jet TABELLE < file.mdb
//
// Reads one Jet file from its standard input and writes the rows of the wanted tables (a sum of `Tabelle`) to
// its standard output, in the form of protocollo.h. Started by the other programs, not by people: libmdb
// trusts the files that it reads, so whatever a damaged file does to it happens here and not there.

#include "jet/lettura.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace {

constexpr std::size_t kMemoria = std::size_t{2} << 30;
constexpr unsigned kSecondi = 8;

void scrivi(std::string_view byte) {
    while (!byte.empty()) {
        const ssize_t n = write(STDOUT_FILENO, byte.data(), byte.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) _exit(1);
        byte.remove_prefix(static_cast<std::size_t>(n));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const auto tabelle = static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10));
    sortimetra::jet::limita(kMemoria, kSecondi);
    struct stat stato{};
    if (fstat(STDIN_FILENO, &stato) != 0 || !S_ISREG(stato.st_mode) || stato.st_size <= 0) return 2;
    const auto quanti = static_cast<std::size_t>(stato.st_size);
    // A private mapping: the library may scribble on it, the file stays as it is.
    void* byte = mmap(nullptr, quanti, PROT_READ | PROT_WRITE, MAP_PRIVATE, STDIN_FILENO, 0);
    if (byte == MAP_FAILED) return 1;
    sortimetra::jet::leggi(byte, quanti, tabelle, scrivi);
    _exit(0);
}
