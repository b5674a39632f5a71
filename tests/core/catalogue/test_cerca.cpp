#include "catalogue/cerca.h"
#include "text/testi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace sortimetra {
namespace {

std::vector<std::string> nomi(std::string_view testo) {
    std::vector<std::string> trovati;
    for (const VoceElenco& v : cerca(testo)) trovati.emplace_back(v.nome);
    return trovati;
}

TEST(Cerca, SenzaRiguardoAMaiuscoleEAccenti) {
    EXPECT_EQ(nomi("PIU in ritardo"), std::vector<std::string>{"I 10 numeri più in ritardo su ogni ruota"});
    EXPECT_EQ(nomi("più"), nomi("PIÙ"));
    EXPECT_EQ(piega("Però È l'Élite Ñandú ÿ ß × €"), "pero e l'elite nandu y ß × €");
}

TEST(Cerca, ParoleInOgniOrdine) {
    EXPECT_EQ(nomi("renard settine"), std::vector<std::string>{"Settine Renard"});
    EXPECT_EQ(nomi("settine  renard "), std::vector<std::string>{"Settine Renard"});
    EXPECT_TRUE(nomi("renard cinquine").empty());
}

TEST(Cerca, TuttiIGiochi) {
    const auto personali = cerca("numeri personali");
    std::set<std::string_view> giochi;
    for (const auto& v : personali) giochi.insert(v.gioco);
    EXPECT_EQ(giochi, (std::set<std::string_view>{"Lotto", "SuperEnalotto", "10 e Lotto", "Win for Life"}));
    EXPECT_EQ(cerca("win for life tabellone").size(), 1U);
}

TEST(Cerca, PrimaIlNomePoiLaFrase) {
    // "gemelli" stands in two names, and in the sentences of others.
    const auto trovate = cerca("gemelli");
    ASSERT_GT(trovate.size(), 2U);
    const auto nel_nome = [](const VoceElenco& v) {
        return piega(v.nome).find("gemelli") != std::string::npos;
    };
    EXPECT_TRUE(nel_nome(trovate[0]) && nel_nome(trovate[1]));
    EXPECT_TRUE(std::is_partitioned(trovate.begin(), trovate.end(), nel_nome));
}

TEST(Cerca, NullaSenzaParole) {
    EXPECT_TRUE(cerca("").empty());
    EXPECT_TRUE(cerca("   ").empty());
    EXPECT_TRUE(cerca("zzzz").empty());
    EXPECT_TRUE(cerca("\xC3").empty());
}

TEST(Cerca, OgniRicercaUnaVoltaSola) {
    std::set<const Ricerca*> viste;
    for (const auto& v : tutte_le_voci()) EXPECT_TRUE(viste.insert(v.ricerca).second) << v.nome;
    for (const Ricerca& r : ricerche())
        EXPECT_EQ(viste.contains(&r), r.dove != Dove::solo_comandi) << r.chiave();
}

TEST(Cataloghi, OgniRicercaHaLaSuaFrase) {
    for (const Ricerca& r : ricerche()) {
        EXPECT_FALSE(r.frase.empty()) << r.chiave();
        EXPECT_TRUE(r.frase.ends_with(".") || r.frase.ends_with("…")) << r.chiave();
    }
}

}  // namespace
}  // namespace sortimetra
