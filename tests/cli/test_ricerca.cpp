#include "cli/cartella_cli.h"

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
    EXPECT_EQ(p.uscita,
              "{\"chiave\": \"ritardo e frequenza dei 90 numeri\", \"titolo\": \"Ritardo e Frequenza dei 90 "
              "numeri\",\n"
              "\"tabelle\": [{\"nome\": \"risultati\", \"titoli\": [[\"Numeri\", \"Frequenza\", \"Ritardo\", "
              "\"Ritardo Storico\"]],\n"
              " \"righe\": [[\"50\", \"2\", \"0\", \"0\"],\n"
              "  [\"51\", \"1\", \"1\", \"0\"]]}],\n"
              "\"etichette\": {},\n"
              "\"messaggi\": []}\n");
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
        StartsWith("sortimetra-cli: --ordina: trovato \"4\", atteso il numero di una colonna da 0 a 3.\n"));
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
    EXPECT_EQ(nlohmann::json::parse(p.uscita),
              nlohmann::json::parse(R"({"chiave": "ritardo e frequenza dei 90 numeri",
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
    // Who closed the pipe needs no word, and no signal.
    const Esito rotta = esegui_programma("sortimetra-cli", riga, {.cartella = casa(), .uscita_rotta = true});
    EXPECT_EQ(rotta.codice, 1);
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

}  // namespace
}  // namespace sortimetra::prove
