#include "stores/negozio_nativo.h"

#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/celle.h"
#include "stores/file_accanto.h"
#include "stores/impronta.h"
#include "stores/laterali.h"
#include "text/testi.h"

#include <fmt/core.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace sortimetra {

namespace {

constexpr std::string_view kFirmaSqlite{"SQLite format 3\0", 16};
constexpr std::size_t kTestataSqlite = 100;
/// How long a reader waits for a writer that holds the file.
constexpr int kAttesaMs = 250;
/// Work that reading may take, in steps of `kPassiPerControllo` instructions of the engine. The real archive
/// takes a hundredth of it; a hostile file could otherwise keep the program busy for ever.
constexpr int kPassiPerControllo = 1 << 20;
constexpr int kControlliMassimi = 200;
/// Longest cell that a table of draws can hold.
constexpr int kCellaMassima = 1 << 16;

/// What a file says of itself in its header: that we wrote it ("SMTR"), and in which form. A file that has
/// neither was written before there was such a mark, or by hand, and has no digests to hold it to.
constexpr std::int64_t kMarchio = 0x534D5452;
constexpr std::int64_t kVersione = 1;
/// One row per table of draws: its name, its rows, its digest.
constexpr std::string_view kTabellaImpronte = "impronte";
/// One row: what games that do not walk the Lotto want of it. Sealed with its digest, so that a program that
/// does not know this table, and writes draws beside it, leaves it without worth and not wrong.
constexpr std::string_view kTabellaConfini = "confini";

struct ChiudiBase {
    void operator()(sqlite3* base) const { sqlite3_close(base); }
};
struct ChiudiIstruzione {
    void operator()(sqlite3_stmt* istruzione) const { sqlite3_finalize(istruzione); }
};
using Base = std::unique_ptr<sqlite3, ChiudiBase>;
using Istruzione = std::unique_ptr<sqlite3_stmt, ChiudiIstruzione>;

constexpr std::string_view kInUso = "il file è in uso da un altro programma";

std::string motivo(sqlite3* base, int codice) {
    switch (codice & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return std::string{kInUso};
        case SQLITE_CORRUPT:
        case SQLITE_FORMAT:
            return "il file è danneggiato";
        case SQLITE_NOTADB:
            return "il file non è un archivio";
        case SQLITE_INTERRUPT:
            return "il file è danneggiato: la lettura non finisce";
        case SQLITE_TOOBIG:
            return "il file è danneggiato: una cella è troppo lunga";
        case SQLITE_FULL:
            return "il disco è pieno";
        case SQLITE_NOMEM:
            return "la memoria non basta";
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return "permesso negato";
        case SQLITE_READONLY:
            return "il file attende di essere riparato dal programma che lo scriveva";
        case SQLITE_IOERR:
        case SQLITE_CANTOPEN:
            if (const int sistema = base == nullptr ? 0 : sqlite3_system_errno(base); sistema != 0)
                return std::string{motivo_sistema(sistema)};
            return "errore di lettura o scrittura del disco";
        default:
            return fmt::format("il file è danneggiato ({})",
                               base == nullptr ? sqlite3_errstr(codice) : sqlite3_errmsg(base));
    }
}

std::expected<Istruzione, std::string> prepara(sqlite3* base, const std::string& sql) {
    sqlite3_stmt* istruzione = nullptr;
    const int codice =
        sqlite3_prepare_v2(base, sql.c_str(), static_cast<int>(sql.size()) + 1, &istruzione, nullptr);
    if (codice != SQLITE_OK) return std::unexpected(motivo(base, codice));
    return Istruzione{istruzione};
}

std::expected<void, std::string> esegui(sqlite3* base, const char* sql) {
    const int codice = sqlite3_exec(base, sql, nullptr, nullptr, nullptr);
    if (codice != SQLITE_OK) return std::unexpected(motivo(base, codice));
    return {};
}

std::string fra_virgolette(std::string_view nome) {
    std::string testo = "\"";
    for (const char c : nome) {
        if (c == '"') testo += c;
        testo += c;
    }
    return testo + '"';
}

std::string_view testo_colonna(sqlite3_stmt* istruzione, int colonna) {
    const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(istruzione, colonna));
    if (testo == nullptr) return {};
    return {testo, static_cast<std::size_t>(sqlite3_column_bytes(istruzione, colonna))};
}

// ---- reading ----

int conta_passi(void* controlli) {
    return ++*static_cast<int*>(controlli) > kControlliMassimi ? 1 : 0;
}

/// What the header alone tells: foreign, cut short.
std::expected<void, ErroreArchivio> esamina(const std::filesystem::path& file) {
    const auto inizio = leggi_inizio(file, kTestataSqlite);
    if (!inizio) return std::unexpected(inizio.error());
    const std::string& b = inizio->byte;
    if (!std::string_view{b}.starts_with(kFirmaSqlite.substr(0, std::min(b.size(), kFirmaSqlite.size()))))
        return std::unexpected(ErroreArchivio{file, "il file non è un archivio di Sortimetra"});
    const auto grande = [&](std::size_t dove, int quanti) {
        std::uint64_t n = 0;
        for (int i = 0; i < quanti; ++i)
            n = n << 8 | static_cast<unsigned char>(b[dove + static_cast<std::size_t>(i)]);
        return n;
    };
    if (b.size() < kTestataSqlite)
        return std::unexpected(
            ErroreArchivio{file, fmt::format("il file è troncato: ha solo {} byte", inizio->grandezza)});
    const std::uint64_t pagina = grande(16, 2) == 1 ? 65536 : grande(16, 2);
    // The page count holds only if the last writer of the file also kept its counter of versions.
    // And what stands in the files beside it may still make it longer.
    if (grande(24, 4) == grande(92, 4) && inizio->grandezza < grande(28, 4) * pagina && !ha_laterali(file))
        return std::unexpected(ErroreArchivio{file, fmt::format("il file è troncato: ha {} byte invece di {}",
                                                                inizio->grandezza, grande(28, 4) * pagina)});
    return {};
}

std::expected<Base, std::string> apri(const std::filesystem::path& file, int modo) {
    sqlite3* nuda = nullptr;
    const int codice = sqlite3_open_v2(file.c_str(), &nuda, modo | SQLITE_OPEN_NOMUTEX, nullptr);
    Base base{nuda};
    if (codice != SQLITE_OK) return std::unexpected(motivo(nuda, codice));
    return base;
}

/// The columns of a table, in the store's own writing.
std::expected<std::vector<std::string>, std::string> nomi_colonne(sqlite3* base, std::string_view tabella) {
    auto tutte = prepara(base, "SELECT * FROM " + fra_virgolette(tabella) + " LIMIT 0");
    if (!tutte) return std::unexpected(std::move(tutte.error()));
    std::vector<std::string> nomi;
    for (int i = 0; i < sqlite3_column_count(tutte->get()); ++i) {
        const char* nome = sqlite3_column_name(tutte->get(), i);
        nomi.emplace_back(nome == nullptr ? "" : nome);
    }
    return nomi;
}

/// The name of a table as it is stored; nothing if there is none. Only real tables: a view could hold
/// anything.
std::expected<std::optional<std::string>, std::string> trova_tabella(sqlite3* base, std::string_view nome) {
    auto cerca = prepara(
        base, "SELECT name FROM sqlite_schema WHERE type = 'table' AND sql NOT LIKE 'CREATE VIRTUAL%'");
    if (!cerca) return std::unexpected(std::move(cerca.error()));
    int codice = SQLITE_DONE;
    while ((codice = sqlite3_step(cerca->get())) == SQLITE_ROW) {
        const std::string_view trovato = testo_colonna(cerca->get(), 0);
        if (minuscolo(trovato) == nome) return std::string{trovato};
    }
    if (codice != SQLITE_DONE) return std::unexpected(motivo(base, codice));
    return std::nullopt;
}

/// What `raccogli` works on: an aggregate function that takes the cells of each row as the engine walks the
/// table. It takes half the time of fetching the rows one by one.
struct Raccolta {
    const FormaTabella& forma;
    LettoreRighe& lettore;
    std::size_t lette = 0;
    std::optional<std::string> errore{};
};

Cella cella(sqlite3_value* valore) {
    Cella c;
    switch (sqlite3_value_type(valore)) {
        case SQLITE_INTEGER:
            c.tipo = Cella::Tipo::Intero;
            c.intero = sqlite3_value_int64(valore);
            break;
        case SQLITE_FLOAT:
            c.tipo = Cella::Tipo::Reale;
            c.reale = sqlite3_value_double(valore);
            break;
        case SQLITE_NULL:
            break;
        default:
            if (const auto* testo = sqlite3_value_text(valore)) {
                c.tipo = Cella::Tipo::Testo;
                c.testo = {reinterpret_cast<const char*>(testo),
                           static_cast<std::size_t>(sqlite3_value_bytes(valore))};
            }
    }
    return c;
}

void raccogli_riga(sqlite3_context* contesto, int quante, sqlite3_value** valori) {
    auto& raccolta = *static_cast<Raccolta*>(sqlite3_user_data(contesto));
    if (raccolta.errore) return;
    std::array<Cella, kColonneMassime> celle;
    const auto n = std::min(static_cast<std::size_t>(quante), celle.size());
    for (std::size_t i = 0; i < n; ++i) celle[i] = cella(valori[i]);
    if (++raccolta.lette > kRigheMassime) {
        raccolta.errore = fmt::format("tabella {}: troppe righe", raccolta.forma.nome);
    } else {
        raccolta.errore = raccolta.lettore.aggiungi(raccolta.forma, std::span{celle}.first(n));
    }
    if (raccolta.errore) sqlite3_result_error(contesto, "", 0);  // ends the walk
}

void raccogli_fine(sqlite3_context* contesto) {
    sqlite3_result_null(contesto);
}

std::expected<void, std::string> leggi_tabella(sqlite3* base, const FormaTabella& forma,
                                               LettoreRighe& lettore) {
    const auto tabella = trova_tabella(base, forma.nome);
    if (!tabella) return std::unexpected(tabella.error());
    if (!*tabella) return std::unexpected(fmt::format("manca la tabella {}", forma.nome));
    const auto nomi = nomi_colonne(base, **tabella);
    if (!nomi) return std::unexpected(nomi.error());
    std::string sql = "SELECT raccogli(";
    for (const std::string_view colonna : forma.colonne) {
        const std::string cercata = minuscolo(colonna);
        std::string_view trovata;
        for (const std::string& nome : *nomi)
            if (minuscolo(nome) == cercata) trovata = nome;
        if (trovata.empty())
            return std::unexpected(
                fmt::format("nella tabella {} manca la colonna \"{}\"", forma.nome, colonna));
        if (sql.back() != '(') sql += ',';
        sql += fra_virgolette(trovata);
    }
    sql += ") FROM " + fra_virgolette(**tabella);
    Raccolta raccolta{forma, lettore};
    const int codice = sqlite3_create_function_v2(base, "raccogli", static_cast<int>(forma.colonne.size()),
                                                  SQLITE_UTF8 | SQLITE_DIRECTONLY, &raccolta, nullptr,
                                                  raccogli_riga, raccogli_fine, nullptr);
    if (codice != SQLITE_OK) return std::unexpected(motivo(base, codice));
    auto righe = prepara(base, sql);
    if (!righe) return std::unexpected(std::move(righe.error()));
    const int esito = sqlite3_step(righe->get());
    if (raccolta.errore) return std::unexpected(std::move(*raccolta.errore));
    if (esito != SQLITE_ROW) return std::unexpected(motivo(base, esito));
    return {};
}

std::expected<bool, std::string> leggi_simulato(sqlite3* base) {
    const auto tabella = trova_tabella(base, "proprieta");
    if (!tabella) return std::unexpected(tabella.error());
    if (!*tabella) return false;
    auto cerca =
        prepara(base, "SELECT valore FROM " + fra_virgolette(**tabella) + " WHERE chiave = 'simulato'");
    if (!cerca) return std::unexpected(std::move(cerca.error()));
    const int codice = sqlite3_step(cerca->get());
    if (codice == SQLITE_DONE) return false;
    if (codice != SQLITE_ROW) return std::unexpected(motivo(base, codice));
    return valore_iniziale(testo_colonna(cerca->get(), 0)) != 0;
}

std::expected<std::int64_t, std::string> leggi_numero(sqlite3* base, const char* sql) {
    auto istruzione = prepara(base, sql);
    if (!istruzione) return std::unexpected(std::move(istruzione.error()));
    const int codice = sqlite3_step(istruzione->get());
    if (codice != SQLITE_ROW) return std::unexpected(motivo(base, codice));
    return sqlite3_column_int64(istruzione->get(), 0);
}

/// Whether the file has digests. One that has half of what goes with them is damaged: it must not pass for
/// one that was written before there were any.
std::expected<bool, std::string> ha_impronte(sqlite3* base) {
    const auto marchio = leggi_numero(base, "PRAGMA application_id");
    if (!marchio) return std::unexpected(marchio.error());
    const auto versione = leggi_numero(base, "PRAGMA user_version");
    if (!versione) return std::unexpected(versione.error());
    const auto tabella = trova_tabella(base, kTabellaImpronte);
    if (!tabella) return std::unexpected(tabella.error());
    if (*marchio == kMarchio && *versione > kVersione)
        return std::unexpected(
            fmt::format("il file è danneggiato, o scritto da una versione più nuova del programma (forma {}, "
                        "attesa {})",
                        *versione, kVersione));
    if (*marchio == kMarchio && *versione == kVersione && *tabella) return true;
    if (*marchio == 0 && *versione == 0 && !*tabella) return false;
    return std::unexpected("il file è danneggiato: mancano i conti delle sue tabelle");
}

std::expected<ImprontaTabella, std::string> leggi_impronta(sqlite3* base, std::string_view tabella) {
    auto cerca = prepara(
        base, fmt::format("SELECT righe, somma FROM {} WHERE tabella = '{}'", kTabellaImpronte, tabella));
    if (!cerca) return std::unexpected(std::move(cerca.error()));
    const int codice = sqlite3_step(cerca->get());
    if (codice == SQLITE_DONE)
        return std::unexpected(
            fmt::format("il file è danneggiato: mancano i conti della tabella {}", tabella));
    if (codice != SQLITE_ROW) return std::unexpected(motivo(base, codice));
    return ImprontaTabella{static_cast<std::uint64_t>(sqlite3_column_int64(cerca->get(), 0)),
                           static_cast<std::uint64_t>(sqlite3_column_int64(cerca->get(), 1))};
}

/// Whether the rows of a table are those that were written.
std::expected<void, std::string> confronta(sqlite3* base, const FormaTabella& forma,
                                           const LettiNativo& letti) {
    const auto scritta = leggi_impronta(base, forma.nome);
    if (!scritta) return std::unexpected(scritta.error());
    const ImprontaTabella letta = impronta(letti.righe, forma.bit, letti.simulato);
    if (letta == *scritta) return {};
    if (letta.righe != scritta->righe)
        return std::unexpected(fmt::format("il file è danneggiato: la tabella {} ha {} righe invece di {}",
                                           forma.nome, letta.righe, scritta->righe));
    return std::unexpected(
        fmt::format("il file è danneggiato: la tabella {} non contiene ciò che vi fu scritto", forma.nome));
}

std::optional<Data> leggi_giorno(sqlite3_stmt* istruzione, int colonna) {
    if (sqlite3_column_type(istruzione, colonna) == SQLITE_NULL) return std::nullopt;
    return Data{std::chrono::days{sqlite3_column_int64(istruzione, colonna)}};
}

/// Where the Lotto ends, without a look at its rows. Nothing unless the seal fits: then they have to tell.
std::optional<ConfiniLotto> leggi_confini(sqlite3* base) {
    const auto tabella = trova_tabella(base, kTabellaConfini);
    const auto lotto = leggi_impronta(base, tabelle_drawit().front().nome);
    if (!tabella || !*tabella || !lotto) return std::nullopt;
    auto cerca = prepara(
        base, fmt::format("SELECT ultimo, primo_giorno, ultimo_giorno, sigillo FROM {}", kTabellaConfini));
    if (!cerca || sqlite3_step(cerca->get()) != SQLITE_ROW) return std::nullopt;
    const std::int64_t ultimo = sqlite3_column_int64(cerca->get(), 0);
    if (ultimo < 0 || ultimo > kConcorsoMassimo) return std::nullopt;
    const ConfiniLotto confini{.ultimo = static_cast<Concorso>(ultimo),
                               .primo_giorno = leggi_giorno(cerca->get(), 1),
                               .ultimo_giorno = leggi_giorno(cerca->get(), 2)};
    const auto scritto = static_cast<std::uint64_t>(sqlite3_column_int64(cerca->get(), 3));
    if (scritto != sigillo(confini, *lotto) || !possibili(confini)) return std::nullopt;
    return confini;
}

std::expected<LettiNativo, std::string> leggi(const std::filesystem::path& file, unsigned tabelle, int modo) {
    const std::span<const FormaTabella> forme =
        (tabelle & kTabellaWinForLife) != 0 ? tabelle_drawit2() : tabelle_drawit();
    auto aperta = apri(file, modo);
    if (!aperta) return std::unexpected(std::move(aperta.error()));
    sqlite3* base = aperta->get();
    int controlli = 0;
    sqlite3_busy_timeout(base, kAttesaMs);
    sqlite3_progress_handler(base, kPassiPerControllo, conta_passi, &controlli);
    sqlite3_limit(base, SQLITE_LIMIT_LENGTH, kCellaMassima);
    sqlite3_limit(base, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_db_config(base, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(base, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    // One transaction: all tables as they were at one moment, whoever writes meanwhile.
    if (auto esito = esegui(base, "PRAGMA cell_size_check=ON; BEGIN"); !esito)
        return std::unexpected(std::move(esito.error()));
    LettiNativo letti;
    const auto simulato = leggi_simulato(base);
    if (!simulato) return std::unexpected(simulato.error());
    letti.simulato = *simulato;
    const auto impronte = ha_impronte(base);
    if (!impronte) return std::unexpected(impronte.error());
    if (*impronte && solo_confini(tabelle)) letti.confini = leggi_confini(base);
    letti.tabelle = letti.confini ? tabelle : tabelle_intere(tabelle);
    LettoreRighe lettore{letti.righe};
    for (const FormaTabella& forma : forme) {
        if ((letti.tabelle & forma.bit) == 0) continue;
        if (auto esito = leggi_tabella(base, forma, lettore); !esito)
            return std::unexpected(std::move(esito.error()));
        if (!*impronte) continue;
        if (auto esito = confronta(base, forma, letti); !esito)
            return std::unexpected(std::move(esito.error()));
    }
    return letti;
}

/// A store whose writer was stopped has to be made whole before it can be read, and a reader writes nothing:
/// a copy is made whole, and read. Where nobody was stopped, what the first reading said is true.
std::expected<LettiNativo, std::string> leggi_o_ripara(const std::filesystem::path& file, unsigned tabelle) {
    auto letti = leggi(file, tabelle, SQLITE_OPEN_READONLY);
    if (letti || letti.error() == kInUso || !ha_laterali(file)) return letti;
    const auto copia = CopiaPrivata::fai(file);
    if (!copia) return letti;
    auto riparati = leggi(copia->file(), tabelle, SQLITE_OPEN_READWRITE);
    return riparati ? std::move(riparati) : std::move(letti);
}

// ---- writing ----

// Columns in the order in which code that reads by position expects them.
constexpr std::array<std::string_view, 8> kLotto{"data estrazione", "ruota",      "1°estratto", "2°estratto",
                                                 "3°estratto",      "4°estratto", "5°estratto", "concorso"};
// Position 1 is read by nobody, so the Jolly, which is read by name only, stands there.
constexpr std::array<std::string_view, 10> kSuperEnalotto{
    "data estrazione", "Jolly",      "1°estratto", "2°estratto", "3°estratto",
    "4°estratto",      "5°estratto", "6°estratto", "superstar",  "concorso"};
constexpr std::array<std::string_view, 13> kWinForLife{
    "concorso", "data estrazione", "ora", "1°", "2°", "3°", "4°", "5°", "6°", "7°", "8°", "9°", "10°"};

/// Fills one table, cell by cell, in column order.
class Scrittore {
  public:
    static std::expected<Scrittore, std::string> crea(sqlite3* base, std::string_view nome,
                                                      std::span<const std::string_view> colonne) {
        std::string crea = "CREATE TABLE IF NOT EXISTS " + fra_virgolette(nome) + " (";
        std::string riempi = "INSERT INTO " + fra_virgolette(nome) + " VALUES (";
        for (const std::string_view c : colonne) {
            const bool testo = c == "data estrazione" || c == "ruota" || c == "ora";
            crea += fra_virgolette(c) + (testo ? " TEXT," : " INTEGER,");
            riempi += "?,";
        }
        crea.back() = ')';
        riempi.back() = ')';
        if (auto esito = esegui(base, crea.c_str()); !esito) return std::unexpected(std::move(esito.error()));
        auto istruzione = prepara(base, riempi);
        if (!istruzione) return std::unexpected(std::move(istruzione.error()));
        return Scrittore{base, std::move(*istruzione)};
    }

    void numero(std::int64_t n) { sqlite3_bind_int64(istruzione_.get(), ++colonna_, n); }
    template <std::size_t N>
    void numeri(const std::array<Numero, N>& tutti) {
        for (const Numero n : tutti) numero(n);
    }
    void testo(std::string_view t) {
        sqlite3_bind_text(istruzione_.get(), ++colonna_, t.data(), static_cast<int>(t.size()),
                          SQLITE_TRANSIENT);
    }
    void giorno(Data data) {
        if (testo_giorno_.empty() || data != giorno_) {
            giorno_ = data;
            testo_giorno_ = testo_data_iso(data);
        }
        testo(testo_giorno_);
    }
    std::expected<void, std::string> riga() {
        colonna_ = 0;
        const int codice = sqlite3_step(istruzione_.get());
        sqlite3_reset(istruzione_.get());
        if (codice != SQLITE_DONE) return std::unexpected(motivo(base_, codice));
        return {};
    }

  private:
    Scrittore(sqlite3* base, Istruzione istruzione) : base_{base}, istruzione_{std::move(istruzione)} {}

    sqlite3* base_;
    Istruzione istruzione_;
    int colonna_ = 0;
    Data giorno_{};
    std::string testo_giorno_;
};

/// Rows between two reports of progress.
constexpr std::size_t kRighePerPasso = 2048;

/// How many rows of each table of a file stand already, by the order of its tables.
using Scritte = std::array<std::size_t, 3>;

/// The rows of a file that are still to be written, and whom to tell.
struct Conto {
    Avanzamento& avanzamento;
    std::size_t totale;
    Scritte da{};  ///< of each table the first row to be written
    std::size_t tabella = 0;
    std::size_t fatte = 0;
    bool una() {
        ++fatte;
        return fatte % kRighePerPasso != 0 || avanzamento.procedi(fatte, totale);
    }
};

template <class Riga, class Una>
std::expected<void, std::string> riempi(sqlite3* base, std::string_view nome,
                                        std::span<const std::string_view> colonne,
                                        const std::vector<Riga>& righe, Conto& conto, Una una) {
    auto scrittore = Scrittore::crea(base, nome, colonne);
    if (!scrittore) return std::unexpected(std::move(scrittore.error()));
    for (std::size_t i = conto.da[conto.tabella++]; i < righe.size(); ++i) {
        una(*scrittore, righe[i]);
        if (auto esito = scrittore->riga(); !esito) return esito;
        if (!conto.una()) return std::unexpected(std::string{kAnnullata});
    }
    return {};
}

std::expected<void, std::string> riempi_lotto(sqlite3* base, std::string_view nome,
                                              const std::vector<RigaLotto>& righe, Conto& conto) {
    return riempi(base, nome, kLotto, righe, conto, [](Scrittore& s, const RigaLotto& r) {
        s.giorno(r.data);
        s.testo(r.ruota == kNazionale ? kParolaNazionale
                                      : kNomiRuote[static_cast<std::size_t>(r.ruota)].codice);
        s.numeri(r.numeri);
        s.numero(r.concorso);
    });
}

std::expected<void, std::string> riempi_drawit(sqlite3* base, const RigheArchivio& righe, const Scritte& da,
                                               Avanzamento& avanzamento) {
    Conto conto{avanzamento, righe.lotto.size() + righe.nazionale.size() + righe.superenalotto.size(), da};
    if (auto esito = riempi_lotto(base, "archivio", righe.lotto, conto); !esito) return esito;
    if (auto esito = riempi_lotto(base, "archivion", righe.nazionale, conto); !esito) return esito;
    return riempi(base, "archivios", kSuperEnalotto, righe.superenalotto, conto,
                  [](Scrittore& s, const RigaSuperEnalotto& r) {
                      s.giorno(r.data);
                      s.numero(r.jolly);
                      s.numeri(r.numeri);
                      s.numero(r.superstar);
                      s.numero(r.concorso);
                  });
}

std::expected<void, std::string> riempi_drawit2(sqlite3* base, const RigheArchivio& righe, const Scritte& da,
                                                Avanzamento& avanzamento) {
    Conto conto{avanzamento, righe.winforlife.size(), da};
    return riempi(base, "archivio", kWinForLife, righe.winforlife, conto,
                  [](Scrittore& s, const RigaWinForLife& r) {
                      s.numero(r.concorso);
                      s.giorno(r.data);
                      s.testo(r.ora);
                      s.numeri(r.numeri);
                  });
}

/// What one of the two database files holds.
struct Contenuto {
    std::span<const FormaTabella> forme;
    std::expected<void, std::string> (*riempi)(sqlite3*, const RigheArchivio&, const Scritte&, Avanzamento&);
};

std::string sql_confini(const ConfiniLotto& confini, const ImprontaTabella& lotto) {
    const auto giorno = [](const std::optional<Data>& data) {
        return data ? fmt::format("{}", data->time_since_epoch().count()) : std::string{"NULL"};
    };
    return fmt::format(
        "CREATE TABLE IF NOT EXISTS {0} (ultimo INTEGER, primo_giorno INTEGER, ultimo_giorno INTEGER,"
        " sigillo INTEGER); DELETE FROM {0}; INSERT INTO {0} VALUES ({1}, {2}, {3}, {4});",
        kTabellaConfini, confini.ultimo, giorno(confini.primo_giorno), giorno(confini.ultimo_giorno),
        static_cast<std::int64_t>(sigillo(confini, lotto)));
}

std::expected<void, std::string> scrivi_impronte(sqlite3* base, std::span<const FormaTabella> forme,
                                                 const RigheArchivio& righe, bool simulato) {
    std::string sql = fmt::format(
        "PRAGMA application_id={0}; PRAGMA user_version={1};"
        "CREATE TABLE IF NOT EXISTS {2} (tabella TEXT, righe INTEGER, somma INTEGER); DELETE FROM {2};",
        kMarchio, kVersione, kTabellaImpronte);
    for (const FormaTabella& forma : forme) {
        const ImprontaTabella i = impronta(righe, forma.bit, simulato);
        sql += fmt::format("INSERT INTO {} VALUES ('{}', {}, {});", kTabellaImpronte, forma.nome, i.righe,
                           static_cast<std::int64_t>(i.somma));
        if (forma.bit == kTabellaLotto) sql += sql_confini(confini_lotto(righe.lotto), i);
    }
    return esegui(base, sql.c_str());
}

/// The first rows of a table, and nothing else.
RigheArchivio prime_righe(const RigheArchivio& righe, unsigned tabella, std::size_t quante) {
    RigheArchivio prime;
    const auto copia = [&](const auto& da, auto& dove) {
        dove.assign(da.begin(), da.begin() + static_cast<std::ptrdiff_t>(std::min(quante, da.size())));
    };
    if (tabella == kTabellaLotto) copia(righe.lotto, prime.lotto);
    if (tabella == kTabellaNazionale) copia(righe.nazionale, prime.nazionale);
    if (tabella == kTabellaSuperEnalotto) copia(righe.superenalotto, prime.superenalotto);
    if (tabella == kTabellaWinForLife) copia(righe.winforlife, prime.winforlife);
    return prime;
}

/// What a store holds already of these rows: of each table it has the first ones, by its own digests. Nothing
/// where it holds anything else.
std::optional<Scritte> gia_scritte(sqlite3* base, const RigheArchivio& righe, bool simulato,
                                   const Contenuto& contenuto) {
    const auto impronte = ha_impronte(base);
    const auto marcato = leggi_simulato(base);
    if (!impronte || !*impronte || !marcato || *marcato != simulato) return std::nullopt;
    Scritte scritte{};
    for (std::size_t i = 0; i < contenuto.forme.size(); ++i) {
        const FormaTabella& forma = contenuto.forme[i];
        const auto scritta = leggi_impronta(base, forma.nome);
        if (!scritta) return std::nullopt;
        const auto prime = prime_righe(righe, forma.bit, scritta->righe);
        if (impronta(prime, forma.bit, simulato) != *scritta) return std::nullopt;
        scritte[i] = scritta->righe;
    }
    return scritte;
}

/// Writes all rows into an empty file, or those that lack into the copy of a store that holds the first ones:
/// one draw more costs a tenth of the whole.
std::expected<void, std::string> scrivi_base(const std::filesystem::path& file, const RigheArchivio& righe,
                                             bool simulato, const Contenuto& contenuto,
                                             Avanzamento& avanzamento) {
    auto aperta = apri(file, SQLITE_OPEN_READWRITE);
    if (!aperta) return std::unexpected(std::move(aperta.error()));
    sqlite3* base = aperta->get();
    std::error_code errore;
    Scritte scritte{};
    if (std::filesystem::file_size(file, errore) != 0) {
        const auto trovate = gia_scritte(base, righe, simulato, contenuto);
        if (!trovate) return std::unexpected(std::string{"contiene altro"});
        scritte = *trovate;
    }
    // The file is a temporary that nobody else sees and that is thrown away after any error: no journal.
    if (auto esito =
            esegui(base,
                   "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE;"
                   "BEGIN; CREATE TABLE IF NOT EXISTS proprieta (chiave TEXT PRIMARY KEY, valore TEXT)");
        !esito)
        return esito;
    if (simulato) {
        if (auto esito = esegui(base, "INSERT OR REPLACE INTO proprieta VALUES ('simulato', '1')"); !esito)
            return esito;
    }
    if (auto esito = scrivi_impronte(base, contenuto.forme, righe, simulato); !esito) return esito;
    if (auto esito = contenuto.riempi(base, righe, scritte, avanzamento); !esito) return esito;
    if (auto esito = esegui(base, "COMMIT"); !esito) return esito;
    const int codice = sqlite3_close(aperta.value().release());
    if (codice != SQLITE_OK) return std::unexpected(motivo(nullptr, codice));
    return {};
}

/// Begins the temporary with the store that stands, if that is one of ours. False leaves it empty.
bool parti_da(const std::filesystem::path& file, const std::filesystem::path& temporaneo) {
    if (!esamina(file) || file_accanto_impossibile(file) || ha_laterali(file)) return false;
    const auto byte = leggi_file(file);
    if (!byte) return false;
    std::ofstream flusso{temporaneo, std::ios::binary | std::ios::trunc};
    flusso.write(byte->data(), static_cast<std::streamsize>(byte->size()));
    flusso.close();
    return flusso.good();
}

std::expected<FileSicuro, ErroreArchivio> prepara_file(const std::filesystem::path& file,
                                                       const RigheArchivio& righe, bool simulato,
                                                       const Contenuto& contenuto, Avanzamento& avanzamento) {
    auto sicuro = FileSicuro::apri(file);
    if (!sicuro) return sicuro;
    const auto& temporaneo = sicuro->temporaneo();
    if (parti_da(file, temporaneo) && scrivi_base(temporaneo, righe, simulato, contenuto, avanzamento))
        return sicuro;
    std::error_code errore;
    std::filesystem::resize_file(temporaneo, 0, errore);
    if (auto esito = scrivi_base(temporaneo, righe, simulato, contenuto, avanzamento); !esito)
        return std::unexpected(ErroreArchivio{file, "la scrittura non è riuscita: " + esito.error()});
    return sicuro;
}

std::expected<void, ErroreArchivio> conferma(std::expected<FileSicuro, ErroreArchivio> preparato) {
    if (!preparato) return std::unexpected(std::move(preparato.error()));
    return preparato->conferma();
}

}  // namespace

std::expected<LettiNativo, ErroreArchivio> leggi_nativo(const std::filesystem::path& file, unsigned tabelle) {
    if (auto esito = esamina(file); !esito) return std::unexpected(std::move(esito.error()));
    if (auto accanto = file_accanto_impossibile(file)) return std::unexpected(std::move(*accanto));
    auto letti = leggi_o_ripara(file, tabelle);
    if (!letti) return std::unexpected(ErroreArchivio{file, std::move(letti.error())});
    return std::move(*letti);
}

std::expected<FileSicuro, ErroreArchivio> prepara_drawit(const std::filesystem::path& file,
                                                         const RigheArchivio& righe, bool simulato,
                                                         Avanzamento& avanzamento) {
    return prepara_file(file, righe, simulato, {tabelle_drawit(), riempi_drawit}, avanzamento);
}

std::expected<FileSicuro, ErroreArchivio> prepara_drawit2(const std::filesystem::path& file,
                                                          const RigheArchivio& righe, bool simulato,
                                                          Avanzamento& avanzamento) {
    return prepara_file(file, righe, simulato, {tabelle_drawit2(), riempi_drawit2}, avanzamento);
}

std::expected<void, ErroreArchivio> scrivi_drawit(const std::filesystem::path& file,
                                                  const RigheArchivio& righe, bool simulato) {
    SenzaAvanzamento nessuno;
    return conferma(prepara_drawit(file, righe, simulato, nessuno));
}

std::expected<void, ErroreArchivio> scrivi_drawit2(const std::filesystem::path& file,
                                                   const RigheArchivio& righe, bool simulato) {
    SenzaAvanzamento nessuno;
    return conferma(prepara_drawit2(file, righe, simulato, nessuno));
}

}  // namespace sortimetra
