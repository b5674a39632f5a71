#include "files/sessione.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace sortimetra {
namespace {

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

TEST(Sessione, CartelleDelProgramma) {
    Sessione s;
    s.percorso_programma = "/casa";
    EXPECT_EQ(s.percorso_archivio(), "/casa/archivio");
    EXPECT_EQ(s.percorso_ridotti(), "/casa/ridotti");
    EXPECT_EQ(s.percorso_skin(), "/casa/skin");
}

TEST(Sessione, LaCartellaSceltaVale) {
    EXPECT_EQ(cartella_programma("da qui"), "da qui") << "as it was given, there or not";
}

TEST(Sessione, SenzaSceltaQuellaDellUtente) {
    // No archive stands beside the test programs.
    ASSERT_FALSE(std::filesystem::exists(cartella_eseguibile() / "archivio"));
    {
        const Ambiente dati{"XDG_DATA_HOME", "/dati"};
        EXPECT_EQ(cartella_programma(), "/dati/sortimetra");
    }
    const Ambiente casa{"HOME", "/casa/anna"};
    for (const auto& valore :
         {std::optional<std::string>{}, std::optional<std::string>{"dati"}, std::optional<std::string>{""}}) {
        const Ambiente dati{"XDG_DATA_HOME", valore};
        EXPECT_EQ(cartella_programma(), "/casa/anna/.local/share/sortimetra")
            << "a relative one does not count";
    }
}

TEST(Sessione, LaCartellaDelProgrammaCheGira) {
    EXPECT_EQ(cartella_eseguibile(), std::filesystem::canonical(SORTIMETRA_BIN));
}

}  // namespace
}  // namespace sortimetra
