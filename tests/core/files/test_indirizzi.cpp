#include "files/file_sicuro.h"
#include "files/indirizzi.h"
#include "files/sessione.h"
#include "support/archivi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace sortimetra {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Indirizzi : public testing::Test {
  protected:
    void SetUp() override {
        if (const char* c_era = std::getenv("XDG_CONFIG_HOME")) prima_ = c_era;
        setenv("XDG_CONFIG_HOME", cartella_.percorso().c_str(), 1);
    }
    void TearDown() override {
        if (prima_)
            setenv("XDG_CONFIG_HOME", prima_->c_str(), 1);
        else
            unsetenv("XDG_CONFIG_HOME");
    }

  private:
    prove::CartellaProva cartella_;
    std::optional<std::string> prima_;
};

TEST_F(Indirizzi, AllInizioNessuno) {
    EXPECT_THAT(leggi_indirizzi(), IsEmpty());
}

TEST_F(Indirizzi, SiScrivonoESiRileggono) {
    const std::vector<std::string> due{"https://uno.invalid/lotto.zip?a=1;b='2'",
                                       "https://due.invalid/s.csv"};
    ASSERT_TRUE(scrivi_indirizzi(due));
    EXPECT_EQ(leggi_indirizzi(), due);
    // One goes, and the other settings stay.
    ASSERT_TRUE(ricorda_cartella("/casa"));
    ASSERT_TRUE(scrivi_indirizzi(std::vector{due[1]}));
    EXPECT_THAT(leggi_indirizzi(), ElementsAre(due[1]));
    EXPECT_THAT(leggi_file(file_impostazioni()).value(), HasSubstr("cartella=/casa"));
    ASSERT_TRUE(scrivi_indirizzi({}));
    EXPECT_THAT(leggi_indirizzi(), IsEmpty());
}

TEST_F(Indirizzi, QuelliCheNonLoSono) {
    for (const std::string indirizzo :
         {"http://uno.invalid", "", "https://", "https://a b", "https://a\nb", "HTTPS:/x"})
        EXPECT_FALSE(scrivi_indirizzi(std::vector{indirizzo})) << indirizzo;
    EXPECT_EQ(rifiuto_indirizzo("HTTPS://uno.invalid"), "");
    const auto troppi = scrivi_indirizzi(std::vector<std::string>(10, "https://uno.invalid"));
    ASSERT_FALSE(troppi);
    EXPECT_EQ(troppi.error().testo(), "si tengono al massimo 9 indirizzi");
    // A hand that wrote something else into the file.
    std::filesystem::create_directories(file_impostazioni().parent_path());
    ASSERT_TRUE(scrivi_file(file_impostazioni(), "[Indirizzi]\r\n1=ftp://x\r\n2=https://y.invalid\r\n"));
    EXPECT_THAT(leggi_indirizzi(), ElementsAre("https://y.invalid"));
}

}  // namespace
}  // namespace sortimetra
