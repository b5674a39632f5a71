#include "cartella_cli.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace sortimetra {
namespace {

using prove::scrivi;
using testing::HasSubstr;

class Sistemi : public prove::ProgrammaTest {
  protected:
    void sistema(const std::string& base, std::string_view lettera, std::string_view sy,
                 std::string_view nu) const {
        const auto file = [&](std::string_view quale) {
            return casa() / (base + std::string{quale} + std::string{lettera} + ".txt");
        };
        std::filesystem::create_directories(file("sy").parent_path());
        scrivi(file("sy"), sy);
        if (!nu.empty()) scrivi(file("nu"), nu);
    }
    [[nodiscard]] prove::Esito cli(std::vector<std::string> argomenti) const {
        argomenti.insert(argomenti.end(), {"--cartella", "."});
        return esegui(argomenti);
    }
};

TEST_F(Sistemi, ElencatiPerGioco) {
    sistema("terno/mio", "b", "1,2,3\r\n", "#2026-07-04#,\"\"\r\n1234,1234\r\n");
    sistema("terno/altro", "b", "", "");
    sistema("terno/nascosto", "b", "", "");
    scrivi(casa() / "terno/nascosto.nn", "");
    const auto p = cli({"sistemi", "--sistema", "1", "--json"});
    EXPECT_EQ(p.codice, 0);
    const auto lista = nlohmann::json::parse(p.uscita);
    ASSERT_EQ(lista.size(), 2U);
    EXPECT_EQ(lista[0]["nome"], "altro");
    EXPECT_TRUE(lista[0]["combinazioni"].is_null());
    EXPECT_EQ(lista[1]["nome"], "mio");
    EXPECT_EQ(lista[1]["combinazioni"], 1234);
    EXPECT_EQ(lista[1]["data"].get<std::string>().size(), 10U);
    const auto testo = cli({"sistemi", "--sistema", "1"});
    EXPECT_EQ(testo.codice, 0);
    EXPECT_THAT(testo.uscita, testing::AllOf(HasSubstr("Nome Sistema"), HasSubstr("1.234")));
    EXPECT_EQ(nlohmann::json::parse(cli({"sistemi", "--sistema", "6", "--json"}).uscita).size(), 0U);
}

TEST_F(Sistemi, IlGiocoVaDetto) {
    for (const std::vector<std::string>& argomenti : {std::vector<std::string>{"sistemi"},
                                                      {"sistemi", "--sistema", "7"},
                                                      {"sistemi", "--sistema", "x"}}) {
        const auto p = cli(argomenti);
        EXPECT_EQ(p.codice, 2);
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, testing::AllOf(HasSubstr("--sistema"), HasSubstr("da 0 a 6")));
    }
}

TEST_F(Sistemi, LaStatisticaNonVuoleArchivio) {
    sistema("ambo/mio", "a", "1,2\r\n45,46\r\n", "#2026-07-04#,\"\"\r\n2,2\r\n");
    const auto p = cli({"ricerca", "statistica relativa ai sistemi realizzati", "--sistema", "0", "--nome",
                        "mio", "--statistica", "somma generale - somma s1 - somma s2", "--formato", "json"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    const auto r = nlohmann::json::parse(p.uscita);
    EXPECT_EQ(r["tabelle"][0]["nome"], "MSH_Somme1(0)");
    EXPECT_EQ(r["tabelle"][0]["righe"], (nlohmann::json{{"3", "1", "50,00"}, {"91", "1", "50,00"}}));
    EXPECT_EQ(r["etichette"]["titoli"][2], "Somma S2");
}

TEST_F(Sistemi, SenzaSistemaNonParte) {
    sistema("ambo/mio", "a", "1,2\r\n", "");
    const std::string chiave = "statistica relativa ai sistemi realizzati";
    for (const std::vector<std::string>& altri : {std::vector<std::string>{},
                                                  {"--nome", "ignoto"},
                                                  {"--nome", "mio", "--statistica", "Gruppi Numerici"}}) {
        std::vector<std::string> argomenti{"ricerca", chiave, "--formato", "json"};
        argomenti.insert(argomenti.end(), altri.begin(), altri.end());
        const auto p = cli(argomenti);
        EXPECT_EQ(p.codice, 1);
        EXPECT_NE(p.errori, "");
        EXPECT_EQ(nlohmann::json::parse(p.uscita)["tabelle"].size(), 0U);
    }
}

TEST_F(Sistemi, IlDannoEUnArchivioChiuso) {
    sistema("ambo/rotto", "a", "1,2\r\n3,4x\r\n", "#2026-07-04#,\"\"\r\n2,2\r\n");
    for (const char* formato : {"json", "tabella", "csv"}) {
        const auto p = cli({"ricerca", "statistica relativa ai sistemi realizzati", "--nome", "rotto",
                            "--formato", formato});
        EXPECT_EQ(p.codice, 3);
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori,
                    testing::AllOf(HasSubstr("rottosya.txt"), HasSubstr("riga 2"), HasSubstr("4x")));
    }
}

TEST_F(Sistemi, LeScelteSbagliate) {
    importa();
    const std::string filtri = "filtri di condizionamento";
    const std::vector<std::vector<std::string>> sbagliate{
        {"--sistema", "5"},
        {"--sistema", "5", "--posizioni", "1,2,3"},
        {"--sistema", "5", "--posizioni", "1,1,2,3,4,5,6,7,8,9"},
        {"--sistema", "6", "--contenenti", "1", "--nelle-posizioni", "2"},
        {"--sistema", "6", "--contenenti", "21"},
        {"--sistema", "6", "--contenenti", "1,2,3,4,5,6,7,8,9,10,11"},
        {"--sistema", "8"},
        {"--statistica", "nessuna"},
        {"--ordina", "MSH_Distanza(9).5", "--statistica", "Distanza", "--sistema", "3"},
    };
    for (const auto& altri : sbagliate) {
        std::vector<std::string> argomenti{"ricerca", filtri, "--formato", "json"};
        argomenti.insert(argomenti.end(), altri.begin(), altri.end());
        const auto p = cli(argomenti);
        EXPECT_EQ(p.codice, 2) << testing::PrintToString(altri);
        EXPECT_EQ(p.uscita, "");
        EXPECT_NE(p.errori, "");
    }
    EXPECT_EQ(cli({"ricerca", "ultimi 20 concorsi", "--sistema", "2"}).codice, 2);
    EXPECT_EQ(cli({"ricerca", "ultimi 20 concorsi", "--sistema", "4"}).codice, 2);
    const auto zeri = cli({"ricerca", filtri, "--sistema", "6", "--contenenti", "0,0", "--formato", "json"});
    EXPECT_EQ(zeri.codice, 1);
    EXPECT_EQ(nlohmann::json::parse(zeri.uscita)["messaggi"][0], "inserire almeno un numero");
}

TEST_F(Sistemi, OgniGrigliaSiOrdinaColSuoNome) {
    importa();
    const auto p = cli({"ricerca", "filtri di condizionamento", "--sistema", "3", "--statistica", "Distanza",
                        "--ordina", "msh_distanza(9).Val.:desc,0:asc", "--formato", "json"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    const auto r = nlohmann::json::parse(p.uscita);
    std::vector<int> prima;
    for (const auto& riga : r["tabelle"][0]["righe"]) prima.push_back(std::stoi(riga[0].get<std::string>()));
    std::vector<int> somma;
    for (const auto& riga : r["tabelle"][9]["righe"]) somma.push_back(std::stoi(riga[0].get<std::string>()));
    EXPECT_TRUE(std::is_sorted(prima.begin(), prima.end()));
    EXPECT_TRUE(std::is_sorted(somma.rbegin(), somma.rend()));
    EXPECT_GT(somma.size(), 1U);
}

}  // namespace
}  // namespace sortimetra
