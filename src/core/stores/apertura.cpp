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

/// The wanted tables of a file, read row by row.
std::expected<RigheConFonte, ErroreArchivio> leggi_righe(const std::filesystem::path& file,
                                                         unsigned tabelle) {
    if (nativo(file)) {
        auto letti = leggi_nativo(file, tabelle);
        if (!letti) return std::unexpected(std::move(letti.error()));
        return RigheConFonte{std::move(letti->righe), {file, letti->simulato}};
    }
    auto righe = leggi_jet(file, tabelle);
    if (!righe) return std::unexpected(std::move(righe.error()));
    return RigheConFonte{std::move(*righe), {file, false}};
}

/// The tables of one of the two database files.
struct FileAperto {
    TabelleArchivio tabelle{};
    Fonte fonte{};
    bool esaminato = false;  ///< nothing in them is damage, nor would be in some of them alone
};

/// Takes the tables of `bit` from `da`.
void prendi_tabelle(TabelleArchivio& dove, const TabelleArchivio& da, unsigned bit) {
    if ((bit & kTabellaLotto) != 0) dove.lotto = da.lotto;
    if ((bit & kTabellaNazionale) != 0) dove.nazionale = da.nazionale;
    if ((bit & kTabellaSuperEnalotto) != 0) dove.superenalotto = da.superenalotto;
    if ((bit & kTabellaWinForLife) != 0) dove.winforlife = da.winforlife;
}

/// The same with the packed copy: what it lacks is read from the store, and the copy is made anew with that.
std::expected<FileAperto, ErroreArchivio> apri_con_copia(const std::filesystem::path& file, unsigned tabelle,
                                                         const ModoApertura& modo) {
    // Judged before the reading: what is written meanwhile is younger than this.
    const auto identita = modo.copia ? identita_negozio(file) : std::nullopt;
    const bool si_copia = identita && modo.esamina && !appena_cambiato(*identita);
    auto copia = identita ? leggi_copia(file, *identita, tabelle, modo.tenuta) : std::nullopt;
    ContenutoCopia contenuto = std::move(copia).value_or(ContenutoCopia{});
    FileAperto aperto{.fonte = {file, false}, .esaminato = true};
    if (const unsigned mancano = tabelle & ~contenuto.tabelle; mancano != 0) {
        auto letti = leggi_righe(file, mancano);
        if (!letti) return std::unexpected(std::move(letti.error()));
        const bool simulato = letti->fonte.simulato;
        const auto composto =
            ArchivioEstrazioni::componi(std::move(letti->righe), letti->fonte, letti->fonte);
        if (!composto) return std::unexpected(composto.error());
        // What the copy held is of the same state of the store, unless that changed meanwhile.
        const bool immutato = si_copia && identita_negozio(file) == identita;
        if (contenuto.tabelle != 0 && !immutato) return apri_con_copia(file, tabelle, {.copia = false});
        prendi_tabelle(contenuto.contenuto, composto->tabelle(), mancano);
        contenuto.tabelle |= mancano;
        contenuto.simulato = simulato;
        // Only what was found sound is copied, so that what comes from a copy need not be looked at again.
        aperto.esaminato = immutato && !primo_danno({contenuto.contenuto, aperto.fonte, aperto.fonte});
        if (aperto.esaminato) (void)scrivi_copia(file, *identita, contenuto);
    }
    aperto.fonte.simulato = contenuto.simulato;
    prendi_tabelle(aperto.tabelle, contenuto.contenuto, tabelle);
    return aperto;
}

/// The newest file of those names; nothing if there is none or no table of it is wanted.
std::expected<std::optional<FileAperto>, ErroreArchivio> apri_file_archivio(
    const std::filesystem::path& cartella, const NomiFile& nomi, unsigned tabelle, const ModoApertura& modo) {
    const auto file = tabelle == 0 ? std::nullopt : piu_recente(cartella, nomi);
    if (!file) return std::nullopt;
    auto aperto = apri_con_copia(*file, tabelle, modo);
    if (!aperto) return std::unexpected(std::move(aperto.error()));
    return std::move(*aperto);
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
    const std::filesystem::path& percorso_archivio, unsigned tabelle, ModoApertura modo) {
    const unsigned in_drawit = tabelle & kTabelleDrawit;
    const unsigned in_drawit2 = tabelle & kTabellaWinForLife;
    auto drawit = apri_file_archivio(percorso_archivio, kNomiDrawit, in_drawit, modo);
    if (!drawit) return std::unexpected(std::move(drawit.error()));
    auto drawit2 = apri_file_archivio(percorso_archivio, kNomiDrawit2, in_drawit2, modo);
    if (!drawit2) return std::unexpected(std::move(drawit2.error()));
    if (!*drawit && !*drawit2)
        return std::unexpected(manca(percorso_archivio, in_drawit != 0 ? kNomiDrawit : kNomiDrawit2));
    FileAperto primo = std::move(*drawit).value_or(FileAperto{.esaminato = true});
    FileAperto secondo = std::move(*drawit2).value_or(FileAperto{.esaminato = true});
    const bool esaminato = primo.esaminato && secondo.esaminato;
    primo.tabelle.winforlife = std::move(secondo.tabelle.winforlife);
    ArchivioEstrazioni archivio{std::move(primo.tabelle), std::move(primo.fonte), std::move(secondo.fonte)};
    if (modo.esamina && !esaminato)
        if (auto danno = primo_danno(archivio)) return std::unexpected(std::move(*danno));
    return archivio;
}

std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    const auto file =
        (tabelle & kTabelleDrawit) == 0 ? std::nullopt : piu_recente(percorso_archivio, kNomiDrawit);
    if (!file) return std::nullopt;
    auto letti = leggi_righe(*file, tabelle & kTabelleDrawit);
    if (!letti) return std::unexpected(std::move(letti.error()));
    return std::move(*letti);
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
