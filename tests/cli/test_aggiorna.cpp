#include "cli/cartella_cli.h"
#include "text/data.h"

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>

namespace sortimetra::prove {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The archive of the three draws, and updates of it.
class AggiornaCli : public ProgrammaTest {
  protected:
    Esito aggiorna(std::vector<std::string> argomenti) const {
        argomenti.insert(argomenti.begin(), {"aggiorna", "--cartella", "."});
        return esegui(argomenti);
    }
    /// The last draw of a table of the archive.
    nlohmann::json ultimo(int tabella) const {
        const auto j = nlohmann::json::parse(esegui({"archivio", "--cartella", ".", "--json"}).uscita);
        return j["tabelle"][static_cast<std::size_t>(tabella)]["ultimo"];
    }
};

constexpr std::string_view kNuova =
    "2000/01/12\tBA\t1\t2\t3\t4\t5\n"
    "2000/01/12\tCA\t6\t7\t8\t9\t10\n";

TEST_F(AggiornaCli, UnaEstrazioneNuova) {
    importa();
    scrivi(casa() / "nuova.txt", kNuova);
    const std::string detto =
        "nuova.txt: Lotto, 1 estrazione del 12/01/2000\n"
        "Lotto: 1 estrazione nuova: 4 del 12/01/2000\n"
        "Lotto del 12/01/2000: mancano le ruote FI GE MI NA PA RM TO VE\n";
    const Esito prova = aggiorna({"nuova.txt", "--prova"});
    EXPECT_EQ(prova.codice, 0);
    EXPECT_EQ(prova.uscita, detto + "Una prova: l'archivio è rimasto com'era.\n");
    EXPECT_EQ(prova.errori, "");
    EXPECT_EQ(ultimo(0)["concorso"], 3);
    const Esito p = aggiorna({"nuova.txt"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.uscita, detto + "L'archivio è aggiornato.\n");
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(ultimo(0), nlohmann::json::parse(R"({"concorso": 4, "data": "12/01/2000"})"));
    const Esito ancora = aggiorna({"nuova.txt"});
    EXPECT_EQ(ancora.codice, 0);
    EXPECT_EQ(ancora.uscita,
              "nuova.txt: Lotto, 1 estrazione del 12/01/2000\n"
              "Lotto: 1 estrazione uguale a quella dell'archivio\n"
              "niente di nuovo\n");
    EXPECT_EQ(ancora.errori, "");
}

TEST_F(AggiornaCli, PiuFileEIngresso) {
    importa();
    scrivi(casa() / "nuova.txt", kNuova);
    scrivi(casa() / "super.csv", "2000-01-12;1;2;3;4;5;6;7;8\n");
    scrivi(casa() / "ingresso", "503;2000-01-01;10:00;1;2;3;4;5;6;7;8;9;10;3\n");
    const Esito p =
        esegui_programma("sortimetra-cli", {"aggiorna", "nuova.txt", "--cartella", ".", "-", "super.csv"},
                         {.cartella = casa(), .ingresso_da = casa() / "ingresso"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_THAT(p.uscita, HasSubstr("-: Win for Life, 1 estrazione del 01/01/2000\n"));
    EXPECT_THAT(p.uscita, HasSubstr("Win for Life: 1 estrazione nuova: 3 del 01/01/2000 10:00\n"));
    EXPECT_EQ(ultimo(2), nlohmann::json::parse(R"({"concorso": 4, "data": "12/01/2000"})"));
    EXPECT_EQ(ultimo(3)["concorso"], 3);
}

TEST_F(AggiornaCli, UnaDiversa) {
    importa();
    scrivi(casa() / "diversa.txt", "2000/01/08\tBA\t12\t13\t14\t15\t17\n");
    const Esito p = aggiorna({"diversa.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_THAT(p.uscita, HasSubstr("Lotto: 3 del 08/01/2000 BA nell'archivio è 12.13.14.15.16, arriva "
                                    "12.13.14.15.17: resta quella dell'archivio\n"));
    EXPECT_EQ(p.errori,
              "sortimetra-cli: l'archivio è rimasto com'era.\n"
              "sortimetra-cli: --sostituisci cambia le estrazioni diverse e mette al loro posto quelle che "
              "mancano.\n");
    // With something new beside it the new goes in, and the rest is told.
    scrivi(casa() / "nuova.txt", kNuova);
    const Esito misto = aggiorna({"diversa.txt", "nuova.txt"});
    EXPECT_EQ(misto.codice, 0);
    EXPECT_THAT(misto.uscita, HasSubstr("L'archivio è aggiornato.\n"));
    EXPECT_THAT(misto.errori, StartsWith("sortimetra-cli: --sostituisci cambia"));
    const Esito cambia = aggiorna({"diversa.txt", "--sostituisci"});
    EXPECT_EQ(cambia.codice, 0) << cambia.errori;
    EXPECT_EQ(cambia.errori, "");
    EXPECT_THAT(aggiorna({"diversa.txt"}).uscita, HasSubstr("niente di nuovo\n"));
}

TEST_F(AggiornaCli, QuelloCheNonSiLegge) {
    importa();
    scrivi(casa() / "rotto.txt", std::string{kNuova} + "2000/01/12\tCA\t1\n");
    const std::string prima = leggi(casa() / "archivio/drawit.db");
    const Esito p = aggiorna({"rotto.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(
        p.errori,
        "sortimetra-cli: rotto.txt: riga 3: trovato \"fine della riga\", atteso un numero da 1 a 90, oppure "
        "vuoto o 0\n"
        "sortimetra-cli: l'archivio è rimasto com'era.\n");
    EXPECT_EQ(leggi(casa() / "archivio/drawit.db"), prima);
    EXPECT_EQ(aggiorna({"manca.txt"}).codice, 1);
}

TEST_F(AggiornaCli, LArchivio) {
    scrivi(casa() / "nuova.txt", kNuova);
    const Esito senza = aggiorna({"nuova.txt"});
    EXPECT_EQ(senza.codice, 1);
    EXPECT_THAT(senza.errori, HasSubstr("serve la storia intera del Lotto"));
    importa();
    scrivi(casa() / "archivio/drawit.db", "non è un archivio");
    const Esito rotto = aggiorna({"nuova.txt"});
    EXPECT_EQ(rotto.codice, 3);
    EXPECT_EQ(rotto.uscita, "");
    EXPECT_THAT(rotto.errori, HasSubstr("drawit.db: "));
}

TEST_F(AggiornaCli, LArchivioDimostrativo) {
    ASSERT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 0);
    scrivi(casa() / "nuova.txt", "2026/08/22\tBA\t1\t2\t3\t4\t5\n");
    const Esito p = aggiorna({"nuova.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_THAT(p.errori, HasSubstr("l'archivio che c'è è quello dimostrativo"));
    EXPECT_THAT(p.errori, HasSubstr("Serve la storia intera del Lotto"));
    // The draw of 3 December 1997 has concorso 402: so many must stand up to it.
    std::string storia;
    for (int i = 401; i >= 0; --i) {
        std::string data = testo_data_iso(leggi_data_iso("1997-12-03").value() - std::chrono::days{i});
        std::replace(data.begin(), data.end(), '-', '/');
        storia += data + "\tBA\t1\t2\t3\t4\t5\n";
    }
    scrivi(casa() / "storia.txt", storia);
    const Esito intera = aggiorna({"storia.txt"});
    EXPECT_EQ(intera.codice, 0) << intera.errori;
    EXPECT_THAT(intera.uscita, HasSubstr("L'archivio dimostrativo lascia il posto alle estrazioni vere.\n"));
    EXPECT_EQ(ultimo(0)["concorso"], 402);
}

TEST_F(AggiornaCli, UsoErrato) {
    const Esito niente = aggiorna({});
    EXPECT_EQ(niente.codice, 2);
    EXPECT_THAT(niente.errori, HasSubstr("aggiorna: serve almeno un FILE (- è l'ingresso) o --indirizzo"));
    const Esito due = aggiorna({"-", "-"});
    EXPECT_EQ(due.codice, 2);
    const Esito chiaro = aggiorna({"--indirizzo", "http://uno.invalid/lotto.txt"});
    EXPECT_EQ(chiaro.codice, 2);
    EXPECT_EQ(chiaro.uscita, "");
    EXPECT_THAT(chiaro.errori, HasSubstr("--indirizzo: trovato \"http://uno.invalid/lotto.txt\", atteso un "
                                         "indirizzo che comincia con https://"));
    EXPECT_EQ(aggiorna({"--indirizzo"}).codice, 2);
}

TEST_F(AggiornaCli, UnIndirizzoCheNonRisponde) {
    importa();
    // Nobody listens on that port, and no name has to be looked up.
    const Esito p = aggiorna({"--indirizzo", "https://127.0.0.1:1/lotto.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(p.errori,
              "sortimetra-cli: https://127.0.0.1:1/lotto.txt: il server non risponde\n"
              "sortimetra-cli: l'archivio è rimasto com'era.\n");
    // An address of the settings is used when nothing else is said.
    std::filesystem::create_directories(casa() / ".config/sortimetra");
    scrivi(casa() / ".config/sortimetra/impostazioni.ini", "[Indirizzi]\r\n1=https://127.0.0.1:1/due\r\n");
    EXPECT_THAT(aggiorna({}).errori, HasSubstr("https://127.0.0.1:1/due: il server non risponde"));
}

TEST_F(AggiornaCli, DaJet) {
    const auto veri = cartella_condivisa();
    if (!veri) GTEST_SKIP() << "no real archive here";
    const Esito p = esegui({"importa", "--cartella", ".", "--jet", (*veri / "archivio").string()});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_THAT(p.uscita, HasSubstr("46.550"));
    EXPECT_THAT(p.uscita, HasSubstr("./archivio/drawit2.db"));
    const Esito due = esegui({"importa", "--jet", "x", "--lotto", "y"});
    EXPECT_EQ(due.codice, 2);
    EXPECT_THAT(due.errori, HasSubstr("--jet porta tutto l'archivio, e non prende altri file"));
    const Esito vuota = esegui({"importa", "--cartella", ".", "--jet", "."});
    EXPECT_EQ(vuota.codice, 1);
    EXPECT_THAT(vuota.errori, HasSubstr("non vi si trova né drawit.mdb né drawit2.mdb"));
}

}  // namespace
}  // namespace sortimetra::prove
