#include "files/blocco_cartella.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace sortimetra {

std::optional<BloccoCartella> BloccoCartella::prova(const std::filesystem::path& cartella) {
    const int d = open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (d < 0) return std::nullopt;
    BloccoCartella blocco{d};
    if (flock(d, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR)) return std::nullopt;
    // The one that held it may have removed the folder before it let go.
    struct stat tenuta{};
    struct stat presente{};
    if (fstat(d, &tenuta) != 0 || stat(cartella.c_str(), &presente) != 0 ||
        tenuta.st_ino != presente.st_ino || tenuta.st_dev != presente.st_dev)
        return std::nullopt;
    return blocco;
}

BloccoCartella::BloccoCartella(BloccoCartella&& altro) noexcept
    : descrittore_{std::exchange(altro.descrittore_, -1)} {}

BloccoCartella::~BloccoCartella() {
    if (descrittore_ >= 0) close(descrittore_);
}

}  // namespace sortimetra
