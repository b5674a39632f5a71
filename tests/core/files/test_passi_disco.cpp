#include "files/file_sicuro.h"
#include "files/passi_disco.h"
#include "support/archivi.h"
#include "support/passi.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace sortimetra {
namespace {

using prove::CartellaProva;

TEST(PassiDisco, FannoQuelCheDicono) {
    const CartellaProva cartella;
    const auto a = cartella.percorso() / "a";
    const auto b = cartella.percorso() / "b";
    ASSERT_TRUE(scrivi_file(a, "uno"));
    EXPECT_EQ(collega_file(a, b), 0);
    EXPECT_EQ(collega_file(a, b), EEXIST);
    EXPECT_EQ(leggi_file(b).value(), "uno");
    EXPECT_EQ(std::filesystem::last_write_time(a), std::filesystem::last_write_time(b));
    EXPECT_EQ(togli_file(a), 0);
    EXPECT_EQ(togli_file(a), 0) << "what is not there is as good as removed";
    EXPECT_EQ(rinomina_file(a, b), ENOENT);
    EXPECT_EQ(rinomina_file(b, a), 0);
    EXPECT_EQ(leggi_file(a).value(), "uno");
    const int d = open(a.c_str(), O_RDONLY);
    EXPECT_EQ(fissa_file(d, a), 0);
    close(d);
    EXPECT_EQ(fissa_file(d, a), EBADF);
    fissa_cartella(a);
    fissa_cartella("non/c'è");
}

TEST(PassiDisco, ChiGuardaDecide) {
    const CartellaProva cartella;
    const auto file = cartella.percorso() / "a";
    ASSERT_TRUE(scrivi_file(file, "uno"));
    {
        // The first step goes, the second fails, the third goes again.
        const prove::DiscoGuasto guasto{2};
        EXPECT_EQ(collega_file(file, cartella.percorso() / "b"), 0);
        EXPECT_EQ(togli_file(file), EIO);
        EXPECT_EQ(togli_file(file), 0);
    }
    EXPECT_EQ(togli_file(cartella.percorso() / "b"), 0);
    EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
}

}  // namespace
}  // namespace sortimetra
