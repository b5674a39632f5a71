#include "screens/memoria_schermi.h"

#include "files/file_sicuro.h"
#include "screens/posto_finestra.h"

#include <QFile>
#include <QLockFile>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

/// The whole program's is some ten thousand bytes.
constexpr std::size_t kGrandezzaMassima = std::size_t{1} << 20U;
/// How long a lock that another program left, or holds, is waited for.
constexpr int kAttesaLucchetto = 200;

/// Nothing can be read or written under this name.
QString nessun_file() {
    return QStringLiteral("/dev/null/schermi.ini");
}

/// Without it, or with one that will go, QSettings does not wait at its next write.
bool lucchetto_libero(const fs::path& file) {
    std::error_code errore;
    const auto genere = fs::symlink_status(file, errore).type();
    if (genere == fs::file_type::not_found) return true;
    if (genere != fs::file_type::regular) return false;
    QLockFile lucchetto{QFile::decodeName(file.c_str())};
    return lucchetto.tryLock(kAttesaLucchetto);
}

/// The file to be given to QSettings, checked.
QString file_sano(const Sessione& sessione) {
    QString nome = file_posti(sessione);
    const fs::path file{nome.toStdU16String()};
    if (!lucchetto_libero(file.string() + ".lock")) return nessun_file();
    std::error_code errore;
    const auto genere = fs::status(file, errore).type();
    if (genere == fs::file_type::not_found) return nome;
    if (genere != fs::file_type::regular) return nessun_file();
    const auto grandezza = fs::file_size(file, errore);
    if (errore) return nessun_file();
    if (grandezza <= kGrandezzaMassima) {
        const auto testo = leggi_file(file, kGrandezzaMassima);
        if (!testo) return nessun_file();
        if (innocuo(*testo)) return nome;
    }
    fs::rename(file, file.string() + ".guasto", errore);
    return errore ? nessun_file() : nome;
}

/// What stands behind a backslash.
struct Nota {
    std::size_t lunga = 0;  ///< 0: nothing that Qt writes
    char lettera = '?';     ///< what it means, where that is a letter that a word could have
};

Nota leggi_nota(std::string_view testo) {
    constexpr std::string_view kSegni = "abfnrtv\"\\";
    if (testo.empty()) return {};
    if (kSegni.find(testo[0]) != std::string_view::npos) return {.lunga = 1};
    if (testo[0] == '0') return {.lunga = testo.size() > 1 && testo[1] >= '0' && testo[1] <= '7' ? 0U : 1U};
    if (testo[0] != 'x') return {};
    // Controls, and the letters behind them that would else be read as one number with them.
    unsigned codice = 0;
    const char* const cifre = testo.data() + 1;
    const auto esito = std::from_chars(cifre, testo.data() + testo.size(), codice, 16);
    if (esito.ec != std::errc{} || codice > 0xFFFF) return {};
    return {.lunga = 1 + static_cast<std::size_t>(esito.ptr - cifre),
            .lettera = codice < 0x7F ? static_cast<char>(codice) : '?'};
}

/// The value of a line: what stands behind its first "=".
bool valore_innocuo(std::string_view valore) {
    std::string lettere;
    bool fra_virgolette = false;
    for (std::size_t i = 0; i < valore.size(); ++i) {
        if (valore[i] == '\\') {
            const Nota nota = leggi_nota(valore.substr(i + 1));
            if (nota.lunga == 0) return false;
            i += nota.lunga;
            lettere += nota.lettera;
        } else if (valore[i] == '"') {
            fra_virgolette = !fra_virgolette;
        } else {
            lettere += valore[i];
        }
    }
    return !fra_virgolette && lettere.find("Variant(") == std::string::npos &&
           lettere.find("DateTime(") == std::string::npos;
}

}  // namespace

bool innocuo(std::string_view testo) {
    while (!testo.empty()) {
        const std::size_t fine = std::min(testo.find_first_of("\r\n"), testo.size());
        const std::string_view linea = testo.substr(0, fine);
        testo.remove_prefix(std::min(fine + 1, testo.size()));
        const std::size_t uguale = linea.find('=');
        const std::string_view chiave = linea.substr(0, uguale);
        if (chiave.find('"') != std::string_view::npos) return false;
        if (uguale == std::string_view::npos ? chiave.ends_with('\\')
                                             : !valore_innocuo(linea.substr(uguale + 1)))
            return false;
    }
    return true;
}

MemoriaSchermi::MemoriaSchermi(const Sessione& sessione)
    : QSettings{file_sano(sessione), QSettings::IniFormat} {}

}  // namespace sortimetra
