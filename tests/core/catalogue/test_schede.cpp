#include "catalogue/ricerche.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace sortimetra {
namespace {

TEST(Schede, OgniNomeHaLaSuaRicerca) {
    for (const Scheda& s : schede())
        for (const Elenco& e : s.elenchi)
            for (const std::string_view nome : e.voci)
                EXPECT_NE(trova_ricerca(nome), nullptr) << s.nome << ", " << e.nome << ": " << nome;
}

TEST(Schede, NessunNomeDueVolteInUnElenco) {
    for (const Scheda& s : schede())
        for (const Elenco& e : s.elenchi) {
            std::set<const Ricerca*> viste;
            for (const std::string_view nome : e.voci)
                EXPECT_TRUE(viste.insert(trova_ricerca(nome)).second) << e.nome << ": " << nome;
        }
}

TEST(Schede, IlBottoneCheApreSubitoNonHaElenco) {
    const auto gruppi = schede().front().elenchi;
    ASSERT_GT(gruppi.size(), kGruppoTabellaRitardi);
    for (std::size_t g = 0; g < gruppi.size(); ++g)
        EXPECT_EQ(gruppi[g].voci.empty(), g == kGruppoTabellaRitardi) << gruppi[g].nome;
    EXPECT_NE(trova_ricerca(kChiaveTabellaRitardi), nullptr);
}

}  // namespace
}  // namespace sortimetra
