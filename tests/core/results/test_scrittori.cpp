#include "results/scrittori.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <nlohmann/json.hpp>
#include <numeric>
#include <random>
#include <variant>

namespace sortimetra {
namespace {

using nlohmann::json;
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

std::string csv(const Tabella& t, RigheScelte righe = {}) {
    std::string testo;
    scrivi_csv(testo, t, righe);
    return testo;
}
std::string in_tabella(const Tabella& t, RigheScelte righe = {}) {
    std::string testo;
    scrivi_tabella(testo, t, righe);
    return testo;
}
std::string in_json(const Risultato& r, std::size_t massimo = kOgniRiga) {
    std::string testo;
    scrivi_json(testo, prove::risposta_da(r), massimo);
    return testo;
}

Tabella di_testi(std::vector<std::string> celle) {
    Tabella t;
    t.colonne = {ColonnaTesti{std::move(celle)}};
    return t;
}
Tabella di_interi(std::vector<std::int32_t> celle) {
    Tabella t;
    t.colonne = {ColonnaInteri{std::move(celle)}};
    return t;
}

// ---- CSV ----

TEST(ScriviCsv, TitoliPoiRighe) {
    EXPECT_EQ(csv(piccola()), "Numeri;Frequenza;Nota\n01-02;12;uno\n90-07;-3;due\n");
}

TEST(ScriviCsv, AggiungeSenzaToccareIlResto) {
    std::string testo = "prima\n";
    scrivi_csv(testo, di_interi({5}));
    EXPECT_EQ(testo, "prima\n5\n");
}

TEST(ScriviCsv, VirgoletteDoveServono) {
    EXPECT_EQ(csv(di_testi({"a;b", "dice \"sì\"", "due\nrighe", "\"", "a,b", ""})),
              "\"a;b\"\n\"dice \"\"sì\"\"\"\n\"due\nrighe\"\n\"\"\"\"\na,b\n\n");
}

TEST(ScriviCsv, RigheScelte) {
    const std::vector<std::uint32_t> ordine{1, 0};
    EXPECT_EQ(csv(piccola(), {.ordine = ordine}), "Numeri;Frequenza;Nota\n90-07;-3;due\n01-02;12;uno\n");
    EXPECT_EQ(csv(piccola(), {.ordine = ordine, .massimo = 1}), "Numeri;Frequenza;Nota\n90-07;-3;due\n");
    EXPECT_EQ(csv(piccola(), {.ordine = {}, .massimo = 0}), "Numeri;Frequenza;Nota\n");
    EXPECT_EQ(csv(piccola(), {.ordine = {}, .massimo = 99}), csv(piccola()));
}

TEST(ScriviCsv, OgniInteroComeLoMostraLaGriglia) {
    std::vector<std::int32_t> valori{kCellaVuota, kCellaPuntini, std::numeric_limits<std::int32_t>::max(),
                                     kCellaPuntini + 1};
    for (std::int32_t n = -1200; n <= 12000; ++n) valori.push_back(n);
    for (std::int32_t n = 1; n < 1'000'000'000; n *= 10)
        for (const int d : {-1, 0, 1}) {
            valori.push_back(n + d);
            valori.push_back(-n + d);
        }
    const Tabella t = di_interi(valori);
    std::string atteso;
    for (std::size_t r = 0; r < t.righe(); ++r) atteso += t.testo(r, 0) + "\n";
    EXPECT_EQ(csv(t), atteso);
}

TEST(ScriviCsv, SoloTitoli) {
    Tabella t = piccola();
    t.colonne = {ColonnaGruppi{2, '-', {}}, ColonnaInteri{}, ColonnaTesti{}};
    EXPECT_EQ(csv(t), "Numeri;Frequenza;Nota\n");
    EXPECT_EQ(csv(Tabella{}), "");
}

// ---- both, against the plain way ----

/// A table of random shape.
Tabella casuale(unsigned seme) {
    std::mt19937 caso{seme};
    const auto fra = [&](int da, int a) { return std::uniform_int_distribution<int>{da, a}(caso); };
    const auto righe = static_cast<std::size_t>(fra(0, 40));
    const std::vector<std::string> testi{"",     " ",    "a;b",      "\"",     "è più",
                                         "x\ty", "1,5%", "\xFF\xFE", "a\r\nb", "\\"};
    const auto testo = [&] { return testi[static_cast<std::size_t>(fra(0, 9))]; };
    Tabella t;
    t.titoli.resize(static_cast<std::size_t>(fra(0, 3)));
    const int colonne = fra(1, 6);
    for (int c = 0; c < colonne; ++c) {
        for (auto& titoli : t.titoli) titoli.push_back(testo());
        switch (fra(0, 2)) {
            case 0: {
                ColonnaInteri interi;
                for (std::size_t r = 0; r < righe; ++r)
                    interi.valori.push_back(fra(0, 5) == 0 ? kCellaVuota + fra(0, 2) : fra(-20000, 20000));
                t.colonne.emplace_back(std::move(interi));
                break;
            }
            case 1: {
                ColonnaGruppi gruppi{.quanti = static_cast<std::size_t>(fra(1, 20)),
                                     .separatore = fra(0, 1) == 0 ? '-' : '.',
                                     .numeri = {}};
                for (std::size_t r = 0; r < righe * gruppi.quanti; ++r)
                    gruppi.numeri.push_back(static_cast<std::uint8_t>(fra(0, 99)));
                t.colonne.emplace_back(std::move(gruppi));
                break;
            }
            default: {
                ColonnaTesti colonna;
                for (std::size_t r = 0; r < righe; ++r) colonna.valori.push_back(testo());
                t.colonne.emplace_back(std::move(colonna));
            }
        }
    }
    if (fra(0, 1) == 0)
        for (std::size_t i = 0; i < righe * t.n_colonne(); ++i)
            t.sfondi.push_back(fra(0, 2) == 0 ? fra(0, 0xFFFFFF) : kNessunColore);
    return t;
}

std::string rifilato(std::string testo) {
    const char* bianchi = " \t\r\n";
    testo.erase(0, std::min(testo.find_first_not_of(bianchi), testo.size()));
    testo.erase(testo.find_last_not_of(bianchi) + 1);
    return testo;
}

std::string campo_lento(const std::string& cella) {
    const std::string c = rifilato(cella);
    if (c.find_first_of(";\"\r\n") == std::string::npos) return c;
    std::string q = "\"";
    for (const char x : c) q += x == '"' ? std::string{"\"\""} : std::string{x};
    return q + "\"";
}

TEST(Scrittori, UgualiAllaViaLenta) {
    for (unsigned seme = 0; seme < 300; ++seme) {
        SCOPED_TRACE(seme);
        const Tabella t = casuale(seme);
        std::vector<std::uint32_t> ordine(t.righe());
        std::iota(ordine.begin(), ordine.end(), 0U);
        std::shuffle(ordine.begin(), ordine.end(), std::mt19937{seme});
        const std::size_t massimo = seme % 3 == 0 ? seme % 50 : 1000;
        std::string atteso_csv;
        json righe = json::array();
        json sfondi = json::array();
        for (const auto& titoli : t.titoli) {
            for (std::size_t c = 0; c < titoli.size(); ++c)
                atteso_csv += (c > 0 ? ";" : "") + campo_lento(titoli[c]);
            atteso_csv += "\n";
        }
        for (std::size_t i = 0; i < std::min(ordine.size(), massimo); ++i) {
            json riga = json::array();
            json colori = json::array();
            for (std::size_t c = 0; c < t.n_colonne(); ++c) {
                atteso_csv += (c > 0 ? ";" : "") + campo_lento(t.testo(ordine[i], c));
                const std::string cella = rifilato(t.testo(ordine[i], c));
                riga.push_back(cella == "\xFF\xFE" ? "\uFFFD\uFFFD" : cella);
                const Colore colore = t.sfondo(ordine[i], c);
                colori.push_back(colore == kNessunColore ? json{} : json(colore));
            }
            atteso_csv += "\n";
            righe.push_back(riga);
            sfondi.push_back(colori);
        }
        const RigheScelte scelte{.ordine = ordine, .massimo = massimo};
        EXPECT_EQ(csv(t, scelte), atteso_csv);

        Risultato r;
        r.tabelle = {t};
        Risposta ordinata = prove::risposta_da(r);
        ordinata.ordine = ordine;
        std::string scritto;
        scrivi_json(scritto, ordinata, massimo);
        const json j = json::parse(scritto);
        EXPECT_EQ(j["tabelle"][0]["righe"], righe);
        EXPECT_EQ(j["tabelle"][0].contains("sfondi"), !t.sfondi.empty());
        if (!t.sfondi.empty()) {
            EXPECT_EQ(j["tabelle"][0]["sfondi"], sfondi);
        }
    }
}

// ---- JSON ----

TEST(ScriviJson, OrdineDelleChiaviEForma) {
    Risultato r;
    r.titolo = "Gli \"ambi\"";
    r.tabelle = {piccola()};
    r.tabelle[0].sfondi = {kNessunColore, 65535, 0, kNessunColore, kNessunColore, 0xFFFFFF};
    r.etichette = {{"lblRit_freq", "74"}, {"lblnum", std::vector<std::string>{"1", ""}}};
    r.messaggi = {{Avviso::altro, "Attenzione"}};
    EXPECT_EQ(in_json(r),
              "{\"chiave\": \"ritardo e frequenza dei 90 numeri\", \"titolo\": \"Gli \\\"ambi\\\"\",\n"
              "\"tabelle\": [{\"nome\": \"risultati\", \"titoli\": [[\"Numeri\", \"Frequenza\", \"Nota\"]],\n"
              " \"righe\": [[\"01-02\", \"12\", \"uno\"],\n"
              "  [\"90-07\", \"-3\", \"due\"]],\n"
              " \"sfondi\": [[null, 65535, 0],\n"
              "  [null, null, 16777215]]}],\n"
              "\"etichette\": {\"lblRit_freq\": \"74\", \"lblnum\": [\"1\", \"\"]},\n"
              "\"messaggi\": [\"Attenzione\"]}\n");
}

TEST(ScriviJson, TreRigheDiTitoli) {
    Risultato r;
    r.tabelle = {di_interi({1})};
    r.tabelle[0].titoli = {{"Num. "}, {""}, {"F"}};
    EXPECT_EQ(json::parse(in_json(r))["tabelle"][0]["titoli"], json::parse(R"([["Num."], [""], ["F"]])"));
}

TEST(ScriviJson, LeRigheScelteSonoDellaPrimaTabella) {
    Risultato r;
    r.tabelle = {di_interi({1, 2, 3}), di_interi({4, 5, 6})};
    const json j = json::parse(in_json(r, 1));
    EXPECT_EQ(j["tabelle"][0]["righe"].size(), 1);
    EXPECT_EQ(j["tabelle"][1]["righe"].size(), 3);
}

TEST(ScriviJson, OgniCarattereSiRilegge) {
    std::string tutti;
    for (int c = 1; c < 0x20; ++c) tutti += static_cast<char>(c);
    tutti = "x" + tutti + "\"\\/\x7F è € 🎱 x";
    Risultato r;
    r.titolo = tutti;
    r.tabelle = {di_testi({tutti})};
    r.etichette = {{tutti, tutti}};
    r.messaggi = {{Avviso::altro, tutti}};
    const json j = json::parse(in_json(r));
    EXPECT_EQ(j["titolo"], tutti);
    EXPECT_EQ(j["tabelle"][0]["righe"][0][0], tutti);
    EXPECT_EQ(j["etichette"][tutti], tutti);
    EXPECT_EQ(j["messaggi"][0], tutti);
}

TEST(ScriviJson, QuelCheNonEUtf8SiLeggeLoStesso) {
    Risultato r;
    r.tabelle = {di_testi({"perch\xE9", "\xC3", "\xED\xA0\x80"})};
    EXPECT_TRUE(json::accept(in_json(r)));
}

// ---- terminal ----

TEST(Larghezza, ContaLeColonneDelTerminale) {
    EXPECT_EQ(larghezza_terminale(""), 0);
    EXPECT_EQ(larghezza_terminale("abc"), 3);
    EXPECT_EQ(larghezza_terminale("più è"), 5);
    EXPECT_EQ(larghezza_terminale("e\u0301"), 1) << "a combining accent";
    EXPECT_EQ(larghezza_terminale("数字"), 4);
    EXPECT_EQ(larghezza_terminale("🎱"), 2);
    EXPECT_EQ(larghezza_terminale("\xFF\xC3"), 2) << "each broken byte is one sign";
}

TEST(ScriviTabella, NumeriADestraTestiASinistra) {
    Tabella t;
    t.titoli = {{"N.", "Frequenza", "Ruota", "%"}};
    t.colonne = {ColonnaInteri{{7, 12, kCellaPuntini}}, ColonnaInteri{{1, 1000, kCellaVuota}},
                 ColonnaTesti{{"Bari", "Cagliari", ""}}, ColonnaTesti{{"3,13%", "12,50%", ""}}};
    EXPECT_EQ(in_tabella(t),
              " N.  Frequenza  Ruota          %\n"
              "---  ---------  --------  ------\n"
              "  7          1  Bari       3,13%\n"
              " 12       1000  Cagliari  12,50%\n"
              "...\n");
}

TEST(ScriviTabella, TitoliUniti) {
    Tabella t;
    t.titoli = {{"Num.", "Posizione", ""}, {"", "1", "2"}};
    t.colonne = {ColonnaInteri{{1}}, ColonnaInteri{{5}}, ColonnaInteri{{6}}};
    EXPECT_EQ(in_tabella(t),
              "Num.  Posizione\n"
              "      1       2\n"
              "----  -  ------\n"
              "   1  5       6\n");
}

TEST(ScriviTabella, AccentiELettereLarghe) {
    Tabella t;
    t.titoli = {{"Nome", "Età"}};
    t.colonne = {ColonnaTesti{{"perché", "数字", "x\ny\x1B[31m"}}, ColonnaInteri{{1, 2, 3}}};
    EXPECT_EQ(in_tabella(t),
              "Nome      Età\n"
              "--------  ---\n"
              "perché      1\n"
              "数字        2\n"
              "x y [31m    3\n")
        << "control characters never reach the terminal";
}

/// Numbers and groups, each cell put to its side with blanks, one after the other.
std::string tabella_lenta(const Tabella& t, const std::vector<std::uint32_t>& ordine) {
    std::vector<std::size_t> larghe(t.n_colonne());
    for (std::size_t c = 0; c < larghe.size(); ++c)
        for (const std::uint32_t r : ordine) larghe[c] = std::max(larghe[c], t.testo(r, c).size());
    std::string testo;
    for (const std::uint32_t r : ordine) {
        std::string linea;
        for (std::size_t c = 0; c < larghe.size(); ++c) {
            const std::string cella = t.testo(r, c);
            const std::string vuoto(larghe[c] - cella.size(), ' ');
            const bool numeri = std::holds_alternative<ColonnaInteri>(t.colonne[c]);
            linea += (c > 0 ? "  " : "") + (numeri ? vuoto + cella : cella + vuoto);
        }
        linea.erase(linea.find_last_not_of(' ') + 1);
        testo += linea + "\n";
    }
    return testo;
}

TEST(ScriviTabella, UgualeAllaViaLenta) {
    for (unsigned seme = 1; seme <= 400; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto fra = [&](int da, int a) { return std::uniform_int_distribution<int>{da, a}(caso); };
        const auto righe = static_cast<std::size_t>(fra(1, 30));
        Tabella t;
        for (int c = fra(1, 5); c > 0; --c) {
            if (fra(0, 2) == 0) {
                ColonnaGruppi gruppi{.quanti = static_cast<std::size_t>(fra(1, 4)), .numeri = {}};
                for (std::size_t i = 0; i < righe * gruppi.quanti; ++i)
                    gruppi.numeri.push_back(static_cast<std::uint8_t>(fra(1, 90)));
                t.colonne.emplace_back(std::move(gruppi));
                continue;
            }
            // Columns of one digit up to ten, some with negative numbers, some with cells of no number.
            const int massimo = std::array{9, 99, 999, 9999, 10000, 2147483647}[fra(0, 5)];
            const int minimo = fra(0, 3) == 0 ? -massimo : 0;
            const bool altre = fra(0, 2) == 0;
            ColonnaInteri interi;
            for (std::size_t r = 0; r < righe; ++r)
                interi.valori.push_back(altre && fra(0, 3) == 0 ? kCellaVuota + fra(0, 1)
                                                                : fra(minimo, massimo));
            t.colonne.emplace_back(std::move(interi));
        }
        std::vector<std::uint32_t> ordine(righe);
        std::iota(ordine.begin(), ordine.end(), 0U);
        EXPECT_EQ(in_tabella(t), tabella_lenta(t, ordine));
        std::shuffle(ordine.begin(), ordine.end(), caso);
        ordine.resize(static_cast<std::size_t>(fra(1, static_cast<int>(righe))));
        EXPECT_EQ(in_tabella(t, {.ordine = ordine}), tabella_lenta(t, ordine));
    }
}

TEST(ScriviTabella, LeLarghezzeSonoQuelleDelleRigheScritte) {
    EXPECT_EQ(in_tabella(di_interi({1, 22222}), {.ordine = {}, .massimo = 1}), "1\n");
    EXPECT_EQ(in_tabella(Tabella{}), "");
}

TEST(ScriviTerminale, TabelleConNomeEEtichette) {
    Risultato r;
    r.titolo = "Prova";
    r.tabelle = {di_interi({1}), di_interi({2})};
    r.tabelle[1].nome = "numeri";
    r.etichette = {{"lblRit_freq", "74"},
                   {"lblnum", std::vector<std::string>{"1", "", "3"}},
                   {"lbloption", std::vector<std::string>{"", ""}}};
    std::string testo;
    scrivi_terminale(testo, prove::risposta_da(r));
    EXPECT_EQ(testo, "Prova\n\nrisultati:\n1\n\nnumeri:\n2\n\nlblRit_freq: 74\nlblnum: 1, 3\nlbloption:\n");
}

}  // namespace
}  // namespace sortimetra
