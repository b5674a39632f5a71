#include "files/file_sicuro.h"
#include "personal/file_gruppi.h"
#include "personal/parametri.h"
#include "support/archivi.h"
#include "support/programma.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace sortimetra::prove {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

Esito avvia(const CartellaProva& c, std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.end(), {"--cartella", c.percorso().string()});
    return esegui_programma("sortimetra-cli", argomenti, {.cartella = c.percorso()});
}

TEST(ComandoGruppi, SenzaGruppi) {
    const CartellaProva c;
    const Esito e = avvia(c, {"gruppi"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_EQ(e.uscita, "");
    EXPECT_THAT(e.errori, HasSubstr("Nessun gruppo di lunghette è stato ancora salvato."));
}

TEST(ComandoGruppi, ElencaIGruppi) {
    const CartellaProva c;
    ASSERT_TRUE(salva_gruppo(c.percorso(), "Perché", *leggi_lunghette("1 2 3;4 5 6")));
    const Esito e = avvia(c, {"gruppi", "--json"});
    EXPECT_EQ(e.codice, 0);
    EXPECT_EQ(json::parse(e.uscita), json::parse(R"([{"nome":"Perché","lunghette":2,"numeri":3}])"));
    const Esito testo = avvia(c, {"gruppi"});
    EXPECT_THAT(testo.uscita, HasSubstr("Nome Gruppo"));
    EXPECT_THAT(testo.uscita, HasSubstr("Lunhge"));
}

TEST(ComandoGruppi, UnFileRovinatoSiDice) {
    const CartellaProva c;
    ASSERT_TRUE(scrivi_file(c.percorso() / "grup.dat", "\"A\"\r\n77,3\r\n1\r\n"));
    const Esito e = avvia(c, {"gruppi"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_THAT(e.errori, HasSubstr("riga 2"));
}

TEST(RicerchePerGruppi, UsoErrato) {
    const CartellaProva c;
    ASSERT_EQ(avvia(c, {"dimostrazione"}).codice, 0);
    ASSERT_TRUE(salva_gruppo(c.percorso(), "Tre", *leggi_lunghette("1 2 3;4 5 6")));
    const auto prova = [&](std::vector<std::string> opzioni) {
        opzioni.insert(opzioni.begin(), {"ricerca", "ricerche per gruppi"});
        const Esito e = avvia(c, opzioni);
        EXPECT_TRUE(e.codice == 0 || e.uscita.empty());
        return e.codice;
    };
    EXPECT_EQ(prova({"--gruppo", "Tre", "--sorte", "3"}), 0);
    EXPECT_EQ(prova({"--gruppo", "Tre", "--sorte", "4"}), 2);
    EXPECT_EQ(prova({"--gruppo", "Tre", "--dettaglio", "3"}), 2);
    EXPECT_EQ(prova({"--gruppo", "Tre", "--lunghette", "1 2"}), 2);
    EXPECT_EQ(prova({"--lunghette", "1 2", "--gruppo", "Tre"}), 2);
    EXPECT_EQ(prova({"--lunghette", "1 2;3"}), 2);
    EXPECT_EQ(prova({"--gruppo", "Quattro"}), 1);
    EXPECT_EQ(prova({}), 1);
    EXPECT_EQ(avvia(c, {"ricerca", "piramide statistica", "--ruote", "BA,CA", "--opzione", "1"}).codice, 2);
    EXPECT_EQ(avvia(c, {"ricerca", "piramide statistica", "--numero", "91"}).codice, 2);
    EXPECT_EQ(avvia(c, {"ricerca", "decine", "--entro", "3"}).codice, 2);
    EXPECT_EQ(
        avvia(c, {"ricerca", "ambo capogioco", "--capogioco", "1,2", "--analisi-gruppo", "--schedina", "1"})
            .codice,
        2);
}

TEST(RicercaSchedine, SenzaFileNonNeScrive) {
    const CartellaProva c;
    EXPECT_EQ(avvia(c, {"ricerca", "schedine", "--formato", "json"}).codice, 0);
    EXPECT_FALSE(std::filesystem::exists(c.percorso() / "impir.dat"));
}

}  // namespace
}  // namespace sortimetra::prove
