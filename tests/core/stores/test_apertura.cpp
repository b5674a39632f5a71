#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/importa.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <chrono>

namespace sortimetra {
namespace {

using prove::CartellaProva;

/// A native file with one draw of Bari whose first number tells it apart.
void nativo(const std::filesystem::path& file, Numero primo) {
    RigheArchivio righe;
    righe.lotto = {{.concorso = 1,
                    .data = leggi_data_iso("2000-01-01").value(),
                    .ruota = 0,
                    .numeri = {primo, 2, 3, 4, 5}}};
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
}

TEST(Apertura, SenzaArchivio) {
    const CartellaProva cartella;
    EXPECT_FALSE(contiene_archivio(cartella.percorso()));
    EXPECT_EQ(apri_archivio(cartella.percorso()).error().motivo,
              "non vi si trova né drawit.db né drawit.mdb");
    EXPECT_EQ(apri_archivio(cartella.percorso(), kTabellaWinForLife).error().motivo,
              "non vi si trova né drawit2.db né drawit2.mdb");
    const auto manca = apri_archivio(cartella.percorso() / "archivio");
    EXPECT_EQ(manca.error().motivo, "la cartella dell'archivio non c'è");
    EXPECT_EQ(manca.error().file, cartella.percorso() / "archivio");
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "archivio", "x"));
    EXPECT_EQ(apri_archivio(cartella.percorso() / "archivio").error().motivo, "non è una cartella");
}

TEST(Apertura, CioCheLeEstrazioniDiconoDiSeStesse) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    nativo(file, 5);
    const auto rifiutato = apri_archivio(cartella.percorso(), kTabellaLotto);
    ASSERT_FALSE(rifiutato);
    EXPECT_EQ(rifiutato.error().file, file);
    EXPECT_EQ(rifiutato.error().motivo,
              "tabella archivio, concorso 1, ruota BA: il numero 5 sta due volte nella "
              "riga, in 1°estratto e in 5°estratto");
    EXPECT_TRUE(apri_archivio(cartella.percorso(), kTabellaLotto, {.esamina = false}));
    // A table that is not asked for is not looked at.
    EXPECT_TRUE(apri_archivio(cartella.percorso(), kTabellaSuperEnalotto));
}

TEST(Apertura, NomiSenzaRiguardoAMaiuscole) {
    const CartellaProva cartella;
    nativo(cartella.percorso() / "DrawIt.DB", 7);
    EXPECT_TRUE(contiene_archivio(cartella.percorso()));
    const auto a = apri_archivio(cartella.percorso(), kTabellaLotto);
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->lotto().numeri[0][0], 7);
    EXPECT_EQ(a->drawit().file.filename(), "DrawIt.DB");
}

TEST(Apertura, FraNativoEJetIlPiuRecente) {
    const CartellaProva cartella;
    const auto db = cartella.percorso() / "drawit.db";
    const auto mdb = cartella.percorso() / "drawit.mdb";
    nativo(db, 7);
    ASSERT_TRUE(scrivi_file(mdb, "rotto"));
    const auto ora = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(db, ora);
    std::filesystem::last_write_time(mdb, ora - std::chrono::hours{1});
    EXPECT_TRUE(apri_archivio(cartella.percorso(), kTabellaLotto));
    // The newer one counts even if it cannot be read: old draws must not pass for the latest.
    std::filesystem::last_write_time(mdb, ora + std::chrono::hours{1});
    const auto rotto = apri_archivio(cartella.percorso(), kTabellaLotto);
    ASSERT_FALSE(rotto);
    EXPECT_EQ(rotto.error().file, mdb);
    // Equally new: the native one.
    std::filesystem::last_write_time(mdb, ora);
    EXPECT_TRUE(apri_archivio(cartella.percorso(), kTabellaLotto));
}

TEST(Apertura, SoloCioCheSiVuole) {
    const CartellaProva cartella;
    nativo(cartella.percorso() / "drawit.db", 7);
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "drawit2.db", "rotto"));
    EXPECT_TRUE(apri_archivio(cartella.percorso(), kTabellaLotto | kTabellaSuperEnalotto));
    const auto tutto = apri_archivio(cartella.percorso());
    ASSERT_FALSE(tutto);
    EXPECT_EQ(tutto.error().file.filename(), "drawit2.db");
    std::filesystem::remove(cartella.percorso() / "drawit2.db");
    EXPECT_TRUE(apri_archivio(cartella.percorso()));  // one of the two is there
    EXPECT_FALSE(apri_archivio(cartella.percorso(), kTabellaWinForLife));
}

/// A store with three draws of the Lotto (none if `lotto` is 0) and one of SuperEnalotto.
void con_superenalotto(const std::filesystem::path& file, int lotto, Concorso superenalotto) {
    const Data primo = leggi_data_iso("2000-01-01").value();
    RigheArchivio righe;
    for (int c = 1; c <= lotto; ++c)
        righe.lotto.push_back(
            {.concorso = c, .data = primo + std::chrono::days{c}, .ruota = 0, .numeri = {1, 2, 3, 4, 5}});
    righe.superenalotto.push_back(
        {.concorso = superenalotto, .data = primo + std::chrono::days{3}, .numeri = {1, 2, 3, 4, 5, 6}});
    ASSERT_TRUE(scrivi_drawit(file, righe, false));
}

TEST(Apertura, AncheSenzaIlLottoUnConcorsoOltreLaSuaFineEDanno) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "drawit.db";
    const auto apri = [&](unsigned tabelle) {
        const auto a = apri_archivio(cartella.percorso(), tabelle);
        return a ? std::string{"letto"} : a.error().motivo;
    };
    constexpr unsigned kAltroGioco = kTabellaSuperEnalotto | kConfiniLotto;
    con_superenalotto(file, 3, 3);
    EXPECT_EQ(apri(kAltroGioco), "letto");
    con_superenalotto(file, 3, 4);
    for (const unsigned tabelle : {kAltroGioco, unsigned{kTabellaSuperEnalotto | kTabellaLotto}})
        EXPECT_EQ(apri(tabelle),
                  "tabella archivios, concorso 4: il concorso non c'è nelle estrazioni del Lotto");
    EXPECT_EQ(apri(kTabellaSuperEnalotto), "letto") << "held to itself alone";
    // Without a Lotto there is nothing to hold it to.
    con_superenalotto(file, 0, 4);
    EXPECT_EQ(apri(kAltroGioco), "letto");
    EXPECT_EQ(apri(kTabellaSuperEnalotto | kTabellaLotto), "letto");
}

TEST(Apertura, NonScriveMai) {
    const CartellaProva cartella;
    const auto db = cartella.percorso() / "drawit.db";
    nativo(db, 7);
    const auto prima = leggi_file(db).value();
    const auto scritto = std::filesystem::last_write_time(db);
    ASSERT_TRUE(apri_archivio(cartella.percorso()));
    EXPECT_EQ(leggi_file(db).value(), prima);
    EXPECT_EQ(std::filesystem::last_write_time(db), scritto);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{cartella.percorso()}, {}), 1);
}

TEST(Apertura, LeTabelleDeiFileCheCiSono) {
    const CartellaProva cartella;
    EXPECT_EQ(tabelle_presenti(cartella.percorso()), 0U);
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "drawit2.mdb", "rotto"));
    EXPECT_EQ(tabelle_presenti(cartella.percorso()), unsigned{kTabellaWinForLife}) << "sound or not";
    nativo(cartella.percorso() / "drawit.db", 7);
    EXPECT_EQ(tabelle_presenti(cartella.percorso()), unsigned{kTutteLeTabelle});
}

TEST(Apertura, LeRigheComeStannoNelFile) {
    const CartellaProva cartella;
    const auto nessuno = leggi_drawit(cartella.percorso(), kTabellaLotto);
    ASSERT_TRUE(nessuno);
    EXPECT_FALSE(*nessuno) << "no file is no error here";
    nativo(cartella.percorso() / "drawit.db", 7);
    const auto letti = leggi_drawit(cartella.percorso(), kTabellaLotto);
    ASSERT_TRUE(letti && *letti);
    ASSERT_EQ((*letti)->righe.lotto.size(), 1U);
    EXPECT_EQ((*letti)->righe.lotto[0].numeri[0], 7);
    EXPECT_EQ((*letti)->fonte.file.filename(), "drawit.db");
    EXPECT_FALSE((*letti)->fonte.simulato);
}

}  // namespace
}  // namespace sortimetra
