// What docs/archivio.md promises to those who read the native store with other programs.

#include "files/file_sicuro.h"
#include "stores/dimostrazione.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"
#include "support/programma.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sortimetra {
namespace {

using testing::HasSubstr;

/// The demonstration archive as native files, written once.
class Documento : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        const RigheArchivio righe = archivio_dimostrativo();
        ASSERT_TRUE(scrivi_drawit(cartella_->percorso() / "drawit.db", righe, true));
        ASSERT_TRUE(scrivi_drawit2(cartella_->percorso() / "drawit2.db", righe, true));
    }
    static void TearDownTestSuite() { cartella_.reset(); }

    /// Titles and rows, cells joined by "|": what the sqlite3 program prints with its titles on.
    static std::string chiedi(const char* file, const std::string& sql) {
        sqlite3* nuda = nullptr;
        EXPECT_EQ(
            sqlite3_open_v2((cartella_->percorso() / file).c_str(), &nuda, SQLITE_OPEN_READONLY, nullptr),
            SQLITE_OK);
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> base{nuda, sqlite3_close};
        sqlite3_stmt* nudo = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(base.get(), sql.c_str(), -1, &nudo, nullptr), SQLITE_OK)
            << sqlite3_errmsg(base.get());
        const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> domanda{nudo, sqlite3_finalize};
        std::string testo;
        const int colonne = sqlite3_column_count(domanda.get());
        for (int i = 0; i < colonne; ++i)
            testo.append(i == 0 ? "" : "|").append(sqlite3_column_name(domanda.get(), i));
        testo += '\n';
        while (sqlite3_step(domanda.get()) == SQLITE_ROW) {
            for (int i = 0; i < colonne; ++i) {
                const auto* cella = reinterpret_cast<const char*>(sqlite3_column_text(domanda.get(), i));
                testo.append(i == 0 ? "" : "|").append(cella == nullptr ? "" : cella);
            }
            testo += '\n';
        }
        return testo;
    }

    static const std::filesystem::path& cartella() { return cartella_->percorso(); }
    static std::string pagina() {
        return leggi_file(std::filesystem::path{SORTIMETRA_RADICE} / "docs" / "archivio.md").value();
    }

  private:
    static std::unique_ptr<prove::CartellaProva> cartella_;
};
std::unique_ptr<prove::CartellaProva> Documento::cartella_;

/// Each question of the page with the answer that stands behind it.
std::vector<std::pair<std::string, std::string>> domande(std::string_view pagina) {
    std::vector<std::pair<std::string, std::string>> tutte;
    const auto blocco = [&](std::size_t da) {
        const auto inizio = pagina.find('\n', da) + 1;
        return std::pair{inizio, pagina.find("```", inizio)};
    };
    for (auto p = pagina.find("```sql\n"); p != std::string_view::npos; p = pagina.find("```sql\n", p)) {
        const auto [da, a] = blocco(p);
        const auto [risposta, fine] = blocco(pagina.find("```\n", a + 4));
        tutte.emplace_back(pagina.substr(da, a - da), pagina.substr(risposta, fine - risposta));
        p = fine;
    }
    return tutte;
}

TEST_F(Documento, LeDomandeHannoLeRisposteCheVediamo) {
    const auto tutte = domande(pagina());
    ASSERT_EQ(tutte.size(), 3U);
    for (const auto& [domanda, risposta] : tutte)
        EXPECT_EQ(chiedi("drawit.db", domanda), risposta) << domanda;
}

TEST_F(Documento, LEsempioInPythonContaComeSQL) {
    constexpr const char* kPython = "/usr/bin/python3";
    if (prove::esegui_programma(kPython, {"-c", "import pandas"}, {.cartella = cartella()}).codice != 0)
        GTEST_SKIP() << "pandas (python3-pandas) is not here: the example of the page was not run";
    const std::string testo = pagina();
    const auto inizio = testo.find("```python\n");
    ASSERT_NE(inizio, std::string::npos);
    const auto da = testo.find('\n', inizio) + 1;
    const auto fatto = prove::esegui_programma(kPython, {"-c", testo.substr(da, testo.find("```", da) - da)},
                                               {.cartella = cartella()});
    ASSERT_EQ(fatto.codice, 0) << fatto.errori;
    // "numero", then a number and its frequency a line; of equal ones any may come first.
    std::istringstream righe{fatto.uscita};
    std::string parola;
    ASSERT_TRUE(righe >> parola);
    EXPECT_EQ(parola, "numero");
    std::string numeri;
    for (int i = 1; i <= 5; ++i)
        numeri += (i == 1 ? "SELECT \"" : " UNION ALL SELECT \"") + std::to_string(i) +
                  "°estratto\" AS numero FROM archivio";
    const std::string conta = "SELECT count(*) AS n FROM (" + numeri + ") WHERE numero > 0 GROUP BY numero";
    for (int i = 0; i < 5; ++i) {
        std::string numero;
        std::string volte;
        ASSERT_TRUE(righe >> numero >> volte) << fatto.uscita;
        EXPECT_EQ("n\n" + volte + "\n", chiedi("drawit.db", conta + " HAVING numero = " + numero));
        EXPECT_EQ("n\n" + volte + "\n",
                  chiedi("drawit.db", conta + " ORDER BY n DESC LIMIT 1 OFFSET " + std::to_string(i)));
    }
}

TEST_F(Documento, OgniColonnaSta) {
    const std::string testo = pagina();
    for (const char* file : {"drawit.db", "drawit2.db"}) {
        const std::string tabelle = chiedi(
            file,
            "SELECT t.name, c.name FROM sqlite_schema t, pragma_table_info(t.name) c WHERE t.type = 'table'");
        std::size_t da = tabelle.find('\n') + 1;
        std::size_t quante = 0;
        for (auto a = tabelle.find('\n', da); a != std::string::npos; a = tabelle.find('\n', da), ++quante) {
            const std::string riga = tabelle.substr(da, a - da);
            const auto taglio = riga.find('|');
            EXPECT_THAT(testo, HasSubstr("`" + riga.substr(0, taglio) + "`"));
            EXPECT_THAT(testo, HasSubstr("`" + riga.substr(taglio + 1) + "`")) << file;
            da = a + 1;
        }
        EXPECT_GT(quante, 13U);
    }
}

TEST_F(Documento, IValoriSonoDeiTipiDetti) {
    EXPECT_EQ(chiedi("drawit.db",
                     "SELECT count(*) AS n FROM archivio WHERE typeof(\"data estrazione\") <> 'text' OR "
                     "typeof(ruota) <> 'text' OR typeof(\"3°estratto\") <> 'integer' OR typeof(concorso) <> "
                     "'integer' OR \"data estrazione\" NOT GLOB '[12][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]'"),
              "n\n0\n");
    EXPECT_EQ(chiedi("drawit.db", "SELECT DISTINCT ruota FROM archivion"), "ruota\nNAZIONALE\n");
    EXPECT_EQ(chiedi("drawit2.db",
                     "SELECT count(*) AS n FROM archivio WHERE typeof(ora) <> 'text' OR ora NOT GLOB "
                     "'[0-2][0-9]:[0-5][0-9]' OR \"10°\" NOT BETWEEN 0 AND 20"),
              "n\n0\n");
    for (const char* file : {"drawit.db", "drawit2.db"})
        EXPECT_EQ(chiedi(file, "SELECT valore FROM proprieta WHERE chiave = 'simulato'"), "valore\n1\n");
}

}  // namespace
}  // namespace sortimetra
