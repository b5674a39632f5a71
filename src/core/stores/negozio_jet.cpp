#include "stores/negozio_jet.h"

#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/protocollo.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <poll.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::string_view kLettore = "sortimetra-lettore-jet";
/// A Jet file cannot be larger than this; the real ones have a few megabytes.
constexpr std::uint64_t kGrandezzaMassima = std::uint64_t{1} << 30;
/// The real archive takes a twentieth of a second.
constexpr milliseconds kTempoMassimo{10'000};
/// The real archive writes less than 2 MB.
constexpr std::size_t kUscitaMassima = std::size_t{1} << 28;

// ---- the file, before anything reads it ----

class Descrittore {
  public:
    explicit Descrittore(int d) : d_{d} {}
    Descrittore(Descrittore&& altro) noexcept : d_{std::exchange(altro.d_, -1)} {}
    Descrittore& operator=(Descrittore&& altro) noexcept {
        std::swap(d_, altro.d_);
        return *this;
    }
    Descrittore(const Descrittore&) = delete;
    Descrittore& operator=(const Descrittore&) = delete;
    ~Descrittore() { chiudi(); }
    void chiudi() {
        if (d_ >= 0) close(d_);
        d_ = -1;
    }
    [[nodiscard]] int numero() const { return d_; }
    /// Moves it above the standard three, which a program may have been started without.
    bool alza() {
        if (d_ > STDERR_FILENO) return true;
        const int alto = fcntl(d_, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        chiudi();
        d_ = alto;
        return d_ >= 0;
    }

  private:
    int d_;
};

constexpr std::size_t kIntestazione = 0x18;
constexpr std::size_t kPostoVersione = 0x14;

/// What the first bytes tell without a library: foreign, cut short, absurdly large.
std::expected<void, std::string> esamina(const InizioFile& inizio) {
    const std::string_view b = inizio.byte;
    constexpr std::string_view kInizio{"\0\1\0\0Standard ", 13};
    if (!b.starts_with(kInizio.substr(0, std::min(b.size(), kInizio.size()))) ||
        (b.size() >= kIntestazione && b.substr(13, 6) != "Jet DB" && b.substr(13, 6) != "ACE DB"))
        return std::unexpected("il file non è un archivio Jet (.mdb)");
    if (b.size() < kIntestazione)
        return std::unexpected(fmt::format("il file è troncato: ha solo {} byte", inizio.grandezza));
    const std::uint64_t pagina = b[kPostoVersione] == 0 ? 2048 : 4096;
    if (inizio.grandezza % pagina != 0)
        return std::unexpected(fmt::format("il file è troncato: {} byte non fanno pagine intere da {}",
                                           inizio.grandezza, pagina));
    if (inizio.grandezza > kGrandezzaMassima)
        return std::unexpected(fmt::format("il file è troppo grande ({} byte)", inizio.grandezza));
    return {};
}

/// Another program that writes the file holds a lock on it, of either kind.
bool bloccato(int d) {
    if (flock(d, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) return true;
    struct flock lettura{};
    lettura.l_type = F_RDLCK;
    lettura.l_whence = SEEK_SET;
    return fcntl(d, F_OFD_GETLK, &lettura) == 0 && lettura.l_type != F_UNLCK;
}

std::optional<std::filesystem::path> trova_lettore() {
    const auto qui = cartella_eseguibile();
    std::error_code errore;
    for (const auto& posto : {qui / kLettore, qui / ".." / "libexec" / "sortimetra" / kLettore})
        if (std::filesystem::is_regular_file(posto, errore)) return posto;
    return std::nullopt;
}

// ---- the reader program ----

struct Processo {
    pid_t pid = -1;
    Descrittore uscita{-1};
};

std::expected<Processo, std::string> avvia(const std::filesystem::path& lettore, const Descrittore& file,
                                           unsigned tabelle) {
    const auto fallito = [](int codice) {
        return std::unexpected(
            fmt::format("il programma {} non si avvia: {}", kLettore, motivo_sistema(codice)));
    };
    std::array<int, 2> tubo{};
    if (pipe2(tubo.data(), O_CLOEXEC) != 0) return fallito(errno);
    Descrittore legge{tubo[0]};
    Descrittore scrive{tubo[1]};
    if (!legge.alza() || !scrive.alza()) return fallito(errno);
    // Room for most of the output, so that the two processes seldom wait for each other; no harm if refused.
    (void)fcntl(legge.numero(), F_SETPIPE_SZ, 1 << 20);

    posix_spawn_file_actions_t azioni;
    posix_spawnattr_t attributi;
    posix_spawn_file_actions_init(&azioni);
    posix_spawnattr_init(&attributi);
    posix_spawn_file_actions_adddup2(&azioni, file.numero(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&azioni, scrive.numero(), STDOUT_FILENO);
    // The library tells its troubles to standard error, in English and by the thousand.
    posix_spawn_file_actions_addopen(&azioni, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    sigset_t segnali;
    sigfillset(&segnali);
    posix_spawnattr_setsigdefault(&attributi, &segnali);
    sigemptyset(&segnali);
    posix_spawnattr_setsigmask(&attributi, &segnali);
    posix_spawnattr_setflags(&attributi, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    std::string programma = lettore.string();
    std::string maschera = std::to_string(tabelle);
    std::array<char*, 3> argomenti{programma.data(), maschera.data(), nullptr};
    // Nothing of the user's surroundings changes how the file is read; only where libraries are found.
    std::string lingua = "LC_ALL=C";
    std::string librerie;
    std::array<char*, 3> ambiente{lingua.data(), nullptr, nullptr};
    if (const char* percorso = std::getenv("LD_LIBRARY_PATH")) {
        librerie = std::string{"LD_LIBRARY_PATH="} + percorso;
        ambiente[1] = librerie.data();
    }
    Processo processo;
    const int codice =
        posix_spawn(&processo.pid, programma.c_str(), &azioni, &attributi, argomenti.data(), ambiente.data());
    posix_spawn_file_actions_destroy(&azioni);
    posix_spawnattr_destroy(&attributi);
    if (codice != 0) return fallito(codice);
    processo.uscita = std::move(legge);
    return processo;
}

/// All that the reader writes until it ends. The reader is gone afterwards, whatever happened.
std::expected<std::string, std::string> raccogli(const Processo& processo) {
    const auto scadenza = steady_clock::now() + kTempoMassimo;
    std::string byte;
    std::size_t letti = 0;
    std::optional<std::string> errore;
    while (!errore) {
        const auto resta = std::chrono::duration_cast<milliseconds>(scadenza - steady_clock::now()).count();
        pollfd attesa{processo.uscita.numero(), POLLIN, 0};
        const int pronti = resta <= 0 ? 0 : poll(&attesa, 1, static_cast<int>(resta));
        if (pronti < 0 && errno == EINTR) continue;
        if (pronti < 0) errore = "errore di lettura";
        if (pronti == 0) errore = "il file è danneggiato: la lettura non finisce";
        if (errore) break;
        if (byte.size() - letti < (std::size_t{1} << 16))
            byte.resize(byte.size() * 2 + (std::size_t{1} << 20));
        const ssize_t n = read(processo.uscita.numero(), byte.data() + letti, byte.size() - letti);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) errore = "errore di lettura";
        if (n <= 0) break;
        letti += static_cast<std::size_t>(n);
        if (letti > kUscitaMassima) errore = "il file è danneggiato: contiene troppe righe";
    }
    if (errore) (void)kill(processo.pid, SIGKILL);
    int stato = 0;
    while (waitpid(processo.pid, &stato, 0) < 0 && errno == EINTR) {
    }
    if (errore) return std::unexpected(std::move(*errore));
    byte.resize(letti);
    return byte;
}

// ---- what it wrote ----

/// Takes bytes off the front; a reader that stopped in the middle leaves it `finito`.
class Ingresso {
  public:
    explicit Ingresso(std::string_view byte) : byte_{byte} {}

    std::uint8_t u8() {
        if (byte_.empty()) {
            finito_ = true;
            return 0;
        }
        const auto n = static_cast<std::uint8_t>(byte_.front());
        byte_.remove_prefix(1);
        return n;
    }
    std::uint32_t u32() { return static_cast<std::uint32_t>(intero(4)); }
    double f64() { return std::bit_cast<double>(intero(8)); }
    std::string_view testo(std::size_t lungo) {
        if (byte_.size() < lungo) {
            finito_ = true;
            return {};
        }
        const std::string_view t = byte_.substr(0, lungo);
        byte_.remove_prefix(lungo);
        return t;
    }
    [[nodiscard]] bool finito() const { return finito_; }
    [[nodiscard]] bool vuoto() const { return byte_.empty(); }

  private:
    std::uint64_t intero(std::size_t quanti) {
        std::uint64_t n = 0;
        const std::string_view t = testo(quanti);
        for (std::size_t i = t.size(); i-- > 0;) n = n << 8U | static_cast<unsigned char>(t[i]);
        return n;
    }
    std::string_view byte_;
    bool finito_ = false;
};

constexpr std::string_view kInterrotta = "il file è danneggiato o troncato: la lettura si interrompe";

const FormaTabella* forma_con_bit(std::span<const FormaTabella> forme, std::uint32_t bit) {
    for (const FormaTabella& f : forme)
        if (f.bit == bit) return &f;
    return nullptr;
}

/// `letta` is the table in whose rows the reader stopped, if it had come to rows.
std::string motivo(Ingresso& ingresso, std::span<const FormaTabella> forme,
                   const FormaTabella* letta = nullptr) {
    const auto errore = static_cast<jet::Errore>(ingresso.u8());
    const std::uint32_t primo = ingresso.u32();
    const std::uint32_t secondo = ingresso.u32();
    if (ingresso.finito()) return std::string{kInterrotta};
    const FormaTabella* forma = forma_con_bit(forme, primo);
    const bool colonna = forma != nullptr && secondo < forma->colonne.size();
    switch (errore) {
        case jet::Errore::NonApre:
            return "il file è danneggiato: non si apre";
        case jet::Errore::Password:
            return "il file è protetto da una password";
        case jet::Errore::MancaTabella:
            if (forma != nullptr) return fmt::format("manca la tabella {}", forma->nome);
            break;
        case jet::Errore::MancaColonna:
            if (colonna)
                return fmt::format("nella tabella {} manca la colonna \"{}\"", forma->nome,
                                   forma->colonne[secondo]);
            break;
        case jet::Errore::TipoColonna:
            if (colonna)
                return fmt::format("nella tabella {} la colonna \"{}\" non contiene numeri né testo",
                                   forma->nome, forma->colonne[secondo]);
            break;
        case jet::Errore::Righe:
            if (letta != nullptr)
                return fmt::format(
                    "il file è danneggiato o troncato: la tabella {} dichiara {} righe, se ne {} {}",
                    letta->nome, primo, secondo > primo ? "trovano almeno" : "trovano", secondo);
            break;
        case jet::Errore::Definizione:
            if (forma != nullptr)
                return fmt::format("il file è danneggiato: la tabella {} non si legge", forma->nome);
            break;
        case jet::Errore::Troncato:
            return "il file è troncato: alcune tabelle continuano oltre la sua fine";
    }
    return std::string{kInterrotta};
}

/// One cell; nothing for a mark that does not exist.
bool leggi_cella(Ingresso& ingresso, Cella& cella) {
    const std::uint8_t marca = ingresso.u8();
    if ((marca & jet::kTesto) != 0) {
        cella.tipo = Cella::Tipo::Testo;
        cella.testo = ingresso.testo(marca & jet::kTestoMassimo);
        return true;
    }
    switch (marca) {
        case jet::kVuota:
            cella.tipo = Cella::Tipo::Vuota;
            return true;
        case jet::kIntero:
            cella.tipo = Cella::Tipo::Intero;
            cella.intero = static_cast<std::int32_t>(ingresso.u32());
            return true;
        case jet::kReale:
        case jet::kMomento:
            cella.tipo = marca == jet::kReale ? Cella::Tipo::Reale : Cella::Tipo::Momento;
            cella.reale = ingresso.f64();
            return true;
        default:
            return false;
    }
}

std::expected<void, std::string> leggi_tabella(Ingresso& ingresso, const FormaTabella& forma,
                                               LettoreRighe& lettore) {
    std::array<Cella, kColonneMassime> celle;
    const auto riga = std::span{celle}.first(forma.colonne.size());
    std::uint32_t lette = 0;
    std::uint8_t marca = 0;
    while ((marca = ingresso.u8()) == jet::kRiga) {
        for (Cella& c : riga)
            if (!leggi_cella(ingresso, c)) return std::unexpected(std::string{kInterrotta});
        if (ingresso.finito()) return std::unexpected(std::string{kInterrotta});
        if (++lette > kRigheMassime)
            return std::unexpected(fmt::format("tabella {}: troppe righe", forma.nome));
        if (auto errore = lettore.aggiungi(forma, riga)) return std::unexpected(std::move(*errore));
    }
    if (marca == jet::kErrore) return std::unexpected(motivo(ingresso, {&forma, 1}, &forma));
    if (marca != jet::kFineTabella || ingresso.u32() != lette || ingresso.finito())
        return std::unexpected(std::string{kInterrotta});
    return {};
}

}  // namespace

std::expected<RigheArchivio, std::string> interpreta_lettura_jet(std::string_view byte, unsigned tabelle) {
    const auto forme = (tabelle & kTabellaWinForLife) != 0 ? tabelle_drawit2() : tabelle_drawit();
    Ingresso ingresso{byte};
    if (ingresso.testo(jet::kFirma.size()) != jet::kFirma) return std::unexpected(std::string{kInterrotta});
    RigheArchivio righe;
    LettoreRighe lettore{righe};
    for (const FormaTabella& forma : forme) {
        if ((tabelle & forma.bit) == 0) continue;
        const std::uint8_t marca = ingresso.u8();
        if (marca == jet::kErrore) return std::unexpected(motivo(ingresso, forme));
        if (marca != jet::kTabella || ingresso.u8() != forma.bit)
            return std::unexpected(std::string{kInterrotta});
        if (auto esito = leggi_tabella(ingresso, forma, lettore); !esito)
            return std::unexpected(std::move(esito.error()));
    }
    const std::uint8_t marca = ingresso.u8();
    if (marca == jet::kErrore) return std::unexpected(motivo(ingresso, forme));
    if (marca != jet::kFine || !ingresso.vuoto()) return std::unexpected(std::string{kInterrotta});
    return righe;
}

std::expected<RigheArchivio, ErroreArchivio> leggi_jet(const std::filesystem::path& file, unsigned tabelle) {
    const auto rifiuta = [&](std::string motivo) {
        return std::unexpected(ErroreArchivio{file, std::move(motivo)});
    };
    const auto inizio = leggi_inizio(file, kIntestazione);
    if (!inizio) return std::unexpected(inizio.error());
    if (auto esito = esamina(*inizio); !esito) return rifiuta(std::move(esito.error()));
    Descrittore aperto{open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    if (aperto.numero() < 0 || !aperto.alza())
        return rifiuta(fmt::format("il file non si può leggere: {}", motivo_sistema(errno)));
    if (bloccato(aperto.numero())) return rifiuta("il file è in uso da un altro programma");
    const auto lettore = trova_lettore();
    if (!lettore)
        return rifiuta(fmt::format("per leggere i file .mdb serve il programma {}, che manca", kLettore));
    auto processo = avvia(*lettore, aperto, tabelle);
    if (!processo) return rifiuta(std::move(processo.error()));
    auto byte = raccogli(*processo);
    if (!byte) return rifiuta(std::move(byte.error()));
    auto righe = interpreta_lettura_jet(*byte, tabelle);
    if (!righe) return rifiuta(std::move(righe.error()));
    return std::move(*righe);
}

}  // namespace sortimetra
