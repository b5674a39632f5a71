#include "files/file_sicuro.h"
#include "personal/poste.h"
#include "personal/taratura.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;

std::string testo_marche(Centesimi posta) {
    std::string testo;
    for (const std::size_t i : marche(posta)) testo += (testo.empty() ? "" : "+") + testo_taglio(kTagli[i]);
    return testo;
}
std::string byte(const CartellaProva& c, std::string_view nome) {
    return leggi_file(c.percorso() / nome).value_or("(manca)");
}

constexpr std::string_view kPredefinito =
    "5,0,0,0,0,1\r\n0,1,0,0,0,1\r\n0,1,1,0,0,1\r\n0,2.50,1,0.50,0,1\r\n0,2.25,1,0.50,0.25,1\r\n"
    "0,2.25,1,0.50,0.25,1\r\n0,3,1,0.75,0.25,1\r\n0,3,1,0.75,0.25,1\r\n0,3,1,0.75,0.25,1\r\n0,4,1,0.75,0.25,"
    "1\r\n";

TEST(Poste, OgniTaglioAlPiuUnaVolta) {
    EXPECT_EQ(testo_marche(500), "5");
    EXPECT_EQ(testo_marche(250), "2+0,5");
    EXPECT_EQ(testo_marche(225), "2+0,2+0,05");
    EXPECT_EQ(testo_marche(75), "0,5+0,2+0,05");
    EXPECT_EQ(testo_marche(0), "");
    // No mark is small enough.
    EXPECT_EQ(testo_marche(3), "");
    // Five marks at most: what is left over is not played.
    EXPECT_EQ(testo_marche(100000), "200+100+50+40+30");
    EXPECT_EQ(totale_marche({.poste = {100000, 250}}), 42250);
}

TEST(Poste, TestiDelleCelle) {
    EXPECT_EQ(testo_posta(0), "");
    EXPECT_EQ(testo_posta(250), "2,50");
    EXPECT_EQ(testo_posta(123450), "1.234,50");
    EXPECT_EQ(testo_importo(0), "€ 0,00");
    EXPECT_EQ(leggi_posta("1.234,50"), 123450);
    EXPECT_EQ(leggi_posta("2"), 200);
    EXPECT_EQ(leggi_posta(",5"), 50);
    EXPECT_EQ(leggi_posta(""), 0);
    EXPECT_EQ(leggi_posta("1,2,3"), 0);
    EXPECT_EQ(leggi_posta("0,025"), 3);
    EXPECT_EQ(leggi_posta("99999999999999999999999"), 0);
}

TEST(Poste, LasciandoLaCellaSiVaDiCinqueInCinque) {
    EXPECT_EQ(posta_lasciata("0,03"), "0,00");
    EXPECT_EQ(posta_lasciata("2,58"), "2,50");
    EXPECT_EQ(posta_lasciata("2,55"), "2,55");
    EXPECT_EQ(posta_lasciata("1234,5"), "1.234,50");
    EXPECT_EQ(posta_lasciata(""), "0,00");
}

TEST(Poste, SenzaFileQuelleDiPartenza) {
    const CartellaProva c;
    EXPECT_EQ(leggi_poste(c.percorso()).value(), poste_predefinite());
    EXPECT_FALSE(fs::exists(c.percorso() / "impir.dat"));
    ASSERT_TRUE(crea_poste(c.percorso()));
    EXPECT_EQ(byte(c, "impir.dat"), kPredefinito);
    EXPECT_EQ(leggi_poste(c.percorso()).value(), poste_predefinite());
    // What is there stays.
    ASSERT_TRUE(scrivi_file(c.percorso() / "impir.dat", "x"));
    ASSERT_TRUE(crea_poste(c.percorso()));
    EXPECT_EQ(byte(c, "impir.dat"), "x");
}

TEST(Poste, SiScrivonoConIlPuntoESenzaMigliaia) {
    const CartellaProva c;
    Poste poste{};
    poste[0] = {.poste = {123450, 0, 5, 100, 25}, .stampa = false};
    ASSERT_TRUE(scrivi_poste(c.percorso(), poste));
    const std::string testo = byte(c, "impir.dat");
    EXPECT_EQ(testo.substr(0, testo.find('\n') + 1), "1234.50,0,0.05,1.00,0.25,0\r\n");
    EXPECT_EQ(leggi_poste(c.percorso()).value(), poste);
}

TEST(Poste, UnFileRovinatoSiDiceERestaComE) {
    const CartellaProva c;
    const std::string buono{kPredefinito};
    for (const std::string& testo :
         {std::string{}, std::string{"5,0,0,0,0,1\r\n"}, buono.substr(0, buono.size() - 6),
          buono + "0,0,0,0,0,1\r\n", "a" + buono, "-" + buono, "5,0,0,0,1\r\n" + buono.substr(13),
          "5,0,0,0,0,2\r\n" + buono.substr(13), "5,0,0,0,0,0,1\r\n" + buono.substr(13),
          "99999999999999999999,0,0,0,0,1\r\n" + buono.substr(13)}) {
        ASSERT_TRUE(scrivi_file(c.percorso() / "impir.dat", testo));
        const auto poste = leggi_poste(c.percorso());
        ASSERT_FALSE(poste) << testo;
        EXPECT_NE(poste.error().motivo.find("riga"), std::string::npos);
        const Risultato r = prove::esegui(prove::domanda("schedine"), {}, c.percorso());
        EXPECT_FALSE(r.prodotto);
        ASSERT_EQ(r.messaggi.size(), 1U);
        EXPECT_EQ(r.messaggi[0].avviso, Avviso::file_danneggiato);
        EXPECT_EQ(byte(c, "impir.dat"), testo);
    }
}

TEST(Poste, LeSchedineNonStampateNonHannoMarche) {
    const CartellaProva c;
    Poste poste = poste_predefinite();
    for (RigaPoste& r : poste) r.stampa = false;
    poste[1].stampa = true;
    ASSERT_TRUE(scrivi_poste(c.percorso(), poste));
    const Risultato r = prove::esegui(prove::domanda("schedine"), {}, c.percorso());
    EXPECT_EQ(r.tabelle[0].testo(0, 7), "0");
    EXPECT_EQ(r.tabelle[0].testo(6, 0), "settina");
    EXPECT_EQ(prove::righe(r.tabelle[1]), "Ambo Ambo 1\n");
}

TEST(Taratura, ILuoghiDiPartenza) {
    const TaraturaLotto t = default_taratura_lotto();
    EXPECT_EQ(t.numeri[0], (PuntoSchedina{23.31F, 145.71F}));
    EXPECT_EQ(t.numeri[9], (PuntoSchedina{61.11F, 145.71F}));
    EXPECT_EQ(t.numeri[50], (PuntoSchedina{23.31F, 166.96F}));
    EXPECT_EQ(t.numeri[60], (PuntoSchedina{23.31F, 179.71F}));
    EXPECT_EQ(t.numeri[70], (PuntoSchedina{23.31F, 183.96F}));
    EXPECT_EQ(t.numeri[89], (PuntoSchedina{61.11F, 188.21F}));
}

TEST(Taratura, SiScriveESiRilegge) {
    const CartellaProva c;
    EXPECT_FALSE(apri_taratura_lotto(c.percorso()));
    EXPECT_EQ(taratura_per_stampa(c.percorso()).value(), default_taratura_lotto());
    const std::string testo = byte(c, "tarlo");
    EXPECT_TRUE(testo.starts_with("23.31,145.71\r\n27.51,145.71\r\n"));
    EXPECT_TRUE(testo.ends_with("\r\n\r\n1,3\r\n"));
    // 90 + 8 + 9 + 120 + 10 + 1 points, an empty line behind each of eleven tables, the closing line.
    EXPECT_EQ(std::count(testo.begin(), testo.end(), '\n'), 238 + 11 + 1);
    TaraturaLotto mossa = default_taratura_lotto();
    mossa.nazionale = {0.5F, -0.25F};
    mossa.due = true;
    ASSERT_TRUE(SALVA_DATI(c.percorso(), mossa));
    EXPECT_TRUE(byte(c, "tarlo").ends_with("\r\n\r\n.5,-.25\r\n\r\n2,3\r\n"));
    EXPECT_EQ(taratura_per_stampa(c.percorso()).value(), mossa);
}

TEST(Taratura, UnFileRovinatoSiDiceERestaComE) {
    const CartellaProva c;
    ASSERT_TRUE(taratura_per_stampa(c.percorso()));
    const std::string buono = byte(c, "tarlo");
    for (const std::string& testo :
         {std::string{}, buono.substr(0, buono.size() / 2), buono.substr(0, buono.size() - 5), "x" + buono,
          buono.substr(0, buono.size() - 5) + "7,3\r\n", "\r\n" + buono}) {
        ASSERT_TRUE(scrivi_file(c.percorso() / "tarlo", testo));
        EXPECT_FALSE(taratura_per_stampa(c.percorso())) << testo.substr(0, 20);
        EXPECT_EQ(byte(c, "tarlo"), testo);
    }
}

}  // namespace
}  // namespace sortimetra
