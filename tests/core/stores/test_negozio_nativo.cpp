#include "stores/apertura.h"
#include "stores/dimostrazione.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <fstream>
#include <random>
#include <thread>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::HasSubstr;

void stesse_righe(const std::vector<RigaLotto>& a, const std::vector<RigaLotto>& b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        ASSERT_EQ(a[i].concorso, b[i].concorso);
        ASSERT_EQ(a[i].data, b[i].data);
        ASSERT_EQ(a[i].ruota, b[i].ruota);
        ASSERT_EQ(a[i].numeri, b[i].numeri);
    }
}

/// Does to a native file, made if there is none, what no writer of ours does.
void fai(const std::filesystem::path& file, std::string_view sql) {
    sqlite3* base = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &base), SQLITE_OK);
    char* errore = nullptr;
    EXPECT_EQ(sqlite3_exec(base, std::string{sql}.c_str(), nullptr, nullptr, &errore), SQLITE_OK) << errore;
    sqlite3_close(base);
}

/// A native file made by hand, for what our own writer never writes.
class FileMano {
  public:
    explicit FileMano(std::string_view sql) { fai(file(), sql); }
    [[nodiscard]] std::filesystem::path file() const { return cartella_.percorso() / "drawit.db"; }
    [[nodiscard]] const std::filesystem::path& cartella() const { return cartella_.percorso(); }

  private:
    CartellaProva cartella_;
};

constexpr std::string_view kTabellaMano =
    "CREATE TABLE Archivio (\"Data Estrazione\", RUOTA TEXT, \"1°Estratto\", \"2°estratto\", "
    "\"3°estratto\", \"4°estratto\", \"5°estratto\", Concorso);";

std::string motivo(const std::filesystem::path& file, unsigned tabelle = kTabellaLotto) {
    const auto letti = leggi_nativo(file, tabelle);
    return letti ? "letto" : letti.error().motivo;
}

TEST(NegozioNativo, RendeCioCheHaScritto) {
    const CartellaProva cartella;
    const RigheArchivio righe = archivio_dimostrativo();
    const auto drawit = cartella.percorso() / "drawit.db";
    const auto drawit2 = cartella.percorso() / "drawit2.db";
    ASSERT_TRUE(scrivi_drawit(drawit, righe, true));
    ASSERT_TRUE(scrivi_drawit2(drawit2, righe, false));
    const auto letti = leggi_nativo(drawit, kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto);
    ASSERT_TRUE(letti) << letti.error().testo();
    EXPECT_TRUE(letti->simulato);
    stesse_righe(letti->righe.lotto, righe.lotto);
    stesse_righe(letti->righe.nazionale, righe.nazionale);
    ASSERT_EQ(letti->righe.superenalotto.size(), righe.superenalotto.size());
    for (std::size_t i = 0; i < righe.superenalotto.size(); ++i) {
        const auto& a = letti->righe.superenalotto[i];
        const auto& b = righe.superenalotto[i];
        ASSERT_EQ(a.concorso, b.concorso);
        ASSERT_EQ(a.data, b.data);
        ASSERT_EQ(a.numeri, b.numeri);
        ASSERT_EQ(a.jolly, b.jolly);
        ASSERT_EQ(a.superstar, b.superstar);
    }
    const auto letti2 = leggi_nativo(drawit2, kTabellaWinForLife);
    ASSERT_TRUE(letti2) << letti2.error().testo();
    EXPECT_FALSE(letti2->simulato);
    ASSERT_EQ(letti2->righe.winforlife.size(), righe.winforlife.size());
    for (std::size_t i = 0; i < righe.winforlife.size(); ++i) {
        const auto& a = letti2->righe.winforlife[i];
        const auto& b = righe.winforlife[i];
        ASSERT_EQ(a.concorso, b.concorso);
        ASSERT_EQ(a.data, b.data);
        ASSERT_EQ(a.ora, b.ora);
        ASSERT_EQ(a.numeri, b.numeri);
    }
    // Nothing but the two files is left behind.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{cartella.percorso()}, {}), 2);
}

TEST(NegozioNativo, LeColonneStannoAlLoroPosto) {
    const CartellaProva cartella;
    const auto drawit = cartella.percorso() / "drawit.db";
    ASSERT_TRUE(scrivi_drawit(drawit, {}, false));
    sqlite3* base = nullptr;
    ASSERT_EQ(sqlite3_open(drawit.c_str(), &base), SQLITE_OK);
    const auto colonna = [&](const char* tabella, int posto) {
        sqlite3_stmt* s = nullptr;
        const std::string sql = std::string{"SELECT * FROM "} + tabella;
        EXPECT_EQ(sqlite3_prepare_v2(base, sql.c_str(), -1, &s, nullptr), SQLITE_OK);
        const char* nome = sqlite3_column_name(s, posto);
        const std::string testo = nome == nullptr ? "" : nome;
        sqlite3_finalize(s);
        return testo;
    };
    for (const char* lotto : {"archivio", "archivion"}) {
        EXPECT_EQ(colonna(lotto, 0), "data estrazione");
        EXPECT_EQ(colonna(lotto, 1), "ruota");
        EXPECT_EQ(colonna(lotto, 2), "1°estratto");
        EXPECT_EQ(colonna(lotto, 6), "5°estratto");
        EXPECT_EQ(colonna(lotto, 7), "concorso");
    }
    EXPECT_EQ(colonna("archivios", 0), "data estrazione");
    EXPECT_EQ(colonna("archivios", 2), "1°estratto");
    EXPECT_EQ(colonna("archivios", 7), "6°estratto");
    EXPECT_EQ(colonna("archivios", 8), "superstar");
    EXPECT_EQ(colonna("archivios", 9), "concorso");
    sqlite3_close(base);
}

TEST(NegozioNativo, CelleDiOgniTipo) {
    const FileMano mano{std::string{kTabellaMano} +
                        "INSERT INTO archivio VALUES"
                        "('1990-12-22', 'BA', '83', ' 7', '09 ', '12abc', 90, '1'),"
                        "('22/12/1990', ' ca ', '', ' ', '0', NULL, 0, 1),"
                        "('1990-12-22 00:00:00', 'FI', 5.0, '1 2', 'x', 1, 2, 1),"
                        "(33229, 'GE', 1, 2, 3, 4, 5, 1);"};
    const auto letti = leggi_nativo(mano.file(), kTabellaLotto);
    ASSERT_TRUE(letti) << letti.error().testo();
    const auto& r = letti->righe.lotto;
    ASSERT_EQ(r.size(), 4U);
    EXPECT_EQ(r[0].numeri, (std::array<Numero, 5>{83, 7, 9, 12, 90}));
    EXPECT_EQ(r[1].numeri, (std::array<Numero, 5>{0, 0, 0, 0, 0}));
    EXPECT_EQ(r[1].ruota, 1);
    EXPECT_EQ(r[2].numeri, (std::array<Numero, 5>{5, 12, 0, 1, 2}));
    for (const auto& riga : r) {
        EXPECT_EQ(testo_data(riga.data), "22/12/1990");
        EXPECT_EQ(riga.concorso, 1);
    }
}

TEST(NegozioNativo, RigheImpossibili) {
    const auto con = [](std::string_view valori) {
        const FileMano mano{std::string{kTabellaMano} + "INSERT INTO archivio VALUES(" + std::string{valori} +
                            ");"};
        return motivo(mano.file());
    };
    EXPECT_EQ(con("'2000-01-01', 'XX', 1, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovata la ruota \"XX\", atteso uno fra BA CA FI GE MI NA PA RM "
              "TO VE");
    EXPECT_EQ(con("'2000-01-01', 'BA', 91, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovato il numero \"91\", atteso da 1 a 90");
    EXPECT_EQ(con("'2000-01-01', 'BA', 346, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovato il numero \"346\", atteso da 1 a 90");
    EXPECT_EQ(con("'2000-02-30', 'BA', 1, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovata la data \"2000-02-30\", attesa la data dell'estrazione");
    EXPECT_EQ(con("NULL, 'BA', 1, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovata la data \"\", attesa la data dell'estrazione");
    EXPECT_EQ(con("'2000-01-01', 'BA', 1, 2, 3, 4, 5, 0"),
              "tabella archivio: trovato il concorso \"0\", atteso un numero da 1 in su");
    EXPECT_EQ(con("'2000-01-01', 'BA', 1, 2, 3, 4, 5, NULL"),
              "tabella archivio: trovato il concorso \"\", atteso un numero da 1 in su");
    EXPECT_EQ(con("'2000-01-01', 'NZ', 1, 2, 3, 4, 5, 7"),
              "tabella archivio, concorso 7: trovata la ruota \"NZ\", atteso uno fra BA CA FI GE MI NA PA RM "
              "TO VE");
}

TEST(NegozioNativo, TabellaOColonnaCheManca) {
    const FileMano vuoto{"CREATE TABLE altro (x)"};
    EXPECT_EQ(motivo(vuoto.file()), "manca la tabella archivio");
    const FileMano senza{"CREATE TABLE archivio (\"data estrazione\", ruota, \"1°estratto\")"};
    EXPECT_EQ(motivo(senza.file()), "nella tabella archivio manca la colonna \"2°estratto\"");
}

TEST(NegozioNativo, UnaVistaNonEUnaTabella) {
    // A view may compute for ever.
    const FileMano vista{
        "CREATE VIEW archivio AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT x "
        "AS concorso, x AS ruota FROM n"};
    EXPECT_EQ(motivo(vista.file()), "manca la tabella archivio");
}

TEST(NegozioNativo, FileCheNonVanno) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    EXPECT_EQ(motivo(file), "il file non c'è");
    std::ofstream{file};
    EXPECT_EQ(motivo(file), "il file è vuoto");
    std::ofstream{file} << "Questo è un testo, non un archivio.";
    EXPECT_EQ(motivo(file), "il file non è un archivio di Sortimetra");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(motivo(file), "è una cartella, non un file");
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(motivo(file), "non è un file");
}

TEST(NegozioNativo, Troncato) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    ASSERT_TRUE(scrivi_drawit(file, archivio_dimostrativo(), false));
    const auto intero = std::filesystem::file_size(file);
    std::filesystem::resize_file(file, intero - 1);
    EXPECT_EQ(motivo(file), "il file è troncato: ha " + std::to_string(intero - 1) + " byte invece di " +
                                std::to_string(intero));
    std::filesystem::resize_file(file, 50);
    EXPECT_EQ(motivo(file), "il file è troncato: ha solo 50 byte");
}

RigheArchivio poche_righe() {
    RigheArchivio righe = archivio_dimostrativo();
    righe.lotto.resize(100);
    righe.nazionale.resize(10);
    righe.superenalotto.resize(10);
    return righe;
}

/// A file as our writer makes it, then changed by hand.
class FileCambiato {
  public:
    explicit FileCambiato(std::string_view sql) {
        EXPECT_TRUE(scrivi_drawit(file(), poche_righe(), true));
        fai(file(), sql);
    }
    [[nodiscard]] std::filesystem::path file() const { return cartella_.percorso() / "drawit.db"; }

  private:
    CartellaProva cartella_;
};

std::string motivo_dopo(std::string_view sql, unsigned tabelle) {
    return motivo(FileCambiato{sql}.file(), tabelle);
}

TEST(NegozioNativo, UnaTabellaCambiataDopoNonSiApre) {
    const unsigned tutte = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;
    EXPECT_EQ(motivo_dopo("SELECT 1", tutte), "letto");
    constexpr std::string_view kMenoUna = "DELETE FROM archivio WHERE rowid = 50";
    EXPECT_EQ(motivo_dopo(kMenoUna, tutte),
              "il file è danneggiato: la tabella archivio ha 99 righe invece di 100");
    EXPECT_EQ(motivo_dopo(kMenoUna, kTabellaLotto),
              "il file è danneggiato: la tabella archivio ha 99 righe invece di 100");
    EXPECT_EQ(motivo_dopo(kMenoUna, kTabellaSuperEnalotto), "letto")
        << "only what is read is held to anything";
    EXPECT_EQ(
        motivo_dopo("UPDATE archivion SET \"3°estratto\" = \"3°estratto\" % 90 + 1 WHERE rowid = 5", tutte),
        "il file è danneggiato: la tabella archivion non contiene ciò che vi fu scritto");
    EXPECT_EQ(motivo_dopo("UPDATE archivios SET rowid = 1000 WHERE rowid = 1", tutte),
              "il file è danneggiato: la tabella archivios non contiene ciò che vi fu scritto");
}

// ---- where the Lotto ends ----

constexpr unsigned kAltroGioco = kTabellaSuperEnalotto | kConfiniLotto;

TEST(NegozioNativo, DoveFinisceIlLottoSiSaSenzaLeSueRighe) {
    const ConfiniLotto attesi = confini_lotto(poche_righe().lotto);
    EXPECT_EQ(attesi.ultimo, 10);
    EXPECT_TRUE(attesi.primo_giorno && attesi.ultimo_giorno);
    // Whatever has become of its rows: changed, fewer, none, no table at all.
    for (const char* sql : {"SELECT 1", "UPDATE archivio SET concorso = 9999", "DELETE FROM archivio",
                            "DROP TABLE archivio", "DELETE FROM archivio WHERE rowid > 95"}) {
        SCOPED_TRACE(sql);
        const FileCambiato cambiato{sql};
        const auto letti = leggi_nativo(cambiato.file(), kAltroGioco);
        ASSERT_TRUE(letti) << letti.error().testo();
        EXPECT_EQ(letti->confini, attesi);
        EXPECT_EQ(letti->tabelle, kAltroGioco);
        EXPECT_TRUE(letti->righe.lotto.empty());
        EXPECT_EQ(letti->righe.superenalotto, poche_righe().superenalotto);
        // Who wants the rows is not told otherwise than before.
        EXPECT_EQ(leggi_nativo(cambiato.file(), kTabellaLotto).has_value(),
                  std::string_view{sql} == "SELECT 1");
    }
    // Asked for together, the rows tell.
    const auto tutti = leggi_nativo(FileCambiato{"SELECT 1"}.file(), kAltroGioco | kTabellaLotto);
    ASSERT_TRUE(tutti);
    EXPECT_FALSE(tutti->confini);
    EXPECT_EQ(tutti->tabelle, unsigned{kTabellaSuperEnalotto | kTabellaLotto});
}

TEST(NegozioNativo, UnConfineCambiatoNonSiCrede) {
    // Then the rows are read, which have their digest: the answer is the right one.
    for (const char* sql :
         {"DROP TABLE confini", "DELETE FROM confini", "UPDATE confini SET ultimo = 11",
          "UPDATE confini SET ultimo = 9", "UPDATE confini SET ultimo = ultimo + 4294967296",
          "UPDATE confini SET primo_giorno = primo_giorno + 1", "UPDATE confini SET primo_giorno = NULL",
          "UPDATE confini SET ultimo_giorno = ultimo_giorno - 1", "UPDATE confini SET ultimo_giorno = NULL",
          "UPDATE confini SET sigillo = sigillo + 1", "UPDATE confini SET sigillo = NULL",
          "ALTER TABLE confini RENAME COLUMN ultimo TO altro",
          "DROP TABLE confini; CREATE VIEW confini AS SELECT 10 AS ultimo, 1 AS primo_giorno, 2 AS "
          "ultimo_giorno, 3 AS sigillo",
          // Digests of other rows than those that the seal was made for.
          "DROP TABLE impronte; PRAGMA user_version = 0; PRAGMA application_id = 0"}) {
        SCOPED_TRACE(sql);
        const FileCambiato cambiato{sql};
        const auto letti = leggi_nativo(cambiato.file(), kAltroGioco);
        ASSERT_TRUE(letti) << letti.error().testo();
        EXPECT_EQ(letti->tabelle, unsigned{kTabellaSuperEnalotto | kTabellaLotto});
        EXPECT_FALSE(letti->confini);
        EXPECT_EQ(letti->righe.lotto, poche_righe().lotto);
    }
    // What the rows then are is held to the digest as ever.
    EXPECT_EQ(
        motivo_dopo("UPDATE confini SET ultimo = 11; UPDATE archivio SET concorso = 11 WHERE rowid = 100",
                    kAltroGioco),
        "il file è danneggiato: la tabella archivio non contiene ciò che vi fu scritto");
    EXPECT_EQ(motivo_dopo("UPDATE impronte SET somma = somma + 1 WHERE tabella = 'archivio'", kAltroGioco),
              "il file è danneggiato: la tabella archivio non contiene ciò che vi fu scritto");
}

TEST(NegozioNativo, IConfiniCresconoConLeEstrazioni) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    RigheArchivio righe = poche_righe();
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
    // What a program wrote that knew of digests only: draws and digests go on, the rest stands.
    const auto vecchi = leggi_nativo(file, kAltroGioco).value().confini;
    for (int w = 0; w < kRuote; ++w)
        righe.lotto.push_back({.concorso = 11, .data = kUltimaData, .ruota = w, .numeri = {1, 2, 3, 4, 5}});
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
    const auto nuovi = leggi_nativo(file, kAltroGioco).value().confini;
    ASSERT_TRUE(vecchi && nuovi);
    EXPECT_EQ(nuovi->ultimo, 11);
    EXPECT_EQ(nuovi->ultimo_giorno, kUltimaData);
    EXPECT_EQ(nuovi->primo_giorno, vecchi->primo_giorno);
    // Without draws, and without Bari at the ends.
    righe.lotto.clear();
    righe.superenalotto.clear();
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
    EXPECT_EQ(leggi_nativo(file, kAltroGioco).value().confini, ConfiniLotto{});
    righe.lotto = {{.concorso = 3, .data = kPrimaData, .ruota = 1, .numeri = {1, 2, 3, 4, 5}}};
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
    EXPECT_EQ(leggi_nativo(file, kAltroGioco).value().confini, ConfiniLotto{.ultimo = 3});
}

TEST(NegozioNativo, UnArchivioSimulatoNonPassaPerVero) {
    EXPECT_EQ(motivo_dopo("DELETE FROM proprieta", kTabellaLotto),
              "il file è danneggiato: la tabella archivio non contiene ciò che vi fu scritto");
}

TEST(NegozioNativo, SenzaImpronteSoloSeNonNeHaMaiAvute) {
    EXPECT_EQ(motivo_dopo("DELETE FROM impronte WHERE tabella = 'archivio'", kTabellaLotto),
              "il file è danneggiato: mancano i conti della tabella archivio");
    for (const char* sql : {"DROP TABLE impronte", "PRAGMA application_id = 0", "PRAGMA user_version = 0",
                            "PRAGMA application_id = 7", "DROP TABLE impronte; PRAGMA user_version = 0"})
        EXPECT_EQ(motivo_dopo(sql, kTabellaLotto), "il file è danneggiato: mancano i conti delle sue tabelle")
            << sql;
    EXPECT_THAT(motivo_dopo("PRAGMA user_version = 2", kTabellaLotto), HasSubstr("versione più nuova"));
    // What was written before there were any is all three: such files are still read.
    EXPECT_EQ(
        motivo_dopo("DROP TABLE impronte; PRAGMA user_version = 0; PRAGMA application_id = 0", kTabellaLotto),
        "letto");
}

TEST(NegozioNativo, InUsoDaUnAltro) {
    const FileMano mano{std::string{kTabellaMano}};
    sqlite3* altro = nullptr;
    ASSERT_EQ(sqlite3_open(mano.file().c_str(), &altro), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(altro, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(motivo(mano.file()), "il file è in uso da un altro programma");
    sqlite3_close(altro);
}

TEST(NegozioNativo, RovinatoACasoNonCadeMai) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    RigheArchivio righe = archivio_dimostrativo();
    righe.lotto.resize(400);
    righe.nazionale.resize(40);
    righe.superenalotto.resize(40);
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
    const std::string buono = leggi_file(file).value();
    std::mt19937 caso{90};
    int rifiutati = 0;
    constexpr int kGiri = 5000;
    for (int giro = 0; giro < kGiri; ++giro) {
        std::string byte = buono;
        const auto a_caso = [&](std::size_t n) {
            return std::uniform_int_distribution<std::size_t>{0, n - 1}(caso);
        };
        if (giro % 4 == 0) byte.resize(a_caso(byte.size()));
        for (std::size_t n = a_caso(8); n > 0 && !byte.empty(); --n) {
            // Half of the changes hit the headers, where they do most harm.
            const std::size_t dove =
                a_caso(2) == 0 ? a_caso(std::min<std::size_t>(200, byte.size())) : a_caso(byte.size());
            byte[dove] = static_cast<char>(a_caso(256));
        }
        // A new file each time: some file systems wait for the disk when one is cut to nothing and written
        // anew.
        std::filesystem::remove(file);
        std::ofstream{file, std::ios::binary}.write(byte.data(), static_cast<std::streamsize>(byte.size()));
        SCOPED_TRACE(giro);
        auto letti = leggi_nativo(file, kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto);
        if (!letti) {
            ASSERT_FALSE(letti.error().motivo.empty());
            ++rifiutati;
            continue;
        }
        (void)ArchivioEstrazioni::componi(std::move(letti->righe));
    }
    EXPECT_GT(rifiutati, kGiri / 4);
}

// ---- a store that goes on ----

/// How often the engine has committed a change to a file: 1 for one that was written whole.
std::uint32_t scritture(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    flusso.seekg(24);
    std::uint32_t n = 0;
    for (int i = 0; i < 4; ++i) n = n << 8U | static_cast<std::uint32_t>(flusso.get());
    return n;
}

RigheArchivio dimostrativo_fino_a(Concorso ultimo) {
    RigheArchivio righe = archivio_dimostrativo();
    const auto oltre = [&](const auto& r) { return r.concorso > ultimo; };
    std::erase_if(righe.lotto, oltre);
    std::erase_if(righe.nazionale, oltre);
    std::erase_if(righe.superenalotto, oltre);
    std::erase_if(righe.winforlife, oltre);
    return righe;
}

TEST(NegozioNativo, UnaEstrazioneInPiuSiAggiungeInFondo) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    const auto file2 = cartella.percorso() / "drawit2.db";
    ASSERT_TRUE(scrivi_drawit(file, dimostrativo_fino_a(1200), false));
    ASSERT_TRUE(scrivi_drawit2(file2, dimostrativo_fino_a(1200), false));
    const std::uint32_t intera = scritture(file);
    for (Concorso c = 1201; c <= 1203; ++c) {
        const RigheArchivio righe = dimostrativo_fino_a(c);
        ASSERT_TRUE(scrivi_drawit(file, righe, false));
        ASSERT_TRUE(scrivi_drawit2(file2, righe, false));
        EXPECT_GT(scritture(file), intera) << "not written anew";
        const auto letti = leggi_nativo(file, kTutteLeTabelle & ~unsigned{kTabellaWinForLife});
        ASSERT_TRUE(letti) << letti.error().testo();
        EXPECT_EQ(letti->righe.lotto, righe.lotto);
        EXPECT_EQ(letti->righe.nazionale, righe.nazionale);
        EXPECT_EQ(letti->righe.superenalotto, righe.superenalotto);
        EXPECT_FALSE(letti->simulato);
        EXPECT_EQ(leggi_nativo(file2, kTabellaWinForLife)->righe.winforlife, righe.winforlife);
    }
}

TEST(NegozioNativo, QuelloCheNonContinuaSiScriveIntero) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    const RigheArchivio prima = dimostrativo_fino_a(50);
    const auto dopo = [&](const RigheArchivio& righe, bool simulato) {
        std::filesystem::remove(file);
        EXPECT_TRUE(scrivi_drawit(file, prima, false));
        const std::uint32_t intera = scritture(file);
        EXPECT_TRUE(scrivi_drawit(file, righe, simulato));
        EXPECT_EQ(scritture(file), intera);
        const auto letti = leggi_nativo(file, kTabellaLotto);
        ASSERT_TRUE(letti) << letti.error().testo();
        EXPECT_EQ(letti->righe.lotto, righe.lotto);
        EXPECT_EQ(letti->simulato, simulato);
    };
    RigheArchivio altra = dimostrativo_fino_a(51);
    altra.lotto[7].numeri[0] = static_cast<Numero>(altra.lotto[7].numeri[0] % 90 + 1);
    dopo(altra, false);                    // a draw that stands is another
    dopo(dimostrativo_fino_a(49), false);  // one goes
    dopo(dimostrativo_fino_a(51), true);   // the mark changes
    std::ofstream{file, std::ios::binary | std::ios::trunc} << "non è un archivio";
    ASSERT_TRUE(scrivi_drawit(file, prima, false));
    EXPECT_TRUE(leggi_nativo(file, kTabellaLotto));
}

}  // namespace
}  // namespace sortimetra
