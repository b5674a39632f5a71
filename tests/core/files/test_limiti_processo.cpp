#include "files/file_sicuro.h"
#include "files/limiti_processo.h"
#include "support/archivi.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <string>

namespace sortimetra {
namespace {

using prove::CartellaProva;

// Each in a process of its own, as a limit holds for all that comes behind it.

[[noreturn]] void scrivi_troppo(const CartellaProva& cartella) {
    ascolta_i_limiti("prova");
    const bool prima = limite_dei_file_raggiunto();
    const rlimit limite{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limite);
    const auto esito = scrivi_file(cartella.percorso() / "grande", std::string(10'000, 'x'));
    const bool giusto = !prima && !esito && limite_dei_file_raggiunto() &&
                        esito.error().motivo == "la scrittura non è riuscita: il file sarebbe troppo grande";
    std::_Exit(giusto ? kFermatoDaUnLimite : 1);
}

TEST(LimitiProcesso, UnFileTroppoGrandeEUnaScritturaNonRiuscita) {
    const CartellaProva cartella;
    EXPECT_EXIT(scrivi_troppo(cartella), testing::ExitedWithCode(kFermatoDaUnLimite), "");
}

void da_chi_non_lascia_passare(void (*lancia)()) noexcept {
    lancia();
}

TEST(LimitiProcesso, LaMemoriaCheFinisceSiDice) {
    EXPECT_EXIT(
        {
            ascolta_i_limiti("prova");
            da_chi_non_lascia_passare([] { throw std::bad_alloc{}; });
        },
        testing::ExitedWithCode(kFermatoDaUnLimite),
        "^prova: la memoria che il sistema concede non basta.\n$");
}

TEST(LimitiProcesso, UnAltroErroreResta) {
    EXPECT_EXIT(
        {
            ascolta_i_limiti("prova");
            da_chi_non_lascia_passare([] { throw 1; });
        },
        testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
}  // namespace sortimetra
