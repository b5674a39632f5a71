#include "stores/apertura.h"

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/negozio_jet.h"
#include "stores/negozio_nativo.h"
#include "text/testi.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace sortimetra {

namespace {

constexpr unsigned kTabelleDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;

/// The native and the Jet name of each of the two database files; where both are equally new, the first.
using NomiFile = std::array<std::string_view, 2>;
constexpr NomiFile kNomiDrawit{"drawit.db", "drawit.mdb"};
constexpr NomiFile kNomiDrawit2{"drawit2.db", "drawit2.mdb"};

/// The newest file of the folder that has one of the names, in whatever case.
std::optional<std::filesystem::path> piu_recente(const std::filesystem::path& cartella,
                                                 const NomiFile& nomi) {
    struct Trovato {
        std::filesystem::file_time_type scritto;
        std::ptrdiff_t posto;  ///< in `nomi`
        bool maiuscole;        ///< the name is in another case
        std::filesystem::path file;
    };
    std::optional<Trovato> migliore;
    std::error_code errore;
    std::filesystem::directory_iterator it{cartella, errore};
    for (; !errore && it != std::filesystem::directory_iterator{}; it.increment(errore)) {
        const std::string nome = it->path().filename().string();
        const auto trovato = std::find(nomi.begin(), nomi.end(), minuscolo(nome));
        if (trovato == nomi.end()) continue;
        std::error_code senza_data;
        auto scritto = it->last_write_time(senza_data);
        if (senza_data) scritto = std::filesystem::file_time_type::min();
        Trovato t{scritto, trovato - nomi.begin(), nome != *trovato, it->path()};
        const auto chiave = [](const Trovato& x) { return std::pair{x.posto, x.maiuscole}; };
        if (!migliore || t.scritto > migliore->scritto ||
            (t.scritto == migliore->scritto && chiave(t) < chiave(*migliore)))
            migliore = std::move(t);
    }
    if (!migliore) return std::nullopt;
    return std::move(migliore->file);
}

bool nativo(const std::filesystem::path& file) {
    return minuscolo(file.extension().string()) == ".db";
}

/// The newest file of those names; nothing if there is none or no table of it is wanted.
std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_file_archivio(
    const std::filesystem::path& cartella, const NomiFile& nomi, unsigned tabelle) {
    const auto file = tabelle == 0 ? std::nullopt : piu_recente(cartella, nomi);
    if (!file) return std::nullopt;
    if (nativo(*file)) {
        auto letti = leggi_nativo(*file, tabelle);
        if (!letti) return std::unexpected(std::move(letti.error()));
        return RigheConFonte{std::move(letti->righe), {*file, letti->simulato}};
    }
    auto righe = leggi_jet(*file, tabelle);
    if (!righe) return std::unexpected(std::move(righe.error()));
    return RigheConFonte{std::move(*righe), {*file, false}};
}

ErroreArchivio manca(const std::filesystem::path& cartella, const NomiFile& nomi) {
    if (auto negata = cartella_negata(cartella)) return std::move(*negata);
    std::error_code errore;
    if (!std::filesystem::is_directory(cartella, errore))
        return {cartella, std::filesystem::exists(cartella, errore) ? "non è una cartella"
                                                                    : "la cartella dell'archivio non c'è"};
    return {cartella, fmt::format("non vi si trova né {} né {}", nomi[0], nomi[1])};
}

}  // namespace

std::expected<ArchivioEstrazioni, ErroreArchivio> apri_archivio(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    auto archivio = apri_archivio_non_esaminato(percorso_archivio, tabelle);
    if (!archivio) return archivio;
    if (auto danno = primo_danno(*archivio)) return std::unexpected(std::move(*danno));
    return archivio;
}

std::expected<ArchivioEstrazioni, ErroreArchivio> apri_archivio_non_esaminato(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    const unsigned in_drawit = tabelle & kTabelleDrawit;
    const unsigned in_drawit2 = tabelle & kTabellaWinForLife;
    auto drawit = leggi_file_archivio(percorso_archivio, kNomiDrawit, in_drawit);
    if (!drawit) return std::unexpected(std::move(drawit.error()));
    auto drawit2 = leggi_file_archivio(percorso_archivio, kNomiDrawit2, in_drawit2);
    if (!drawit2) return std::unexpected(std::move(drawit2.error()));
    if (!*drawit && !*drawit2)
        return std::unexpected(manca(percorso_archivio, in_drawit != 0 ? kNomiDrawit : kNomiDrawit2));
    RigheArchivio righe;
    Fonte fonte;
    Fonte fonte2;
    if (*drawit) {
        righe = std::move((*drawit)->righe);
        fonte = std::move((*drawit)->fonte);
    }
    if (*drawit2) {
        righe.winforlife = std::move((*drawit2)->righe.winforlife);
        fonte2 = std::move((*drawit2)->fonte);
    }
    return ArchivioEstrazioni::componi(std::move(righe), std::move(fonte), std::move(fonte2));
}

std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    return leggi_file_archivio(percorso_archivio, kNomiDrawit, tabelle & kTabelleDrawit);
}

std::optional<ErroreArchivio> cartella_negata(const std::filesystem::path& percorso_archivio) {
    // A folder that cannot be listed is not a folder without an archive.
    std::error_code errore;
    const std::filesystem::directory_iterator elenco{percorso_archivio, errore};
    if (!errore || errore == std::errc::no_such_file_or_directory || errore == std::errc::not_a_directory)
        return std::nullopt;
    return ErroreArchivio{percorso_archivio, fmt::format("la cartella dell'archivio non si può leggere: {}",
                                                         motivo_sistema(errore.value()))};
}

unsigned tabelle_presenti(const std::filesystem::path& percorso_archivio) {
    return (piu_recente(percorso_archivio, kNomiDrawit) ? kTabelleDrawit : 0U) |
           (piu_recente(percorso_archivio, kNomiDrawit2) ? unsigned{kTabellaWinForLife} : 0U);
}

bool contiene_archivio(const std::filesystem::path& percorso_archivio) {
    return tabelle_presenti(percorso_archivio) != 0;
}

}  // namespace sortimetra
