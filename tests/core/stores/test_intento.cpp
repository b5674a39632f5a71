#include "files/blocco_cartella.h"
#include "files/file_sicuro.h"
#include "stores/intento.h"
#include "support/archivi.h"
#include "support/passi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace sortimetra {
namespace {

using prove::CartellaProva;
using testing::HasSubstr;
using Che = PassoCambio::Che;

struct Posto : CartellaProva {
    void metti(std::string_view nome, std::string_view testo) const {
        EXPECT_TRUE(scrivi_file(percorso() / nome, testo));
    }
    [[nodiscard]] std::string testo(std::string_view nome) const {
        return leggi_file(percorso() / nome).value_or("(manca)");
    }
};

const Intento kDue{{Che::Metti, "drawit.db", ".drawit.db.1.tmp"},
                   {Che::Togli, "drawit2.db"},
                   {Che::Metti, "drawit.db.prec", ".drawit.db.prec.2.tmp"}};

TEST(Intento, AndataERitorno) {
    const Posto p;
    EXPECT_EQ(leggi_intento(p.percorso()).value(), std::nullopt);
    EXPECT_FALSE(cambio_sospeso(p.percorso()));
    ASSERT_TRUE(scrivi_intento(p.percorso(), kDue));
    EXPECT_TRUE(cambio_sospeso(p.percorso()));
    EXPECT_EQ(leggi_intento(p.percorso()).value(), kDue);
}

TEST(Intento, QuelCheNonSiCapisce) {
    const std::string prima = "sortimetra: cambio dell'archivio da concludere\n";
    for (const std::string& testo :
         {std::string{}, std::string{"x"}, std::string{"fine\n"}, prima, prima + "fine",
          prima + "fine\nfine\n", prima + "metti drawit.db\nfine\n",
          prima + "metti drawit.db ../x.tmp\nfine\n", prima + "metti drawit.db .a/b.tmp\nfine\n",
          prima + "metti ../drawit.db .a12.tmp\nfine\n", prima + "metti ric.ini .ric12.tmp\nfine\n",
          prima + "metti drawit.db passwd\nfine\n", prima + "togli drawit.mdb\nfine\n",
          prima + "togli drawit.db x\nfine\n", prima + "cambia drawit.db\nfine\n",
          prima + std::string(5000, 'x'), prima + std::string{"metti drawit.db .a\0b.tmp\nfine\n", 31}}) {
        const Posto p;
        p.metti(kFileCambio, testo);
        const auto letto = leggi_intento(p.percorso());
        ASSERT_FALSE(letto) << testo;
        EXPECT_EQ(letto.error().file.filename(), kFileCambio);
        EXPECT_FALSE(concludi_sospeso(p.percorso()));
    }
}

TEST(Intento, IPassiSiPossonoRifare) {
    const Posto p;
    p.metti("drawit.db", "vecchio");
    p.metti("drawit.db-wal", "avanzo");
    p.metti("drawit.db-shm", "avanzo");
    p.metti("drawit2.db", "vecchio2");
    p.metti("drawit2.db-journal", "avanzo");
    p.metti(".drawit.db.1.tmp", "nuovo");
    p.metti(".drawit.db.prec.2.tmp", "tenuto");
    ASSERT_TRUE(scrivi_intento(p.percorso(), kDue));
    const auto rifai = [&] {
        const auto avanzata = applica_intento(p.percorso(), kDue);
        EXPECT_FALSE(avanzata.errore);
        EXPECT_EQ(avanzata.fatti, 3U);
        EXPECT_EQ(p.testo("drawit.db"), "nuovo");
        EXPECT_EQ(p.testo("drawit.db.prec"), "tenuto");
        EXPECT_EQ(p.testo("drawit2.db"), "(manca)");
        EXPECT_FALSE(cambio_sospeso(p.percorso()));
    };
    rifai();
    for (const char* nome : {"drawit.db-wal", "drawit.db-shm", "drawit2.db-journal"})
        EXPECT_EQ(p.testo(nome), "(manca)") << nome;
    // What somebody has put beside the new file since belongs to that.
    p.metti("drawit.db-wal", "suo");
    rifai();
    EXPECT_EQ(p.testo("drawit.db-wal"), "suo");
}

TEST(Intento, ChiLeggeConclude) {
    const Posto p;
    p.metti("drawit.db", "vecchio");
    p.metti("drawit2.db", "vecchio2");
    p.metti(".drawit.db.1.tmp", "nuovo");
    ASSERT_TRUE(scrivi_intento(p.percorso(), kDue));
    EXPECT_EQ(concludi_sospeso(p.percorso()).value(), Intento{});
    EXPECT_EQ(p.testo("drawit.db"), "nuovo");
    EXPECT_EQ(p.testo("drawit2.db"), "(manca)");
    EXPECT_FALSE(cambio_sospeso(p.percorso()));
}

TEST(Intento, ChiNonPuoConcludereLeggeComeSe) {
    const Posto p;
    p.metti("drawit.db", "vecchio");
    p.metti("drawit2.db", "vecchio2");
    p.metti(".drawit.db.1.tmp", "nuovo");
    ASSERT_TRUE(scrivi_intento(p.percorso(), kDue));
    const prove::DiscoGuasto sola_lettura{1, 1000};
    const auto sospeso = concludi_sospeso(p.percorso());
    ASSERT_TRUE(sospeso);
    EXPECT_EQ(*sospeso, kDue);
    EXPECT_EQ(come_se(p.percorso(), *sospeso, "drawit.db"), p.percorso() / ".drawit.db.1.tmp");
    EXPECT_EQ(come_se(p.percorso(), *sospeso, "drawit2.db"), std::nullopt);
    EXPECT_EQ(come_se(p.percorso(), *sospeso, "drawit.mdb"), p.percorso() / "drawit.mdb");
    // The temporary has its name already.
    std::filesystem::rename(p.percorso() / ".drawit.db.1.tmp", p.percorso() / "drawit.db");
    EXPECT_EQ(come_se(p.percorso(), *sospeso, "drawit.db"), p.percorso() / "drawit.db");
}

TEST(Intento, SiAspettaChiLoStaFacendo) {
    const Posto p;
    p.metti(".drawit.db.1.tmp", "nuovo");
    ASSERT_TRUE(scrivi_intento(p.percorso(), kDue));
    auto blocco = BloccoCartella::prova(p.percorso());
    ASSERT_TRUE(blocco);
    std::jthread scrittore{[&] {
        std::this_thread::sleep_for(std::chrono::milliseconds{50});
        EXPECT_FALSE(applica_intento(p.percorso(), kDue).errore);
    }};
    EXPECT_EQ(concludi_sospeso(p.percorso()).value(), Intento{});
    EXPECT_EQ(p.testo("drawit.db"), "nuovo");
}

TEST(Intento, UnCollegamentoSiSegue) {
    const Posto p;
    std::filesystem::create_directory(p.percorso() / "altrove");
    p.metti("altrove/vero.db", "vecchio");
    p.metti("altrove/.drawit.db.1.tmp", "nuovo");
    std::filesystem::create_symlink("altrove/vero.db", p.percorso() / "drawit.db");
    EXPECT_EQ(posto(p.percorso(), "drawit.db"), p.percorso() / "altrove/vero.db");
    ASSERT_FALSE(applica_intento(p.percorso(), {kDue[0]}).errore);
    EXPECT_EQ(p.testo("altrove/vero.db"), "nuovo");
    EXPECT_TRUE(std::filesystem::is_symlink(p.percorso() / "drawit.db"));
}

}  // namespace
}  // namespace sortimetra
