#include "results/righe_xlsx.h"
#include "results/scrittori.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

Tabella piccola() {
    Tabella t;
    t.titoli = {{"Numeri", "Frequenza", "Nota"}};
    t.colonne = {ColonnaGruppi{.quanti = 2, .separatore = '-', .numeri = {1, 2, 90, 7}},
                 ColonnaInteri{{12, -3}}, ColonnaTesti{{"  uno ", "due"}}};
    return t;
}
Tabella una_colonna(Colonna colonna) {
    Tabella t;
    t.colonne = {std::move(colonna)};
    return t;
}

/// The files of a zip by their names. Enough of the format for a workbook that has just been written.
std::map<std::string, std::string> apri_zip(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    const std::string z{std::istreambuf_iterator<char>{flusso}, {}};
    const auto numero = [&](std::size_t da, std::size_t byte) {
        std::size_t n = 0;
        for (std::size_t i = byte; i-- > 0;) n = n << 8U | static_cast<unsigned char>(z.at(da + i));
        return n;
    };
    std::map<std::string, std::string> trovati;
    const std::string segno = "PK\x01\x02";
    for (std::size_t c = z.find(segno); c != std::string::npos; c = z.find(segno, c + 4)) {
        const std::size_t metodo = numero(c + 10, 2);
        const std::size_t compressi = numero(c + 20, 4);
        const std::size_t interi = numero(c + 24, 4);
        const std::string nome = z.substr(c + 46, numero(c + 28, 2));
        const std::size_t locale = numero(c + 42, 4);
        const std::size_t dati = locale + 30 + numero(locale + 26, 2) + numero(locale + 28, 2);
        std::string testo(interi, '\0');
        if (metodo == 0) {
            testo = z.substr(dati, interi);
        } else {
            z_stream s{};
            if (inflateInit2(&s, -MAX_WBITS) != Z_OK) continue;
            std::string corpo = z.substr(dati, compressi);
            s.next_in = reinterpret_cast<Bytef*>(corpo.data());
            s.avail_in = static_cast<uInt>(corpo.size());
            s.next_out = reinterpret_cast<Bytef*>(testo.data());
            s.avail_out = static_cast<uInt>(testo.size());
            inflate(&s, Z_FINISH);
            inflateEnd(&s);
        }
        trovati[nome] = testo;
    }
    return trovati;
}

TEST(ScriviXlsx, NumeriComeNumeriTestiComeTesti) {
    const prove::CartellaProva cartella;
    Risultato r;
    r.tabelle = {piccola(), una_colonna(ColonnaTesti{{"12,50%", "1.443,33", "21/08/2026", "01", "12.21",
                                                      "x<y", "-3,5", "+7", "12 %", "+1,23"}})};
    r.tabelle[0].sfondi = {kNessunColore, 0x0000FF,      kNessunColore,
                           kNessunColore, kNessunColore, kNessunColore};
    r.tabelle[1].nome = "risultati";
    const auto file = cartella.percorso() / "prova.xlsx";
    ASSERT_TRUE(scrivi_xlsx(file, prove::risposta_da(r)));
    const auto parti = apri_zip(file);
    ASSERT_TRUE(parti.contains("xl/worksheets/sheet1.xml"));
    const std::string& primo = parti.at("xl/worksheets/sheet1.xml");
    EXPECT_THAT(primo, AllOf(HasSubstr("<t>Numeri</t>"), HasSubstr("<t>01-02</t>"), HasSubstr("<v>-3</v>"),
                             HasSubstr("<v>12</v>"), HasSubstr("<t>uno</t>"), HasSubstr("state=\"frozen\"")));
    EXPECT_THAT(parti.at("xl/styles.xml"), HasSubstr("rgb=\"FFFF0000\"")) << "0x0000FF is red";
    const std::string& secondo = parti.at("xl/worksheets/sheet2.xml");
    EXPECT_THAT(secondo, AllOf(HasSubstr("<v>0.125</v>"), HasSubstr("<v>1443.33</v>"),
                               HasSubstr("<v>-3.5</v>"), HasSubstr("<v>46255</v>"), HasSubstr("<t>01</t>"),
                               HasSubstr("<t>12.21</t>"), HasSubstr("<t>+7</t>"), HasSubstr("<t>12 %</t>"),
                               HasSubstr("<t>x&lt;y</t>"), HasSubstr("<v>1.23</v>")));
    EXPECT_THAT(parti.at("xl/styles.xml"), HasSubstr("+0.00;-0.00"));
    EXPECT_THAT(parti.at("xl/workbook.xml"),
                AllOf(HasSubstr("name=\"risultati\""), HasSubstr("name=\"risultati 2\"")));
}

TEST(ScriviXlsx, RigheScelteENomiStrani) {
    const prove::CartellaProva cartella;
    Risultato r;
    r.tabelle = {una_colonna(ColonnaInteri{{10, 20, 30}}), una_colonna(ColonnaInteri{{40}})};
    r.tabelle[1].nome = "MSH[1]:a/b?*\\ con un nome molto molto lungo";
    Risposta ordinata = prove::risposta_da(r);
    ordinata.ordine = {2, 0, 1};
    const auto file = cartella.percorso() / "prova.xlsx";
    ASSERT_TRUE(scrivi_xlsx(file, ordinata, 2));
    const auto parti = apri_zip(file);
    EXPECT_THAT(
        parti.at("xl/worksheets/sheet1.xml"),
        AllOf(HasSubstr("<c r=\"A1\"><v>30</v>"), HasSubstr("<c r=\"A2\"><v>10</v>"), Not(HasSubstr("A3"))));
    EXPECT_THAT(parti.at("xl/workbook.xml"), HasSubstr("name=\"MSH_1__a_b___ con un nome mo\""));
}

/// The rows of a sheet from `prima` on, each without its own number: `<c r="B7">` becomes `<c r="B">`.
std::vector<std::string> righe_del_foglio(const std::string& xml, std::size_t prima) {
    std::vector<std::string> righe;
    std::size_t attesa = prima;
    const std::string inizio = "<row r=\"";
    for (std::size_t p = xml.find(inizio); p != std::string::npos; p = xml.find(inizio, p + 1)) {
        const std::string numero =
            xml.substr(p + inizio.size(), xml.find('"', p + inizio.size()) - (p + inizio.size()));
        if (std::stoul(numero) < prima) continue;
        EXPECT_EQ(std::stoul(numero), attesa++);
        std::string riga = xml.substr(p, xml.find("</row>", p) - p);
        const std::string coda = numero + "\"";
        for (std::size_t q = riga.find(coda); q != std::string::npos; q = riga.find(coda, q))
            riga.erase(q, numero.size());
        righe.push_back(riga);
    }
    return righe;
}

/// Groups and numbers of every length, some of them missing.
Tabella lunga(std::size_t righe) {
    std::mt19937 caso{1};
    ColonnaGruppi gruppi{.quanti = 3, .separatore = '-', .numeri = {}};
    ColonnaGruppi coppie{.quanti = 2, .separatore = '.', .numeri = {}};
    ColonnaInteri interi;
    ColonnaInteri radi;
    for (std::size_t r = 0; r < righe; ++r) {
        for (int i = 0; i < 3; ++i) gruppi.numeri.push_back(static_cast<std::uint8_t>(1 + caso() % 90));
        for (int i = 0; i < 2; ++i) coppie.numeri.push_back(static_cast<std::uint8_t>(1 + caso() % 90));
        interi.valori.push_back(static_cast<std::int32_t>(caso() >> caso() % 32) / (r % 7 == 0 ? -1 : 1));
        radi.valori.push_back(caso() % 3 == 0 ? kCellaVuota + static_cast<int>(caso() % 2)
                                              : static_cast<std::int32_t>(caso() % 100));
    }
    Tabella t;
    t.titoli = {{"Numeri", "Ambo", "Ritardo", "Nota"}, {"", "", "", "x"}};
    t.colonne = {gruppi, coppie, interi, radi};
    return t;
}

TEST(ScriviXlsx, LeTabelleLungheComeLeScriveLaLibreria) {
    const prove::CartellaProva cartella;
    const auto foglio = [&](const Risposta& risposta) {
        const auto file = cartella.percorso() / "prova.xlsx";
        EXPECT_TRUE(scrivi_xlsx(file, risposta));
        return apri_zip(file);
    };
    Risultato r;
    r.tabelle = {lunga(2 * kRigheLunghe + 100), una_colonna(ColonnaInteri{{40}})};
    Risposta tutte = prove::risposta_da(r);
    std::vector<std::uint32_t> ordine(r.tabelle[0].righe());
    std::iota(ordine.begin(), ordine.end(), 0U);
    std::shuffle(ordine.begin(), ordine.end(), std::mt19937{2});
    tutte.ordine = ordine;
    const auto parti = foglio(tutte);
    const std::string& xml = parti.at("xl/worksheets/sheet1.xml");
    const auto lunghe = righe_del_foglio(xml, 3);
    ASSERT_EQ(lunghe.size(), ordine.size());
    EXPECT_THAT(xml, AllOf(HasSubstr("<dimension ref=\"A1:D10102\"/>"), HasSubstr("ySplit=\"2\"")));
    EXPECT_THAT(parti.at("xl/worksheets/sheet2.xml"), HasSubstr("<v>40</v>"));

    // The same rows in pieces that are left to the library.
    std::size_t riga = 0;
    while (riga < ordine.size()) {
        const std::size_t quante = std::min(kRigheLunghe - 1, ordine.size() - riga);
        Risposta pezzo = prove::risposta_da(r);
        pezzo.ordine = {ordine.begin() + static_cast<std::ptrdiff_t>(riga),
                        ordine.begin() + static_cast<std::ptrdiff_t>(riga + quante)};
        auto altre = foglio(pezzo);
        for (const std::string& sua : righe_del_foglio(altre.at("xl/worksheets/sheet1.xml"), 3))
            ASSERT_EQ(lunghe.at(riga++), sua);
        // What is no row is the same in both, but for the size.
        altre.erase("xl/worksheets/sheet1.xml");
        altre.erase("docProps/core.xml");  // when it was made
        for (const auto& [nome, testo] : altre) EXPECT_EQ(parti.at(nome), testo) << nome;
    }
}

TEST(ScriviXlsx, UnaTabellaLungaColorataRestaAllaLibreria) {
    Tabella t = lunga(kRigheLunghe);
    t.sfondi.assign(t.righe() * t.n_colonne(), kNessunColore);
    t.sfondi[4] = 0x0000FF;
    const prove::CartellaProva cartella;
    Risultato r;
    r.tabelle = {t};
    const auto file = cartella.percorso() / "prova.xlsx";
    ASSERT_TRUE(scrivi_xlsx(file, prove::risposta_da(r)));
    const auto parti = apri_zip(file);
    EXPECT_THAT(parti.at("xl/worksheets/sheet1.xml"), HasSubstr("<c r=\"A4\" s="));
    EXPECT_EQ(righe_del_foglio(parti.at("xl/worksheets/sheet1.xml"), 3).size(), kRigheLunghe);
}

TEST(ScriviXlsx, DoveNonSiPuoScrivereRestaQuelCheCEra) {
    const prove::CartellaProva cartella;
    Risultato r;
    r.tabelle = {piccola()};
    const auto esito = scrivi_xlsx(cartella.percorso() / "manca" / "prova.xlsx", prove::risposta_da(r));
    ASSERT_FALSE(esito);
    EXPECT_FALSE(esito.error().motivo.empty());
    EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
}

}  // namespace
}  // namespace sortimetra
