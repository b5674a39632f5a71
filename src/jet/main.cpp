// sortimetra-lettore-jet TABELLE < file.mdb
//
// Reads one Jet file from its standard input and writes the rows of the wanted tables (a sum of `Tabelle`) to
// its standard output, in the form of protocollo.h. Started by the other programs, not by people: libmdb
// trusts the files that it reads, so whatever a damaged file does to it happens here and not there, and what
// a hostile one makes of it stays within the fence of recinto.h.

#include "jet/lettura.h"
#include "jet/recinto.h"
#include "stores/protocollo.h"

#include <iconv.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <tuple>

namespace {

namespace jet = sortimetra::jet;

constexpr std::size_t kMemoria = std::size_t{2} << 30;
constexpr unsigned kSecondi = 8;
/// What reading takes beside the file itself, by far.
constexpr std::size_t kMemoriaMinima = std::size_t{32} << 20;

void scrivi(std::string_view byte) {
    while (!byte.empty()) {
        const ssize_t n = write(STDOUT_FILENO, byte.data(), byte.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) _exit(jet::kUscitaErrata);
        byte.remove_prefix(static_cast<std::size_t>(n));
    }
}

/// Whether there is memory to work in: falling short of it later would look like a damaged file.
bool c_e_memoria() {
    void* prova = mmap(nullptr, kMemoriaMinima, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return prova != MAP_FAILED && munmap(prova, kMemoriaMinima) == 0;
}

/// The library asks for these when it opens a file, of the older format and of the newer. They are tables in
/// files: what is found now is in memory then.
void carica_alfabeti() {
    for (const char* alfabeto : {"CP1252", "UCS-2LE"}) {
        std::ignore = iconv_open("UTF-8", alfabeto);
        std::ignore = iconv_open(alfabeto, "UTF-8");
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return jet::kUscitaErrata;
    const auto tabelle = static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10));
    jet::limita(kMemoria, kSecondi);
    struct stat stato{};
    if (fstat(STDIN_FILENO, &stato) != 0 || !S_ISREG(stato.st_mode) || stato.st_size <= 0)
        return jet::kUscitaErrata;
    const auto quanti = static_cast<std::size_t>(stato.st_size);
    // A private mapping: the library may scribble on it, the file stays as it is. Nothing is read yet.
    void* byte = mmap(nullptr, quanti, PROT_READ | PROT_WRITE, MAP_PRIVATE, STDIN_FILENO, 0);
    if (byte == MAP_FAILED || !c_e_memoria()) return jet::kUscitaSenzaMemoria;
    carica_alfabeti();
    if (!jet::chiudi_recinto()) return jet::kUscitaSenzaRecinto;
    jet::leggi(byte, quanti, tabelle, scrivi);
    _exit(0);
}
