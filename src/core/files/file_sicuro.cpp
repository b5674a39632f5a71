#include "files/file_sicuro.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Attempts at a free temporary name before giving up; the names differ by process, clock and counter, so
/// that the second attempt is already a rarity.
constexpr int kTentativi = 100;

std::filesystem::path nome_temporaneo(const std::filesystem::path& destinazione) {
    static std::atomic<unsigned> contatore{0};
    const auto istante = std::chrono::steady_clock::now().time_since_epoch().count();
    std::filesystem::path nome = destinazione;
    nome.replace_filename(fmt::format(".{}.{}-{:x}-{}.tmp", destinazione.filename().string(), getpid(),
                                      static_cast<unsigned long long>(istante), contatore++));
    return nome;
}

/// A rename lasts over a power cut only when its folder is on the disk too. Some file systems refuse to
/// synchronise a folder; the rename itself has been done by then, so that is no error.
void fissa_cartella(const std::filesystem::path& file) {
    const auto cartella = file.has_parent_path() ? file.parent_path() : std::filesystem::path{"."};
    const int d = open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (d < 0) return;
    (void)fsync(d);
    close(d);
}

/// Follows links to the file that is really to be replaced, so that a link stays a link.
std::filesystem::path segui_collegamenti(std::filesystem::path file) {
    std::error_code errore;
    for (int i = 0; i < 16 && std::filesystem::is_symlink(file, errore); ++i) {
        const auto meta = std::filesystem::read_symlink(file, errore);
        if (errore) break;
        file = meta.is_absolute() ? meta : file.parent_path() / meta;
    }
    return file;
}

}  // namespace

std::string_view motivo_sistema(int codice) {
    switch (codice) {
        case ENOENT:
            return "non c'è";
        case EACCES:
        case EPERM:
            return "permesso negato";
        case EROFS:
            return "il disco è di sola lettura";
        case ENOSPC:
            return "il disco è pieno";
        case EDQUOT:
            return "lo spazio concesso sul disco è finito";
        case EFBIG:
            return "il file sarebbe troppo grande";
        case EISDIR:
            return "è una cartella";
        case ENOTDIR:
            return "una parte del percorso non è una cartella";
        case EMFILE:
        case ENFILE:
            return "troppi file aperti";
        case ENAMETOOLONG:
            return "il nome è troppo lungo";
        case ELOOP:
            return "i collegamenti girano in tondo";
        case ETXTBSY:
        case EBUSY:
        case EAGAIN:
            return "è in uso da un altro programma";
        default:
            return "errore di lettura o scrittura del disco";
    }
}

std::expected<FileSicuro, ErroreArchivio> FileSicuro::apri(const std::filesystem::path& destinazione) {
    FileSicuro f;
    f.destinazione_ = segui_collegamenti(destinazione);
    struct stat stato{};
    const bool esiste = stat(f.destinazione_.c_str(), &stato) == 0;
    if (esiste && S_ISDIR(stato.st_mode))
        return std::unexpected(ErroreArchivio{destinazione, "non si può scrivere: è una cartella"});
    // A rename would put a plain file in the place of a device or a pipe.
    if (esiste && !S_ISREG(stato.st_mode))
        return std::unexpected(ErroreArchivio{destinazione, "non si può scrivere: non è un file"});
    for (int i = 0; i < kTentativi && f.descrittore_ < 0; ++i) {
        f.temporaneo_ = nome_temporaneo(f.destinazione_);
        // 0666 leaves the rights of a new file to the user's umask.
        f.descrittore_ = open(f.temporaneo_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (f.descrittore_ < 0 && errno != EEXIST) break;
    }
    if (f.descrittore_ < 0) {
        const int codice = errno;
        f.temporaneo_.clear();
        return std::unexpected(ErroreArchivio{
            destinazione,
            fmt::format("non si può scrivere: {}", codice == ENOENT ? std::string_view{"la cartella non c'è"}
                                                                    : motivo_sistema(codice))});
    }
    if (esiste) (void)fchmod(f.descrittore_, stato.st_mode & 0777);
    return f;
}

FileSicuro::FileSicuro(FileSicuro&& altro) noexcept
    : destinazione_{std::move(altro.destinazione_)},
      temporaneo_{std::exchange(altro.temporaneo_, {})},
      descrittore_{std::exchange(altro.descrittore_, -1)} {}

FileSicuro& FileSicuro::operator=(FileSicuro&& altro) noexcept {
    if (this != &altro) {
        abbandona();
        destinazione_ = std::move(altro.destinazione_);
        temporaneo_ = std::exchange(altro.temporaneo_, {});
        descrittore_ = std::exchange(altro.descrittore_, -1);
    }
    return *this;
}

FileSicuro::~FileSicuro() {
    abbandona();
}

void FileSicuro::abbandona() noexcept {
    if (descrittore_ >= 0) close(descrittore_);
    descrittore_ = -1;
    if (!temporaneo_.empty()) unlink(temporaneo_.c_str());
    temporaneo_.clear();
}

ErroreArchivio FileSicuro::errore(std::string_view cosa, int codice) const {
    return {destinazione_, fmt::format("{}: {}", cosa, motivo_sistema(codice))};
}

std::expected<void, ErroreArchivio> FileSicuro::scrivi(std::string_view byte) {
    while (!byte.empty()) {
        const ssize_t n = write(descrittore_, byte.data(), byte.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return std::unexpected(errore("la scrittura non è riuscita", errno));
        byte.remove_prefix(static_cast<std::size_t>(n));
    }
    return {};
}

std::expected<void, ErroreArchivio> FileSicuro::svuota() {
    // EINVAL and the like: a file system without synchronisation. A disk that failed says EIO or ENOSPC.
    if (descrittore_ >= 0 && fsync(descrittore_) != 0 && errno != EINVAL && errno != ENOTSUP) {
        const int codice = errno;
        close(std::exchange(descrittore_, -1));
        return std::unexpected(errore("la scrittura non è riuscita", codice));
    }
    return chiudi();
}

std::expected<void, ErroreArchivio> FileSicuro::chiudi() {
    if (temporaneo_.empty())
        return std::unexpected(ErroreArchivio{destinazione_, "la scrittura è già conclusa"});
    if (descrittore_ >= 0 && close(std::exchange(descrittore_, -1)) != 0 && errno != EINTR)
        return std::unexpected(errore("la scrittura non è riuscita", errno));
    return {};
}

std::expected<void, ErroreArchivio> FileSicuro::conferma_subito() {
    if (auto esito = chiudi(); !esito) return esito;
    return rinomina();
}

std::expected<void, ErroreArchivio> FileSicuro::rinomina() {
    if (std::rename(temporaneo_.c_str(), destinazione_.c_str()) != 0)
        return std::unexpected(errore("non si può sostituire il file", errno));
    temporaneo_.clear();
    return {};
}

std::expected<void, ErroreArchivio> FileSicuro::conferma() {
    if (auto esito = svuota(); !esito) return esito;
    if (auto esito = rinomina(); !esito) return esito;
    fissa_cartella(destinazione_);
    return {};
}

std::expected<void, ErroreArchivio> FileSicuro::conferma_tutti(std::span<FileSicuro> file) {
    for (FileSicuro& f : file)
        if (auto esito = f.svuota(); !esito) return esito;
    // A second name for each old file, to go back to if a later rename fails. Where the file system knows no
    // second names it is a copy.
    std::vector<std::filesystem::path> riserve(file.size());
    std::vector<bool> sostituiti(file.size(), false);
    std::expected<void, ErroreArchivio> esito;
    std::error_code ignorato;
    for (std::size_t i = 0; i < file.size() && esito; ++i) {
        if (!std::filesystem::exists(file[i].destinazione_, ignorato)) continue;
        riserve[i] = nome_temporaneo(file[i].destinazione_);
        std::error_code fallito;
        std::filesystem::create_hard_link(file[i].destinazione_, riserve[i], fallito);
        if (!fallito) continue;
        if (!std::filesystem::copy_file(file[i].destinazione_, riserve[i], fallito))
            esito = std::unexpected(file[i].errore("non si può sostituire il file", fallito.value()));
    }
    for (std::size_t i = 0; i < file.size() && esito; ++i) {
        esito = file[i].rinomina();
        sostituiti[i] = esito.has_value();
    }
    for (std::size_t i = 0; i < file.size(); ++i) {
        if (!esito && sostituiti[i]) {
            if (riserve[i].empty()) {
                std::filesystem::remove(file[i].destinazione_, ignorato);
            } else {
                std::filesystem::rename(riserve[i], file[i].destinazione_, ignorato);
            }
        } else if (!riserve[i].empty()) {
            std::filesystem::remove(riserve[i], ignorato);
        }
    }
    if (esito)
        for (const FileSicuro& f : file) fissa_cartella(f.destinazione_);
    return esito;
}

std::expected<void, ErroreArchivio> scrivi_file(const std::filesystem::path& destinazione,
                                                std::string_view byte) {
    auto f = FileSicuro::apri(destinazione);
    if (!f) return std::unexpected(std::move(f.error()));
    if (auto esito = f->scrivi(byte); !esito) return esito;
    return f->conferma();
}

namespace {

/// A file opened for reading, with its size; closed at the end of the scope.
class FileAperto {
  public:
    explicit FileAperto(const std::filesystem::path& file)
        // O_NONBLOCK: a pipe or a device in the place of a file must not make the program wait.
        : file_{file}, descrittore_{open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)} {}
    FileAperto(const FileAperto&) = delete;
    FileAperto& operator=(const FileAperto&) = delete;
    ~FileAperto() {
        if (descrittore_ >= 0) close(descrittore_);
    }

    std::expected<std::uint64_t, ErroreArchivio> grandezza() {
        if (descrittore_ < 0) return std::unexpected(fallito(errno));
        struct stat stato{};
        if (fstat(descrittore_, &stato) != 0) return std::unexpected(fallito(errno));
        if (S_ISDIR(stato.st_mode))
            return std::unexpected(ErroreArchivio{file_, "è una cartella, non un file"});
        if (!S_ISREG(stato.st_mode)) return std::unexpected(ErroreArchivio{file_, "non è un file"});
        return static_cast<std::uint64_t>(stato.st_size);
    }

    std::expected<std::string, ErroreArchivio> leggi(std::size_t quanti) {
        std::string testo;
        int codice = 0;
        testo.resize_and_overwrite(quanti, [&](char* dove, std::size_t n) {
            std::size_t letti = 0;
            while (letti < n) {
                const ssize_t ora = read(descrittore_, dove + letti, n - letti);
                if (ora < 0 && errno == EINTR) continue;
                if (ora < 0) codice = errno;
                if (ora <= 0) break;  // 0: it shrank meanwhile, and what is there is what counts
                letti += static_cast<std::size_t>(ora);
            }
            return letti;
        });
        if (codice != 0) return std::unexpected(fallito(codice));
        return testo;
    }

  private:
    [[nodiscard]] ErroreArchivio fallito(int codice) const {
        if (codice == ENOENT) return {file_, "il file non c'è"};
        return {file_, fmt::format("il file non si può leggere: {}", motivo_sistema(codice))};
    }

    const std::filesystem::path& file_;
    int descrittore_;
};

}  // namespace

std::expected<std::string, ErroreArchivio> leggi_file(const std::filesystem::path& file,
                                                      std::size_t massimo) {
    FileAperto aperto{file};
    const auto grandezza = aperto.grandezza();
    if (!grandezza) return std::unexpected(grandezza.error());
    if (*grandezza > massimo)
        return std::unexpected(
            ErroreArchivio{file, fmt::format("il file è troppo grande: ha {} byte, se ne leggono al più {}",
                                             *grandezza, massimo)});
    return aperto.leggi(static_cast<std::size_t>(*grandezza));
}

std::expected<InizioFile, ErroreArchivio> leggi_inizio(const std::filesystem::path& file,
                                                       std::size_t quanti) {
    FileAperto aperto{file};
    const auto grandezza = aperto.grandezza();
    if (!grandezza) return std::unexpected(grandezza.error());
    if (*grandezza == 0) return std::unexpected(ErroreArchivio{file, "il file è vuoto"});
    auto byte = aperto.leggi(std::min<std::size_t>(quanti, *grandezza));
    if (!byte) return std::unexpected(std::move(byte.error()));
    return InizioFile{*grandezza, std::move(*byte)};
}

std::expected<std::string, ErroreArchivio> byte_scritti(
    const std::function<std::expected<void, ErroreArchivio>(const std::filesystem::path&)>& scrivi) {
    std::error_code errore;
    const auto cartella = std::filesystem::temp_directory_path(errore);
    if (errore) return std::unexpected(ErroreArchivio{{}, "manca una cartella per i file di passaggio"});
    std::string modello = (cartella / "sortimetra-XXXXXX").string();
    // A folder of our own: nobody else can put a file in the place of the one that is written.
    if (::mkdtemp(modello.data()) == nullptr)
        return std::unexpected(ErroreArchivio{modello, "la cartella non si può creare"});
    const auto file = std::filesystem::path{modello} / "uscita";
    std::expected<std::string, ErroreArchivio> byte{std::string{}};
    if (const auto scritto = scrivi(file); !scritto)
        byte = std::unexpected(scritto.error());
    else
        byte = leggi_file(file);
    std::filesystem::remove_all(modello, errore);
    return byte;
}

}  // namespace sortimetra
