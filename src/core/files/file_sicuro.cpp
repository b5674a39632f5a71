#include "files/file_sicuro.h"

#include "files/passi_disco.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <ranges>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

/// Attempts at a free temporary name before giving up; the names differ by process, clock and counter, so
/// that the second attempt is already a rarity.
constexpr int kTentativi = 100;

/// The folders in which this process has looked for temporaries that nobody owns any more.
bool gia_spazzata(const std::filesystem::path& cartella) {
    static std::mutex serratura;
    static std::set<std::filesystem::path> viste;
    const std::scoped_lock chiuso{serratura};
    return !viste.insert(cartella).second;
}

/// The process that made a file of this name as its temporary (`nome_temporaneo`); 0 for any other name.
pid_t padrone(std::string_view nome) {
    constexpr std::string_view kFine = ".tmp";
    if (!nome.starts_with('.') || !nome.ends_with(kFine)) return 0;
    nome.remove_suffix(kFine.size());
    const auto punto = nome.rfind('.');
    if (punto == 0) return 0;
    const char* da = nome.data() + punto + 1;
    const char* const fine = nome.data() + nome.size();
    const auto campo = [&](auto& n, int base, char dopo) {
        const auto [resto, errore] = std::from_chars(da, fine, n, base);
        da = resto;
        if (errore != std::errc{} || (dopo != 0 && (da == fine || *da != dopo))) return false;
        da += dopo != 0 ? 1 : 0;
        return true;
    };
    pid_t pid = 0;
    unsigned long long istante = 0;
    unsigned contatore = 0;
    const bool suo = campo(pid, 10, '-') && campo(istante, 16, '-') && campo(contatore, 10, 0) && da == fine;
    return suo && pid > 0 ? pid : 0;
}

/// Whether a process is still at work. One that ended and that nobody has asked after yet has a number but
/// does nothing any more; where a machine does not say so, it counts as alive.
bool lavora(pid_t pid) {
    if (kill(pid, 0) != 0) return errno != ESRCH;
    const int d = open(fmt::format("/proc/{}/stat", pid).c_str(), O_RDONLY | O_CLOEXEC);
    if (d < 0) return true;
    std::array<char, 512> riga{};
    const ssize_t n = read(d, riga.data(), riga.size());
    close(d);
    // "PID (name) S ...", and the name may hold any sign.
    const std::string_view testo{riga.data(), n > 0 ? static_cast<std::size_t>(n) : 0};
    const auto fine = testo.rfind(") ");
    return fine == std::string_view::npos || fine + 2 >= testo.size() || testo[fine + 2] != 'Z';
}

}  // namespace

bool esiste_voce(const std::filesystem::path& file) {
    std::error_code errore;
    return std::filesystem::exists(std::filesystem::symlink_status(file, errore));
}

std::filesystem::path nome_temporaneo(const std::filesystem::path& destinazione) {
    static std::atomic<unsigned> contatore{0};
    const auto istante = std::chrono::steady_clock::now().time_since_epoch().count();
    std::filesystem::path nome = destinazione;
    nome.replace_filename(fmt::format(".{}.{}-{:x}-{}.tmp", destinazione.filename().string(), getpid(),
                                      static_cast<unsigned long long>(istante), contatore++));
    return nome;
}

std::filesystem::path segui_collegamenti(std::filesystem::path file) {
    std::error_code errore;
    for (int i = 0; i < 16 && std::filesystem::is_symlink(file, errore); ++i) {
        const auto meta = std::filesystem::read_symlink(file, errore);
        if (errore) break;
        file = meta.is_absolute() ? meta : file.parent_path() / meta;
    }
    return file;
}

void spazza_temporanei(const std::filesystem::path& cartella) {
    std::error_code errore;
    std::filesystem::directory_iterator it{cartella, errore};
    for (; !errore && it != std::filesystem::directory_iterator{}; it.increment(errore)) {
        const pid_t pid = padrone(it->path().filename().string());
        if (pid == 0 || lavora(pid)) continue;
        // Looked for last of all: its writer was gone before, so what it announced stands here by now.
        std::error_code dubbio;
        if (std::filesystem::exists(cartella / kFileCambio, dubbio) || dubbio) return;
        if (it->is_regular_file(dubbio)) (void)unlink(it->path().c_str());
    }
}

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
    if (const auto cartella = f.destinazione_.parent_path(); !gia_spazzata(cartella))
        spazza_temporanei(cartella.empty() ? "." : cartella);
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

std::expected<void, ErroreArchivio> FileSicuro::fissa() {
    if (descrittore_ >= 0) {
        if (const int codice = fissa_file(descrittore_, temporaneo_); codice != 0) {
            close(std::exchange(descrittore_, -1));
            return std::unexpected(errore("la scrittura non è riuscita", codice));
        }
    }
    return chiudi();
}

std::filesystem::path FileSicuro::lascia() {
    if (descrittore_ >= 0) close(std::exchange(descrittore_, -1));
    return std::exchange(temporaneo_, {});
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
    if (const int codice = rinomina_file(temporaneo_, destinazione_); codice != 0)
        return std::unexpected(errore("non si può sostituire il file", codice));
    temporaneo_.clear();
    return {};
}

std::expected<void, ErroreArchivio> FileSicuro::conferma() {
    if (auto esito = fissa(); !esito) return esito;
    if (auto esito = rinomina(); !esito) return esito;
    fissa_cartella(destinazione_);
    return {};
}

namespace {

/// A place among several that change together: what stood there has a second name meanwhile, to go back to.
struct Posto {
    std::filesystem::path file;
    std::filesystem::path riserva{};  ///< empty: nothing stood there
    bool cambiato = false;

    /// The errno of what failed, or 0.
    int metti_da_parte() {
        std::error_code errore;
        if (!std::filesystem::exists(std::filesystem::symlink_status(file, errore))) return 0;
        auto nome = nome_temporaneo(file);
        if (const int codice = collega_file(file, nome); codice != 0) return codice;
        riserva = std::move(nome);
        return 0;
    }
    /// On with the change, or back to what was.
    void chiudi(bool riuscito) const {
        if (!riuscito && cambiato) (void)(riserva.empty() ? togli_file(file) : rinomina_file(riserva, file));
        if (!riserva.empty()) (void)togli_file(riserva);
    }
};

}  // namespace

std::expected<void, ErroreArchivio> FileSicuro::conferma_tutti(
    std::span<FileSicuro> file, std::span<const std::filesystem::path> da_togliere) {
    for (FileSicuro& f : file)
        if (auto esito = f.fissa(); !esito) return esito;
    std::vector<Posto> posti;
    for (const std::filesystem::path& f : da_togliere) posti.push_back({f});
    for (const FileSicuro& f : file) posti.push_back({f.destinazione_});
    std::expected<void, ErroreArchivio> esito;
    for (std::size_t i = 0; i < posti.size() && esito; ++i)
        if (const int codice = posti[i].metti_da_parte(); codice != 0)
            esito = std::unexpected(ErroreArchivio{
                posti[i].file, fmt::format("non si può sostituire il file: {}", motivo_sistema(codice))});
    for (std::size_t i = 0; i < posti.size() && esito; ++i) {
        if (i >= da_togliere.size()) {
            esito = file[i - da_togliere.size()].rinomina();
        } else if (const int codice = togli_file(posti[i].file); codice != 0) {
            esito = std::unexpected(ErroreArchivio{
                posti[i].file, fmt::format("il file non si può eliminare: {}", motivo_sistema(codice))});
        }
        posti[i].cambiato = esito.has_value();
    }
    // The names are on the disk before the ones to go back to are given up.
    if (esito)
        for (const Posto& p : posti) fissa_cartella(p.file);
    for (const Posto& p : std::ranges::reverse_view(posti)) p.chiudi(esito.has_value());
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

    /// Up to as many bytes as there is room for; fewer where the file ends, or with an error in `codice`.
    std::size_t leggi(std::span<char> dove, int& codice) const {
        std::size_t letti = 0;
        while (letti < dove.size()) {
            const ssize_t ora = read(descrittore_, dove.data() + letti, dove.size() - letti);
            if (ora < 0 && errno == EINTR) continue;
            if (ora < 0) codice = errno;
            if (ora <= 0) break;  // 0: it shrank meanwhile, and what is there is what counts
            letti += static_cast<std::size_t>(ora);
        }
        return letti;
    }
    [[nodiscard]] std::expected<std::string, ErroreArchivio> leggi(std::size_t quanti) const {
        std::string testo;
        int codice = 0;
        testo.resize_and_overwrite(
            quanti, [&](char* dove, std::size_t n) { return leggi(std::span{dove, n}, codice); });
        if (codice != 0) return std::unexpected(fallito(codice));
        return testo;
    }
    [[nodiscard]] ErroreArchivio fallito(int codice) const {
        if (codice == ENOENT) return {file_, "il file non c'è"};
        return {file_, fmt::format("il file non si può leggere: {}", motivo_sistema(codice))};
    }

  private:
    const std::filesystem::path& file_;
    int descrittore_;
};

std::expected<std::size_t, ErroreArchivio> grandezza_fino_a(FileAperto& aperto,
                                                            const std::filesystem::path& file,
                                                            std::size_t massimo) {
    const auto grandezza = aperto.grandezza();
    if (!grandezza) return std::unexpected(grandezza.error());
    if (*grandezza > massimo)
        return std::unexpected(
            ErroreArchivio{file, fmt::format("il file è troppo grande: ha {} byte, se ne leggono al più {}",
                                             *grandezza, massimo)});
    return static_cast<std::size_t>(*grandezza);
}

/// What a file is read through at first: no more than a processor keeps near.
constexpr std::size_t kPezzo = std::size_t{1} << 16;

}  // namespace

std::expected<std::string, ErroreArchivio> leggi_file(const std::filesystem::path& file,
                                                      std::size_t massimo) {
    FileAperto aperto{file};
    const auto grandezza = grandezza_fino_a(aperto, file, massimo);
    if (!grandezza) return std::unexpected(grandezza.error());
    return aperto.leggi(*grandezza);
}

struct FileAPezzi::Stato {
    explicit Stato(std::filesystem::path percorso) : file{std::move(percorso)} {}

    std::filesystem::path file;
    FileAperto aperto{file};
    std::size_t grandezza = 0;
    std::size_t letti = 0;  ///< bytes of the file that have been in the buffer
    std::size_t pieni = 0;  ///< bytes of the buffer that hold the piece
    std::vector<char> memoria = std::vector<char>(kPezzo);
    std::optional<ErroreArchivio> errore{};
};

FileAPezzi::FileAPezzi(std::unique_ptr<Stato> stato) : stato_{std::move(stato)} {}
FileAPezzi::FileAPezzi(FileAPezzi&& altro) noexcept = default;
FileAPezzi& FileAPezzi::operator=(FileAPezzi&& altro) noexcept = default;
FileAPezzi::~FileAPezzi() = default;

std::expected<FileAPezzi, ErroreArchivio> FileAPezzi::apri(const std::filesystem::path& file,
                                                           std::size_t massimo) {
    auto stato = std::make_unique<Stato>(file);
    const auto grandezza = grandezza_fino_a(stato->aperto, file, massimo);
    if (!grandezza) return std::unexpected(grandezza.error());
    stato->grandezza = *grandezza;
    return FileAPezzi{std::move(stato)};
}

std::size_t FileAPezzi::grandezza() const {
    return stato_->grandezza;
}

PezzoFile FileAPezzi::avanti(std::size_t usati) {
    Stato& s = *stato_;
    s.pieni -= std::min(usati, s.pieni);
    std::memmove(s.memoria.data(), s.memoria.data() + usati, s.pieni);
    // A line that is longer than the buffer.
    if (s.pieni == s.memoria.size()) s.memoria.resize(2 * s.memoria.size());
    const auto posto = std::span{s.memoria}.subspan(s.pieni);
    const std::size_t voluti = std::min(posto.size(), s.grandezza - s.letti);
    int codice = 0;
    const std::size_t ora = s.aperto.leggi(posto.first(voluti), codice);
    if (codice != 0) s.errore = s.aperto.fallito(codice);
    s.letti += ora;
    s.pieni += ora;
    return {{s.memoria.data(), s.pieni}, ora < voluti || s.letti == s.grandezza};
}

const std::optional<ErroreArchivio>& FileAPezzi::errore() const {
    return stato_->errore;
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
