#include "files/file_sicuro.h"
#include "support/archivi.h"
#include "systems/filtri.h"
#include "systems/parametri.h"
#include "systems/sistemi_salvati.h"

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;
using testing::HasSubstr;

constexpr std::string_view kChiave = "statistica relativa ai sistemi realizzati";

void scrivi(const fs::path& file, std::string_view testo) {
    // Without waiting for the disk, as hundreds of them are written.
    fs::create_directories(file.parent_path());
    std::ofstream flusso{file, std::ios::binary};
    flusso << testo;
    ASSERT_TRUE(flusso.good());
}

/// All numbers of a text, joined by blanks; the message in place of what cannot be read. `alla_volta` numbers
/// are asked for at a time.
std::string letti(std::string_view testo, std::size_t alla_volta = 3) {
    const CartellaProva dove;
    const fs::path file = dove.percorso() / "xsya.txt";
    scrivi(file, testo);
    auto lettore = LettoreSistema::apri(file).value();
    std::string numeri;
    std::vector<Valore> posto(alla_volta);
    while (true) {
        const auto n = lettore.leggi(posto);
        if (!n) return n.error().motivo;
        for (std::size_t i = 0; i < *n; ++i) numeri += (numeri.empty() ? "" : " ") + std::to_string(posto[i]);
        if (*n < posto.size()) return numeri;
    }
}

TEST(LettoreSistema, NumeriPartitiDaVirgoleERighe) {
    EXPECT_EQ(letti("12,45\r\n3,7\r\n"), "12 45 3 7");
    EXPECT_EQ(letti("12,45\n3,7"), "12 45 3 7");
    EXPECT_EQ(letti(" 12 , 045 \r\n\r\n+3,-7,\r\n8\r\n"), "12 45 3 -7 8");
    EXPECT_EQ(letti("32767,-32768\r\n"), "32767 -32768");
    EXPECT_EQ(letti(""), "");
    EXPECT_EQ(letti("\r\n\r\n"), "");
    // What old programs put at the end of a text, whatever stands behind it.
    EXPECT_EQ(letti("1,2\r\n\x1A???"), "1 2");
}

TEST(LettoreSistema, IlDannoDiceLaRigaECheCosaETrovato) {
    constexpr std::string_view kAtteso = "atteso un numero intero da -32768 a 32767";
    EXPECT_EQ(letti("1,2\r\n3,x4\r\n"), fmt::format("riga 2: trovato \"x4\", {}", kAtteso));
    EXPECT_EQ(letti("1,2\r\n\r\n3,45a\r\n"), fmt::format("riga 3: trovato \"45a\", {}", kAtteso));
    EXPECT_EQ(letti("1,99999\r\n"), fmt::format("riga 1: trovato \"99999\", {}", kAtteso));
    EXPECT_EQ(letti("1,-32769"), fmt::format("riga 1: trovato \"-32769\", {}", kAtteso));
    EXPECT_EQ(letti("1,,2"), fmt::format("riga 1: trovato \",\", {}", kAtteso));
    EXPECT_EQ(letti(",2"), fmt::format("riga 1: trovato \",\", {}", kAtteso));
    EXPECT_EQ(letti("1,2-3"), fmt::format("riga 1: trovato \"2-3\", {}", kAtteso));
    EXPECT_EQ(letti("1,-"), fmt::format("riga 1: trovato \"-\", {}", kAtteso));
    EXPECT_EQ(letti("1,2.5"), fmt::format("riga 1: trovato \"2.5\", {}", kAtteso));
    EXPECT_EQ(letti("\"1\",2"), fmt::format("riga 1: trovato \"\"1\"\", {}", kAtteso));
    EXPECT_EQ(letti(std::string_view{"1,\0", 3}), fmt::format("riga 1: trovato \"\\x00\", {}", kAtteso));
    EXPECT_EQ(letti("\xEF\xBB\xBF"
                    "1,2"),
              fmt::format("riga 1: trovato \"\\xEF\\xBB\\xBF1\", {}", kAtteso));
}

TEST(LettoreSistema, UgualeQualunqueSiaIlTaglio) {
    // Longer than any buffer, asked for in pieces of every kind.
    std::mt19937 caso{7};
    std::string testo;
    std::string attesi;
    for (int i = 0; i < 200'000; ++i) {
        const int n = static_cast<int>(caso() % 65536) - 32768;
        testo += std::to_string(n) + (i % 6 == 5 ? "\r\n" : ",");
        attesi += (i == 0 ? "" : " ") + std::to_string(n);
    }
    for (const std::size_t alla_volta : {1U, 7U, 4096U})
        EXPECT_TRUE(letti(testo, alla_volta) == attesi) << alla_volta;
}

TEST(LettoreSistema, BytePresiACaso) {
    // Whatever stands in a file: numbers or a message, and always an end.
    std::mt19937 caso{11};
    constexpr std::string_view kByte = "0123456789,,,\r\n -+.x\x1A\xFF";
    for (int i = 0; i < 500; ++i) {
        std::string testo;
        for (unsigned j = caso() % 40; j > 0; --j) testo += kByte[caso() % kByte.size()];
        SCOPED_TRACE(i);
        const std::string uno = letti(testo, 1);
        EXPECT_EQ(uno.starts_with("riga"), letti(testo, 100).starts_with("riga"));
    }
}

TEST(LettoreSistema, FileCheNonSonoFile) {
    const CartellaProva dove;
    EXPECT_FALSE(LettoreSistema::apri(dove.percorso() / "manca").has_value());
    EXPECT_FALSE(LettoreSistema::apri(dove.percorso()).has_value());
}

// ---- the list ----

TEST(TrovaSistemi, UnaCartellaVuotaOCheNonCe) {
    const CartellaProva dove;
    for (int g = 0; g < 7; ++g) EXPECT_TRUE(trova_sistemi(dove.percorso(), g).empty());
    fs::create_directories(dove.percorso() / "ambo");
    EXPECT_TRUE(trova_sistemi(dove.percorso(), 0).empty());
}

TEST(TrovaSistemi, NomiConteggiEDate) {
    const CartellaProva dove;
    const fs::path ambo = dove.percorso() / "ambo";
    scrivi(ambo / "secondosya.txt", "1,2\r\n");
    scrivi(ambo / "secondonua.txt", "#2026-07-04#,\"\"\r\n1234,1234\r\n");
    scrivi(ambo / "primosya.txt", "");
    scrivi(ambo / "primonua.txt", "#2026-07-04#,\"\"\r\n");
    scrivi(ambo / "ric_statsya.txt", "1,2\r\n");
    scrivi(ambo / "ric_stat.nn", "");
    scrivi(ambo / "altrosyb.txt", "1,2,3\r\n");
    fs::create_directories(ambo / "cartellasya.txt");
    const auto sistemi = trova_sistemi(dove.percorso(), 0);
    ASSERT_EQ(sistemi.size(), 2U);
    EXPECT_EQ(sistemi[0].nome, "primo");
    EXPECT_EQ(sistemi[0].combinazioni, std::nullopt);
    EXPECT_EQ(sistemi[0].testo_combinazioni(), "");
    EXPECT_EQ(sistemi[1].nome, "secondo");
    EXPECT_EQ(sistemi[1].combinazioni, 1234);
    EXPECT_EQ(sistemi[1].testo_combinazioni(), "1.234");
    EXPECT_EQ(sistemi[1].data, oggi());
}

TEST(TrovaSistemi, OgniGenereHaLaSuaCartella) {
    const CartellaProva dove;
    constexpr std::array<std::string_view, 7> kFile{
        "ambo/xsya.txt",          "terno/xsyb.txt",     "quaterna/xsyc.txt", "cinquina/xsyd.txt",
        "superenalotto/xsye.txt", "10elotto/xsy10.txt", "wforlife/xsy10.txt"};
    for (int g = 0; g < 7; ++g) {
        scrivi(dove.percorso() / kFile[static_cast<std::size_t>(g)], "");
        ASSERT_EQ(trova_sistemi(dove.percorso(), g).size(), 1U) << g;
        EXPECT_EQ(trova_sistemi(dove.percorso(), g)[0].nome, "x");
    }
}

// ---- the statistics of a saved system ----

Domanda domanda(int sistema, Statistica statistica, std::string nome) {
    Domanda d = prove::domanda(kChiave);
    d.parametri = ParametriSistemi{
        .sistema = sistema, .statistica = static_cast<int>(statistica), .nome = std::move(nome)};
    return d;
}

/// The grids that have rows, each under its name.
std::string griglie(const Risultato& r) {
    std::string testo;
    for (const Tabella& t : r.tabelle)
        if (t.righe() > 0) testo += t.nome + "\n" + prove::righe(t);
    return testo;
}

TEST(SistemiRealizzati, TreTerniContatiAMano) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "terno/miosyb.txt", "1,2,3\r\n45,46,90\r\n3,2,1\r\n");
    scrivi(dove.percorso() / "terno/mionub.txt", "#2026-07-04#,\"\"\r\n3,3\r\n");
    const Risultato distanze = prove::esegui(domanda(1, Statistica::distanza, "mio"), {}, dove.percorso());
    EXPECT_EQ(griglie(distanze),
              "MSH_Distanza(0)\n0 3 100,00\nMSH_Distanza(1)\n0 2 66,67\n43 1 33,33\n"
              "MSH_Distanza(9)\n0 2 66,67\n43 1 33,33\n");
    const Risultato condizioni =
        prove::esegui(domanda(1, Statistica::condizioni, "mio"), {}, dove.percorso());
    EXPECT_THAT(griglie(condizioni), testing::StartsWith("MSH_condizioni(0)\n0 2 66,67\n1 1 33,33\n"
                                                         "MSH_condizioni(1)\n0 2 66,67\n1 1 33,33\n"
                                                         "MSH_condizioni(2)\n0 2 66,67\n2 1 33,33\n"
                                                         "MSH_condizioni(3)\n1 1 33,33\n2 2 66,67\n"));
    const Risultato posizioni = prove::esegui(domanda(1, Statistica::posizione, "mio"), {}, dove.percorso());
    EXPECT_EQ(prove::riga(posizioni, "1"), "1 1 33,33 0 0,00 1 33,33");
    EXPECT_EQ(posizioni.tabelle[0].titoli[0][3], "Posizione 2");
    EXPECT_EQ(posizioni.tabelle[0].titoli[1][2], "%");
}

TEST(SistemiRealizzati, IlConteggioComandaLePercentuali) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "ambo/miosya.txt", "1,2\r\n1,2\r\n7");
    const auto somma = [&] {
        const Risultato r = prove::esegui(domanda(0, Statistica::somme1, "mio"), {}, dove.percorso());
        return prove::righe(r.tabelle.at(0));
    };
    // No count file: no percentages. The last number is no whole record.
    EXPECT_EQ(somma(), "3 2 \n");
    scrivi(dove.percorso() / "ambo/mionua.txt", "#2026-07-04#,\"\"\r\n8,8\r\n");
    EXPECT_EQ(somma(), "3 2 25,00\n");
}

TEST(SistemiRealizzati, DieciLetteAVentiPerPosizioneEDistanza) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "10elotto/miosy10.txt",
           "1,2,3,4,5,6,7,8,9,10\r\n11,12,13,14,15,16,17,18,19,40\r\n1,2,3,4,5,6,7,8,9,10\r\n");
    scrivi(dove.percorso() / "10elotto/mionu10.txt", "#2026-07-04#,\"\"\r\n3,3\r\n");
    const Risultato posizioni = prove::esegui(domanda(5, Statistica::posizione, "mio"), {}, dove.percorso());
    EXPECT_EQ(posizioni.tabelle[0].n_colonne(), 41U);
    EXPECT_EQ(posizioni.tabelle[0].titoli[0][39], "Posizione 20");
    EXPECT_EQ(posizioni.tabelle[0].testo(39, 39), "1");
    EXPECT_EQ(posizioni.tabelle[0].testo(39, 40), "33,33");
    // One record of twenty; the third line is half of one.
    const Risultato distanze = prove::esegui(domanda(5, Statistica::distanza, "mio"), {}, dove.percorso());
    EXPECT_EQ(prove::righe(distanze.tabelle[8]), "0 1 33,33\n");
    EXPECT_EQ(prove::righe(distanze.tabelle[9]), "20 1 33,33\n");
    // The others read lines of ten.
    const Risultato somme = prove::esegui(domanda(5, Statistica::somme2, "mio"), {}, dove.percorso());
    EXPECT_EQ(prove::righe(somme.tabelle[0]), "11 2 66,67\n51 1 33,33\n");
    EXPECT_EQ(std::get<std::vector<std::string>>(somme.etichette.at(0).testo)[1], "Resto a 10");
}

TEST(SistemiRealizzati, WinForLifeConGliSpecchiDelLotto) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "wforlife/miosy10.txt", "1,2,3,4,5,6,7,8,9,20\r\n");
    const Risultato r = prove::esegui(domanda(6, Statistica::condizioni, "mio"), {}, dove.percorso());
    EXPECT_EQ(prove::righe(r.tabelle[0]), "0 1 \n");
}

TEST(SistemiRealizzati, QuelCheNonCeNonParte) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "ambo/miosya.txt", "1,2\r\n");
    scrivi(dove.percorso() / "ambo/segnatosya.txt", "1,2\r\n");
    scrivi(dove.percorso() / "ambo/segnato.nn", "");
    for (const Domanda& d :
         {domanda(0, Statistica::posizione, "ignoto"), domanda(0, Statistica::posizione, ""),
          domanda(0, Statistica::posizione, "segnato"), domanda(0, Statistica::posizione, "../ambo/mio"),
          domanda(0, Statistica::gruppi, "mio")}) {
        const Risultato r = prove::esegui(d, {}, dove.percorso());
        EXPECT_FALSE(r.prodotto);
        EXPECT_TRUE(r.tabelle.empty());
        EXPECT_TRUE(r.messaggi.empty());
        EXPECT_EQ(r.note.size(), 1U);
    }
    EXPECT_TRUE(prove::esegui(domanda(0, Statistica::posizione, "mio"), {}, dove.percorso()).prodotto);
}

TEST(SistemiRealizzati, IlDannoSiDiceConLaSuaRiga) {
    const CartellaProva dove;
    const fs::path file = dove.percorso() / "ambo/miosya.txt";
    scrivi(file, "1,2\r\n3,quattro\r\n");
    const Risultato r = prove::esegui(domanda(0, Statistica::somme1, "mio"), {}, dove.percorso());
    EXPECT_FALSE(r.prodotto);
    ASSERT_EQ(r.messaggi.size(), 1U);
    EXPECT_EQ(r.messaggi[0].avviso, Avviso::sistema_danneggiato);
    EXPECT_THAT(r.messaggi[0].testo, HasSubstr("miosya.txt: riga 2: trovato \"quattro\""));
    EXPECT_EQ(leggi_file(file).value(), "1,2\r\n3,quattro\r\n");
}

TEST(SistemiRealizzati, ValoriFuoriDalleTabelleNonSiContano) {
    const CartellaProva dove;
    scrivi(dove.percorso() / "ambo/miosya.txt", "900,1\r\n-5,-6\r\n1,1\r\n2,3\r\n");
    scrivi(dove.percorso() / "ambo/mionua.txt", "#2026-07-04#,\"\"\r\n4,4\r\n");
    const auto prima = [&](Statistica s, std::size_t g) {
        return prove::righe(prove::esegui(domanda(0, s, "mio"), {}, dove.percorso()).tabelle.at(g));
    };
    EXPECT_EQ(prima(Statistica::somme1, 0), "2 1 25,00\n5 1 25,00\n");
    EXPECT_EQ(prima(Statistica::distanza, 0), "0 2 50,00\n");
    EXPECT_EQ(prima(Statistica::consecutivita, 0), "0 2 50,00\n1 2 50,00\n");
}

}  // namespace
}  // namespace sortimetra
