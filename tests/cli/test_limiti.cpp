#include "cli/cartella_cli.h"
#include "cli/comandi.h"
#include "text/senza_controlli.h"

#include <algorithm>
#include <sstream>

// What the program does where the system gives it no more, and what a terminal is shown of names that are
// commands to it.

namespace sortimetra::prove {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Limiti : public ProgrammaTest {
  protected:
    /// The program under a shell's limit ("-v" of memory, "-f" of files), in units of 1024 bytes.
    [[nodiscard]] Esito con_limite(const std::string& limite, int quanto, const std::string& riga) const {
        return esegui_programma("/bin/sh",
                                {"-c", "ulimit " + limite + " " + std::to_string(quanto) +
                                           " && exec '" SORTIMETRA_BIN "/sortimetra-cli' " + riga},
                                {.cartella = casa()});
    }
};

TEST_F(Limiti, LaMemoriaCheNonBastaSiDice) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address sanitizer reserves terabytes of addresses";
#endif
    ASSERT_EQ(esegui({"dimostrazione", "--cartella", "."}).codice, 0);
    int fermati = 0;
    int riusciti = 0;
    for (int mega = 8; mega <= 160; mega += 4) {
        SCOPED_TRACE(mega);
        const Esito p = con_limite("-v", mega * 1024, "ricerca 'ricerche su tutti i terni' --cartella .");
        // Below some size the loader does not even come to the program; what it says is its own.
        if (p.codice == 127 && p.errori.find("shared libraries") != std::string::npos) continue;
        ASSERT_TRUE(p.codice == 0 || p.codice == 3) << p.codice << ' ' << p.errori;
        ++(p.codice == 0 ? riusciti : fermati);
        if (p.codice == 0) continue;
        EXPECT_EQ(p.uscita, "");
        EXPECT_THAT(p.errori, HasSubstr("memoria"));
    }
    EXPECT_GT(fermati, 0);
    EXPECT_GT(riusciti, 0);
}

TEST_F(Limiti, UnFileCheNonPuoCrescereSiDice) {
    importa();
    const std::string cerca = "ricerca 'ritardo e frequenza dei 90 numeri' --cartella .";
    const Esito file = con_limite("-f", 1, cerca + " -o risposta.csv");
    EXPECT_EQ(file.codice, 3);
    EXPECT_EQ(file.uscita, "");
    EXPECT_THAT(file.errori, StartsWith("sortimetra-cli: -o: "));
    EXPECT_FALSE(std::filesystem::exists(casa() / "risposta.csv"));
    const Esito uscita = con_limite("-f", 1, cerca + " > risposta.txt");
    EXPECT_EQ(uscita.codice, 3);
    EXPECT_EQ(uscita.errori,
              "sortimetra-cli: l'uscita non si può scrivere: il file sarebbe troppo grande.\n");
    const auto prima = leggi(casa() / "archivio" / "drawit.db");
    const Esito archivio = con_limite("-f", 2, "importa --lotto lotto.txt --tutto --cartella .");
    EXPECT_EQ(archivio.codice, 3) << archivio.errori;
    EXPECT_THAT(archivio.errori, HasSubstr("drawit.db: la scrittura non è riuscita"));
    EXPECT_EQ(leggi(casa() / "archivio" / "drawit.db"), prima);
}

TEST_F(Limiti, IlTestoDaImportareHaUnaMisura) {
    const auto grande = casa() / "grande.txt";
    scrivi(grande, "x");
    std::filesystem::resize_file(grande, (std::uintmax_t{64} << 20) + 1);  // a hole: no disk is filled
    const Esito p = esegui({"importa", "--lotto", "grande.txt"});
    EXPECT_EQ(p.codice, 1);
    EXPECT_THAT(p.errori,
                HasSubstr("grande.txt: il file è troppo grande: ha 67108865 byte, se ne leggono al più "
                          "67108864"));
}

// ---- what a terminal is shown ----

constexpr std::string_view kComando =
    "\x1b]0;preso\x07\x1b[2J\xc2\x9b"
    "1m\x7f\r\b";

/// No byte that a terminal obeys, however it is written.
void nessun_controllo(const std::string& testo) {
    for (const char c : testo)
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t') << testo;
    EXPECT_THAT(testo, Not(HasSubstr("\xc2\x9b")));
    EXPECT_THAT(testo, Not(HasSubstr("\x7f")));
}

TEST_F(Limiti, GliArgomentiNonComandanoIlTerminale) {
    const std::string brutto{kComando};
    for (const auto& riga : std::vector<std::vector<std::string>>{{brutto},
                                                                  {"ricerca", brutto},
                                                                  {"ricerca", "decine", "--" + brutto},
                                                                  {"ricerca", "decine", "--ruote", brutto},
                                                                  {"archivio", "--cartella", brutto},
                                                                  {"importa", "--lotto", brutto}}) {
        const Esito p = esegui(riga);
        EXPECT_NE(p.codice, 0);
        EXPECT_THAT(p.errori + p.uscita, HasSubstr("\\x1b]0;preso\\x07")) << riga.front();
        nessun_controllo(p.errori);
    }
}

TEST_F(Limiti, NomiECelleNonComandanoIlTerminale) {
    importa();
    std::filesystem::create_directory(casa() / kComando);
    std::filesystem::rename(casa() / "archivio", casa() / kComando / "archivio");
    scrivi(casa() / "grup.dat", "\"" + std::string{kComando} + "\",1,2,3\r\n");
    const auto chiama = [&](const Terminale& terminale) {
        std::ostringstream uscita;
        std::ostringstream errori;
        (void)esegui_comando({"archivio", "--cartella", (casa() / kComando).string()}, uscita, errori,
                             terminale);
        (void)esegui_comando({"gruppi", "--cartella", casa().string()}, uscita, errori, terminale);
        nessun_controllo(errori.str());
        return uscita.str();
    };
    const std::string mostrato = chiama({.errori = true, .uscita = true});
    nessun_controllo(mostrato);
    // (A table has blanks in the place of the first 32 by itself.)
    EXPECT_THAT(mostrato, HasSubstr("\\x9b1m"));
    // What is kept in a file keeps what the user called it.
    EXPECT_EQ(senza_controlli(chiama({})), chiama({.uscita = true}));
}

}  // namespace
}  // namespace sortimetra::prove
