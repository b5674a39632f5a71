#include "files/sessione.h"

#include "files/file_sicuro.h"
#include "text/testo_ini.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace sortimetra {

namespace {

constexpr std::string_view kSezioneCartelle = "Cartelle";
constexpr std::string_view kChiave = "cartella";

/// A few lines. What is larger is no such file: it is neither read nor changed.
constexpr std::size_t kGrandezzaMassima = 1U << 20U;

/// The user's home folder: what HOME says if it is an absolute path, else what the system knows of the user.
std::optional<std::filesystem::path> casa_utente() {
    if (const char* casa = std::getenv("HOME"); casa != nullptr && *casa == '/') return casa;
    std::array<char, 1 << 14> testi{};
    passwd voce{};
    passwd* trovata = nullptr;
    if (getpwuid_r(geteuid(), &voce, testi.data(), testi.size(), &trovata) != 0 || trovata == nullptr ||
        voce.pw_dir == nullptr || *voce.pw_dir != '/')
        return std::nullopt;
    return voce.pw_dir;
}

/// Our folder among those where this desktop keeps one kind of things: what the variable says if it is an
/// absolute path, else `consueta` in the home folder.
std::filesystem::path cartella_utente(const char* variabile, const std::filesystem::path& consueta) {
    if (const char* xdg = std::getenv(variabile); xdg != nullptr && *xdg == '/')
        return std::filesystem::path{xdg} / "sortimetra";
    const auto casa = casa_utente();
    // Below what is no folder nothing is found and nothing can be made; the current folder is anybody's.
    return casa.value_or("/dev/null") / consueta / "sortimetra";
}

bool contiene_archivio_accanto(const std::filesystem::path& cartella) {
    std::error_code errore;
    return std::filesystem::is_directory(cartella / "archivio", errore);
}

}  // namespace

std::filesystem::path cartella_eseguibile() {
    std::error_code errore;
    const auto io = std::filesystem::read_symlink("/proc/self/exe", errore);
    return errore ? std::filesystem::current_path(errore) : io.parent_path();
}

std::filesystem::path file_impostazioni() {
    return cartella_utente("XDG_CONFIG_HOME", ".config") / "impostazioni.ini";
}

std::optional<std::string> leggi_impostazioni() {
    auto testo = leggi_file(file_impostazioni(), kGrandezzaMassima);
    if (!testo) return std::nullopt;
    return std::move(*testo);
}

std::expected<void, ErroreArchivio> cambia_impostazioni(
    const std::function<std::string(std::string)>& cambia) {
    const auto file = file_impostazioni();
    std::error_code errore;
    std::filesystem::create_directories(file.parent_path(), errore);
    auto prima = leggi_file(file, kGrandezzaMassima);
    // There, but not readable: better old settings than settings written over.
    if (!prima && std::filesystem::exists(file, errore)) return std::unexpected(prima.error());
    return scrivi_file(file, cambia(prima.value_or(std::string{})));
}

std::filesystem::path cartella_cache() {
    return cartella_utente("XDG_CACHE_HOME", ".cache");
}

std::optional<std::filesystem::path> cartella_ricordata() {
    const auto testo = leggi_impostazioni();
    if (!testo) return std::nullopt;
    const auto valore = valore_ini(*testo, kSezioneCartelle, kChiave);
    if (!valore || !valore->starts_with('/') || !contiene_archivio_accanto(*valore)) return std::nullopt;
    return std::filesystem::path{*valore};
}

std::expected<void, ErroreArchivio> ricorda_cartella(const std::filesystem::path& cartella) {
    std::error_code errore;
    const std::string intera = std::filesystem::absolute(cartella, errore).string();
    if (errore || intera.find_first_of("\r\n") != std::string::npos)
        return std::unexpected(ErroreArchivio{cartella, "il nome di questa cartella non si può ricordare"});
    return cambia_impostazioni(
        [&](const std::string& testo) { return con_valore_ini(testo, kSezioneCartelle, kChiave, intera); });
}

std::filesystem::path cartella_programma(const std::optional<std::filesystem::path>& scelta) {
    if (scelta) return *scelta;
    if (auto ricordata = cartella_ricordata()) return *ricordata;
    if (auto vicina = cartella_eseguibile(); contiene_archivio_accanto(vicina)) return vicina;
    return cartella_utente("XDG_DATA_HOME", std::filesystem::path{".local"} / "share");
}

std::optional<std::string> senza_cartella_programma(const std::optional<std::filesystem::path>& scelta) {
    const char* dati = std::getenv("XDG_DATA_HOME");
    if (scelta || (dati != nullptr && *dati == '/') || casa_utente() || cartella_ricordata() ||
        contiene_archivio_accanto(cartella_eseguibile()))
        return std::nullopt;
    return "non si sa quale sia la cartella dell'utente (HOME manca): --cartella dice dove lavorare.";
}

}  // namespace sortimetra
