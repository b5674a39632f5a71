#include "cli/cartella_cli.h"

#include <nlohmann/json.hpp>

namespace sortimetra::prove {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kLunghette = "lunghette ritardate/frequenti per ambo e terno";
constexpr const char* kPunti10 = "calcolo lunghette per punteggio 10elotto";
constexpr const char* kPuntiWfl = "calcolo lunghette per punteggio";
constexpr const char* kScomposte = "calcolo lunghette scomposte";

class LunghetteCli : public ProgrammaTest {
  protected:
    void SetUp() override { importa(); }
    [[nodiscard]] Esito ricerca(const char* chiave, const std::vector<std::string>& opzioni) const {
        std::vector<std::string> argomenti{"ricerca", chiave, "--cartella", "."};
        argomenti.insert(argomenti.end(), opzioni.begin(), opzioni.end());
        return esegui(argomenti);
    }
    void errata(const char* chiave, const std::vector<std::string>& opzioni, const char* nome) const {
        const Esito p = ricerca(chiave, opzioni);
        SCOPED_TRACE(testing::PrintToString(opzioni));
        EXPECT_EQ(p.codice, 2);
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, HasSubstr(nome));
    }
};

TEST_F(LunghetteCli, UnaRigaETreEtichette) {
    const Esito p = ricerca(kLunghette, {"--ricerca", "2", "--ruote", "TUTTE", "--formato", "json"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    const json j = json::parse(p.uscita);
    EXPECT_EQ(j["tabelle"].size(), 1U);
    EXPECT_EQ(j["tabelle"][0]["titoli"], (json::array({json::array({"Numeri"})})));
    EXPECT_EQ(j["tabelle"][0]["righe"].size(), 1U);
    EXPECT_EQ(j["etichette"].size(), 3U);
    EXPECT_EQ(j["etichette"]["lblnum"].size(), 20U);
    EXPECT_TRUE(j["etichette"]["lblRit_freq"].is_string());
    EXPECT_EQ(j["etichette"]["lbloption"].size(), 3U);
}

TEST_F(LunghetteCli, LeOpzioniCheNonVannoInsiemeSonoUsoErrato) {
    errata(kLunghette, {"--ricerca", "1", "--opzione", "1"}, "--opzione 1");
    errata(kLunghette, {"--ricerca", "2", "--opzione", "3"}, "--opzione 3");
    errata(kLunghette, {"--opzione", "4"}, "--opzione 4");
    errata(kLunghette, {"--opzione", "5"}, "--opzione");
    errata(kLunghette, {"--ricerca", "4"}, "--ricerca");
    errata(kLunghette, {"--lunghezza", "4"}, "--lunghezza");
    errata(kLunghette, {"--lunghezza", "21"}, "--lunghezza");
    errata(kLunghette, {"--posizione"}, "--posizione");
    errata(kPunti10, {"--opzione", "4"}, "--opzione");
    errata(kPunti10, {"--ricerca", "22"}, "--ricerca");
}

TEST_F(LunghetteCli, UnNumeroCheNessunaCasellaPrendeEUsoErrato) {
    errata(kLunghette, {"--opzione", "2", "--numeri", "5,91"}, "--numeri");
    errata(kLunghette, {"--opzione", "2", "--numeri", "5,6,7,8"}, "--numeri");
    errata(kLunghette, {"--opzione", "2", "--numeri", "5,x"}, "--numeri");
    errata(kPuntiWfl, {"--opzione", "2", "--numeri", "21"}, "--numeri");
    errata(kPunti10, {"--opzione", "2", "--numeri", "1,2,3,4,5,6"}, "--numeri");
    // What repeats, a blank and a 0 end the boxes.
    const std::string solo = ricerca(kLunghette, {"--opzione", "2", "--numeri", "5"}).uscita;
    for (const char* numeri : {"5,5,7", "5,0,7", "5,,7"}) {
        SCOPED_TRACE(numeri);
        const Esito p = ricerca(kLunghette, {"--opzione", "2", "--numeri", numeri});
        EXPECT_EQ(p.codice, 0) << p.errori;
        EXPECT_EQ(p.uscita, solo);
    }
}

TEST_F(LunghetteCli, NullaDaFareDiceIlPercheSulCanaleDegliErrori) {
    const auto nulla = [&](const char* chiave, const std::vector<std::string>& opzioni) {
        auto con_json = opzioni;
        con_json.insert(con_json.end(), {"--formato", "json"});
        const Esito p = ricerca(chiave, con_json);
        EXPECT_EQ(p.codice, 1);
        EXPECT_FALSE(p.errori.empty());
        const json j = json::parse(p.uscita);
        EXPECT_THAT(j["tabelle"], IsEmpty());
        EXPECT_THAT(j["etichette"], IsEmpty());
        EXPECT_THAT(j["messaggi"], IsEmpty());
    };
    nulla(kLunghette, {"--da", "3", "--a", "2"});
    nulla(kLunghette, {"--opzione", "2"});
    nulla(kPunti10, {"--da", "3", "--a", "2"});
    nulla(kPuntiWfl, {"--intervallo", "22:00"});
    nulla(kScomposte, {"--meta", "primi", "--da", "2", "--a", "1"});
}

TEST_F(LunghetteCli, LaMetaVaDettaInQualsiasiMaiuscola) {
    errata(kScomposte, {}, "--meta");
    errata(kScomposte, {"--meta", "mezzi"}, "--meta");
    const Esito p = ricerca(kScomposte, {"--meta", "ULTIMI", "--formato", "csv", "--prime", "1"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_EQ(p.uscita, "Numeri;Frequenza;Ritardo;Ritardo Storico\n06-07-08-09-10;1;0;1\n");
    // From the other end the same cinquina has waited one draw; the hour changes nothing.
    const Esito ritardo = ricerca(kScomposte, {"--meta", "ultimi", "--ordine", "ritardo", "--intervallo",
                                               "9:00", "--formato", "csv", "--prime", "1"});
    EXPECT_THAT(ritardo.uscita, HasSubstr("06-07-08-09-10;1;1;1"));
}

TEST_F(LunghetteCli, LaPosizioneOltreDieciHaIlSuoMessaggio) {
    const Esito p = ricerca(kPuntiWfl, {"--posizione", "--lunghezza", "12", "--formato", "json"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_EQ(json::parse(p.uscita)["messaggi"],
              json::array({"Con l'analisi per posizione la lunghetta può essere al massimo di 10 numeri."}));
}

TEST_F(LunghetteCli, AiutoEStampaSeguonoLaRiga) {
    const Esito aiuto = ricerca(kPunti10, {"--aiuto"});
    EXPECT_EQ(aiuto.codice, 0);
    EXPECT_THAT(aiuto.uscita,
                AllOf(HasSubstr("--ricerca N"), HasSubstr("--opzione N"), HasSubstr("--lunghezza N"),
                      HasSubstr("--numeri ELENCO"), HasSubstr("--posizione"), HasSubstr("--frequente")));
    const Esito p =
        esegui({"stampa", kLunghette, "--cartella", ".", "--opzione", "1", "-o", "lunghetta.pdf"});
    EXPECT_EQ(p.codice, 0) << p.errori;
    EXPECT_THAT(leggi(casa() / "lunghetta.pdf"), testing::StartsWith("%PDF"));
}

}  // namespace
}  // namespace sortimetra::prove
