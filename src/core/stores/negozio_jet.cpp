#include "stores/negozio_jet.h"

#include "files/descrittore.h"
#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/processo_lettore.h"
#include "stores/protocollo.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>

#include <array>
#include <bit>
#include <cerrno>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace sortimetra {

namespace {

constexpr std::string_view kLettore = "sortimetra-lettore-jet";
/// A Jet file cannot be larger than this; the real ones have a few megabytes.
constexpr std::uint64_t kGrandezzaMassima = std::uint64_t{1} << 30;

// ---- the file, before anything reads it ----

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
        case jet::Errore::Colonna:
            if (forma != nullptr)
                return fmt::format("il file è danneggiato: nella tabella {} la definizione {} si contraddice",
                                   forma->nome,
                                   colonna ? fmt::format("della colonna \"{}\"", forma->colonne[secondo])
                                           : std::string{"delle colonne"});
            break;
        case jet::Errore::Intestazione:
            return "il file è danneggiato: la sua intestazione contiene ciò che non può stare";
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
        case jet::kGuasta:
            cella.tipo = marca == jet::kVuota ? Cella::Tipo::Vuota : Cella::Tipo::Guasta;
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
    auto byte = esegui_lettore(*lettore, aperto.numero(), tabelle, limiti_lettore(inizio->grandezza));
    if (!byte) return rifiuta(std::move(byte.error()));
    auto righe = interpreta_lettura_jet(*byte, tabelle);
    if (!righe) return rifiuta(std::move(righe.error()));
    return std::move(*righe);
}

}  // namespace sortimetra
