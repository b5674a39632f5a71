#include "cli/avanzamento_riga.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <thread>

namespace sortimetra {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

struct Ascolto {
    std::ostringstream uscita;
    std::ostringstream errori;
    Canali canali;
    explicit Ascolto(bool terminale) : canali{uscita, errori, terminale} {}
};

TEST(AvanzamentoRiga, UnLavoroBreveNonDiceNulla) {
    for (const bool terminale : {false, true}) {
        Ascolto a{terminale};
        AvanzamentoRiga riga{a.canali, "prova"};
        EXPECT_TRUE(riga.procedi(1, 2));
        EXPECT_TRUE(riga.procedi(0, 0));
        riga.finito();
        // A machine that stops for half a second in between may have shown it: it is then taken away again.
        EXPECT_TRUE(a.errori.str().empty() || a.errori.str().ends_with("\033[K"));
        EXPECT_EQ(a.uscita.str(), "");
    }
}

TEST(AvanzamentoRiga, UnoLungoSiVedeSulTerminaleEPoiSparisce) {
    Ascolto a{true};
    AvanzamentoRiga riga{a.canali, "prova"};
    std::this_thread::sleep_for(std::chrono::milliseconds{500});
    EXPECT_TRUE(riga.procedi(5, 10));
    EXPECT_THAT(a.errori.str(), EndsWith("prova: 50%"));
    EXPECT_THAT(a.errori.str(), Not(HasSubstr("\n")));
    riga.finito();
    EXPECT_THAT(a.errori.str(), EndsWith("\r\033[K"));
    EXPECT_EQ(a.uscita.str(), "");
}

}  // namespace
}  // namespace sortimetra
