#include "stores/apertura.h"

#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/intento.h"
#include "stores/negozio_jet.h"
#include "stores/negozio_nativo.h"
#include "text/testi.h"

#include <fmt/core.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace sortimetra {

namespace {

/// All that is asked of that file.
constexpr unsigned kInDrawit = kTabelleDrawit | kConfiniLotto;

/// The native and the Jet name of each of the two database files; where both are equally new, the first.
using NomiFile = std::array<std::string_view, 2>;
constexpr NomiFile kNomiDrawit{"drawit.db", "drawit.mdb"};
constexpr NomiFile kNomiDrawit2{"drawit2.db", "drawit2.mdb"};

/// A file that is to be read: under its name, or as the temporary that is still to get it.
struct Scelto {
    std::filesystem::path file;        ///< as the user knows it
    std::filesystem::path da_leggere;  ///< where its bytes are
};

/// The newest file of the folder that has one of the names, in whatever case; `sospeso` are the steps of a
/// change that could not be finished.
std::optional<Scelto> piu_recente(const std::filesystem::path& cartella, const NomiFile& nomi,
                                  const Intento& sospeso) {
    struct Trovato {
        std::filesystem::file_time_type scritto;
        std::ptrdiff_t posto;  ///< in `nomi`
        bool maiuscole;        ///< the name is in another case
        Scelto scelto;
    };
    std::optional<Trovato> migliore;
    const auto considera = [&](const std::filesystem::path& file, std::filesystem::path da_leggere) {
        const std::string nome = file.filename().string();
        const auto trovato = std::find(nomi.begin(), nomi.end(), minuscolo(nome));
        if (trovato == nomi.end()) return;
        std::error_code senza_data;
        auto scritto = std::filesystem::last_write_time(da_leggere, senza_data);
        if (senza_data) scritto = std::filesystem::file_time_type::min();
        Trovato t{scritto, trovato - nomi.begin(), nome != *trovato, {file, std::move(da_leggere)}};
        const auto chiave = [](const Trovato& x) { return std::pair{x.posto, x.maiuscole}; };
        if (!migliore || t.scritto > migliore->scritto ||
            (t.scritto == migliore->scritto && chiave(t) < chiave(*migliore)))
            migliore = std::move(t);
    };
    std::error_code errore;
    std::filesystem::directory_iterator it{cartella, errore};
    for (; !errore && it != std::filesystem::directory_iterator{}; it.increment(errore)) {
        const std::string nome = it->path().filename().string();
        const bool da_cambiare =
            std::any_of(sospeso.begin(), sospeso.end(), [&](const PassoCambio& p) { return p.nome == nome; });
        if (!da_cambiare) considera(it->path(), it->path());
    }
    for (const PassoCambio& passo : sospeso)
        if (auto file = come_se(cartella, sospeso, passo.nome))
            considera(cartella / passo.nome, std::move(*file));
    if (!migliore) return std::nullopt;
    return std::move(migliore->scelto);
}

bool nativo(const std::filesystem::path& file) {
    return minuscolo(file.extension().string()) == ".db";
}

/// The wanted tables of a chosen file, read row by row.
std::expected<RigheConFonte, ErroreArchivio> leggi_righe(const Scelto& scelto, unsigned tabelle) {
    const auto col_suo_nome = [&](ErroreArchivio errore) {
        if (errore.file == scelto.da_leggere) errore.file = scelto.file;
        return std::unexpected(std::move(errore));
    };
    if (nativo(scelto.file)) {
        auto letti = leggi_nativo(scelto.da_leggere, tabelle);
        if (!letti) return col_suo_nome(std::move(letti.error()));
        return RigheConFonte{
            std::move(letti->righe), {scelto.file, letti->simulato}, letti->tabelle, letti->confini};
    }
    // A Jet file has no digests: only the rows of the Lotto, examined as a whole, can be believed where they
    // end.
    auto righe = leggi_jet(scelto.da_leggere, tabelle_intere(tabelle));
    if (!righe) return col_suo_nome(std::move(righe.error()));
    return RigheConFonte{std::move(*righe), {scelto.file, false}, tabelle_intere(tabelle)};
}

/// The tables of one of the two database files.
struct FileAperto {
    TabelleArchivio tabelle{};
    Fonte fonte{};
    std::optional<ErroreArchivio> danno{};  ///< what they say to be damage, if that was to be found out
};

/// Takes the tables of `bit` from `da`.
void prendi_tabelle(TabelleArchivio& dove, const TabelleArchivio& da, unsigned bit) {
    if ((bit & kTabellaLotto) != 0) dove.lotto = da.lotto;
    if ((bit & kTabellaNazionale) != 0) dove.nazionale = da.nazionale;
    if ((bit & kTabellaSuperEnalotto) != 0) dove.superenalotto = da.superenalotto;
    if ((bit & kTabellaWinForLife) != 0) dove.winforlife = da.winforlife;
    if (solo_confini(bit)) dove.confini = ArchivioEstrazioni{da, {}, {}}.confini_lotto();
}

/// Reads tables from the store into what is known of it already.
std::expected<void, ErroreArchivio> aggiungi_letti(const Scelto& scelto, unsigned mancano,
                                                   ContenutoCopia& contenuto) {
    auto letti = leggi_righe(scelto, mancano);
    if (!letti) return std::unexpected(std::move(letti.error()));
    auto composto = ArchivioEstrazioni::componi(std::move(letti->righe), letti->fonte, letti->fonte);
    if (!composto) return std::unexpected(std::move(composto.error()));
    prendi_tabelle(contenuto.contenuto, composto->tabelle(), letti->tabelle & ~unsigned{kConfiniLotto});
    contenuto.tabelle |= letti->tabelle;
    contenuto.simulato = letti->fonte.simulato;
    if (letti->confini) contenuto.contenuto.confini = letti->confini;
    // Rows say it themselves.
    if ((contenuto.tabelle & kTabellaLotto) != 0) {
        contenuto.tabelle &= ~unsigned{kConfiniLotto};
        contenuto.contenuto.confini.reset();
    }
    return {};
}

/// The same with the packed copy: what it lacks is read from the store, and the copy is made anew with that.
std::expected<FileAperto, ErroreArchivio> apri_con_copia(const Scelto& scelto, unsigned tabelle,
                                                         const ModoApertura& modo) {
    // A file that is still to get its name has no copy of its own.
    const auto& file = scelto.file;
    const bool con_copia = modo.copia && scelto.da_leggere == file;
    // Judged before the reading: what is written meanwhile is younger than this.
    const auto identita = con_copia ? identita_negozio(file) : std::nullopt;
    const bool si_copia = identita && modo.esamina && !appena_cambiato(*identita);
    auto copia = identita ? leggi_copia(file, *identita, tabelle, modo.tenuta) : std::nullopt;
    ContenutoCopia contenuto = std::move(copia).value_or(ContenutoCopia{});
    FileAperto aperto{.fonte = {file, false}};
    if (const unsigned mancano = tabelle_mancanti(tabelle, contenuto.tabelle); mancano != 0) {
        const unsigned prima = contenuto.tabelle;
        if (auto esito = aggiungi_letti(scelto, mancano, contenuto); !esito)
            return std::unexpected(std::move(esito.error()));
        // What the copy held is of the same state of the store, unless that changed meanwhile.
        const bool immutato = si_copia && identita_negozio(file) == identita;
        if (prima != 0 && !immutato)
            return apri_con_copia(scelto, tabelle, {.copia = false, .esamina = modo.esamina});
        const Fonte fonte{file, contenuto.simulato};
        auto danno = modo.esamina ? primo_danno({contenuto.contenuto, fonte, fonte}) : std::nullopt;
        // Only what was found sound is copied, so that what comes from a copy need not be looked at again.
        if (immutato && !danno) (void)scrivi_copia(file, *identita, contenuto);
        if (danno && prima != 0) {
            // It counts only in what is asked for, and in what was read for it.
            TabelleArchivio lette;
            prendi_tabelle(lette, contenuto.contenuto, tabelle | (contenuto.tabelle & ~prima));
            danno = primo_danno({std::move(lette), fonte, fonte});
        }
        aperto.danno = std::move(danno);
    }
    aperto.fonte.simulato = contenuto.simulato;
    prendi_tabelle(aperto.tabelle, contenuto.contenuto, tabelle);
    return aperto;
}

/// Which file stands at a place, by what no two files share.
struct Impronta {
    dev_t disco = 0;
    ino_t numero = 0;
    timespec scritto{};
    bool operator==(const Impronta& altra) const {
        return disco == altra.disco && numero == altra.numero && scritto.tv_sec == altra.scritto.tv_sec &&
               scritto.tv_nsec == altra.scritto.tv_nsec;
    }
};
Impronta impronta(const std::optional<Scelto>& scelto) {
    struct stat stato{};
    if (!scelto || stat(scelto->da_leggere.c_str(), &stato) != 0) return {};
    return {stato.st_dev, stato.st_ino, stato.st_mtim};
}

using Letto = std::expected<std::optional<FileAperto>, ErroreArchivio>;
/// The wanted tables of a chosen file; nothing without one.
Letto apri_scelto(const std::optional<Scelto>& scelto, unsigned tabelle, const ModoApertura& modo) {
    if (!scelto) return std::nullopt;
    auto aperto = apri_con_copia(*scelto, tabelle, modo);
    if (!aperto) return std::unexpected(std::move(aperto.error()));
    return std::move(*aperto);
}

struct Letti {
    Letto drawit;
    Letto drawit2;
};

/// Both files as they were at one moment. A change that another program makes takes the few milliseconds of
/// two renames, so that the second look is already a rarity.
std::expected<Letti, ErroreArchivio> leggi_insieme(const std::filesystem::path& cartella, unsigned in_drawit,
                                                   unsigned in_drawit2, const ModoApertura& modo) {
    constexpr int kSguardi = 20;
    for (int sguardo = 1;; ++sguardo) {
        const auto sospeso = concludi_sospeso(cartella);
        if (!sospeso) return std::unexpected(sospeso.error());
        const auto scegli = [&](const NomiFile& nomi, unsigned tabelle) {
            return tabelle == 0 ? std::nullopt : piu_recente(cartella, nomi, *sospeso);
        };
        const auto uno = scegli(kNomiDrawit, in_drawit);
        const auto due = scegli(kNomiDrawit2, in_drawit2);
        const auto prima = std::pair{impronta(uno), impronta(due)};
        Letti letti{.drawit = apri_scelto(uno, in_drawit, modo),
                    .drawit2 = apri_scelto(due, in_drawit2, modo)};
        const bool fermo =
            std::pair{impronta(uno), impronta(due)} == prima && cambio_sospeso(cartella) == !sospeso->empty();
        if (fermo || sguardo == kSguardi) return letti;
    }
}

/// One of the two files alone, row by row.
std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_uno(const std::filesystem::path& cartella,
                                                                      const NomiFile& nomi,
                                                                      unsigned tabelle) {
    const auto sospeso = concludi_sospeso(cartella);
    if (!sospeso) return std::unexpected(sospeso.error());
    const auto scelto = tabelle == 0 ? std::nullopt : piu_recente(cartella, nomi, *sospeso);
    if (!scelto) return std::nullopt;
    auto letti = leggi_righe(*scelto, tabelle);
    if (!letti) return std::unexpected(std::move(letti.error()));
    return std::move(*letti);
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
    const unsigned in_drawit = tabelle & kInDrawit;
    const unsigned in_drawit2 = tabelle & kTabellaWinForLife;
    auto letti = leggi_insieme(percorso_archivio, in_drawit, in_drawit2, modo);
    if (!letti) return std::unexpected(std::move(letti.error()));
    auto& [drawit, drawit2] = *letti;
    if (!drawit) return std::unexpected(std::move(drawit.error()));
    if (!drawit2) return std::unexpected(std::move(drawit2.error()));
    if (!*drawit && !*drawit2)
        return std::unexpected(manca(percorso_archivio, in_drawit != 0 ? kNomiDrawit : kNomiDrawit2));
    FileAperto primo = std::move(*drawit).value_or(FileAperto{});
    FileAperto secondo = std::move(*drawit2).value_or(FileAperto{});
    for (auto& danno : {&primo.danno, &secondo.danno})
        if (*danno) return std::unexpected(std::move(**danno));
    primo.tabelle.winforlife = std::move(secondo.tabelle.winforlife);
    return ArchivioEstrazioni{std::move(primo.tabelle), std::move(primo.fonte), std::move(secondo.fonte)};
}

std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    return leggi_uno(percorso_archivio, kNomiDrawit, tabelle & kInDrawit);
}

std::expected<std::optional<RigheConFonte>, ErroreArchivio> leggi_drawit2(
    const std::filesystem::path& percorso_archivio, unsigned tabelle) {
    return leggi_uno(percorso_archivio, kNomiDrawit2, tabelle & kTabellaWinForLife);
}

FileLetti file_letti(const std::filesystem::path& percorso_archivio) {
    // A change that cannot be told is for the one that opens the archive to tell.
    const Intento sospeso = concludi_sospeso(percorso_archivio).value_or(Intento{});
    const auto file = [&](const NomiFile& nomi) -> std::optional<std::filesystem::path> {
        auto scelto = piu_recente(percorso_archivio, nomi, sospeso);
        if (!scelto) return std::nullopt;
        return std::move(scelto->file);
    };
    return {file(kNomiDrawit), file(kNomiDrawit2)};
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
    const FileLetti file = file_letti(percorso_archivio);
    return (file.drawit ? kTabelleDrawit : 0U) | (file.drawit2 ? unsigned{kTabellaWinForLife} : 0U);
}

bool contiene_archivio(const std::filesystem::path& percorso_archivio) {
    return tabelle_presenti(percorso_archivio) != 0;
}

}  // namespace sortimetra
