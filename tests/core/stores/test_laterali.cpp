#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "stores/laterali.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"
#include "support/negozi_interrotti.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <set>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kConcorsi = 400;

/// Bari's first number is 1 in every draw; enough draws for many pages.
RigheArchivio righe(Numero primo = 1, int concorsi = kConcorsi) {
    RigheArchivio r;
    for (int c = 1; c <= concorsi; ++c)
        for (int w = 0; w < kRuote; ++w)
            r.lotto.push_back({c,
                               leggi_data_italiana("01/01/2000").value() + std::chrono::days{c},
                               w,
                               {primo, 20, 30, 40, 50}});
    return r;
}

struct Archivio : CartellaProva {
    Archivio() {
        EXPECT_TRUE(scrivi_drawit(file(), righe(), false));
        EXPECT_TRUE(prove::togli_conti(file()));
    }
    [[nodiscard]] std::filesystem::path file(std::string_view finale = "") const {
        return percorso() / (std::string{"drawit.db"} + std::string{finale});
    }
    /// How many rows have which first number: "4000x1".
    [[nodiscard]] std::string letto() const {
        const auto letti = leggi_nativo(file(), kTabellaLotto);
        if (!letti) return letti.error().motivo;
        std::map<int, int> conto;
        for (const auto& r : letti->righe.lotto) ++conto[r.numeri[0]];
        std::string testo;
        for (const auto& [numero, volte] : conto)
            testo += (testo.empty() ? "" : " ") + std::to_string(volte) + "x" + std::to_string(numero);
        return testo;
    }
    [[nodiscard]] std::set<std::string> nomi() const {
        std::set<std::string> tutti;
        for (const auto& voce : std::filesystem::directory_iterator{percorso()})
            tutti.insert(voce.path().filename());
        return tutti;
    }
    [[nodiscard]] bool interrompi(const std::string& modo) const {
        return prove::interrompi(file(), modo, "UPDATE archivio SET \"1°estratto\" = 9");
    }
};

TEST(Laterali, IlRegistroFaParteDelNegozio) {
    const Archivio a;
    EXPECT_FALSE(ha_laterali(a.file()));
    ASSERT_TRUE(a.interrompi("WAL"));
    EXPECT_TRUE(ha_laterali(a.file()));
    EXPECT_EQ(a.letto(), "4000x9");
    ASSERT_TRUE(concludi_laterali(a.file()));
    EXPECT_EQ(a.nomi(), (std::set<std::string>{"drawit.db"}));
    EXPECT_EQ(a.letto(), "4000x9");
}

TEST(Laterali, UnCambioAMetaSiDisfa) {
    const Archivio a;
    ASSERT_TRUE(a.interrompi("DELETE"));
    // Half of it is in the file: whoever opens it alone sees a mixture, or nothing sound.
    const auto prima = leggi_file(a.file()).value();
    const auto giornale = leggi_file(a.file("-journal")).value();
    EXPECT_EQ(a.letto(), "4000x1");
    EXPECT_EQ(leggi_file(a.file()).value(), prima) << "who reads writes nothing";
    EXPECT_EQ(leggi_file(a.file("-journal")).value(), giornale);
    ASSERT_TRUE(concludi_laterali(a.file()));
    EXPECT_EQ(togli_laterali(a.file()), 0);
    EXPECT_EQ(a.nomi(), (std::set<std::string>{"drawit.db"}));
    EXPECT_EQ(a.letto(), "4000x1");
}

TEST(Laterali, ChiStaScrivendoNonSiSostituisce) {
    for (const char* modo : {"WAL", "DELETE"}) {
        SCOPED_TRACE(modo);
        const Archivio a;
        sqlite3* base = nullptr;
        ASSERT_EQ(sqlite3_open(a.file().c_str(), &base), SQLITE_OK);
        ASSERT_TRUE(prove::esegui_sql(base, std::string{"PRAGMA journal_mode="} + modo +
                                                "; BEGIN IMMEDIATE; UPDATE archivio SET concorso = 7"));
        const auto rifiutato = concludi_laterali(a.file());
        ASSERT_FALSE(rifiutato);
        EXPECT_THAT(rifiutato.error().motivo, HasSubstr("in uso da un altro programma"));
        EXPECT_TRUE(prove::esegui_sql(base, "COMMIT"));
        sqlite3_close(base);
    }
}

TEST(Laterali, CioCheNonEUnFile) {
    const Archivio a;
    ASSERT_EQ(mkfifo(a.file("-wal").c_str(), 0600), 0);
    const auto rifiutato = concludi_laterali(a.file());
    ASSERT_FALSE(rifiutato);
    EXPECT_EQ(rifiutato.error().file, a.file("-wal"));
    EXPECT_THAT(rifiutato.error().motivo, HasSubstr("non è un file"));
    EXPECT_TRUE(concludi_laterali(a.percorso() / "manca.db")) << "beside no store they mean nothing";
}

TEST(Laterali, AccantoAUnNegozioDanneggiato) {
    const Archivio a;
    ASSERT_TRUE(scrivi_file(a.file(), std::string(8192, 'x')));
    ASSERT_TRUE(scrivi_file(a.file("-journal"), "x"));
    const auto rifiutato = concludi_laterali(a.file());
    ASSERT_FALSE(rifiutato);
    EXPECT_THAT(rifiutato.error().motivo, HasSubstr("il file è danneggiato"));
    EXPECT_THAT(rifiutato.error().motivo, HasSubstr("portare altrove"));
    EXPECT_EQ(leggi_file(a.file()).value(), std::string(8192, 'x'));
}

TEST(Laterali, LaCopiaSeNeVa) {
    const Archivio a;
    std::filesystem::path dove;
    {
        const auto copia = CopiaPrivata::fai(a.file());
        ASSERT_TRUE(copia);
        dove = copia->file();
        EXPECT_EQ(leggi_file(dove).value(), leggi_file(a.file()).value());
    }
    EXPECT_FALSE(std::filesystem::exists(dove.parent_path()));
}

/// What an import leaves beside the file that it replaces must not speak in its place.
TEST(Laterali, DopoUnImportazioneParlaSoloQuelCheEEntrato) {
    for (const char* modo : {"WAL", "DELETE", "avanzo"}) {
        SCOPED_TRACE(modo);
        const Archivio a;
        if (std::string{modo} == "avanzo") {
            // The log of another store, which was replaced without regard to it.
            ASSERT_TRUE(a.interrompi("WAL"));
            ASSERT_TRUE(scrivi_drawit(a.file(), righe(2), false));
            ASSERT_TRUE(std::filesystem::exists(a.file("-wal")));
        } else {
            ASSERT_TRUE(a.interrompi(modo));
        }
        std::string testo;
        for (const RigaLotto& r : righe(3, kConcorsi + 1).lotto) {
            auto giorno = testo_data_iso(r.data);
            std::replace(giorno.begin(), giorno.end(), '-', '/');
            testo += giorno + "\t" + std::string{kNomiRuote[static_cast<std::size_t>(r.ruota)].codice} +
                     "\t3\t20\t30\t40\t50\n";
        }
        const CartellaProva altrove;
        const auto file = altrove.percorso() / "lotto.txt";
        ASSERT_TRUE(scrivi_file(file, testo));
        const auto file2 = altrove.percorso() / "superenalotto.csv";
        ASSERT_TRUE(
            scrivi_file(file2, "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n2000-01-02;1;2;3;4;5;6;7;8\n"));
        SenzaAvanzamento nessuno;
        const auto fatto = importa_archivio(
            a.percorso(), {.lotto = file, .superenalotto = file2, .tutto = true, .sostituisci = true},
            nessuno);
        ASSERT_TRUE(fatto) << fatto.error().testo();
        EXPECT_EQ(a.letto(), "4010x3");
        EXPECT_THAT(a.nomi(), ElementsAre("drawit.db", "drawit.db.prec"));
        if (std::string{modo} == "avanzo") continue;
        // And what it replaced was kept whole, with what stood beside it.
        ASSERT_TRUE(annulla_importazione(a.percorso(), nessuno));
        EXPECT_THAT(a.letto(), testing::AnyOf("4000x9", "4000x1"));
    }
}

}  // namespace
}  // namespace sortimetra
