#include "files/blocco_cartella.h"
#include "support/archivi.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace sortimetra {
namespace {

using prove::CartellaProva;

TEST(BloccoCartella, UnoAllaVolta) {
    const CartellaProva cartella;
    {
        auto primo = BloccoCartella::prova(cartella.percorso());
        ASSERT_TRUE(primo);
        EXPECT_FALSE(BloccoCartella::prova(cartella.percorso()));
        const BloccoCartella altrove{std::move(*primo)};
        EXPECT_FALSE(BloccoCartella::prova(cartella.percorso()));
    }
    EXPECT_TRUE(BloccoCartella::prova(cartella.percorso()));
    EXPECT_FALSE(BloccoCartella::prova(cartella.percorso() / "manca"));
    EXPECT_TRUE(std::filesystem::is_empty(cartella.percorso()));
}

TEST(BloccoCartella, UnProgrammaUccisoNonLoTiene) {
    const CartellaProva cartella;
    const pid_t pid = fork();
    if (pid == 0) {
        const auto tenuto = BloccoCartella::prova(cartella.percorso());
        if (tenuto) raise(SIGKILL);
        _exit(1);
    }
    int stato = 0;
    waitpid(pid, &stato, 0);
    EXPECT_TRUE(WIFSIGNALED(stato));
    EXPECT_TRUE(BloccoCartella::prova(cartella.percorso()));
}

}  // namespace
}  // namespace sortimetra
