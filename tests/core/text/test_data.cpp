#include "text/data.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace sortimetra {
namespace {

/// A time zone for the rest of its life; the day of the machine comes back at the end.
struct Fuso {
    explicit Fuso(const char* nome) {
        setenv("TZ", nome, 1);
        tzset();
    }
    ~Fuso() {
        unsetenv("TZ");
        tzset();
    }
};

TEST(Oggi, EIlGiornoDovESiTrovaLUtente) {
    // POSIX zones, counted westward. Two that are 26 hours apart never have the same date; between them is
    // one day, or two.
    Data oriente{};
    Data occidente{};
    {
        const Fuso fuso{"AAA-14"};
        oriente = oggi();
    }
    {
        const Fuso fuso{"BBB12"};
        occidente = oggi();
    }
    EXPECT_GE((oriente - occidente).count(), 1);
    EXPECT_LE((oriente - occidente).count(), 2);
    const auto di_greenwich = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    EXPECT_GE(oriente, di_greenwich);
    EXPECT_LE(occidente, di_greenwich);
}

TEST(Date, SiLeggonoComeSiScrivono) {
    for (const char* giorno : {"1871-01-05", "1999-12-31", "2000-02-29", "2026-08-21"})
        EXPECT_EQ(testo_data_iso(leggi_data_iso(giorno).value()), giorno);
    EXPECT_EQ(testo_data(leggi_data_iso("2000-02-29").value()), "29/02/2000");
    EXPECT_EQ(leggi_data_italiana("29/02/2000"), leggi_data_iso("2000-02-29"));
    for (const char* sbagliato : {"", "2001-02-29", "2000-13-01", "2000-1-01", "2000-01-01x", "x000-01-01"})
        EXPECT_EQ(leggi_data_iso(sbagliato), std::nullopt) << sbagliato;
    EXPECT_EQ(leggi_data_italiana("31/04/2000"), std::nullopt);
}

}  // namespace
}  // namespace sortimetra
