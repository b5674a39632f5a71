#include "files/file_sicuro.h"
#include "files/sessione.h"
#include "support/archivi.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;

/// An environment variable for the rest of its life; what stood there comes back at the end.
class Ambiente {
  public:
    Ambiente(const char* nome, const std::optional<std::string>& valore) : nome_{nome} {
        if (const char* c_era = std::getenv(nome)) prima_ = c_era;
        metti(valore);
    }
    Ambiente(const Ambiente&) = delete;
    Ambiente& operator=(const Ambiente&) = delete;
    ~Ambiente() { metti(prima_); }

  private:
    void metti(const std::optional<std::string>& valore) const {
        if (valore)
            setenv(nome_, valore->c_str(), 1);
        else
            unsetenv(nome_);
    }
    const char* nome_;
    std::optional<std::string> prima_;
};

/// A home folder of its own, with folders in it that hold an archive or none.
class SessioneTest : public ::testing::Test {
  protected:
    [[nodiscard]] const fs::path& casa() const { return casa_.percorso(); }
    [[nodiscard]] fs::path con_archivio(const fs::path& nome) const {
        fs::create_directories(casa() / nome / "archivio");
        return casa() / nome;
    }
    [[nodiscard]] fs::path consueta() const { return casa() / ".local/share/sortimetra"; }

  private:
    CartellaProva casa_;
    Ambiente home_{"HOME", casa_.percorso().string()};
    Ambiente impostazioni_{"XDG_CONFIG_HOME", std::nullopt};
    Ambiente dati_{"XDG_DATA_HOME", std::nullopt};
};

TEST_F(SessioneTest, CartelleDelProgramma) {
    Sessione s;
    s.percorso_programma = "/casa";
    EXPECT_EQ(s.percorso_archivio(), "/casa/archivio");
    EXPECT_EQ(s.percorso_ridotti(), "/casa/ridotti");
    EXPECT_EQ(s.percorso_skin(), "/casa/skin");
}

TEST_F(SessioneTest, SenzaUnaSceltaVaneiDatiDellUtente) {
    EXPECT_EQ(file_impostazioni(), casa() / ".config/sortimetra/impostazioni.ini");
    EXPECT_EQ(cartella_ricordata(), std::nullopt);
    EXPECT_EQ(cartella_programma(), consueta());
    ::setenv("XDG_DATA_HOME", (casa() / "dati").c_str(), 1);
    EXPECT_EQ(cartella_programma(), casa() / "dati/sortimetra");
    // A relative path is none.
    ::setenv("XDG_DATA_HOME", "dati", 1);
    EXPECT_EQ(cartella_programma(), consueta());
}

TEST_F(SessioneTest, SenzaHomeLaSaIlSistema) {
    const Ambiente senza{"HOME", std::nullopt};
    const passwd* io = getpwuid(geteuid());
    if (io == nullptr) GTEST_SKIP() << "this user has no entry";
    EXPECT_EQ(cartella_programma(), fs::path{io->pw_dir} / ".local/share/sortimetra");
    // A home that is no absolute path is none.
    ::setenv("HOME", "", 1);
    EXPECT_EQ(cartella_programma(), fs::path{io->pw_dir} / ".local/share/sortimetra");
    EXPECT_EQ(senza_cartella_programma(), std::nullopt);
}

/// As a user of whom the system knows nothing.
[[noreturn]] void da_sconosciuto() {
    constexpr uid_t kNessuno = 54'321;
    ::unsetenv("HOME");
    if (setresuid(kNessuno, kNessuno, kNessuno) != 0 || getpwuid(kNessuno) != nullptr) std::_Exit(2);
    const bool detto =
        senza_cartella_programma() ==
            "non si sa quale sia la cartella dell'utente (HOME manca): --cartella dice dove lavorare." &&
        !senza_cartella_programma("/qui");
    // Nothing of the current folder's is taken for the user's.
    const bool altrove = file_impostazioni().is_absolute() && cartella_programma().is_absolute() &&
                         !ricorda_cartella("/qui") && !fs::exists(cartella_programma());
    std::_Exit(detto && altrove ? 0 : 1);
}

TEST_F(SessioneTest, SenzaUnaCartellaDellUtenteLoDice) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can become somebody unknown";
    EXPECT_EXIT(da_sconosciuto(), testing::ExitedWithCode(0), "");
    const Ambiente dati{"XDG_DATA_HOME", "/dati"};
    EXPECT_EQ(senza_cartella_programma(), std::nullopt);
}

TEST_F(SessioneTest, LaCartellaSceltaSiRicorda) {
    // Blanks, accents, quotes: a folder's name may hold them all.
    for (const char* nome : {"lotto", "le mie estrazioni", "perché no", " con spazi ai lati ",
                             "\"fra virgolette\"", "a=b;c#d"}) {
        SCOPED_TRACE(nome);
        const auto cartella = con_archivio(nome);
        ASSERT_TRUE(ricorda_cartella(cartella));
        EXPECT_EQ(cartella_ricordata(), cartella);
        EXPECT_EQ(cartella_programma(), cartella);
    }
    // What is chosen for this one time wins.
    EXPECT_EQ(cartella_programma(casa() / "altra"), casa() / "altra");
}

TEST_F(SessioneTest, UnaCartellaRelativaSiRicordaIntera) {
    const auto prima = fs::current_path();
    const auto cartella = con_archivio("lotto");
    fs::current_path(casa());
    ASSERT_TRUE(ricorda_cartella("lotto"));
    fs::current_path(prima);
    EXPECT_EQ(cartella_programma(), cartella);
}

TEST_F(SessioneTest, UnaCartellaSparitaTornaQuandoTorna) {
    const auto cartella = con_archivio("disco");
    ASSERT_TRUE(ricorda_cartella(cartella));
    fs::rename(cartella, casa() / "staccato");
    EXPECT_EQ(cartella_programma(), consueta());
    fs::rename(casa() / "staccato", cartella);
    EXPECT_EQ(cartella_programma(), cartella);
}

TEST_F(SessioneTest, IlRestoDelleImpostazioniResta) {
    fs::create_directories(casa() / ".config/sortimetra");
    ASSERT_TRUE(scrivi_file(file_impostazioni(), "[Altro]\nx=1\n[Cartelle]\ncartella=/prima\nultima=/y\n"));
    EXPECT_EQ(cartella_programma(), consueta());
    const auto cartella = con_archivio("lotto");
    ASSERT_TRUE(ricorda_cartella(cartella));
    EXPECT_EQ(leggi_file(file_impostazioni()),
              "[Altro]\nx=1\n[Cartelle]\ncartella=" + cartella.string() + "\nultima=/y\n");
}

TEST_F(SessioneTest, ImpostazioniCheNonLoSono) {
    fs::create_directories(casa() / ".config/sortimetra");
    const auto qui = con_archivio("lotto");
    for (const std::string& testo :
         {std::string{}, std::string{"\0\xff[Cartelle]", 12}, std::string{"[Cartelle]"},
          std::string{"[Cartelle]\ncartella=\n"}, std::string{"[Cartelle]\ncartella=lotto\n"},
          std::string{"cartella="} + qui.string() + "\n"}) {
        SCOPED_TRACE(testo);
        ASSERT_TRUE(scrivi_file(file_impostazioni(), testo));
        EXPECT_EQ(cartella_programma(), consueta());
    }
    // A folder in the place of the file: nothing is remembered, and it is said.
    fs::remove(file_impostazioni());
    fs::create_directory(file_impostazioni());
    EXPECT_EQ(cartella_programma(), consueta());
    const auto esito = ricorda_cartella(qui);
    ASSERT_FALSE(esito);
    EXPECT_EQ(esito.error().file, file_impostazioni());
}

TEST_F(SessioneTest, UnNomeSuDueRigheNonSiRicorda) {
    const auto prima = con_archivio("lotto");
    ASSERT_TRUE(ricorda_cartella(prima));
    const auto esito = ricorda_cartella(con_archivio("due\nrighe"));
    ASSERT_FALSE(esito);
    EXPECT_EQ(cartella_programma(), prima);
}

TEST_F(SessioneTest, LaCartellaDelProgrammaCheGira) {
    EXPECT_EQ(cartella_eseguibile(), std::filesystem::canonical(SORTIMETRA_BIN));
}

}  // namespace
}  // namespace sortimetra
