#include "stores/numerazione.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sortimetra {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Data giorno(std::string_view testo) {
    return leggi_data_italiana(testo).value();
}

/// "CONCORSO data" of each draw that is left.
std::vector<std::string> concorsi(const std::vector<RigaSuperEnalotto>& righe) {
    std::vector<std::string> testi;
    for (const auto& r : righe) testi.push_back(std::to_string(r.concorso) + " " + testo_data(r.data));
    return testi;
}

// (The rules of an import: test_importa.)

TEST(Numerazione, AccantoAQuelliCheCiSonoGia) {
    const std::vector<GiornoConcorso> giorni{
        {giorno("02/06/2001"), 1}, {giorno("06/06/2001"), 2}, {giorno("09/06/2001"), 3}};
    // A draw that borrowed the number of the 6th keeps it.
    std::vector<RigaSuperEnalotto> righe{{.data = giorno("06/06/2001")}, {.data = giorno("09/06/2001")}};
    EXPECT_THAT(numera_superenalotto(righe, giorni, {2}), IsEmpty());
    EXPECT_THAT(concorsi(righe), ElementsAre("1 06/06/2001", "3 09/06/2001"))
        << "the 2nd is nearer than the 9th";
    std::vector<RigaSuperEnalotto> troppi{{.data = giorno("06/06/2001")}};
    EXPECT_THAT(numera_superenalotto(troppi, giorni, {1, 2, 3}),
                ElementsAre("SuperEnalotto del 06/06/2001: nessun concorso libero entro cinque giorni, "
                            "estrazione tralasciata"));
    EXPECT_THAT(troppi, IsEmpty());
}

}  // namespace
}  // namespace sortimetra
