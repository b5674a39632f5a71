#include "catalogue/ricerche.h"
#include "chance/parametri.h"
#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "cli/richiesta.h"
#include "lunghette/parametri.h"
#include "positional/parametri.h"
#include "statistics/parametri.h"
#include "stores/importa.h"
#include "tools/parametri.h"

#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

// Every search in every format, and lines that nobody would type: the command is called directly, thousands
// of times.

namespace sortimetra::prove {
namespace {

using nlohmann::json;

struct Uscita {
    int codice = -1;
    std::string uscita;
    std::string errori;
};

Uscita chiama(const std::vector<std::string>& argomenti) {
    std::ostringstream uscita;
    std::ostringstream errori;
    const int codice = esegui_comando(argomenti, uscita, errori);
    return {codice, uscita.str(), errori.str()};
}

/// A folder with the small archive, made once for all tests of this file.
const std::filesystem::path& cartella_piccola() {
    static const CartellaProva cartella;
    static const bool fatta = [] {
        scrivi(cartella.percorso() / "lotto.txt", kLotto);
        scrivi(cartella.percorso() / "superenalotto.csv", kSuperEnalotto);
        scrivi(cartella.percorso() / "winforlife.csv", kWinForLife);
        SenzaAvanzamento nessuno;
        const auto esito = importa_archivio(cartella.percorso() / "archivio",
                                            {.lotto = cartella.percorso() / "lotto.txt",
                                             .superenalotto = cartella.percorso() / "superenalotto.csv",
                                             .winforlife = cartella.percorso() / "winforlife.csv",
                                             .tutto = true},
                                            nessuno);
        if (!esito) throw std::logic_error(esito.error().testo());
        return true;
    }();
    static_cast<void>(fatta);
    return cartella.percorso();
}

/// Reads CSV back: the plain inverse of what RFC 4180 says of quotes.
std::vector<std::vector<std::string>> leggi_csv(const std::string& testo) {
    std::vector<std::vector<std::string>> righe;
    std::vector<std::string> riga{""};
    bool dentro = false;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i];
        if (dentro) {
            if (c == '"' && i + 1 < testo.size() && testo[i + 1] == '"')
                riga.back() += testo[++i];
            else if (c == '"')
                dentro = false;
            else
                riga.back() += c;
        } else if (c == '"') {
            dentro = true;
        } else if (c == ';') {
            riga.emplace_back();
        } else if (c == '\n') {
            righe.push_back(riga);
            riga = {""};
        } else {
            riga.back() += c;
        }
    }
    return righe;
}

TEST(OgniRicerca, DaLeStesseCelleInOgniFormato) {
    for (const Ricerca& r : ricerche()) {
        if (!r.pronta()) continue;
        SCOPED_TRACE(r.chiave());
        std::vector<std::string> riga{"ricerca", std::string{r.chiave()}, "--cartella",
                                      cartella_piccola().string()};
        if (r.ammette(kOpzCapogioco)) riga.insert(riga.end(), {"--capogioco", "12"});
        if (r.ammette(kOpzAmboCapo)) riga.insert(riga.end(), {"--capogioco", "12,13"});
        if (r.ammette(kOpzNumeriSpia)) riga.insert(riga.end(), {"--numeri", "tutti"});
        if (r.ammette(kOpzNumeri)) riga.insert(riga.end(), {"--numeri", "1,2,12,13"});
        if (r.ammette(kOpzNumeriStoria)) riga.insert(riga.end(), {"--numeri", "1,12"});
        if (r.ammette(kOpzMeta)) riga.insert(riga.end(), {"--meta", "primi"});
        const auto con = [&](const char* formato) {
            auto argomenti = riga;
            argomenti.insert(argomenti.end(), {"--formato", formato});
            return chiama(argomenti);
        };
        const Uscita in_json = con("json");
        ASSERT_TRUE(json::accept(in_json.uscita)) << in_json.errori;
        const json j = json::parse(in_json.uscita);
        EXPECT_EQ(j["chiave"], r.chiave());
        // A board's title names its draw.
        if (r.ammette(kOpzConcorso))
            EXPECT_NE(j["titolo"].get<std::string>().find('/'), std::string::npos);
        else
            EXPECT_EQ(j["titolo"], r.titolo());
        EXPECT_TRUE(in_json.codice == 0 || (in_json.codice == 1 && !in_json.errori.empty()))
            << in_json.errori;
        for (const json& t : j["tabelle"]) {
            const std::size_t colonne = t["titoli"].empty() ? 0 : t["titoli"][0].size();
            for (const json& titoli : t["titoli"]) EXPECT_EQ(titoli.size(), colonne);
            for (const json& celle : t["righe"]) EXPECT_EQ(celle.size(), colonne);
            if (t.contains("sfondi")) {
                EXPECT_EQ(t["sfondi"].size(), t["righe"].size());
                for (const json& colori : t["sfondi"]) EXPECT_EQ(colori.size(), colonne);
            }
        }
        const Uscita in_csv = con("csv");
        EXPECT_EQ(in_csv.codice, in_json.codice);
        json attese = json::array();
        if (!j["tabelle"].empty()) {
            attese = j["tabelle"][0]["titoli"];
            for (const json& celle : j["tabelle"][0]["righe"]) attese.push_back(celle);
        }
        EXPECT_EQ(json(leggi_csv(in_csv.uscita)), attese);
        const Uscita in_tabella = con("tabella");
        EXPECT_EQ(in_tabella.codice, in_json.codice);
        EXPECT_EQ(in_tabella.uscita.empty(), j["tabelle"].empty());
    }
}

TEST(Caos, NessunaRigaFaCadereIlProgramma) {
    std::vector<std::string> parole{"ricerca",
                                    "elenco",
                                    "archivio",
                                    "gruppi",
                                    "sistemi",
                                    "--",
                                    "-",
                                    "",
                                    "=",
                                    "-o",
                                    "--=",
                                    "--ruote=",
                                    "BA",
                                    "BA,NZ",
                                    "TUTTE",
                                    "nessuna",
                                    ",",
                                    "0",
                                    "-1",
                                    "12",
                                    "12,13",
                                    "1,2,3,4,5,6,7",
                                    "99999999999999999999",
                                    "json",
                                    "csv",
                                    "tabella",
                                    "ambo",
                                    "tutti",
                                    "2:asc",
                                    "2:",
                                    ":",
                                    "Anni Pari",
                                    "8:00",
                                    "\xFF\xFE",
                                    std::string(5000, 'x'),
                                    "--aiuto",
                                    "--versione"};
    for (const VoceOpzione& o : opzioni())
        // What writes files stays out: the others must leave no trace.
        if (o.nome != "-o" && o.nome != "--cartella") parole.emplace_back(o.nome);
    for (const Ricerca& r : ricerche()) parole.emplace_back(r.chiave());
    std::erase(parole, "-o");
    for (unsigned seme = 0; seme < 4000; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        const auto una = [&]() -> const std::string& {
            return parole[std::uniform_int_distribution<std::size_t>{0, parole.size() - 1}(caso)];
        };
        std::vector<std::string> riga;
        if (seme % 4 != 0) riga = {"ricerca", std::string{ricerche()[seme % ricerche().size()].chiave()}};
        for (int n = std::uniform_int_distribution<int>{0, 5}(caso); n > 0; --n) riga.push_back(una());
        riga.push_back("--cartella=" + cartella_piccola().string());
        const Uscita r = chiama(riga);
        EXPECT_GE(r.codice, 0);
        EXPECT_LE(r.codice, 3);
        if (r.codice >= 2) {
            EXPECT_EQ(r.uscita, "");
        }
        EXPECT_EQ(r.codice != 0 && r.errori.empty(), false) << "a failure says why";
    }
    std::vector<std::string> rimasti;
    for (const auto& voce : std::filesystem::directory_iterator{cartella_piccola()})
        rimasti.push_back(voce.path().filename().string());
    EXPECT_THAT(rimasti, ::testing::UnorderedElementsAre("archivio", "lotto.txt", "superenalotto.csv",
                                                         "winforlife.csv"));
}

}  // namespace
}  // namespace sortimetra::prove
