#include "cli/cartella_cli.h"
#include "files/file_sicuro.h"

#include <nlohmann/json.hpp>

namespace sortimetra::prove {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class RicercaTest : public ProgrammaTest {
  protected:
    void SetUp() override { importa(); }
    /// Runs a search in the folder of the archive.
    [[nodiscard]] Esito cerca(std::vector<std::string> argomenti) const {
        argomenti.insert(argomenti.begin(), "ricerca");
        argomenti.insert(argomenti.end(), {"--cartella", "."});
        return esegui(argomenti);
    }
};

constexpr const char* kNovanta = "ritardo e frequenza dei 90 numeri";

TEST_F(RicercaTest, Tabella) {
    const Esito p = cerca({kNovanta, "--ordina", "1", "--prime", "3"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(p.uscita,
              "Ritardo e Frequenza dei 90 numeri\n"
              "\n"
              "Numeri  Frequenza  Ritardo  Ritardo Storico\n"
              "------  ---------  -------  ---------------\n"
              "    12          2        0                1\n"
              "     4          1        2                0\n"
              "     5          1        2                0\n");
}

TEST_F(RicercaTest, LaChiaveNonGuardaLeMaiuscole) {
    EXPECT_EQ(cerca({"RITARDO e Frequenza dei 90 numeri", "--formato", "CSV"}).uscita,
              cerca({kNovanta, "--formato", "csv"}).uscita);
}

TEST_F(RicercaTest, Csv) {
    const Esito p = cerca({kNovanta, "--ruote", "BA,RM", "--formato", "csv", "--prime=8"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(p.uscita,
              "Numeri;Frequenza;Ritardo;Ritardo Storico\n"
              "1;1;2;0\n2;1;2;0\n3;1;2;0\n4;2;2;0\n5;1;2;0\n6;0;3;0\n7;2;1;0\n8;1;1;0\n");
}

TEST_F(RicercaTest, Json) {
    const Esito p = cerca({kNovanta, "--ruote", "NZ", "--formato", "json", "--ordina", "1", "--prime", "2"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(
        p.uscita,
        "{\"chiave\": \"ritardo e frequenza dei 90 numeri\", \"titolo\": \"Ritardo e Frequenza dei 90 "
        "numeri\",\n"
        "\"tabelle\": [{\"nome\": \"risultati\", \"titoli\": [[\"Numeri\", \"Frequenza\", \"Ritardo\", "
        "\"Ritardo Storico\"]],\n"
        " \"righe\": [[\"50\", \"2\", \"0\", \"0\"],\n"
        "  [\"51\", \"1\", \"1\", \"0\"]]}],\n"
        "\"etichette\": {},\n"
        "\"messaggi\": [],\n"
        "\"ambito\": {\"ruote\": \"Nazionale\", \"intervallo\": \"Tutti i Concorsi\", \"da\": 1, \"a\": 3, "
        "\"dal\": \"01/01/2000\", \"al\": \"08/01/2000\", \"T\": 2, \"archivio\": \"drawit.db\"}}\n");
}

TEST_F(RicercaTest, OrdinaComeUnClic) {
    const auto prima = [&](const char* ordine) {
        const Esito p =
            cerca({kNovanta, "--ruote", "BA,RM", "--formato", "csv", "--ordina", ordine, "--prime", "1"});
        return p.uscita.substr(p.uscita.find('\n') + 1);
    };
    EXPECT_EQ(prima("0"), "90;2;2;0\n") << "a first click sorts descending";
    EXPECT_EQ(prima("0:desc"), "90;2;2;0\n");
    EXPECT_EQ(prima("0:asc"), "1;1;2;0\n");
    EXPECT_EQ(prima("1:DESC"), "4;2;2;0\n") << "equal rows keep their order";
}

TEST_F(RicercaTest, UnaColonnaCheNonCE) {
    const Esito p = cerca({kNovanta, "--ordina", "4"});
    EXPECT_EQ(p.codice, 2);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(
        p.errori,
        StartsWith(
            "sortimetra-cli: --ordina: trovato \"4\", atteso il titolo di una colonna (Numeri, Frequenza, "
            "Ritardo, Ritardo Storico) o il suo numero da 0 a 3.\n"));
}

TEST_F(RicercaTest, AmbitoSenzaEstrazioni) {
    for (const char* formato : {"tabella", "csv"}) {
        const Esito p = cerca({kNovanta, "--da", "3", "--a", "2", "--formato", formato});
        EXPECT_EQ(p.codice, 1);
        EXPECT_EQ(p.uscita, "");
        EXPECT_EQ(p.errori, "sortimetra-cli: Non ci sono estrazioni per l'intervallo selezionato\n");
    }
    const Esito p = cerca({kNovanta, "--da", "3", "--a", "2", "--formato", "json"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_EQ(p.errori, "sortimetra-cli: Non ci sono estrazioni per l'intervallo selezionato\n");
    auto oggetto = nlohmann::json::parse(p.uscita);
    EXPECT_EQ(oggetto["ambito"]["T"], 0);
    oggetto.erase("ambito");
    EXPECT_EQ(oggetto, nlohmann::json::parse(R"({"chiave": "ritardo e frequenza dei 90 numeri",
                  "titolo": "Ritardo e Frequenza dei 90 numeri", "tabelle": [], "etichette": {},
                  "messaggi": ["Non ci sono estrazioni per l'intervallo selezionato"]})"));
}

TEST_F(RicercaTest, OgniCapoDelTrattoTornaNellArchivio) {
    const std::string tutto = cerca({kNovanta}).uscita;
    EXPECT_EQ(cerca({kNovanta, "--da", "-7", "--a", "99999999999999999999"}).uscita, tutto);
    EXPECT_EQ(cerca({kNovanta, "--da", "0", "--a", "4"}).uscita, tutto);
    // Both beyond the end: the last concorso alone.
    EXPECT_EQ(cerca({kNovanta, "--da", "99999999999999999999", "--a", "99"}).uscita,
              cerca({kNovanta, "--da", "3", "--a", "3"}).uscita);
}

TEST_F(RicercaTest, RuoteInOgniForma) {
    const std::string due = cerca({kNovanta, "--ruote", "BA,RM"}).uscita;
    EXPECT_EQ(cerca({kNovanta, "--ruote", "RM,BA"}).uscita, due);
    EXPECT_EQ(cerca({kNovanta, "--ruote", "rm, ba,RM"}).uscita, due);
    EXPECT_EQ(cerca({kNovanta, "--ruote=BA,RM"}).uscita, due);
    EXPECT_EQ(cerca({kNovanta, "--ruote", "BA"}).uscita, cerca({kNovanta}).uscita);
    // No wheel runs on Bari with T 0: delays count down from there.
    const Esito nessuna = cerca({kNovanta, "--ruote", "nessuna", "--formato", "csv", "--prime", "4"});
    EXPECT_EQ(nessuna.codice, 0);
    EXPECT_THAT(nessuna.uscita, EndsWith("\n4;1;-1;1\n"));
}

TEST_F(RicercaTest, IntervalloSenzaMaiuscole) {
    const Esito p = cerca({kNovanta, "--intervallo", "tutti i concorsi - MESI DISPARI"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.uscita, cerca({kNovanta}).uscita) << "all three draws are in January";
    EXPECT_EQ(cerca({kNovanta, "--intervallo", "Febbraio"}).codice, 1);
}

TEST_F(RicercaTest, UnOpzioneDAmbitoSenzaSensoNonHaEffetto) {
    const Esito p = cerca({"tabella dei segnalimite cabalistici", "--formato", "csv"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(cerca({"tabella dei segnalimite cabalistici", "--formato", "csv", "--ruote", "NZ", "--da", "9",
                     "--a", "1", "--intervallo", "Marzo"})
                  .uscita,
              p.uscita);
}

TEST_F(RicercaTest, IlCapogiocoLoGiudicaLaRicerca) {
    for (const char* capo : {"0", "91", "99999999999999"}) {
        const Esito p = cerca({"ambata capogioco", "--capogioco", capo, "--formato", "json"});
        EXPECT_EQ(p.codice, 1);
        EXPECT_EQ(p.errori, "sortimetra-cli: Capogioco specificato non valido\n");
        EXPECT_EQ(nlohmann::json::parse(p.uscita)["messaggi"],
                  nlohmann::json::array({"Capogioco specificato non valido"}));
    }
    EXPECT_EQ(cerca({"ambata capogioco"}).codice, 1) << "an empty box reads 0";
    EXPECT_EQ(cerca({"ambata capogioco", "--capogioco", "12"}).codice, 0);
    EXPECT_EQ(cerca({"ambo capogioco", "--capogioco", "12"}).codice, 1) << "a missing second capo reads 0";
}

TEST_F(RicercaTest, INumeriRipetutiContanoUnaVoltaTranneNellaScomposizione) {
    const Esito p = cerca({"scomposizione", "--numeri", "12,12,13", "--sorte", "2", "--formato", "csv"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.uscita, HasSubstr("\n12.12;"));
}

TEST_F(RicercaTest, LaNotaDiUnaCasellaVaSugliErrori) {
    const Esito p = cerca({"tabellone posizionale", "--concorso", "999999", "--formato", "json"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_THAT(p.errori, AllOf(HasSubstr("999999"), HasSubstr("3"), EndsWith("\n")));
    EXPECT_EQ(nlohmann::json::parse(p.uscita)["messaggi"], nlohmann::json::array());
}

// ---- where it goes ----

TEST_F(RicercaTest, SuUnFile) {
    const std::string atteso = cerca({kNovanta, "--formato", "csv"}).uscita;
    scrivi(casa() / "novanta.csv", "vecchio");
    const Esito p = cerca({kNovanta, "--formato", "csv", "-o", "novanta.csv"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.uscita, "");
    EXPECT_EQ(p.errori, "");
    EXPECT_EQ(leggi(casa() / "novanta.csv"), atteso);
}

TEST_F(RicercaTest, SuUnFileCheNonSiPuoScrivere) {
    std::filesystem::create_directory(casa() / "occupato");
    for (const char* dove : {"manca/novanta.csv", "occupato", "lotto.txt/dentro"}) {
        const Esito p = cerca({kNovanta, "-o", dove});
        EXPECT_EQ(p.codice, 1) << dove;
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, AllOf(StartsWith("sortimetra-cli: -o: "), HasSubstr(dove)));
    }
    EXPECT_EQ(leggi(casa() / "lotto.txt"), kLotto);
}

TEST_F(RicercaTest, UnaRicercaSenzaDatiNonToccaIlFile) {
    scrivi(casa() / "novanta.csv", "vecchio");
    EXPECT_EQ(cerca({kNovanta, "--formato", "csv", "--da", "3", "--a", "1", "-o", "novanta.csv"}).codice, 1);
    EXPECT_EQ(leggi(casa() / "novanta.csv"), "vecchio");
}

TEST_F(RicercaTest, UnDispositivoRestaUnDispositivo) {
    EXPECT_EQ(cerca({kNovanta, "-o", "/dev/null"}).codice, 0);
    EXPECT_FALSE(std::filesystem::is_regular_file("/dev/null"));
    const Esito pieno = cerca({kNovanta, "-o", "/dev/full"});
    EXPECT_EQ(pieno.codice, 1);
    EXPECT_EQ(pieno.errori, "sortimetra-cli: -o: /dev/full: il file non si può scrivere\n");
}

TEST_F(RicercaTest, UnUscitaChiusaPienaORotta) {
    const std::vector<std::string> riga{"ricerca", "ricerche su tutti i terni", "--cartella", "."};
    const Esito chiusa = esegui_programma("sortimetra-cli", riga, {.cartella = casa(), .senza_uscita = true});
    EXPECT_EQ(chiusa.codice, 1);
    EXPECT_THAT(chiusa.errori, StartsWith("sortimetra-cli: l'uscita non si può scrivere"));
    const Esito piena =
        esegui_programma("sortimetra-cli", riga, {.cartella = casa(), .uscita_in = "/dev/full"});
    EXPECT_EQ(piena.codice, 1);
    EXPECT_EQ(piena.errori, "sortimetra-cli: l'uscita non si può scrivere: il disco è pieno.\n");
    // Who closed the pipe has had enough: no word, no signal, no failure.
    const Esito rotta = esegui_programma("sortimetra-cli", riga, {.cartella = casa(), .uscita_rotta = true});
    EXPECT_EQ(rotta.codice, 0);
    EXPECT_EQ(rotta.errori, "");
}

TEST_F(RicercaTest, LArchivioNonECambiato) {
    const std::string prima = leggi(casa() / "archivio" / "drawit.db");
    EXPECT_EQ(cerca({"ricerche su tutti gli ambi"}).codice, 0);
    EXPECT_EQ(leggi(casa() / "archivio" / "drawit.db"), prima);
}

// ---- archives that cannot be opened ----

using SenzaArchivio = ProgrammaTest;

TEST_F(SenzaArchivio, Manca) {
    const Esito p = esegui({"ricerca", kNovanta, "--cartella", ".", "--formato", "json"});
    EXPECT_EQ(p.codice, 3);
    EXPECT_EQ(p.uscita, "");
    EXPECT_THAT(p.errori,
                AllOf(StartsWith("sortimetra-cli: ./archivio: "), HasSubstr("sortimetra-cli importa")));
    EXPECT_TRUE(std::filesystem::is_empty(casa()));
}

TEST_F(SenzaArchivio, LaCartellaDiFabbricaEQuellaDellUtente) {
    const Esito p = esegui({"ricerca", kNovanta});
    EXPECT_EQ(p.codice, 3);
    EXPECT_THAT(p.errori, HasSubstr((casa() / ".local/share/sortimetra/archivio").string()));
}

TEST_F(SenzaArchivio, Danneggiato) {
    std::filesystem::create_directory(casa() / "archivio");
    for (const std::string& contenuto : {std::string{}, std::string{"boh"}, std::string(4096, '\0')}) {
        scrivi(casa() / "archivio" / "drawit.db", contenuto);
        const Esito p = esegui({"ricerca", kNovanta, "--cartella", "."});
        EXPECT_EQ(p.codice, 3);
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, StartsWith("sortimetra-cli: ./archivio/drawit.db: "));
    }
}

TEST_F(SenzaArchivio, UnaRicercaCheNonLoUsaVaLoStesso) {
    const Esito p =
        esegui({"ricerca", "tabella dei segnalimite cabalistici", "--formato", "csv", "--prime", "1"});
    EXPECT_EQ(p.codice, 0);
    EXPECT_EQ(p.errori, "");
    EXPECT_THAT(p.uscita, HasSubstr("04 - 07 - 70"));
}

TEST_F(RicercaTest, SiApronoSoltantoLeTabelleCheServono) {
    scrivi(casa() / "archivio" / "drawit2.db", "boh");
    EXPECT_EQ(cerca({kNovanta}).codice, 0);
    EXPECT_EQ(cerca({"ritardo e frequenza dei 20 numeri nella combinazione win for life"}).codice, 3);
}

TEST_F(SenzaArchivio, LeRigheDelLottoRovinateNonToccanoGliAltriGiochi) {
    ASSERT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 0);
    constexpr const char* kSestina = "ritardo e frequenza dei 90 numeri nella sestina superenalotto";
    constexpr const char* kNumeri = "ritardo e frequenza dei 90 numeri";
    const auto cerca = [&](const char* chiave, std::vector<std::string> altre = {}) {
        altre.insert(altre.begin(),
                     {"ricerca", chiave, "--cartella", ".", "--senza-copia", "--formato", "json"});
        return esegui(altre);
    };
    const Esito sana = cerca(kSestina);
    ASSERT_EQ(sana.codice, 0) << sana.errori;
    EXPECT_EQ(cerca(kNumeri).codice, 0);
    // The rows of the Lotto are most of the file: its middle is theirs.
    const auto file = casa() / "archivio" / "drawit.db";
    std::string byte = leggi(file);
    constexpr std::size_t kPagina = 4096;
    const std::size_t mezzo = byte.size() / 2 / kPagina * kPagina;
    byte.replace(mezzo, kPagina, kPagina, '\x5A');
    scrivi(file, byte);
    const Esito dopo = cerca(kSestina);
    EXPECT_EQ(dopo.codice, 0) << dopo.errori;
    EXPECT_EQ(dopo.uscita, sana.uscita) << "its last concorso and its dates, too";
    for (const Esito& e :
         {cerca(kNumeri), cerca(kSestina, {"--da", "2"}), cerca(kSestina, {"--a", "01/01/2005"})}) {
        EXPECT_EQ(e.codice, 3);
        EXPECT_THAT(e.errori, HasSubstr("danneggiato"));
    }
}

// ---- what is printed of the first table ----

TEST_F(RicercaTest, RigheEColonneAParole) {
    const Esito p =
        cerca({kNovanta, "--ruote", "BA,RM", "--formato", "csv", "--dove", "frequenza >= 2 e numeri < 90",
               "--ordina", "Ritardo,Numeri:asc", "--colonne", "ritardo,Numeri", "--prime", "2"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_EQ(p.uscita, "Ritardo;Numeri\n2;4\n1;7\n");
    const Esito vuota = cerca({kNovanta, "--formato", "csv", "--dove", "ritardo > 9999"});
    EXPECT_EQ(vuota.codice, 0);
    EXPECT_EQ(vuota.uscita, "Numeri;Frequenza;Ritardo;Ritardo Storico\n");
    const Esito errata = cerca({kNovanta, "--dove", "boh > 1"});
    EXPECT_EQ(errata.codice, 2);
    EXPECT_EQ(errata.uscita, "");
    EXPECT_THAT(errata.errori, StartsWith("sortimetra-cli: --dove: trovato \"boh\", atteso il titolo"));
}

TEST_F(RicercaTest, LeDateSonoEstremi) {
    // Draws of 1, 4 and 8 January: 1, 2 and 3.
    const auto tratto = [&](const char* da, const char* a) {
        const Esito p = cerca({kNovanta, "--formato", "json", "--da", da, "--a", a});
        const auto ambito = nlohmann::json::parse(p.uscita)["ambito"];
        return std::to_string(ambito["da"].get<int>()) + "-" + std::to_string(ambito["a"].get<int>());
    };
    EXPECT_EQ(tratto("01/01/2000", "08/01/2000"), "1-3");
    EXPECT_EQ(tratto("02/01/2000", "07/01/2000"), "2-2");
    EXPECT_EQ(tratto("04/01/2000", "3"), "2-3");
    EXPECT_EQ(tratto("31/12/1999", "31/12/2099"), "1-3");
    const Esito p = cerca({kNovanta, "--formato", "csv", "--da", "5000"});
    EXPECT_THAT(p.errori, HasSubstr("--da: 5000 riportato a 3\n"));
    EXPECT_EQ(p.codice, 0);
}

TEST_F(RicercaTest, IlFormatoSegueIlNome) {
    EXPECT_EQ(cerca({kNovanta, "-o", "x.json"}).codice, 0);
    EXPECT_TRUE(nlohmann::json::accept(leggi_file(casa() / "x.json").value()));
    EXPECT_EQ(cerca({kNovanta, "-ox.CSV"}).codice, 0);
    EXPECT_THAT(leggi_file(casa() / "x.CSV").value(), StartsWith("Numeri;"));
    EXPECT_EQ(cerca({kNovanta, "-o", "x.xlsx"}).codice, 0);
    EXPECT_THAT(leggi_file(casa() / "x.xlsx").value(), StartsWith("PK"));
    const Esito pdf = esegui({"stampa", kNovanta, "-o", "-", "--cartella", "."});
    EXPECT_EQ(pdf.codice, 0) << pdf.errori;
    EXPECT_THAT(pdf.uscita, StartsWith("%PDF"));
    EXPECT_THAT(cerca({kNovanta, "--formato", "xlsx", "-o", "-"}).uscita, StartsWith("PK"));
}

TEST_F(RicercaTest, DiCheCosaE) {
    const Esito csv = cerca({kNovanta, "--formato", "csv", "--intestazione", "--prime", "0"});
    EXPECT_THAT(csv.uscita, StartsWith("Ricerca;Ritardo e Frequenza dei 90 numeri\nRuote;Bari\n"));
    EXPECT_THAT(csv.uscita, HasSubstr("\nConcorsi;1 - 3\nDal;01/01/2000\nAl;08/01/2000\nEstrazioni;3\n"));
    EXPECT_THAT(cerca({kNovanta, "--intestazione"}).uscita, HasSubstr("\nIntervallo: Tutti i Concorsi\n"));
    EXPECT_THAT(cerca({kNovanta, "--ruote", "nessuna"}).errori,
                HasSubstr("si leggono le estrazioni di Bari e T vale 0"));
    EXPECT_THAT(cerca({"ambo capogioco", "--capogioco", "1,2"}).errori, HasSubstr("7.744"));
}

TEST_F(RicercaTest, ChiaviSenzaAccentiEConBianchi) {
    EXPECT_EQ(cerca({"I 10 numeri PIU'  in ritardo su ogni ruota"}).codice, 2);
    EXPECT_EQ(cerca({"  I 10 numeri PIU   in ritardo su ogni ruota", "--concorso", "1"}).codice, 0);
}

TEST_F(RicercaTest, ParoleDiTutti) {
    for (const auto& riga : {std::vector<std::string>{"aiuto"}, {"--help"}, {"-h"}})
        EXPECT_THAT(esegui(riga).uscita, StartsWith("Uso: sortimetra-cli COMANDO")) << riga[0];
    EXPECT_THAT(esegui({"aiuto", "ricerca"}).uscita, StartsWith("Uso: sortimetra-cli ricerca CHIAVE"));
    EXPECT_THAT(esegui({"ricerca", "decine", "-h"}).uscita, HasSubstr("--tutte-le-ruote"));
    EXPECT_THAT(esegui({"--version"}).uscita, StartsWith("sortimetra-cli "));
}

}  // namespace
}  // namespace sortimetra::prove
