#include "files/memoria_ricerca.h"

#include "files/file_sicuro.h"
#include "text/testi.h"
#include "text/testo_ini.h"
#include "text/windows1252.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <system_error>
#include <thread>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTipoRic = "TipoRic";
constexpr std::string_view kNomeRic = "NomeRIC";

/// A value is read into 250 characters, the NUL that ends it among them.
constexpr std::size_t kLunghezzaValore = 249;

/// These files hold a few hundred bytes. What is larger is no such file: it is neither read nor changed.
constexpr std::size_t kDimensioneMassima = 1U << 20U;

/// How long an instance waits for another one that is writing, where it waits at all.
constexpr std::chrono::milliseconds kAttesa{3000};

struct Predefinito {
    std::string_view sezione, chiave, valore;
};

/// The default file, in the order in which it is written. Ruota, Concorsi and Intervallo are written for the
/// older installations that share the file and read by nobody here.
constexpr Predefinito kPredefiniti[] = {
    {kTipoRic, "index", "0"},
    {kNomeRic, "0", "Ritardo e frequenza dei 90 numeri"},
    {kNomeRic, "1", "Ambata capogioco"},
    {kNomeRic, "2", "Ricerche su tutti i Terni"},
    {kNomeRic, "3", "Grattacielo dei 90"},
    {kNomeRic, "4", "Cinquine dei 90"},
    {kNomeRic, "5", "Ricerche su Numeri Personali"},
    {kNomeRic, "6", "Ritardo e frequenza del primo estratto su ruota"},
    {kNomeRic, "0t", "0"},
    {kNomeRic, "1t", "0"},
    {kNomeRic, "2t", "0"},
    {kNomeRic, "3t", "0"},
    {kNomeRic, "4t", "0"},
    {kNomeRic, "5t", "0"},
    {kNomeRic, "6t", "0"},
    {"Ruota", "Bari", "1"},
    {"Ruota", "Cagliari", "0"},
    {"Ruota", "Firenze", "0"},
    {"Ruota", "Genova", "0"},
    {"Ruota", "Milano", "0"},
    {"Ruota", "Napoli", "0"},
    {"Ruota", "Palermo", "0"},
    {"Ruota", "Roma", "0"},
    {"Ruota", "Torino", "0"},
    {"Ruota", "Venezia", "0"},
    {"Concorsi", "Indice", "0"},
    {"Intervallo", "from", "first"},
    {"Intervallo", "to", "last"},
};

std::string file_predefinito() {
    std::string testo;
    for (const auto& p : kPredefiniti) testo = con_valore_ini(testo, p.sezione, p.chiave, p.valore);
    return testo;
}

/// A lock that all instances working in a folder take for the time of one change. It is held on the folder
/// itself, so that it leaves no file behind, and ends with the process whatever happens.
class ChiaveCartella {
  public:
    explicit ChiaveCartella(const fs::path& cartella, Attesa attesa = Attesa::breve)
        : fd_(::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        const auto fine = std::chrono::steady_clock::now() +
                          (attesa == Attesa::breve ? kAttesa : std::chrono::milliseconds{0});
        while (fd_ >= 0 && !(presa_ = ::flock(fd_, LOCK_EX | LOCK_NB) == 0)) {
            if (std::chrono::steady_clock::now() >= fine) break;
            std::this_thread::sleep_for(std::chrono::milliseconds{1});
        }
    }
    ChiaveCartella(const ChiaveCartella&) = delete;
    ChiaveCartella& operator=(const ChiaveCartella&) = delete;
    ~ChiaveCartella() {
        if (fd_ >= 0) ::close(fd_);
    }
    explicit operator bool() const { return presa_; }
    /// Whether somebody else has it: there is no folder to lock otherwise.
    [[nodiscard]] bool altrui() const { return fd_ >= 0 && !presa_; }

  private:
    int fd_;
    bool presa_ = false;
};

/// Replaces a small file whole; where that fails it stays as it was. It is not forced onto the disk, since
/// this happens at every arrow key: what a power cut can cost is the row that was highlighted.
bool scrivi_piccolo(const fs::path& file, std::string_view testo) {
    auto nuovo = FileSicuro::apri(file);
    return nuovo && nuovo->scrivi(testo) && nuovo->conferma_subito();
}

}  // namespace

bool MemoriaRicerca::esiste() const {
    std::error_code errore;
    return fs::exists(file_, errore);
}

std::string MemoriaRicerca::leggi_memoria(std::string_view tipo, std::string_view chiave) const {
    const auto letto = leggi_file(file_, kDimensioneMassima);
    const auto testo = aggiornato(letto ? std::optional{*letto} : std::nullopt);
    if (!testo) return "0";
    const auto valore = tipo == "tipo"   ? valore_ini(*testo, kTipoRic, "index")
                        : tipo == "nome" ? valore_ini(*testo, kNomeRic, chiave)
                                         : valore_ini(*testo, "sezione", chiave);
    return valore ? da_windows_1252(rifila(valore->substr(0, kLunghezzaValore))) : "0";
}

void MemoriaRicerca::crea_memoria() {
    std::error_code errore;
    fs::create_directories(file_.parent_path(), errore);
    if (const ChiaveCartella chiave{file_.parent_path()}) scrivi_piccolo(file_, file_predefinito());
}

void MemoriaRicerca::crea_se_manca() {
    std::error_code errore;
    fs::create_directories(file_.parent_path(), errore);
    da_creare_ = true;
    riprova();
}

void MemoriaRicerca::scrivi_gruppo(int indice) {
    scrivi({{kTipoRic, "index", std::to_string(indice)}});
}

void MemoriaRicerca::scrivi_selezione(int gruppo, std::string_view nome, int prima_riga) {
    const std::string chiave = std::to_string(gruppo);
    scrivi({{kNomeRic, chiave, in_windows_1252(nome)}, {kNomeRic, chiave + "t", std::to_string(prima_riga)}});
}

void MemoriaRicerca::scrivi(std::initializer_list<Scrittura> scritture) {
    sospese_.insert(sospese_.end(), scritture);
    riprova();
}

std::optional<std::string> MemoriaRicerca::aggiornato(const std::optional<std::string>& prima) const {
    if (!prima && !in_sospeso()) return std::nullopt;
    std::string testo = prima ? *prima : da_creare_ ? file_predefinito() : std::string{};
    for (const auto& s : sospese_) testo = con_valore_ini(testo, s.sezione, s.chiave, s.valore);
    return testo;
}

bool MemoriaRicerca::riprova() {
    if (!in_sospeso()) return true;
    const ChiaveCartella chiave{file_.parent_path(), Attesa::nessuna};
    if (chiave.altrui()) return false;
    if (chiave) scrivi_sospese();
    sospese_.clear();
    da_creare_ = false;
    return true;
}

void MemoriaRicerca::completa() {
    if (!in_sospeso()) return;
    const ChiaveCartella chiave{file_.parent_path(), Attesa::breve};
    scrivi_sospese();
    sospese_.clear();
    da_creare_ = false;
}

void MemoriaRicerca::scrivi_sospese() {
    const auto letto = leggi_file(file_, kDimensioneMassima);
    // There, but not readable: better an old memory than one written over.
    if (!letto && esiste()) return;
    const auto testo = aggiornato(letto ? std::optional{*letto} : std::nullopt);
    if (testo && (!letto || *testo != *letto) && testo->size() <= kDimensioneMassima)
        scrivi_piccolo(file_, *testo);
}

std::optional<int> leggi_skin(const fs::path& percorso_skin) {
    const auto file = percorso_skin / "skn.dat";
    std::error_code errore;
    const auto testo = leggi_file(file, kDimensioneMassima);
    if (!testo && fs::exists(file, errore)) return std::nullopt;
    const std::string_view numero = testo ? rifila(*testo) : std::string_view{};
    if (numero.empty()) return 1;
    int indice = 0;
    const auto [fine, esito] = std::from_chars(numero.data(), numero.data() + numero.size(), indice);
    if (esito != std::errc{} || fine != numero.data() + numero.size()) return std::nullopt;
    return indice;
}

bool scrivi_skin(const fs::path& percorso_skin, int indice, Attesa attesa) {
    std::error_code errore;
    fs::create_directories(percorso_skin, errore);
    const ChiaveCartella chiave{percorso_skin, attesa};
    if (chiave) scrivi_piccolo(percorso_skin / "skn.dat", std::to_string(indice) + "\r\n");
    return !chiave.altrui();
}

}  // namespace sortimetra
