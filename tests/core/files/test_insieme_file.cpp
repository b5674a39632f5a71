#include "files/file_sicuro.h"
#include "files/insieme_file.h"
#include "support/archivi.h"

#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using prove::CartellaProva;

TEST(InsiemeFile, LUltimaParolaVale) {
    const CartellaProva cartella;
    const auto file = [&](std::string_view nome) { return cartella.percorso() / nome; };
    const auto testo = [&](std::string_view nome) { return leggi_file(file(nome)).value_or("(manca)"); };
    ASSERT_TRUE(scrivi_file(file("a"), "vecchio"));
    ASSERT_TRUE(scrivi_file(file("b"), "vecchio"));
    InsiemeFile insieme;
    EXPECT_TRUE(insieme.ci_sara(file("a")));
    insieme.togli(file("a"));
    insieme.togli(file("b"));
    insieme.scrivi(file("b"), "nuovo");
    insieme.scrivi(file("c"), "nuovo");
    insieme.scrivi(file("d"), "nuovo");
    insieme.togli(file("d"));
    insieme.annuncia(file("trans"), "pronti");
    EXPECT_FALSE(insieme.ci_sara(file("a")));
    EXPECT_TRUE(insieme.ci_sara(file("b")));
    EXPECT_FALSE(insieme.ci_sara(file("d")));
    EXPECT_FALSE(insieme.ci_sara(file("e")));
    EXPECT_TRUE(insieme.ci_sara(file("trans")));
    EXPECT_EQ(testo("a"), "vecchio") << "nothing has happened yet";
    ASSERT_TRUE(insieme.conferma());
    EXPECT_EQ(testo("a"), "(manca)");
    EXPECT_EQ(testo("b"), "nuovo");
    EXPECT_EQ(testo("c"), "nuovo");
    EXPECT_EQ(testo("d"), "(manca)");
    EXPECT_EQ(testo("trans"), "pronti");
}

TEST(InsiemeFile, TuttiONessuno) {
    const CartellaProva cartella;
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "a", "vecchio"));
    InsiemeFile insieme;
    insieme.scrivi(cartella.percorso() / "a", "nuovo");
    insieme.scrivi(cartella.percorso() / "manca/b", "nuovo");
    const auto esito = insieme.conferma();
    ASSERT_FALSE(esito);
    EXPECT_EQ(esito.error().motivo, "non si può scrivere: la cartella non c'è");
    EXPECT_EQ(leggi_file(cartella.percorso() / "a").value(), "vecchio");
}

}  // namespace
}  // namespace sortimetra
