#include "stores/laterali.h"

#include "files/file_sicuro.h"
#include "files/passi_disco.h"

#include <fmt/core.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 3> kFinali{"-journal", "-wal", "-shm"};
/// How long another program may take to let go of the store.
constexpr int kAttesaLateraliMs = 2000;

fs::path laterale(const fs::path& file, std::string_view finale) {
    fs::path nome = file;
    nome += finale;
    return nome;
}

std::string motivo(int codice) {
    switch (codice & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "il file è in uso da un altro programma";
        case SQLITE_FULL:
            return "il disco è pieno";
        case SQLITE_NOMEM:
            return "la memoria non basta";
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            return "permesso negato";
        case SQLITE_IOERR:
            return "errore di lettura o scrittura del disco";
        default:
            return "il file è danneggiato";
    }
}

/// Opening a store undoes what a journal holds, a checkpoint adds what a log holds. Holding it alone for a
/// moment shows that nobody is in the middle of writing.
int concludi(const fs::path& file) {
    sqlite3* base = nullptr;
    int codice = sqlite3_open_v2(file.c_str(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (codice == SQLITE_OK) {
        sqlite3_busy_timeout(base, kAttesaLateraliMs);
        codice = sqlite3_exec(
            base, "BEGIN EXCLUSIVE; SELECT count(*) FROM sqlite_schema; COMMIT; PRAGMA journal_mode=DELETE",
            nullptr, nullptr, nullptr);
    }
    const int chiusa = sqlite3_close(base);
    return codice != SQLITE_OK ? codice : chiusa;
}

}  // namespace

bool ha_laterali(const fs::path& file) {
    return std::any_of(kFinali.begin(), kFinali.end(),
                       [&](std::string_view finale) { return esiste_voce(laterale(file, finale)); });
}

std::expected<void, ErroreArchivio> concludi_laterali(const fs::path& file) {
    std::error_code errore;
    if (!ha_laterali(file) || !fs::exists(file, errore)) return {};
    for (const std::string_view finale : kFinali) {
        const fs::path f = laterale(file, finale);
        if (esiste_voce(f) && !fs::is_regular_file(fs::symlink_status(f, errore)))
            return std::unexpected(ErroreArchivio{f, "non è un file: va tolto perché si possa proseguire"});
    }
    // The log alone is what a store may not outlive; a journal that was undone or finished has no meaning.
    if (const int codice = concludi(file); codice != SQLITE_OK || esiste_voce(laterale(file, "-wal")))
        return std::unexpected(ErroreArchivio{
            file, fmt::format("un altro programma non ha finito di scriverlo e la scrittura non si può "
                              "concludere ({}): chiudere quel programma, oppure portare altrove il file e "
                              "quelli con lo stesso nome che finiscono per -wal, -shm o -journal",
                              motivo(codice == SQLITE_OK ? SQLITE_BUSY : codice))});
    return {};
}

int togli_laterali(const fs::path& file) {
    for (const std::string_view finale : kFinali) {
        const fs::path f = laterale(file, finale);
        if (!esiste_voce(f)) continue;
        if (const int codice = togli_file(f); codice != 0) return codice;
    }
    return 0;
}

std::expected<CopiaPrivata, ErroreArchivio> CopiaPrivata::fai(const fs::path& file) {
    std::error_code errore;
    const auto passaggio = fs::temp_directory_path(errore);
    std::string modello = (passaggio / "sortimetra-XXXXXX").string();
    if (errore || ::mkdtemp(modello.data()) == nullptr)
        return std::unexpected(ErroreArchivio{file, "manca una cartella per i file di passaggio"});
    CopiaPrivata copia{modello};
    // The index of the log ("-shm") is made anew of it.
    for (const std::string_view finale :
         {std::string_view{}, std::string_view{"-journal"}, std::string_view{"-wal"}}) {
        const fs::path da = laterale(file, finale);
        if (!esiste_voce(da)) continue;
        const auto byte = leggi_file(da);
        if (!byte) return std::unexpected(byte.error());
        if (auto esito = scrivi_file(laterale(copia.file(), finale), *byte); !esito)
            return std::unexpected(std::move(esito.error()));
    }
    return copia;
}

CopiaPrivata::CopiaPrivata(CopiaPrivata&& altro) noexcept : cartella_{std::exchange(altro.cartella_, {})} {}

CopiaPrivata::~CopiaPrivata() {
    std::error_code errore;
    if (!cartella_.empty()) fs::remove_all(cartella_, errore);
}

}  // namespace sortimetra
