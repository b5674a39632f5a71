#include "stores/copia_compatta.h"

#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "text/testi.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

// ---- the checksum ----

/// Sums words of eight bytes in four chains, each step of which can be undone: no single word can change
/// without changing the sum. Fast rather than hard to forge: whoever can write the copy can write the store.
class SommaByte {
  public:
    static constexpr std::size_t kBlocco = 32;

    /// Whole blocks; a rest is filled up with zeros.
    void aggiungi(std::span<const std::byte> byte) {
        const std::size_t interi = byte.size() / kBlocco * kBlocco;
        for (std::size_t i = 0; i < interi; i += kBlocco) blocco(byte.data() + i);
        if (interi == byte.size()) return;
        std::array<std::byte, kBlocco> resto{};
        std::memcpy(resto.data(), byte.data() + interi, byte.size() - interi);
        blocco(resto.data());
    }
    [[nodiscard]] std::uint64_t valore() const {
        std::uint64_t v = 0;
        for (const std::uint64_t c : catene_) {
            v = (std::rotl(v, 23) ^ c) * kFattore;
            v ^= v >> 29U;
        }
        return v;
    }

  private:
    static constexpr std::uint64_t kFattore = 0x9E3779B97F4A7C15;  // 2^64 / the golden ratio, odd

    void blocco(const std::byte* dove) {
        std::array<std::uint64_t, 4> parole{};
        std::memcpy(parole.data(), dove, kBlocco);
        for (std::size_t i = 0; i < parole.size(); ++i)
            catene_[i] = (std::rotl(catene_[i], 29) ^ parole[i]) * kFattore;
    }

    std::array<std::uint64_t, 4> catene_{1, 2, 3, 4};
};

// ---- the form of the file ----

constexpr std::array<char, 8> kFirmaCopia{'S', 'o', 'r', 't', 'i', 'm', 'C', '\n'};
/// To be raised with every change of what stands in a copy, or of what a store's reader makes of a store.
constexpr std::uint32_t kVersioneCopia = 2;
/// Read as another number on a machine that writes numbers the other way round.
constexpr std::uint32_t kOrdineByte = 0x01020304;
/// Columns begin at multiples of this.
constexpr std::size_t kAllineamento = 64;
constexpr std::size_t kCopiaMassima = std::size_t{1} << 30;

constexpr std::int32_t kNessunGiorno = INT32_MIN;

struct TestataCopia {
    std::array<char, 8> firma = kFirmaCopia;
    std::uint32_t versione = kVersioneCopia;
    std::uint32_t ordine_byte = kOrdineByte;
    std::uint64_t grandezza = 0;  ///< of the whole file
    std::uint64_t somma = 0;      ///< of all that follows
    IdentitaNegozio identita;
    std::uint32_t tabelle = 0;
    std::uint32_t simulato = 0;
    std::uint32_t righe_lotto = 0;  ///< rows; the others count records
    std::uint32_t lotto = 0;
    std::uint32_t nazionale = 0;
    std::uint32_t superenalotto = 0;
    std::uint32_t winforlife = 0;
    std::uint32_t ore = 0;
    std::uint32_t byte_ore = 0;
    /// Of `ConfiniLotto`; days since 1970, `kNessunGiorno` for none.
    std::int32_t ultimo = 0;
    std::int32_t primo_giorno = kNessunGiorno;
    std::int32_t ultimo_giorno = kNessunGiorno;
    std::array<std::uint32_t, 12> libere{};
};
constexpr std::size_t kSommato = offsetof(TestataCopia, identita);
static_assert(offsetof(TestataCopia, somma) == kPostoSomma && kSommato == SommaByte::kBlocco);
static_assert(sizeof(TestataCopia) % kAllineamento == 0);
static_assert(std::has_unique_object_representations_v<TestataCopia>);
// Columns stand in the file as in memory.
static_assert(sizeof(Data) == 8 && alignof(Data) <= kAllineamento && std::is_trivially_copyable_v<Data>);

constexpr std::size_t allineato(std::size_t n) {
    return (n + kAllineamento - 1) / kAllineamento * kAllineamento;
}

/// The columns of all tables in the order of the file.
std::vector<std::span<const std::byte>> colonne(const TabelleArchivio& t) {
    const auto& ore = t.winforlife.ora;
    return {std::as_bytes(std::span{t.lotto.concorso}),
            std::as_bytes(std::span{t.lotto.data}),
            std::as_bytes(std::span{t.lotto.presenti}),
            std::as_bytes(std::span{t.lotto.numeri}),
            std::as_bytes(std::span{t.nazionale.concorso}),
            std::as_bytes(std::span{t.nazionale.data}),
            std::as_bytes(std::span{t.nazionale.numeri}),
            std::as_bytes(std::span{t.superenalotto.concorso}),
            std::as_bytes(std::span{t.superenalotto.data}),
            std::as_bytes(std::span{t.superenalotto.numeri}),
            std::as_bytes(std::span{t.winforlife.concorso}),
            std::as_bytes(std::span{t.winforlife.data}),
            std::as_bytes(std::span{t.winforlife.numeri}),
            std::as_bytes(std::span{ore.voce()}),
            std::as_bytes(std::span{ore.fine()}),
            std::as_bytes(std::span{ore.testi()})};
}

/// Takes columns off the front of a file, as `colonne` put them there.
class LettoreColonne {
  public:
    explicit LettoreColonne(std::span<const std::byte> byte) : byte_{byte} {}

    template <class T>
    ColonnaArchivio<T> prendi(std::size_t quante) {
        const std::size_t lunga = allineato(quante * sizeof(T));
        if (lunga > byte_.size()) {
            oltre_ = true;
            return {};
        }
        const auto* inizio = reinterpret_cast<const T*>(byte_.data());
        byte_ = byte_.subspan(lunga);
        return {inizio, quante};
    }
    template <class Tabella>
    void prendi_comuni(Tabella& t, std::size_t quante) {
        t.concorso = prendi<Concorso>(quante);
        t.data = prendi<Data>(quante);
    }
    /// Whether every column was there, and nothing else.
    [[nodiscard]] bool tutto() const { return !oltre_ && byte_.empty(); }

  private:
    std::span<const std::byte> byte_;
    bool oltre_ = false;
};

// ---- what a column may hold ----

/// `stretto`: no concorso twice.
bool crescente(std::span<const Concorso> c, bool stretto) {
    if (c.empty()) return true;
    if (c.front() < 1 || c.back() > kConcorsoMassimo) return false;
    bool bene = true;
    for (std::size_t i = 1; i < c.size(); ++i) bene &= c[i - 1] < c[i] || (!stretto && c[i - 1] == c[i]);
    return bene;
}

bool date_possibili(std::span<const Data> date) {
    bool bene = true;
    for (const Data d : date) bene &= d >= kPrimaData && d <= kUltimaData;
    return bene;
}

template <std::size_t N>
bool numeri_fino_a(std::span<const std::array<Numero, N>> righe, Numero massimo) {
    Numero trovato = 0;
    for (const auto& riga : righe)
        for (const Numero n : riga) trovato = std::max(trovato, n);
    return trovato <= massimo;
}

template <class Tabella>
bool possibile(const Tabella& t, Numero massimo, bool stretto = true) {
    return crescente(t.concorso, stretto) && date_possibili(t.data) &&
           numeri_fino_a(std::span{t.numeri}, massimo);
}

bool possibile_lotto(const TabellaLotto& t) {
    std::size_t righe = 0;
    for (const std::uint16_t m : t.presenti) {
        if (m == 0 || m >= 1U << kRuote) return false;
        righe += static_cast<std::size_t>(std::popcount(m));
    }
    return righe == t.righe && possibile(t, kNumeri);
}

bool possibile_winforlife(const TabellaWinForLife& t) {
    const auto fine = t.ora.fine();
    if (!std::is_sorted(fine.begin(), fine.end())) return false;
    if ((fine.empty() ? 0 : fine.back()) != t.ora.testi().size()) return false;
    const auto voce = t.ora.voce();
    if (std::any_of(voce.begin(), voce.end(), [&](std::uint32_t v) { return v >= fine.size(); }))
        return false;
    return possibile(t, kNumeriWinForLife, false);
}

std::int32_t numero_giorno(const std::optional<Data>& giorno) {
    return giorno ? static_cast<std::int32_t>(giorno->time_since_epoch().count()) : kNessunGiorno;
}
std::optional<Data> giorno_di(std::int32_t numero) {
    if (numero == kNessunGiorno) return std::nullopt;
    return Data{std::chrono::days{numero}};
}

ConfiniLotto confini_di(const TestataCopia& i) {
    return {i.ultimo, giorno_di(i.primo_giorno), giorno_di(i.ultimo_giorno)};
}

/// Where the Lotto ends is told by its rows, or else by the header.
bool confini_possibili(const TestataCopia& i) {
    if ((i.tabelle & kConfiniLotto) == 0) return confini_di(i) == ConfiniLotto{};
    return (i.tabelle & kTabellaLotto) == 0 && possibili(confini_di(i));
}

/// Whether the header's counts are those of its tables.
bool conti_possibili(const TestataCopia& i) {
    const auto conto = [&](unsigned bit, std::uint32_t quante) {
        return quante <= kRigheMassime && (quante == 0 || (i.tabelle & bit) != 0);
    };
    return (i.tabelle & ~(kTutteLeTabelle | unsigned{kConfiniLotto})) == 0 && i.simulato <= 1 &&
           confini_possibili(i) && conto(kTabellaLotto, i.lotto) && conto(kTabellaLotto, i.righe_lotto) &&
           conto(kTabellaNazionale, i.nazionale) && conto(kTabellaSuperEnalotto, i.superenalotto) &&
           conto(kTabellaWinForLife, i.winforlife) && conto(kTabellaWinForLife, i.ore) &&
           i.byte_ore <= kCopiaMassima;
}

TabelleArchivio tabelle_viste(const TestataCopia& i, LettoreColonne& lettore) {
    TabelleArchivio t;
    lettore.prendi_comuni(t.lotto, i.lotto);
    t.lotto.presenti = lettore.prendi<std::uint16_t>(i.lotto);
    t.lotto.numeri = lettore.prendi<std::array<Numero, kRuote * kEstratti>>(i.lotto);
    t.lotto.righe = i.righe_lotto;
    lettore.prendi_comuni(t.nazionale, i.nazionale);
    t.nazionale.numeri = lettore.prendi<std::array<Numero, kEstratti>>(i.nazionale);
    lettore.prendi_comuni(t.superenalotto, i.superenalotto);
    t.superenalotto.numeri = lettore.prendi<std::array<Numero, 8>>(i.superenalotto);
    lettore.prendi_comuni(t.winforlife, i.winforlife);
    t.winforlife.numeri = lettore.prendi<std::array<Numero, 10>>(i.winforlife);
    const auto voce = lettore.prendi<std::uint32_t>(i.winforlife);
    const auto fine = lettore.prendi<std::uint32_t>(i.ore);
    const auto testi = lettore.prendi<char>(i.byte_ore);
    t.winforlife.ora = {voce, fine, {testi.data(), testi.size()}};
    if ((i.tabelle & kConfiniLotto) != 0) t.confini = confini_di(i);
    return t;
}

/// The header of a file with these columns.
TestataCopia intestazione(const IdentitaNegozio& identita, const ContenutoCopia& c,
                          std::span<const std::span<const std::byte>> colonne) {
    const auto quante = [](const auto& tutte) { return static_cast<std::uint32_t>(tutte.size()); };
    const TabelleArchivio& t = c.contenuto;
    TestataCopia i{.identita = identita,
                   .tabelle = c.tabelle,
                   .simulato = c.simulato ? 1U : 0U,
                   .righe_lotto = static_cast<std::uint32_t>(t.lotto.righe),
                   .lotto = quante(t.lotto.concorso),
                   .nazionale = quante(t.nazionale.concorso),
                   .superenalotto = quante(t.superenalotto.concorso),
                   .winforlife = quante(t.winforlife.concorso),
                   .ore = quante(t.winforlife.ora.fine()),
                   .byte_ore = quante(t.winforlife.ora.testi())};
    if ((c.tabelle & kConfiniLotto) != 0 && t.confini) {
        i.ultimo = t.confini->ultimo;
        i.primo_giorno = numero_giorno(t.confini->primo_giorno);
        i.ultimo_giorno = numero_giorno(t.confini->ultimo_giorno);
    }
    i.grandezza = sizeof i;
    for (const auto& colonna : colonne) i.grandezza += allineato(colonna.size());
    SommaByte somma;
    somma.aggiungi(std::as_bytes(std::span{&i, 1}).subspan(kSommato));
    for (const auto& colonna : colonne) {
        somma.aggiungi(colonna);
        // The zeros up to where the next one begins, beyond those of the block that the sum has filled up.
        const std::size_t fatti =
            (colonna.size() + SommaByte::kBlocco - 1) / SommaByte::kBlocco * SommaByte::kBlocco;
        constexpr std::array<std::byte, kAllineamento> kZeri{};
        somma.aggiungi(std::span{kZeri}.first(allineato(colonna.size()) - fatti));
    }
    i.somma = somma.valore();
    return i;
}

/// Calls `scrivi(byte)` for what a file consists of, in its order; it says whether to go on.
template <class Scrivi>
bool componi_copia(const IdentitaNegozio& identita, const ContenutoCopia& contenuto, Scrivi&& scrivi) {
    const auto tutte = colonne(contenuto.contenuto);
    const TestataCopia i = intestazione(identita, contenuto, tutte);
    const auto testo = [](std::span<const std::byte> byte) {
        return std::string_view{reinterpret_cast<const char*>(byte.data()), byte.size()};
    };
    if (!scrivi(testo(std::as_bytes(std::span{&i, 1})))) return false;
    constexpr std::array<char, kAllineamento> kZeri{};
    return std::all_of(tutte.begin(), tutte.end(), [&](const auto& colonna) {
        return scrivi(testo(colonna)) &&
               scrivi(std::string_view{kZeri.data(), allineato(colonna.size()) - colonna.size()});
    });
}

// ---- files ----

/// A file open for reading.
class FileLetto {
  public:
    explicit FileLetto(const std::filesystem::path& file, int modi = 0)
        : descrittore_{open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | modi)} {
        if (descrittore_ >= 0 && (fstat(descrittore_, &stato_) != 0 || !S_ISREG(stato_.st_mode))) chiudi();
    }
    FileLetto(const FileLetto&) = delete;
    FileLetto& operator=(const FileLetto&) = delete;
    ~FileLetto() { chiudi(); }

    [[nodiscard]] bool aperto() const { return descrittore_ >= 0; }
    [[nodiscard]] const struct stat& stato() const { return stato_; }
    [[nodiscard]] int descrittore() const { return descrittore_; }
    /// Up to as many bytes as there is room for.
    [[nodiscard]] std::size_t leggi(std::span<std::byte> dove) const {
        std::size_t letti = 0;
        while (letti < dove.size()) {
            const ssize_t n =
                pread(descrittore_, dove.data() + letti, dove.size() - letti, static_cast<off_t>(letti));
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) break;
            letti += static_cast<std::size_t>(n);
        }
        return letti;
    }

  private:
    void chiudi() {
        if (descrittore_ >= 0) close(descrittore_);
        descrittore_ = -1;
    }
    int descrittore_;
    struct stat stato_{};
};

class Mappa {
  public:
    Mappa(int descrittore, std::size_t lunga)
        : dove_{mmap(nullptr, lunga, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descrittore, 0)}, lunga_{lunga} {}
    Mappa(const Mappa&) = delete;
    Mappa& operator=(const Mappa&) = delete;
    ~Mappa() {
        if (dove_ != MAP_FAILED) munmap(dove_, lunga_);
    }
    [[nodiscard]] std::span<const std::byte> byte() const {
        if (dove_ == MAP_FAILED) return {};
        return {static_cast<const std::byte*>(dove_), lunga_};
    }

  private:
    void* dove_;
    std::size_t lunga_;
};

/// What of a header needs no look at the rest.
bool intestazione_giusta(const TestataCopia& i, const IdentitaNegozio& identita, std::size_t grandezza) {
    return i.firma == kFirmaCopia && i.versione == kVersioneCopia && i.ordine_byte == kOrdineByte &&
           i.grandezza == grandezza && i.identita == identita;
}

std::optional<ContenutoCopia> leggi_una(const std::filesystem::path& file, const IdentitaNegozio& identita,
                                        Tenuta tenuta) {
    const FileLetto aperto{file, O_NOFOLLOW};
    if (!aperto.aperto()) return std::nullopt;
    const auto grandezza = static_cast<std::size_t>(aperto.stato().st_size);
    if (grandezza < sizeof(TestataCopia) || grandezza > kCopiaMassima) return std::nullopt;
    // Most copies that do not fit are of another state of the store: no need to read all of it to know.
    TestataCopia prima;
    if (aperto.leggi(std::as_writable_bytes(std::span{&prima, 1})) != sizeof prima ||
        !intestazione_giusta(prima, identita, grandezza))
        return std::nullopt;
    if (tenuta == Tenuta::mappata) {
        auto mappa = std::make_shared<const Mappa>(aperto.descrittore(), grandezza);
        const auto byte = mappa->byte();
        return interpreta_copia(byte, identita, std::move(mappa));
    }
    const auto memoria = std::make_shared_for_overwrite<std::byte[]>(grandezza);
    const std::span byte{memoria.get(), grandezza};
    if (aperto.leggi(byte) != grandezza) return std::nullopt;
    return interpreta_copia(byte, identita, memoria);
}

bool scrivi_una(const std::filesystem::path& file, const IdentitaNegozio& identita,
                const ContenutoCopia& contenuto) {
    // Nobody puts a link there but to have something else written over.
    std::error_code errore;
    if (std::filesystem::is_symlink(file, errore)) return false;
    auto sicuro = FileSicuro::apri(file);
    return sicuro &&
           componi_copia(identita, contenuto,
                         [&](std::string_view byte) { return byte.empty() || sicuro->scrivi(byte); }) &&
           sicuro->conferma_subito();
}

/// A file that holds changes of a native store which its own file may not have yet.
bool ha_modifiche_accanto(const std::filesystem::path& negozio) {
    struct stat stato{};
    for (const std::string_view coda : {"-wal", "-journal"}) {
        std::string nome = negozio.string();
        nome += coda;
        if (stat(nome.c_str(), &stato) == 0 || errno != ENOENT) return true;
    }
    return false;
}

}  // namespace

std::optional<IdentitaNegozio> identita_negozio(const std::filesystem::path& negozio) {
    // Opened, not only looked at: over a network that is when the times are asked for anew.
    const FileLetto aperto{negozio};
    if (!aperto.aperto()) return std::nullopt;
    if (minuscolo(negozio.extension().string()) == ".db" && ha_modifiche_accanto(negozio))
        return std::nullopt;
    constexpr std::size_t kInizio = 100;
    std::array<std::byte, kInizio> inizio{};
    const std::size_t letti = aperto.leggi(inizio);
    SommaByte somma;
    somma.aggiungi(std::span{inizio}.first(letti));
    const struct stat& s = aperto.stato();
    return IdentitaNegozio{.dispositivo = static_cast<std::uint64_t>(s.st_dev),
                           .inode = static_cast<std::uint64_t>(s.st_ino),
                           .grandezza = static_cast<std::uint64_t>(s.st_size),
                           .scritto = {s.st_mtim.tv_sec, s.st_mtim.tv_nsec},
                           .cambiato = {s.st_ctim.tv_sec, s.st_ctim.tv_nsec},
                           .inizio = somma.valore()};
}

bool appena_cambiato(const IdentitaNegozio& identita, Istante ora) {
    constexpr std::int64_t kSecondo = 1'000'000'000;
    // The system's clock for files steps every few milliseconds; a file system that keeps no fractions counts
    // whole seconds, or every second one.
    constexpr std::int64_t kPassoFine = kSecondo / 50;
    constexpr std::int64_t kPassoGrosso = 2 * kSecondo + kSecondo / 10;
    const auto passati = [&](Istante da) {
        // Times that differ by years need no nanoseconds.
        return std::clamp<std::int64_t>(ora.s - da.s, -kSecondo, kSecondo) * kSecondo + (ora.ns - da.ns);
    };
    const auto passo = [](Istante i) { return i.ns == 0 ? kPassoGrosso : kPassoFine; };
    const std::int64_t scritto = passati(identita.scritto);
    // Anybody can date content in the future. A change in the future is a clock that was set back, or a
    // server's that goes before ours, and says nothing.
    return passati(identita.cambiato) < passo(identita.cambiato) ||
           (scritto < passo(identita.scritto) && scritto > -passo(identita.scritto));
}

bool appena_cambiato(const IdentitaNegozio& identita) {
    timespec ora{};
    clock_gettime(CLOCK_REALTIME, &ora);
    return appena_cambiato(identita, {ora.tv_sec, ora.tv_nsec});
}

std::filesystem::path copia_accanto(const std::filesystem::path& negozio) {
    auto file = negozio;
    file.replace_filename(fmt::format(".{}.cache", negozio.filename().string()));
    return file;
}

std::filesystem::path copia_in_disparte(const std::filesystem::path& negozio) {
    std::error_code errore;
    const std::string intero = std::filesystem::absolute(negozio, errore).string();
    SommaByte somma;
    somma.aggiungi(std::as_bytes(std::span{intero}));
    return cartella_cache() / fmt::format("{:016x}-{}", somma.valore(), negozio.filename().string());
}

std::uint64_t somma_copia(std::span<const std::byte> byte) {
    SommaByte somma;
    if (byte.size() > kSommato) somma.aggiungi(byte.subspan(kSommato));
    return somma.valore();
}

std::optional<ContenutoCopia> interpreta_copia(std::span<const std::byte> byte,
                                               const IdentitaNegozio& identita, Custode custode) {
    TestataCopia i;
    if (byte.size() < sizeof i ||
        reinterpret_cast<std::uintptr_t>(byte.data()) % alignof(std::max_align_t) != 0)
        return std::nullopt;
    std::memcpy(&i, byte.data(), sizeof i);
    if (!intestazione_giusta(i, identita, byte.size()) || !conti_possibili(i) || i.somma != somma_copia(byte))
        return std::nullopt;
    LettoreColonne lettore{byte.subspan(sizeof i)};
    ContenutoCopia c{
        .tabelle = i.tabelle, .simulato = i.simulato != 0, .contenuto = tabelle_viste(i, lettore)};
    TabelleArchivio& t = c.contenuto;
    if (!lettore.tutto() || !possibile_lotto(t.lotto) || !possibile(t.nazionale, kNumeri) ||
        !possibile(t.superenalotto, kNumeri) || !possibile_winforlife(t.winforlife))
        return std::nullopt;
    t.lotto.custode = custode;
    t.nazionale.custode = custode;
    t.superenalotto.custode = custode;
    t.winforlife.custode = std::move(custode);
    return c;
}

std::string byte_copia(const IdentitaNegozio& identita, const ContenutoCopia& contenuto) {
    std::string tutto;
    componi_copia(identita, contenuto, [&](std::string_view byte) {
        tutto += byte;
        return true;
    });
    return tutto;
}

std::optional<ContenutoCopia> leggi_copia(const std::filesystem::path& negozio,
                                          const IdentitaNegozio& identita, unsigned tabelle, Tenuta tenuta) {
    auto accanto = leggi_una(copia_accanto(negozio), identita, tenuta);
    if (accanto && tabelle_mancanti(tabelle, accanto->tabelle) == 0) return accanto;
    auto in_disparte = leggi_una(copia_in_disparte(negozio), identita, tenuta);
    if (in_disparte && (!accanto || tabelle_mancanti(tabelle, in_disparte->tabelle) == 0)) return in_disparte;
    return accanto;
}

bool scrivi_copia(const std::filesystem::path& negozio, const IdentitaNegozio& identita,
                  const ContenutoCopia& contenuto) {
    if (scrivi_una(copia_accanto(negozio), identita, contenuto)) return true;
    const auto in_disparte = copia_in_disparte(negozio);
    std::error_code errore;
    std::filesystem::create_directories(in_disparte.parent_path(), errore);
    return !errore && scrivi_una(in_disparte, identita, contenuto);
}

}  // namespace sortimetra
