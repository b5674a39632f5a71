#include "files/passi_disco.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace sortimetra {

namespace {

std::atomic<GuardaPasso>& guardia() {
    static std::atomic<GuardaPasso> una{nullptr};
    return una;
}

int chiedi(PassoDisco passo, const std::filesystem::path& file) {
    const GuardaPasso guarda = guardia().load(std::memory_order_relaxed);
    return guarda == nullptr ? 0 : guarda(passo, file);
}

}  // namespace

void guarda_passi(GuardaPasso guarda) {
    guardia().store(guarda);
}

int rinomina_file(const std::filesystem::path& da, const std::filesystem::path& a) {
    if (const int codice = chiedi(PassoDisco::Rinomina, a); codice != 0) return codice;
    return std::rename(da.c_str(), a.c_str()) == 0 ? 0 : errno;
}

int togli_file(const std::filesystem::path& file) {
    if (const int codice = chiedi(PassoDisco::Togli, file); codice != 0) return codice;
    return unlink(file.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

int collega_file(const std::filesystem::path& da, const std::filesystem::path& a) {
    if (const int codice = chiedi(PassoDisco::Collega, a); codice != 0) return codice;
    if (link(da.c_str(), a.c_str()) == 0) return 0;
    std::error_code errore;
    if (!std::filesystem::copy_file(da, a, errore)) {
        const int codice = errore ? errore.value() : EEXIST;
        if (codice != EEXIST) (void)unlink(a.c_str());
        return codice;
    }
    if (const auto scritto = std::filesystem::last_write_time(da, errore); !errore)
        std::filesystem::last_write_time(a, scritto, errore);
    return 0;
}

int fissa_file(int descrittore, const std::filesystem::path& file) {
    if (const int codice = chiedi(PassoDisco::Fissa, file); codice != 0) return codice;
    // EINVAL and the like: a file system without synchronisation. A disk that failed says EIO or ENOSPC.
    return fsync(descrittore) == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

void fissa_cartella(const std::filesystem::path& file) {
    const auto cartella = file.has_parent_path() ? file.parent_path() : std::filesystem::path{"."};
    if (chiedi(PassoDisco::Fissa, cartella) != 0) return;
    const int d = open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (d < 0) return;
    (void)fsync(d);
    close(d);
}

}  // namespace sortimetra
