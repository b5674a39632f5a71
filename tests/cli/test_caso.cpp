#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "stores/importa.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

// "--caso", "--per-ruota" and "storia" as their users meet them.

namespace sortimetra::prove {
namespace {

using nlohmann::json;

struct Detto {
    int codice = -1;
    std::string uscita;
    std::string errori;
};

const std::filesystem::path& cartella() {
    static const CartellaProva fatta;
    static const bool piena = [] {
        scrivi(fatta.percorso() / "lotto.txt", kLotto);
        scrivi(fatta.percorso() / "superenalotto.csv", kSuperEnalotto);
        scrivi(fatta.percorso() / "winforlife.csv", kWinForLife);
        SenzaAvanzamento nessuno;
        const auto esito = importa_archivio(fatta.percorso() / "archivio",
                                            {.lotto = fatta.percorso() / "lotto.txt",
                                             .superenalotto = fatta.percorso() / "superenalotto.csv",
                                             .winforlife = fatta.percorso() / "winforlife.csv",
                                             .tutto = true},
                                            nessuno);
        if (!esito) throw std::logic_error(esito.error().testo());
        return true;
    }();
    static_cast<void>(piena);
    return fatta.percorso();
}

Detto chiama(std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.end(), {"--cartella", cartella().string()});
    std::ostringstream uscita;
    std::ostringstream errori;
    const int codice = esegui_comando(argomenti, uscita, errori);
    return {codice, uscita.str(), errori.str()};
}

json in_json(std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.end(), {"--formato", "json"});
    const Detto d = chiama(std::move(argomenti));
    EXPECT_EQ(d.codice, 0) << d.errori;
    return json::parse(d.uscita);
}

const json& tabella(const json& risposta, const std::string& nome) {
    static const json nessuna;
    const auto& tutte = risposta["tabelle"];
    const auto t = std::find_if(tutte.begin(), tutte.end(), [&](const json& j) { return j["nome"] == nome; });
    return t == tutte.end() ? nessuna : *t;
}

const std::string kNovanta = "ritardo e frequenza dei 90 numeri";

TEST(RigaDiComandoCaso, LaTabellaStaDopoLeAltreERisultatiNonCambia) {
    const json senza = in_json({"ricerca", kNovanta, "--ruote", "BA,RM"});
    const json con = in_json({"ricerca", kNovanta, "--ruote", "BA,RM", "--caso", "--per-ruota"});
    ASSERT_EQ(con["tabelle"].size(), 3U);
    EXPECT_EQ(con["tabelle"][0], senza["tabelle"][0]);
    EXPECT_EQ(con["tabelle"][1]["nome"], "caso");
    EXPECT_EQ(con["tabelle"][2]["nome"], "ruote");
    EXPECT_EQ(con["tabelle"][1]["titoli"], json::parse(R"([["Numeri", "Attesa", "Scarto", "Ritardo",
        "Probabilità", "In tabella", "Record atteso"]])"));
    // Six rows in three draws, so two a draw: 6 * 5/90; 90 came twice, last two draws ago: (17/18)^4.
    EXPECT_EQ(con["tabelle"][0]["righe"][89], json::parse(R"(["90", "2", "2", "0"])"));
    EXPECT_EQ(con["tabelle"][1]["righe"][89],
              json::parse(R"(["90", "0,3", "+2,97", "2", "79,6%", "100%", "0"])"));
    EXPECT_EQ(con["tabelle"][2]["titoli"], json::parse(R"([["Numeri", "BA", "RM"]])"));
    EXPECT_EQ(con["tabelle"][2]["righe"][11], json::parse(R"(["12", "0", "3"])"));
    EXPECT_TRUE(senza["etichette"].empty());
    EXPECT_TRUE(con["etichette"].contains("lblCaso"));
    EXPECT_TRUE(con["etichette"].contains("lblChiQuadro"));
}

TEST(RigaDiComandoCaso, LeRigheSeguonoLOrdineDellaPrimaTabella) {
    const json j = in_json({"ricerca", kNovanta, "--caso", "--per-ruota", "--ruote", "BA,RM", "--ordina",
                            "Frequenza", "--prime", "5"});
    ASSERT_EQ(j["tabelle"][0]["righe"].size(), 5U);
    for (const json& t : j["tabelle"]) {
        ASSERT_EQ(t["righe"].size(), 5U) << t["nome"];
        for (std::size_t r = 0; r < 5; ++r) EXPECT_EQ(t["righe"][r][0], j["tabelle"][0]["righe"][r][0]);
    }
    const json filtrato = in_json({"ricerca", kNovanta, "--caso", "--ruote", "BA,RM", "--dove", "Frequenza=2",
                                   "--colonne", "Frequenza,Numeri"});
    const auto& righe = filtrato["tabelle"][0]["righe"];
    ASSERT_EQ(filtrato["tabelle"][1]["righe"].size(), righe.size());
    for (std::size_t r = 0; r < righe.size(); ++r)
        EXPECT_EQ(filtrato["tabelle"][1]["righe"][r][0], righe[r][1]);
}

TEST(RigaDiComandoCaso, ConIlSuoNomeLaTabellaSiOrdinaDaSe) {
    const json j = in_json({"ricerca", kNovanta, "--caso", "--ordina", "caso.Scarto:asc"});
    EXPECT_EQ(j["tabelle"][0]["righe"][0][0], "1");
    const auto& caso = j["tabelle"][1]["righe"];
    EXPECT_EQ(caso.front()[2].get<std::string>().front(), '-');
    EXPECT_EQ(caso.back()[2].get<std::string>().front(), '+');
}

TEST(RigaDiComandoCaso, LaMisuraDelleRuoteSiSceglie) {
    const auto cella = [](const char* misura) {
        return in_json({"ricerca", kNovanta, "--per-ruota", "--misura", misura, "--ruote",
                        "BA"})["tabelle"][1]["righe"][11][1];
    };
    EXPECT_EQ(cella("ritardo"), "0");
    EXPECT_EQ(cella("frequenza"), "2");
    EXPECT_EQ(cella("storico"), "1");
}

TEST(RigaDiComandoCaso, DoveLeRigheNonMisuranoUnEventoEUsoErrato) {
    const std::vector<std::vector<std::string>> righe{
        {"ricerca", "tabellone posizionale", "--caso"},
        {"ricerca", "ritardi e frequenze per posizione dei 90 numeri", "--caso"},
        {"ricerca", "lunghette ritardate/frequenti per ambo e terno", "--caso"},
        {"ricerca", "ricerche su tutti gli ambi negli estratti delle 10 ruote", "--caso"},
        {"ricerca", "calcolo dei numeri spia", "--numeri", "5", "--caso"},
        {"ricerca", "cadenze", "--tutte-le-ruote", "--caso"},
        {"ricerca", "cadenze", "--analisi-gruppo", "--caso"},
        {"ricerca", "tabellone posizionale", "--per-ruota"},
        {"ricerca", "ritardo e frequenza del numero superstar", "--per-ruota"},
        {"ricerca", kNovanta, "--misura", "storico"},
        {"ricerca", kNovanta, "--per-ruota", "--misura", "altro"},
        {"storia", "--numeri", "5", "--caso"},
        {"stampa", "tabellone posizionale", "--caso", "-o", "a.pdf"},
        {"stampa", kNovanta, "--caso", "--per-ruota", "-o", "a.pdf"},
    };
    for (const auto& riga : righe) {
        const Detto d = chiama(riga);
        EXPECT_EQ(d.codice, 2) << riga[1] << d.errori;
        EXPECT_EQ(d.uscita, "") << riga[1];
        EXPECT_NE(d.errori, "") << riga[1];
    }
}

TEST(RigaDiComandoCaso, SenzaEstrazioniNonCeNienteDaAggiungere) {
    const Detto d = chiama({"ricerca", kNovanta, "--ruote", "CA", "--caso", "--per-ruota"});
    EXPECT_EQ(d.codice, 1);
    EXPECT_EQ(d.uscita, "");
}

TEST(RigaDiComandoStoria, DueTabelle) {
    const json j = in_json({"storia", "--numeri", "12,90", "--ruote", "BA,RM"});
    EXPECT_EQ(j["chiave"], "storia");
    EXPECT_EQ(tabella(j, "risultati")["titoli"],
              json::parse(R"([["N.", "Concorso", "Data", "Ruote", "Numeri", "Ritardo"]])"));
    EXPECT_EQ(tabella(j, "risultati")["righe"], json::parse(R"([
        ["1", "1", "01/01/2000", "Bari, Roma", "12-90, 90", "..."],
        ["2", "3", "08/01/2000", "Bari", "12", "1"]])"));
    EXPECT_EQ(tabella(j, "sintesi")["titoli"][0][0], "Frequenza");
    EXPECT_EQ(tabella(j, "sintesi")["righe"][0][0], "3");
    EXPECT_EQ(j["ambito"]["ruote"], "Bari, Roma");
}

TEST(RigaDiComandoStoria, AltriGiochiEOpzioni) {
    EXPECT_EQ(tabella(in_json({"storia", "--numeri", "12", "--posto", "1"}), "risultati")["righe"],
              json::parse(R"([["1", "3", "08/01/2000", "Bari", "12", "..."]])"));
    EXPECT_EQ(tabella(in_json({"storia", "--numeri", "50", "--ruote", "NZ"}), "sintesi")["righe"][0][0], "2");
    EXPECT_EQ(in_json({"storia", "--numeri", "1", "--gioco", "superenalotto"})["ambito"]["ruote"],
              "SuperEnalotto");
    EXPECT_EQ(in_json({"storia", "--numeri", "1", "--gioco", "winforlife"})["ambito"]["ruote"],
              "Win for Life");
    // A repeated number counts once.
    EXPECT_EQ(in_json({"storia", "--numeri", "12,12"})["tabelle"],
              in_json({"storia", "--numeri", "12"})["tabelle"]);
    EXPECT_EQ(chiama({"storia", "--numeri", "12", "--formato", "csv"}).uscita,
              "N.;Concorso;Data;Ruote;Numeri;Ritardo\n"
              "1;1;01/01/2000;Bari;12;...\n"
              "2;3;08/01/2000;Bari;12;1\n");
}

TEST(RigaDiComandoStoria, CioCheESbagliatoSiDice) {
    using ::testing::HasSubstr;
    const auto errore = [](std::vector<std::string> riga) {
        const Detto d = chiama(std::move(riga));
        EXPECT_EQ(d.codice, 2);
        EXPECT_EQ(d.uscita, "");
        return d.errori;
    };
    EXPECT_THAT(errore({"storia"}), HasSubstr("--numeri"));
    EXPECT_THAT(errore({"storia", "--numeri", "91"}), HasSubstr("91"));
    EXPECT_THAT(errore({"storia", "--numeri", "21", "--gioco", "winforlife"}), HasSubstr("da 1 a 20"));
    EXPECT_THAT(errore({"storia", "--numeri", "5", "--presenti", "2"}), HasSubstr("--presenti"));
    EXPECT_THAT(errore({"storia", "--numeri", "5", "--posto", "6"}), HasSubstr("da 1 a 5"));
    EXPECT_THAT(errore({"storia", "--numeri", "5", "--posto", "1", "--gioco", "10elotto"}),
                HasSubstr("--posto"));
    EXPECT_THAT(errore({"storia", "--numeri", "5", "--gioco", "tombola"}), HasSubstr("tombola"));
    EXPECT_THAT(errore({"storia", "--numeri", "5", "--grafico", "a.txt"}), HasSubstr(".svg"));
    EXPECT_THAT(errore({"storia", "qualcosa", "--numeri", "5"}), HasSubstr("qualcosa"));
}

TEST(RigaDiComandoStoria, LAiutoDiceLeSueOpzioni) {
    const Detto d = chiama({"storia", "--aiuto"});
    EXPECT_EQ(d.codice, 0);
    for (const char* opzione : {"--numeri", "--presenti", "--posto", "--gioco", "--grafico", "--ruote", "-o"})
        EXPECT_NE(d.uscita.find(opzione), std::string::npos) << opzione;
}

}  // namespace
}  // namespace sortimetra::prove
