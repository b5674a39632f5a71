#include "catalogue/ricerche.h"
#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "results/scrittori.h"
#include "stores/negozio_nativo.h"

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <sstream>

namespace sortimetra::prove {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using ArchivioCli = ProgrammaTest;

constexpr std::string_view kRiassunto =
    "Tabella    Gioco             Righe  Dal concorso  del         Al concorso  del         File\n"
    "---------  ----------------  -----  ------------  ----------  -----------  ----------  "
    "---------------------\n"
    "archivio   Lotto                 6             1  01/01/2000            3  08/01/2000  "
    "./archivio/drawit.db\n"
    "archivion  Lotto, Nazionale      2             2  04/01/2000            3  08/01/2000  "
    "./archivio/drawit.db\n"
    "archivios  SuperEnalotto         2             1  01/01/2000            3  09/01/2000  "
    "./archivio/drawit.db\n"
    "archivio   Win for Life          2             1  01/01/2000            2  01/01/2000  "
    "./archivio/drawit2.db\n"
    "\nCon 2 avvisi: \"sortimetra-cli archivio --esame\" li elenca.\n";

TEST_F(ArchivioCli, ImportaDiceCheCosaHaLetto) {
    scrivi(casa() / "lotto.txt", kLotto);
    scrivi(casa() / "superenalotto.csv", kSuperEnalotto);
    scrivi(casa() / "winforlife.csv", kWinForLife);
    const Esito p = esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt",
                            "--superenalotto", "superenalotto.csv", "--winforlife", "winforlife.csv"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.uscita, kRiassunto);
    EXPECT_EQ(p.errori,
              "SuperEnalotto del 01/03/2000: nessun concorso libero entro cinque giorni, estrazione "
              "tralasciata\n");
}

TEST_F(ArchivioCli, Riassunto) {
    importa();
    const Esito p = esegui({"archivio", "--cartella", "."});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.uscita, kRiassunto);
    EXPECT_EQ(p.errori, "");
}

TEST_F(ArchivioCli, ConLaCopiaESenzaLeStesseRisposte) {
    importa();
    const std::vector<std::string> domanda{"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", "."};
    auto senza = domanda;
    senza.emplace_back("--senza-copia");
    const auto copia = casa() / "archivio" / ".drawit.db.cache";
    std::filesystem::remove(copia);
    const Esito dal_negozio = esegui(senza);
    EXPECT_EQ(dal_negozio.codice, 0) << dal_negozio.errori;
    EXPECT_FALSE(std::filesystem::exists(copia));
    // A store that was written a moment ago gets no copy yet.
    Esito prima;
    for (int volta = 0; volta < 500 && !std::filesystem::exists(copia); ++volta) prima = esegui(domanda);
    ASSERT_TRUE(std::filesystem::exists(copia));
    const Esito seconda = esegui(domanda);
    EXPECT_EQ(prima.uscita, dal_negozio.uscita);
    EXPECT_EQ(seconda.uscita, dal_negozio.uscita);
    EXPECT_EQ(seconda.errori, dal_negozio.errori);
    // Nothing that stands in it is an error.
    scrivi(copia, "rotta");
    const Esito rifatta = esegui(domanda);
    EXPECT_EQ(rifatta.uscita, dal_negozio.uscita);
    EXPECT_EQ(rifatta.errori, dal_negozio.errori);
    EXPECT_GT(leggi(copia).size(), 5U);
    // Where there is no archive to be opened the option has no meaning.
    EXPECT_EQ(esegui({"elenco", "--senza-copia"}).codice, 2);
}

TEST_F(ArchivioCli, RiassuntoJson) {
    importa();
    const Esito p = esegui({"--cartella", ".", "archivio", "--json"});
    EXPECT_EQ(p.codice, 0);
    const auto j = nlohmann::json::parse(p.uscita);
    EXPECT_EQ(j["simulato"], false);
    ASSERT_EQ(j["tabelle"].size(), 4);
    EXPECT_EQ(j["tabelle"][0], nlohmann::json::parse(R"({"tabella": "archivio", "gioco": "Lotto", "righe": 6,
        "primo": {"concorso": 1, "data": "01/01/2000"}, "ultimo": {"concorso": 3, "data": "08/01/2000"},
        "file": "./archivio/drawit.db", "simulato": false})"));
}

TEST_F(ArchivioCli, EsameElencaGliAvvisi) {
    importa();
    const Esito p = esegui({"archivio", "--esame", "--cartella", "."});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(p.uscita,
              "Tabella    Gioco          Concorso  Avviso\n"
              "---------  -------------  --------  ----------------------------------\n"
              "archivio   Lotto                 3  ruota RM: senza numero: 5°estratto\n"
              "archivios  SuperEnalotto         2  il concorso manca\n");
    const auto j = nlohmann::json::parse(esegui({"archivio", "--esame", "--json", "--cartella", "."}).uscita);
    EXPECT_EQ(j["quanti"], 2);
    EXPECT_EQ(j["avvisi"][1], nlohmann::json::parse(R"({"tabella": "archivios", "gioco": "SuperEnalotto",
        "file": "./archivio/drawit.db", "concorso": 2, "fino": 2, "testo": "il concorso manca"})"));
    EXPECT_EQ(nlohmann::json::parse(esegui({"archivio", "--json", "--cartella", "."}).uscita)["avvisi"], 2);
}

TEST_F(ArchivioCli, EsameElencaIDanni) {
    RigheArchivio righe;
    for (int c = 1; c <= 3; ++c)
        righe.lotto.push_back({.concorso = c,
                               .data = Data{std::chrono::days{10'000 + c / 2}},
                               .ruota = 0,
                               .numeri = {1, 2, 3, 4, static_cast<Numero>(c)}});
    std::filesystem::create_directory(casa() / "archivio");
    ASSERT_TRUE(scrivi_drawit(casa() / "archivio/drawit.db", righe, false));
    const std::string primo =
        "sortimetra-cli: ./archivio/drawit.db: tabella archivio, concorso 1, ruota BA: il numero 1 sta due "
        "volte nella "
        "riga, in 1°estratto e in 5°estratto\n";
    for (const std::vector<std::string>& argomenti :
         {std::vector<std::string>{"archivio", "--cartella", "."},
          {"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", "."}}) {
        const Esito p = esegui(argomenti);
        EXPECT_EQ(p.codice, 3);
        EXPECT_EQ(p.uscita, "");
        EXPECT_EQ(p.errori, primo);
    }
    for (const bool json : {false, true}) {
        std::vector<std::string> argomenti{"archivio", "--esame", "--cartella", "."};
        if (json) argomenti.emplace_back("--json");
        const Esito p = esegui(argomenti);
        EXPECT_EQ(p.codice, 3);
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, StartsWith(primo));
        EXPECT_EQ(std::count(p.errori.begin(), p.errori.end(), '\n'), 4) << p.errori;
        EXPECT_THAT(p.errori, HasSubstr("concorso 3: la data 20/05/1997 non viene dopo"));
    }
}

TEST_F(ArchivioCli, UnEstrazioneDiDomaniSiDice) {
    RigheArchivio righe;
    righe.lotto.push_back(
        {.concorso = 1, .data = oggi() + std::chrono::days{400}, .ruota = 0, .numeri = {1, 2, 3, 4, 5}});
    std::filesystem::create_directory(casa() / "archivio");
    ASSERT_TRUE(scrivi_drawit(casa() / "archivio/drawit.db", righe, false));
    const Esito p = esegui({"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", "."});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.errori, AllOf(StartsWith("sortimetra-cli: avviso: tabella archivio, concorso 1: la data "),
                                HasSubstr("viene dopo oggi")));
    ASSERT_TRUE(scrivi_drawit(casa() / "archivio/drawit.db", righe, true));
    EXPECT_THAT(esegui({"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", "."}).errori,
                Not(HasSubstr("oggi")))
        << "a simulated archive has no today";
}

TEST_F(ArchivioCli, UnGiocoSoltanto) {
    scrivi(casa() / "winforlife.csv", kWinForLife);
    const Esito p = esegui({"importa", "--cartella", "nuova", "--winforlife", "winforlife.csv"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_FALSE(std::filesystem::exists(casa() / "nuova/archivio/drawit.db"));
    const auto j = nlohmann::json::parse(esegui({"archivio", "--cartella", "nuova", "--json"}).uscita);
    EXPECT_EQ(j["tabelle"][0]["righe"], 0);
    EXPECT_EQ(j["tabelle"][0]["primo"], nullptr);
    EXPECT_EQ(j["tabelle"][3]["righe"], 2);
}

TEST_F(ArchivioCli, UnaRigaSbagliataLasciaTuttoComEra) {
    importa();
    const std::string drawit = leggi(casa() / "archivio/drawit.db");
    const std::string drawit2 = leggi(casa() / "archivio/drawit2.db");
    scrivi(casa() / "rotto.csv", std::string{kWinForLife} + "503;2000-01-01;10:00;1;2;3;4;5;6;7;8;9;21;3\n");
    const Esito p = esegui(
        {"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt", "--winforlife", "rotto.csv"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(
        p.errori,
        "sortimetra-cli: rotto.csv: riga 4: trovato \"21\", atteso un numero da 1 a 20, oppure vuoto o 0\n"
        "sortimetra-cli: l'archivio è rimasto com'era.\n");
    EXPECT_EQ(leggi(casa() / "archivio/drawit.db"), drawit);
    EXPECT_EQ(leggi(casa() / "archivio/drawit2.db"), drawit2);
}

TEST_F(ArchivioCli, FileCheNonCE) {
    const Esito p = esegui({"importa", "--cartella", ".", "--lotto", "manca.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_THAT(p.errori, StartsWith("sortimetra-cli: manca.txt: "));
    EXPECT_TRUE(std::filesystem::is_empty(casa()));
}

TEST_F(ArchivioCli, UnaRigaDoppiaNonEntra) {
    scrivi(casa() / "lotto.txt", std::string{kLotto} + "2000/01/04\tBA\t1\t2\t3\t4\t5\n");
    const Esito p = esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori, StartsWith("sortimetra-cli: lotto.txt: "));
    EXPECT_FALSE(std::filesystem::exists(casa() / "archivio"));
}

TEST_F(ArchivioCli, IlSuperEnalottoDaSoloPrendeIConcorsiDelLottoCheCE) {
    scrivi(casa() / "superenalotto.csv", kSuperEnalotto);
    const std::vector<std::string> solo{"importa", "--cartella", ".", "--superenalotto", "superenalotto.csv"};
    const Esito prima = esegui(solo);
    EXPECT_EQ(prima.codice, 1);
    EXPECT_THAT(prima.errori, HasSubstr("importare anche il file del Lotto"));
    EXPECT_FALSE(std::filesystem::exists(casa() / "archivio"));

    scrivi(casa() / "lotto.txt", kLotto);
    ASSERT_EQ(esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt"}).codice, 0);
    EXPECT_EQ(esegui(solo).codice, 0);
    const auto j = nlohmann::json::parse(esegui({"archivio", "--cartella", ".", "--json"}).uscita);
    EXPECT_EQ(j["tabelle"][0]["righe"], 6);
    EXPECT_EQ(j["tabelle"][1]["righe"], 2);
    EXPECT_EQ(j["tabelle"][2]["righe"], 2);
    EXPECT_EQ(j["tabelle"][2]["ultimo"]["concorso"], 3);
}

TEST_F(ArchivioCli, IlLottoDaSoloTieneIlSuperEnalottoERinumeraLeSueEstrazioni) {
    importa();
    // A draw a year earlier moves all concorsi by one.
    scrivi(casa() / "lotto.txt", "1999/01/01\tBA\t1\t2\t3\t4\t5\n" + std::string{kLotto});
    const Esito p = esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    const auto j = nlohmann::json::parse(esegui({"archivio", "--cartella", ".", "--json"}).uscita);
    EXPECT_EQ(j["tabelle"][0]["ultimo"]["concorso"], 4);
    EXPECT_EQ(j["tabelle"][2]["righe"], 2);
    EXPECT_EQ(j["tabelle"][2]["primo"], nlohmann::json::parse(R"({"concorso": 2, "data": "01/01/2000"})"));
    EXPECT_EQ(j["tabelle"][3]["righe"], 2) << "Win for Life is another file";
}

TEST_F(ArchivioCli, LaNumerazioneSiContaDal3Dicembre1997) {
    scrivi(casa() / "lotto.txt", kLotto);
    const Esito p = esegui({"importa", "--cartella", ".", "--lotto", "lotto.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_THAT(p.errori, HasSubstr("manca l'estrazione del 03/12/1997"));
}

TEST_F(ArchivioCli, UnaCartellaCheNonSiPuoFare) {
    scrivi(casa() / "winforlife.csv", kWinForLife);
    const Esito p = esegui({"importa", "--cartella", "winforlife.csv", "--winforlife", "winforlife.csv"});
    EXPECT_NE(p.codice, 0);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori, HasSubstr("winforlife.csv/archivio"));
    EXPECT_EQ(leggi(casa() / "winforlife.csv"), kWinForLife);
}

// ---- the demonstration archive ----

TEST_F(ArchivioCli, Dimostrazione) {
    const Esito p = esegui({"dimostrazione", "--cartella", "."});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(p.uscita,
              "Creato in ./archivio un archivio dimostrativo simulato: le estrazioni non sono vere.\n");

    // It says so wherever it is shown, and never on the output that a script reads.
    const Esito ricerca =
        esegui({"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", ".", "--formato", "json"});
    EXPECT_EQ(ricerca.codice, 0);
    EXPECT_EQ(ricerca.errori,
              "sortimetra-cli: archivio dimostrativo simulato: le estrazioni non sono vere.\n");
    EXPECT_TRUE(nlohmann::json::accept(ricerca.uscita));
    const Esito archivio = esegui({"archivio", "--cartella", "."});
    EXPECT_THAT(archivio.uscita, AllOf(HasSubstr("archivio dimostrativo simulato"), HasSubstr("(simulato)"),
                                       HasSubstr("46.550"), HasSubstr("22/12/1990")));
    EXPECT_EQ(nlohmann::json::parse(esegui({"archivio", "--cartella", ".", "--json"}).uscita)["simulato"],
              true);

    // A second time it leaves things alone.
    const Esito ancora = esegui({"dimostrazione", "--cartella", "."});
    EXPECT_EQ(ancora.codice, 1);
    EXPECT_EQ(ancora.uscita, "");
    EXPECT_EQ(ancora.errori, "sortimetra-cli: ./archivio contiene già un archivio, che resta com'è.\n");
}

TEST_F(ArchivioCli, EstrazioniVereESimulateNonSiMescolano) {
    ASSERT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 0);
    scrivi(casa() / "lotto.txt", kLotto);
    ASSERT_EQ(esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt"}).codice, 0);
    const auto j = nlohmann::json::parse(esegui({"archivio", "--cartella", ".", "--json"}).uscita);
    EXPECT_EQ(j["tabelle"][0]["simulato"], false);
    EXPECT_EQ(j["tabelle"][2]["righe"], 0) << "no simulated SuperEnalotto beside real Lotto";
    EXPECT_EQ(j["tabelle"][3]["righe"], 0) << "nor simulated Win for Life";
    EXPECT_EQ(j["simulato"], false);
    EXPECT_EQ(esegui({"ricerca", "ritardo e frequenza dei 90 numeri", "--cartella", "."}).errori, "");
}

TEST_F(ArchivioCli, UnaDimostrazioneAMetaSiCompleta) {
    ASSERT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 0);
    for (const char* manca : {"archivio/drawit2.db", "archivio/drawit.db", "n90ridd.rid"}) {
        std::filesystem::remove(casa() / manca);
        const Esito p = esegui({"dimostrazione", "--cartella", "."});
        EXPECT_EQ(p.codice, 0) << p.errori;
        EXPECT_EQ(
            p.uscita,
            "Completato in ./archivio un archivio dimostrativo simulato: le estrazioni non sono vere.\n");
        EXPECT_TRUE(std::filesystem::exists(casa() / manca));
    }
    EXPECT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 1);
}

// ---- what an import would lose ----

TEST_F(ArchivioCli, UnFilePiuCortoNonEntraDaSolo) {
    importa();
    const std::string drawit = leggi(casa() / "archivio/drawit.db");
    scrivi(casa() / "corto.txt", kLotto.substr(0, kLotto.find("2000/01/08")));
    const std::vector<std::string> solo{"importa", "--cartella", ".", "--tutto", "--lotto", "corto.txt"};
    const Esito p = esegui(solo);
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(p.errori,
              "sortimetra-cli: ./archivio/drawit.db: estrazioni che ci sono andrebbero perse: Lotto: 2 righe "
              "in meno (la prima: concorso 3 del 08/01/2000, BA); Lotto, Nazionale: 1 riga in meno (concorso "
              "3 del 08/01/2000); con --sostituisci si importa lo stesso\n"
              "sortimetra-cli: l'archivio è rimasto com'era.\n");
    EXPECT_EQ(leggi(casa() / "archivio/drawit.db"), drawit);
    auto lo_stesso = solo;
    lo_stesso.emplace_back("--sostituisci");
    EXPECT_EQ(esegui(lo_stesso).codice, 0);
    EXPECT_EQ(leggi(casa() / "archivio/drawit.db.prec"), drawit);
    const Esito indietro = esegui({"importa", "--annulla", "--cartella", "."});
    EXPECT_EQ(indietro.codice, 0) << indietro.errori;
    EXPECT_EQ(indietro.uscita, kRiassunto);
    EXPECT_EQ(leggi(casa() / "archivio/drawit.db"), drawit);
}

TEST_F(ArchivioCli, AnnullaToglieCioCheNonCEra) {
    const Esito niente = esegui({"importa", "--annulla", "--cartella", "."});
    EXPECT_EQ(niente.codice, 1);
    EXPECT_THAT(niente.errori, HasSubstr("non c'è un'importazione da annullare"));
    EXPECT_FALSE(std::filesystem::exists(casa() / "archivio"));
    importa();
    const Esito p = esegui({"importa", "--annulla", "--cartella", "."});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_EQ(
        p.uscita,
        "Prima dell'ultima importazione in ./archivio non c'era un archivio: è stato tolto, e tenuto da "
        "parte.\n");
    EXPECT_EQ(esegui({"archivio", "--cartella", "."}).codice, 3);
    EXPECT_EQ(esegui({"importa", "--annulla", "--cartella", "."}).uscita, kRiassunto);
    EXPECT_EQ(esegui({"importa", "--annulla", "--cartella", ".", "--lotto", "lotto.txt"}).codice, 2);
    EXPECT_EQ(esegui({"importa", "--sostituisci", "--cartella", "."}).codice, 2);
}

TEST_F(ArchivioCli, UnMdbPiuRecenteSiDice) {
    importa();
    // Not a Jet file at all: what counts is its name and its date.
    scrivi(casa() / "archivio/drawit2.mdb", "x");
    const auto mdb = casa() / "archivio/drawit2.mdb";
    std::filesystem::last_write_time(mdb, std::filesystem::last_write_time(mdb) + std::chrono::hours{48});
    const Esito p = esegui({"importa", "--cartella", ".", "--sostituisci", "--winforlife", "winforlife.csv"});
    EXPECT_THAT(p.errori, HasSubstr("drawit2.mdb porta una data più recente di drawit2.db"));
    EXPECT_THAT(p.errori, HasSubstr("togliere drawit2.mdb"));
}

// ---- elenco ----

TEST_F(ArchivioCli, ElencoDiceCheCosaSiPuoFareQui) {
    const auto voci = nlohmann::json::parse(esegui({"elenco", "--cartella", ".", "--json"}).uscita);
    EXPECT_EQ(voci[0], nlohmann::json::parse(R"({"scheda": "Ricerche Lotto", "gruppo": "Ambata",
        "ricerca": "Ritardo e frequenza dei 90 numeri", "chiave": "ritardo e frequenza dei 90 numeri",
        "eseguibile": false, "motivo": "manca l'archivio"})"));
    importa();
    std::set<std::string> chiavi;
    for (const auto& v : nlohmann::json::parse(esegui({"elenco", "--cartella", ".", "--json"}).uscita)) {
        chiavi.insert(v["chiave"]);
        const Ricerca* r = trova_ricerca(v["ricerca"].get<std::string>());
        const Ricerca* per_chiave = trova_ricerca(v["chiave"].get<std::string>());
        ASSERT_NE(per_chiave, nullptr) << v;
        if (r != nullptr) {
            EXPECT_EQ(r, per_chiave) << v;
        }
        EXPECT_EQ(v["eseguibile"], per_chiave->pronta()) << v;
    }
    EXPECT_EQ(chiavi.size(), ricerche().size()) << "every search is listed";
}

TEST_F(ArchivioCli, ElencoGuardaIlFileDiOgniRicerca) {
    scrivi(casa() / "winforlife.csv", kWinForLife);
    ASSERT_EQ(esegui({"importa", "--cartella", ".", "--winforlife", "winforlife.csv"}).codice, 0);
    for (const auto& v : nlohmann::json::parse(esegui({"elenco", "--cartella", ".", "--json"}).uscita)) {
        if (v["chiave"] == "ritardo e frequenza dei 20 numeri nella combinazione win for life") {
            EXPECT_EQ(v["eseguibile"], true);
        }
        if (v["chiave"] == "ritardo e frequenza dei 90 numeri") {
            EXPECT_EQ(v["motivo"], "manca l'archivio");
        }
    }
}

TEST_F(ArchivioCli, ElencoDaLeggere) {
    const Esito p = esegui({"elenco"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_THAT(p.uscita, AllOf(StartsWith("Ricerche Lotto\n  ritardo e frequenza dei 90 numeri "),
                                HasSubstr("\n  i 10 numeri più in ritardo su ogni ruota "),
                                HasSubstr("\n\nRicerche WinForLife\n"), Not(HasSubstr("  \n"))));
    // One row a search, whatever number of lists has it.
    std::size_t volte = 0;
    for (auto i = p.uscita.find("\n  decine  "); i != std::string::npos;
         i = p.uscita.find("\n  decine  ", i + 1))
        ++volte;
    EXPECT_EQ(volte, 1U) << p.uscita;
}

TEST_F(ArchivioCli, ElencoConParole) {
    const Esito p = esegui({"elenco", "Più", "RITARDO", "ruota"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.uscita, HasSubstr("i 10 numeri più in ritardo su ogni ruota"));
    EXPECT_THAT(p.uscita, Not(HasSubstr("terzine")));
    const Esito json = esegui({"elenco", "segnalimite", "--json"});
    const auto lista = nlohmann::json::parse(json.uscita);
    ASSERT_EQ(lista.size(), 1U);
    EXPECT_EQ(lista[0]["chiave"], "tabella dei segnalimite cabalistici");
    const Esito nessuna = esegui({"elenco", "qwertyuiop"});
    EXPECT_EQ(nessuna.codice, 1);
    EXPECT_EQ(nessuna.uscita, "");
    EXPECT_THAT(nessuna.errori, HasSubstr("nessuna ricerca ha queste parole"));
}

TEST(ElencoCli, StaNellaLarghezzaDelTerminale) {
    const CartellaProva cartella;
    for (const std::size_t larghezza : {std::size_t{40}, std::size_t{80}, std::size_t{120}}) {
        std::ostringstream uscita;
        std::ostringstream errori;
        EXPECT_EQ(esegui_comando({"elenco", "--cartella", cartella.percorso().string()}, uscita, errori,
                                 {.errori = false, .larghezza = larghezza}),
                  0);
        std::istringstream righe{uscita.str()};
        for (std::string riga; std::getline(righe, riga);)
            EXPECT_LE(larghezza_terminale(riga), larghezza) << riga;
    }
}

}  // namespace
}  // namespace sortimetra::prove
