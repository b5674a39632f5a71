#include "systems/sistemi_salvati.h"

#include "files/file_sicuro.h"
#include "text/testi.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <limits>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr int kMinimo = std::numeric_limits<Valore>::min();
constexpr int kMassimo = std::numeric_limits<Valore>::max();
/// A count file is two short lines.
constexpr std::size_t kConteggioMassimo = std::size_t{1} << 16U;
/// Where old programs' text files end, whatever stands behind it.
constexpr char kFineTesto = '\x1A';

/// The first number of the second line of a count file.
std::optional<std::int64_t> leggi_conteggio(const fs::path& file) {
    const auto testo = leggi_file(file, kConteggioMassimo);
    if (!testo) return std::nullopt;
    const auto a_capo = testo->find('\n');
    if (a_capo == std::string::npos) return std::nullopt;
    std::string_view riga = std::string_view{*testo}.substr(a_capo + 1);
    riga = rifila(riga.substr(0, riga.find_first_of(",\r\n")));
    std::int64_t n = 0;
    const auto [fine, errore] = std::from_chars(riga.data(), riga.data() + riga.size(), n);
    if (errore != std::errc{} || fine != riga.data() + riga.size() || riga.empty() || n < 0)
        return std::nullopt;
    return n;
}

Data giorno_locale(std::time_t tempo) {
    std::tm locale{};
    localtime_r(&tempo, &locale);
    return std::chrono::year{locale.tm_year + 1900} / (locale.tm_mon + 1) / locale.tm_mday;
}

/// Some characters of a damaged file, as a message can show them.
std::string mostrabile(std::string_view byte) {
    std::string testo;
    for (const char c : byte) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x20 && u < 0x7F)
            testo += c;
        else
            testo += fmt::format("\\x{:02X}", u);
    }
    return testo;
}

}  // namespace

std::string VoceSistema::testo_combinazioni() const {
    return combinazioni.value_or(0) == 0 ? std::string{} : migliaia(*combinazioni);
}

std::optional<Data> ShowFileInfo(const fs::path& file) {
    struct statx s{};
    if (statx(AT_FDCWD, file.c_str(), AT_STATX_SYNC_AS_STAT, STATX_BTIME | STATX_MTIME, &s) != 0)
        return std::nullopt;
    const auto& tempo = (s.stx_mask & STATX_BTIME) != 0 ? s.stx_btime : s.stx_mtime;
    return giorno_locale(static_cast<std::time_t>(tempo.tv_sec));
}

std::vector<VoceSistema> trova_sistemi(const fs::path& cartella, int genere) {
    const GenereSistema& g = kGeneri[static_cast<std::size_t>(genere)];
    const std::string finale = fmt::format("sy{}.txt", g.lettera);
    std::vector<VoceSistema> voci;
    std::error_code errore;
    for (fs::directory_iterator i{cartella / g.cartella, errore}, fine; !errore && i != fine;
         i.increment(errore)) {
        std::string nome = i->path().filename().string();
        std::error_code dubbio;
        if (!nome.ends_with(finale) || !i->is_regular_file(dubbio)) continue;
        nome.resize(nome.size() - finale.size());
        const fs::path base = i->path().parent_path();
        if (fs::exists(base / (nome + ".nn"), dubbio)) continue;
        voci.push_back({.nome = nome,
                        .data = ShowFileInfo(i->path()),
                        .combinazioni = leggi_conteggio(base / fmt::format("{}nu{}.txt", nome, g.lettera)),
                        .file = i->path()});
    }
    std::sort(voci.begin(), voci.end(),
              [](const VoceSistema& a, const VoceSistema& b) { return a.nome < b.nome; });
    return voci;
}

// ---- the combinations ----

std::expected<LettoreSistema, ErroreArchivio> LettoreSistema::apri(const fs::path& file) {
    LettoreSistema lettore;
    lettore.file_ = file;
    // A pipe of that name must not make the program wait.
    lettore.descrittore_ = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (lettore.descrittore_ < 0)
        return std::unexpected(
            ErroreArchivio{file, fmt::format("il file non si può leggere: {}", motivo_sistema(errno))});
    struct stat s{};
    if (fstat(lettore.descrittore_, &s) != 0 || !S_ISREG(s.st_mode))
        return std::unexpected(ErroreArchivio{file, "non è un file"});
    lettore.grandezza_ = static_cast<std::size_t>(s.st_size);
    lettore.blocco_ = std::make_unique_for_overwrite<char[]>(kBlocco);  // NOLINT(*-avoid-c-arrays)
    return lettore;
}

LettoreSistema::LettoreSistema(LettoreSistema&& altro) noexcept
    : file_{std::move(altro.file_)},
      descrittore_{std::exchange(altro.descrittore_, -1)},
      grandezza_{altro.grandezza_},
      letti_{altro.letti_},
      riga_{altro.riga_},
      blocco_{std::move(altro.blocco_)},
      posto_{altro.posto_},
      fine_{altro.fine_},
      stato_{altro.stato_},
      negativo_{altro.negativo_},
      finito_{altro.finito_},
      valore_{altro.valore_},
      motivo_{altro.motivo_} {}

LettoreSistema::~LettoreSistema() {
    if (descrittore_ >= 0) close(descrittore_);
}

/// Reads the next block of the file; false at its end, or where the disk fails (`motivo_`).
bool LettoreSistema::riempi() {
    posto_ = fine_ = 0;
    ssize_t n = read(descrittore_, blocco_.get(), kBlocco);
    while (n < 0 && errno == EINTR) n = read(descrittore_, blocco_.get(), kBlocco);
    if (n < 0) motivo_ = errno;
    if (n <= 0) return false;
    fine_ = static_cast<std::size_t>(n);
    letti_ += fine_;
    return true;
}

ErroreArchivio LettoreSistema::danno(std::string_view perche) const {
    const std::string_view resto{blocco_.get() + posto_, fine_ - posto_};
    const std::string_view parola =
        resto.substr(0, std::min<std::size_t>({resto.find_first_of(", \t\r\n"), resto.size(), 20}));
    std::string trovato;
    if (stato_ == Stato::segno || stato_ == Stato::numero) {
        if (negativo_) trovato += '-';
        if (stato_ == Stato::numero) trovato += std::to_string(valore_);
    }
    trovato += parola.empty() ? mostrabile(resto.substr(0, 1)) : mostrabile(parola);
    return {file_, fmt::format("riga {}: trovato \"{}\", atteso un numero intero da {} a {}{}", riga_,
                               trovato, kMinimo, kMassimo, perche)};
}

/// Takes numbers out of the block until `dove` is full or the block ends; false where something else stands.
bool LettoreSistema::leggi_blocco(std::span<Valore> dove, std::size_t& n) {
    const char* const byte = blocco_.get();
    // In registers while the block lasts.
    Stato stato = stato_;
    int valore = valore_;
    std::size_t i = posto_;
    bool sano = true;
    for (; i < fine_ && n < dove.size(); ++i) {
        const char c = byte[i];
        if (c >= '0' && c <= '9') {
            if (stato != Stato::numero) {
                if (stato != Stato::segno) negativo_ = false;
                valore = 0;
                stato = Stato::numero;
            }
            const int piu_lungo = valore * 10 + (c - '0');
            if (piu_lungo > (negativo_ ? -kMinimo : kMassimo)) {
                sano = false;
                break;
            }
            valore = piu_lungo;
            continue;
        }
        const bool numero = stato == Stato::numero;
        if (c == ',') {
            sano = numero || stato == Stato::chiuso;
        } else if (c == '\n' || c == '\r' || c == ' ' || c == '\t') {
            sano = stato != Stato::segno;
        } else if (c == '-' || c == '+') {
            sano = !numero && stato != Stato::segno;
        } else if (c != kFineTesto || stato == Stato::segno) {
            sano = false;
        }
        if (!sano) break;
        if (numero) dove[n++] = static_cast<Valore>(negativo_ ? -valore : valore);
        if (c == ',') {
            stato = Stato::dopo_virgola;
        } else if (c == '\n' || c == '\r') {
            if (c == '\n') ++riga_;
            stato = Stato::libero;
        } else if (c == '-' || c == '+') {
            negativo_ = c == '-';
            stato = Stato::segno;
        } else if (c == kFineTesto) {
            finito_ = true;
            stato = Stato::libero;
            i = fine_;
            break;
        } else if (numero) {
            stato = Stato::chiuso;
        }
    }
    stato_ = stato;
    valore_ = valore;
    posto_ = i;
    return sano;
}

std::expected<std::size_t, ErroreArchivio> LettoreSistema::leggi(std::span<Valore> dove) {
    std::size_t n = 0;
    while (n < dove.size() && !finito_) {
        if (posto_ == fine_ && !riempi()) {
            if (motivo_ != 0)
                return std::unexpected(ErroreArchivio{
                    file_, fmt::format("il file non si può leggere: {}", motivo_sistema(motivo_))});
            // The last number may stand at the very end, without a line end behind it.
            finito_ = true;
            if (stato_ == Stato::segno) return std::unexpected(danno());
            if (stato_ == Stato::numero) dove[n++] = static_cast<Valore>(negativo_ ? -valore_ : valore_);
            break;
        }
        if (!leggi_blocco(dove, n)) return std::unexpected(danno());
    }
    return n;
}

}  // namespace sortimetra
